#include "nodes/NodeIdentity.h"

#include <gtest/gtest.h>

namespace Tesselor {

TEST(NodeIdentity, SplitsAtTheFirstHyphenAndJoinsAgain) {
  const struct {
    const char* text;
    const char* type;
    const char* uuid;
    const char* joined;
  } cases[] = {
      {"Quest-0c1d-4e", "Quest", "0c1d-4e", "Quest-0c1d-4e"},
      {"Quest", "Quest", "", "Quest"},
      {"Quest-", "Quest", "", "Quest"},
      {"-0c1d", "", "0c1d", "-0c1d"},
      {"", "", "", ""},
  };
  for (const auto& test : cases) {
    const NodeIdentity identity = NodeIdentity::Of(test.text);
    EXPECT_EQ(identity.type, test.type) << test.text;
    EXPECT_EQ(identity.uuid, test.uuid) << test.text;
    EXPECT_EQ(identity.Text(), test.joined) << test.text;
  }
}

} // namespace Tesselor
