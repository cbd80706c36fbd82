#include "platform/CommandLineOptions.h"

#include <gtest/gtest.h>

namespace {

using Tesselor::CommandLineOptions;

TEST(CommandLineOptions, TakesValuesAsTheyStandAndTheLastOfTwo) {
  const struct {
    std::vector<const char*> arguments;
    const char* saveTo;
    const char* workspace;
    bool exits;
    bool isStrict = false;
    bool allowsLoss = false;
  } cases[] = {
      {{"tesselor"}, "", "", false},
      {{"tesselor", "--save-to="}, "", "", false},
      {{"tesselor", "--save-to=\"a b\".json", "--exit-after-save"}, "\"a b\".json", "", true},
      {{"tesselor", "x--save-to=out.json", "x--workspace=Quest"}, "", "", false},
      {{"tesselor", "--exit-after-save=1"}, "", "", false},
      {{"tesselor", "--exit-after-sav", "--strict=1", "--allow-losses"}, "", "", false},
      {{"tesselor", "--strict"}, "", "", false, true},
      {{"tesselor", "--allow-loss"}, "", "", false, false, true},
      {{"tesselor", "--workspace=Quest", "--workspace=Bank"}, "", "Bank", false},
      {{"tesselor", "--save-to=a", "--save-to="}, "", "", false},
      {{"--workspace=first argument counts too"}, "", "first argument counts too", false},
  };
  for (const auto& c : cases) {
    CommandLineOptions options;
    Tesselor::ReadCommandLineOptions(c.arguments, options);
    EXPECT_EQ(options.saveTo, c.saveTo) << c.arguments.back();
    EXPECT_EQ(options.workspaceOverride, c.workspace) << c.arguments.back();
    EXPECT_EQ(options.exitAfterSave, c.exits) << c.arguments.back();
    EXPECT_EQ(options.strict, c.isStrict) << c.arguments.back();
    EXPECT_EQ(options.allowLoss, c.allowsLoss) << c.arguments.back();
  }
}

TEST(CommandLineOptions, FindsLogDirectoriesAndTheAssetAnywhereInAnArgument) {
  const std::vector<const char*> arguments = {
      "tesselor", "x--logs-dir=logs", "--logs-dir=", "a--load-asset=b", "--load-asset=c", "--logs-dir=--logs-dir="};
  EXPECT_EQ(Tesselor::FindLogDirectories(arguments), (std::vector<std::string>{"xlogs", "", "--logs-dir="}));
  EXPECT_EQ(Tesselor::FindAssetToLoad(arguments), "ab");

  const std::vector<const char*> none = {"tesselor", "--logs-dir", "--load-asset"};
  EXPECT_TRUE(Tesselor::FindLogDirectories(none).empty());
  EXPECT_EQ(Tesselor::FindAssetToLoad(none), std::nullopt);
}

} // namespace
