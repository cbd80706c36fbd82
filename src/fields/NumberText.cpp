#include "fields/NumberText.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <clocale>
#include <cmath>
#include <cstdlib>
#include <limits>

namespace Tesselor {

namespace {

bool IsSpace(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }

locale_t CLocale() {
  static const locale_t locale = newlocale(LC_ALL_MASK, "C", nullptr);
  return locale;
}

} // namespace

NumberPrefix<int32_t> ReadIntegerPrefix(std::string_view text) {
  NumberPrefix<int32_t> result;
  size_t at = 0;
  while (at < text.size() && IsSpace(text[at])) ++at;
  const bool isNegative = at < text.size() && text[at] == '-';
  if (at < text.size() && (text[at] == '-' || text[at] == '+')) ++at;
  const int64_t limit = isNegative ? -int64_t(INT32_MIN) : int64_t(INT32_MAX);
  int64_t magnitude = 0;
  for (; at < text.size() && IsDigit(text[at]); ++at) {
    magnitude = magnitude * 10 + (text[at] - '0');
    result.isOutOfRange = result.isOutOfRange || magnitude > limit;
    magnitude = std::min(magnitude, limit);
    result.length = at + 1;
  }
  result.value = static_cast<int32_t>(isNegative ? -magnitude : magnitude);
  return result;
}

NumberPrefix<double> ReadDoublePrefix(std::string_view text) {
  NumberPrefix<double> result;
  const std::string terminated(text);
  char* end = nullptr;
  errno = 0;
  const double value = strtod_l(terminated.c_str(), &end, CLocale());
  result.isOutOfRange = errno == ERANGE;
  result.length = static_cast<size_t>(end - terminated.c_str());
  result.value = value;
  return result;
}

std::optional<int32_t> ParseInteger(std::string_view text) {
  const NumberPrefix<int32_t> number = ReadIntegerPrefix(text);
  return number.IsNumber() ? std::optional(number.value) : std::nullopt;
}

std::optional<double> ParseDouble(std::string_view text) {
  const NumberPrefix<double> number = ReadDoublePrefix(text);
  return number.IsNumber() ? std::optional(number.value) : std::nullopt;
}

std::string FixedText(double value) {
  // Sign, all integer digits of the largest double, point and six digits.
  char buffer[1 + std::numeric_limits<double>::max_exponent10 + 1 + 1 + 6];
  const std::to_chars_result result = std::to_chars(buffer, std::end(buffer), value, std::chars_format::fixed, 6);
  return std::string(buffer, result.ptr);
}

std::string FloatText(double value) {
  std::string text = FixedText(value);
  const size_t point = text.find('.');
  if (point == std::string::npos) return text + ".0";
  const size_t last = text.find_last_not_of('0');
  text.erase(std::max(last, point + 1) + 1);
  return text;
}

bool AreNear(double a, double b) {
  const double larger = std::max(std::abs(a), std::abs(b));
  const double difference = std::abs(a - b);
  return larger < 1e-9 ? difference < 1e-9 : difference / larger < 1e-5;
}

} // namespace Tesselor
