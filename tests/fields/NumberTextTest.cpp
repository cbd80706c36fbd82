#include "fields/NumberText.h"
#include "Expected.h"
#include "fields/NumberFilter.h"

#include <gtest/gtest.h>

#include <limits>
#include <sstream>

namespace {

constexpr int32_t lowest = std::numeric_limits<int32_t>::min();
constexpr int32_t highest = std::numeric_limits<int32_t>::max();
constexpr double lowestDouble = std::numeric_limits<double>::lowest();
constexpr double highestDouble = std::numeric_limits<double>::max();

/// "-" for nothing, and texts in quotes with what is no ASCII as "?".
template <class T> std::string Show(const std::optional<T>& value) {
  if (!value) return "-";
  std::ostringstream out;
  out << *value;
  std::string text = out.str();
  for (char& c : text)
    if (static_cast<unsigned char>(c) > 126) c = '?';
  return std::is_same_v<T, std::string> ? "'" + text + "'" : text;
}

TEST(NumberText, ReadsNumbersFromTheStartOfATextAndFiltersWhatIsTyped) {
  const std::string texts[] = {"12abc",
                               " \t-7",
                               "+5-",
                               "1-2",
                               "--5",
                               "-",
                               "",
                               "  ",
                               "0x10",
                               "2147483647",
                               "2147483648",
                               "-2147483648",
                               "-2147483649",
                               "99999999999999999999999999",
                               "1.5x",
                               ".5",
                               "-2e2",
                               "1e",
                               "1e5",
                               "1,5",
                               ".",
                               "abc",
                               "1e999",
                               "-1e999",
                               " 7",
                               "1e-999",
                               "1e308",
                               "0",
                               "10",
                               "5-",
                               "a1b",
                               "ab1",
                               "5 ",
                               "\xc3\xa9"
                               "1\xc3\xa9",
                               "\xa9"
                               "1",
                               "1.5.",
                               "3",
                               "-1",
                               "nan",
                               "7"};
  std::ostringstream dump;
  for (const std::string& text : texts) {
    const auto integer = Tesselor::ReadIntegerPrefix(text);
    const auto filtered = [&](auto filter, auto... bounds) {
      const std::optional<std::string> result = filter(text, bounds..., Tesselor::NumberEntry::Complete);
      return result ? Show(result) : "stays";
    };
    dump << Show(std::optional(text)) << ": integer " << Show(Tesselor::ParseInteger(text)) << " or " << integer.value
         << " of " << integer.length << " bytes, filtered " << filtered(Tesselor::FilterIntegerText, lowest, highest)
         << ", 1 to 9 " << filtered(Tesselor::FilterIntegerText, 1, 9) << ", -9 to -1 "
         << filtered(Tesselor::FilterIntegerText, -9, -1)
         // Contradictory bounds must not send the text back and forth.
         << ", 10 to 5 " << filtered(Tesselor::FilterIntegerText, 10, 5) << "\n  double "
         << Show(Tesselor::ParseDouble(text)) << " of " << Tesselor::ReadDoublePrefix(text).length
         << " bytes, filtered " << filtered(Tesselor::FilterFloatText, lowestDouble, highestDouble) << ", 1 to 2 "
         << filtered(Tesselor::FilterFloatText, 1.0, 2.0) << ", 10 to 5 "
         << filtered(Tesselor::FilterFloatText, 10.0, 5.0) << "\n";
  }
  TestSupport::ExpectText("NumbersOfTexts", dump.str());
}

TEST(NumberText, LetsANumberGrowIntoItsBoundsAndShowsWhatIsSavedInTheEnd) {
  struct Case {
    const char* text;
    double min, max;
    /// What the text becomes while it is typed, and when the box is left.
    const char *typed, *left;
  };
  const Case integers[] = {
      {"2", 10, 99, "2", "10"},
      {"25", 10, 99, "25", "25"},
      {"1", 20, 99, "20", "20"},
      {"0", 10, 99, "0", "10"},
      {"", 10, 99, "", "10"},
      {"100", 10, 99, "99", "99"},
      {"3", 10, 25, "10", "10"},
      {"3", 10, 29, "10", "10"},
      {"3", 10, 30, "3", "10"},
      {"9", 1000, 8000, "1000", "1000"},
      {"7", 1000, 8000, "7", "1000"},
      {"-5", -99, -10, "-5", "-10"},
      {"-1", 10, 99, "10", "10"},
      {"5", -99, -10, "-10", "-10"},
      {"-", 10, 99, "-", "10"},
      {"125-3", 0, 999, "125-3", "125"},
      {"--5", 0, 9, "--5", "0"},
      {"", -5, 5, "", "0"},
      {"99999999999", lowest, highest, "99999999999", "2147483647"},
      {"7", 9, 1, "7", "7"},
  };
  for (const Case& c : integers) {
    const auto min = static_cast<int32_t>(c.min), max = static_cast<int32_t>(c.max);
    const auto typed = Tesselor::FilterIntegerText(c.text, min, max, Tesselor::NumberEntry::Growing);
    EXPECT_EQ(typed.value_or(c.text), c.typed) << c.text << " in " << min << " to " << max;
    EXPECT_EQ(Tesselor::FinishIntegerText(c.text, min, max).value_or(c.text), c.left) << c.text;
  }
  const Case floats[] = {
      {"1", 10, 99, "1", "10.000000"},
      {"9.", 10, 99, "10.000000", "10.000000"},
      {"1.", 1, 2, "1.", "1."},
      {"0", 1, 2, "0", "1.000000"},
      {"0.", 1, 2, "1.000000", "1.000000"},
      {"2", 2.5, 2.75, "2", "2.500000"},
      {"2.4", 2.5, 2.75, "2.500000", "2.500000"},
      {"2.7", 2.71, 2.75, "2.7", "2.710000"},
      {"-", -2, -1, "-", "-1.000000"},
      {"1.50", 0, 9, "1.50", "1.50"},
      {"1-2", 0, 9, "1-2", "1.0"},
      {".", 0, 9, ".", "0.0"},
      {"1e1", 20, 99, "20.000000", "20.000000"},
  };
  for (const Case& c : floats) {
    const auto typed = Tesselor::FilterFloatText(c.text, c.min, c.max, Tesselor::NumberEntry::Growing);
    EXPECT_EQ(typed.value_or(c.text), c.typed) << c.text << " in " << c.min << " to " << c.max;
    EXPECT_EQ(Tesselor::FinishFloatText(c.text, c.min, c.max).value_or(c.text), c.left) << c.text;
  }
}

TEST(NumberText, ShowsDoublesWithSixDecimals) {
  const struct {
    double value;
    const char* fixed;
    const char* trimmed;
  } cases[] = {
      {1.5, "1.500000", "1.5"},
      {3, "3.000000", "3.0"},
      {0.1234567, "0.123457", "0.123457"},
      {1e-7, "0.000000", "0.0"},
      {1e20, "100000000000000000000.000000", "100000000000000000000.0"},
      {-0.5, "-0.500000", "-0.5"},
      {std::numeric_limits<double>::infinity(), "inf", "inf.0"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(Tesselor::FixedText(c.value), c.fixed);
    EXPECT_EQ(Tesselor::FloatText(c.value), c.trimmed);
  }
  EXPECT_EQ(Tesselor::ParseDouble(Tesselor::FixedText(lowestDouble)), lowestDouble);
}

TEST(NumberText, CallsNumbersNearByTheLargerOfTheTwo) {
  const struct {
    double a, b;
    bool near;
  } cases[] = {{5, 5.000001, true}, {5, 5.0001, false},        {0, 1e-10, true},
               {0, 1e-6, false},    {1e20, 1.000001e20, true}, {-1, 1, false}};
  for (const auto& c : cases) EXPECT_EQ(Tesselor::AreNear(c.a, c.b), c.near) << c.a << " " << c.b;
}

} // namespace
