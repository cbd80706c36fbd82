#include "document/LongNumbers.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace Tesselor {

namespace {

/// A double keeps every number of so many digits.
constexpr size_t SafeDigits = 15;

constexpr bool IsDigit(char c) { return c >= '0' && c <= '9'; }
constexpr bool IsNumberPart(char c) { return IsDigit(c) || c == '.' || c == '-' || c == '+' || c == 'e' || c == 'E'; }

/// What a number means, whatever way it is written: 0.1e3, 100 and 1.00e2 are equal.
struct Decimal {
  explicit Decimal(std::string_view text) {
    const size_t end = std::min(text.find_first_of("eE"), text.size());
    if (end < text.size())
      exponent = std::clamp(std::strtol(std::string(text.substr(end + 1)).c_str(), nullptr, 10), -Farthest, Farthest);
    bool isFraction = false;
    for (const char c : text.substr(0, end)) {
      if (c == '-') isNegative = true;
      if (c == '.') isFraction = true;
      if (!IsDigit(c) || (c == '0' && digits.empty() && !isFraction)) continue;
      if (isFraction) --exponent;
      if (c != '0' || !digits.empty()) digits += c;
    }
    while (!digits.empty() && digits.back() == '0') {
      digits.pop_back();
      ++exponent;
    }
    if (digits.empty()) *this = Decimal();
  }
  bool operator==(const Decimal&) const = default;

  std::string digits;
  long exponent = 0;
  bool isNegative = false;

private:
  /// Beyond what any double has, and far from what the type can hold.
  static constexpr long Farthest = 1'000'000;
  Decimal() = default;
};

/// Whether the nearest double, rounded to as many digits, is the number again.
bool IsKept(const std::string& token) {
  const Decimal number(token);
  // A hundred digits are more than the parser takes.
  char rounded[128];
  std::snprintf(rounded, sizeof rounded, "%.*g", static_cast<int>(std::clamp<size_t>(number.digits.size(), 1, 100)),
                std::strtod(token.c_str(), nullptr));
  return number == Decimal(rounded);
}

} // namespace

std::vector<LongNumber> FindLongNumbers(std::string_view text) {
  std::vector<LongNumber> found;
  size_t index = 0;
  for (size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (c == '"') {
      for (++i; i < text.size() && text[i] != '"'; ++i)
        if (text[i] == '\\') ++i;
      continue;
    }
    if (c != '-' && !IsDigit(c)) continue;
    const size_t start = i;
    while (i + 1 < text.size() && IsNumberPart(text[i + 1])) ++i;
    const std::string_view token = text.substr(start, i + 1 - start);
    const bool mayBeLost = token.size() > SafeDigits || token.find_first_of("eE") != token.npos;
    if (mayBeLost && !IsKept(std::string(token))) found.push_back({index, std::string(token)});
    ++index;
  }
  return found;
}

} // namespace Tesselor
