#include "fields/NumberText.h"
#include "fields/NumberFilter.h"

#include <gtest/gtest.h>
#include <limits>

namespace {

using Tesselor::AreNear;
using Tesselor::FilterFloatText;
using Tesselor::FilterIntegerText;
using Tesselor::FixedText;
using Tesselor::FloatText;
using Tesselor::NumberPrefix;
using Tesselor::ParseDouble;
using Tesselor::ParseInteger;
using Tesselor::ReadDoublePrefix;
using Tesselor::ReadIntegerPrefix;

constexpr int32_t lowest = std::numeric_limits<int32_t>::min();
constexpr int32_t highest = std::numeric_limits<int32_t>::max();
constexpr double lowestDouble = std::numeric_limits<double>::lowest();
constexpr double highestDouble = std::numeric_limits<double>::max();

TEST(NumberText, ReadsIntegersFromTheStartOfAText) {
  const struct {
    const char* text;
    std::optional<int32_t> parsed;
    int32_t value;
    size_t length;
  } cases[] = {
      {"12abc", 12, 12, 2},
      {" \t-7", -7, -7, 4},
      {"+5-", 5, 5, 2},
      {"1-2", 1, 1, 1},
      {"--5", {}, 0, 0},
      {"-", {}, 0, 0},
      {"", {}, 0, 0},
      {"  ", {}, 0, 0},
      {"0x10", 0, 0, 1},
      {"2147483647", highest, highest, 10},
      {"2147483648", {}, highest, 10},
      {"-2147483648", lowest, lowest, 11},
      {"-2147483649", {}, lowest, 11},
      {"99999999999999999999999999", {}, highest, 26},
  };
  for (const auto& c : cases) {
    const NumberPrefix<int32_t> prefix = ReadIntegerPrefix(c.text);
    EXPECT_EQ(ParseInteger(c.text), c.parsed) << c.text;
    EXPECT_EQ(prefix.value, c.value) << c.text;
    EXPECT_EQ(prefix.length, c.length) << c.text;
  }
}

TEST(NumberText, ReadsDoublesFromTheStartOfAText) {
  const struct {
    const char* text;
    std::optional<double> parsed;
    size_t length;
  } cases[] = {
      {"1.5x", 1.5, 3},  {".5", 0.5, 2}, {"-2e2", -200, 4}, {"1e", 1, 1},        {"0x10", 16, 4},
      {"1,5", 1, 1},     {".", {}, 0},   {"", {}, 0},       {"abc", {}, 0},      {"1e999", {}, 5},
      {"-1e999", {}, 6}, {" 7", 7, 2},   {"1e-999", {}, 6}, {"1e308", 1e308, 5},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(ParseDouble(c.text), c.parsed) << c.text;
    EXPECT_EQ(ReadDoublePrefix(c.text).length, c.length) << c.text;
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
    EXPECT_EQ(FixedText(c.value), c.fixed);
    EXPECT_EQ(FloatText(c.value), c.trimmed);
  }
  EXPECT_EQ(ParseDouble(FixedText(lowestDouble)), lowestDouble);
}

TEST(NumberText, CallsNumbersNearByTheLargerOfTheTwo) {
  const struct {
    double a, b;
    bool near;
  } cases[] = {{5, 5.000001, true}, {5, 5.0001, false},        {0, 1e-10, true},
               {0, 1e-6, false},    {1e20, 1.000001e20, true}, {-1, 1, false}};
  for (const auto& c : cases) EXPECT_EQ(AreNear(c.a, c.b), c.near) << c.a << " " << c.b;
}

TEST(NumberFilter, TakesOneStepTowardsAnInteger) {
  const struct {
    const char* text;
    int32_t min, max;
    std::optional<std::string> filtered;
  } cases[] = {
      {"5", lowest, highest, {}},
      {"", lowest, highest, {}},
      {"", 1, 9, "1"},
      {"", -9, -1, "-1"},
      {"0", 1, 9, "1"},
      {"10", 1, 9, "9"},
      {"99999999999", lowest, highest, {}},
      {"99999999999", 1, 9, "9"},
      {"--5", lowest, highest, {}},
      {"1-2", lowest, highest, {}},
      {"5-", lowest, highest, {}},
      {"-", lowest, highest, {}},
      {"a1b", lowest, highest, "1"},
      {"ab1", lowest, highest, "b1"},
      {"1e5", lowest, highest, "15"},
      {"5 ", lowest, highest, "5"},
      {" 5", lowest, highest, {}},
      {"\xc3\xa9"
       "1\xc3\xa9",
       lowest, highest, "1"},
      {"\xa9"
       "1",
       lowest, highest, "1"},
      // Contradictory bounds must not send the text back and forth.
      {"7", 10, 5, {}},
  };
  for (const auto& c : cases) EXPECT_EQ(FilterIntegerText(c.text, c.min, c.max), c.filtered) << c.text;
}

TEST(NumberFilter, TakesOneStepTowardsAFloat) {
  const struct {
    const char* text;
    double min, max;
    std::optional<std::string> filtered;
  } cases[] = {
      {"1e", lowestDouble, highestDouble, "1"},
      {"1e5", lowestDouble, highestDouble, {}},
      {"1.5.", lowestDouble, highestDouble, {}},
      {".", lowestDouble, highestDouble, {}},
      {"1,5", lowestDouble, highestDouble, "15"},
      {"3", 0, 2, "2.000000"},
      {"-1", 0, 2, "0.000000"},
      {"", 1, 2, "1.000000"},
      {"1e999", lowestDouble, highestDouble, FixedText(highestDouble)},
      {"nan", 0, 2, {}},
      {"7", 10, 5, {}},
  };
  for (const auto& c : cases) EXPECT_EQ(FilterFloatText(c.text, c.min, c.max), c.filtered) << c.text;
}

} // namespace
