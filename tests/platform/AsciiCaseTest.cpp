#include "platform/AsciiCase.h"

#include <gtest/gtest.h>

namespace Tesselor {

TEST(AsciiCase, ConcernsTheLettersOfAsciiOnly) {
  EXPECT_EQ(UpperCase("aZ[`{@é"), "AZ[`{@é");
  EXPECT_EQ(LowerCase("zA[`{@É"), "za[`{@É");
  EXPECT_TRUE(EqualsIgnoringCase("$NodeId", "$nOdEiD"));
  EXPECT_TRUE(EqualsIgnoringCase("", ""));
  EXPECT_FALSE(EqualsIgnoringCase("$NodeId", "$NodeI"));
  EXPECT_FALSE(EqualsIgnoringCase("@", "`"));
  EXPECT_FALSE(EqualsIgnoringCase("é", "É"));
}

TEST(AsciiCase, FindsAnUpperCaseTextInAnother) {
  EXPECT_TRUE(ContainsUpperCase("Some Word", "WORD"));
  EXPECT_TRUE(ContainsUpperCase("", ""));
  EXPECT_FALSE(ContainsUpperCase("wor", "WORD"));
  EXPECT_FALSE(ContainsUpperCase("é", "É"));
}

} // namespace Tesselor
