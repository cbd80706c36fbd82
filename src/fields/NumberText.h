#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace Tesselor {

/// How numbers are read from text and shown as text. The rules are those of the C locale, whatever locale the process
/// runs in.

/// A number read from the start of a text; what follows it is left alone.
template <class T> struct NumberPrefix {
  /// Saturated at the limits of its type if the text's number lies beyond them.
  T value = 0;
  /// Bytes taken, leading white space included; 0 if the text does not begin with a number.
  size_t length = 0;
  bool isOutOfRange = false;

  bool IsNumber() const { return length > 0 && !isOutOfRange; }
};

/// Decimal digits behind optional white space and one sign.
NumberPrefix<int32_t> ReadIntegerPrefix(std::string_view text);
/// What `strtod` takes: decimal or hexadecimal, with exponent, "inf" and "nan".
NumberPrefix<double> ReadDoublePrefix(std::string_view text);

/// The number that the text begins with; nothing if there is none or if it is out of range.
std::optional<int32_t> ParseInteger(std::string_view text);
std::optional<double> ParseDouble(std::string_view text);

/// Six digits behind the point, no exponent ("1.500000").
std::string FixedText(double value);
/// As `FixedText`, but zeros at the end go as long as one digit stays behind the point ("1.5", "3.0").
std::string FloatText(double value);

/// Whether two numbers differ by no more than what `FloatText` and editing lose: relatively, or absolutely near 0.
bool AreNear(double a, double b);

} // namespace Tesselor
