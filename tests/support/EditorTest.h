#pragma once

#include "CapturedBoxes.h"
#include "CapturedLog.h"
#include "Stage.h"
#include "ToolkitEnvironment.h"
#include "ToolkitWarnings.h"
#include "app/ComponentRegistration.h"
#include "workspace/Workspace.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace TestSupport {

/// A workspace whose dictionary holds the given schemas, each a JSON object as text.
inline std::shared_ptr<Tesselor::Workspace> MakeWorkspace(const std::vector<std::string>& schemas) {
  auto workspace = std::make_shared<Tesselor::Workspace>();
  workspace->nodeDictionary = std::make_unique<Tesselor::NodeDictionary>();
  for (const std::string& schema : schemas) {
    const auto parsed = Tesselor::ParseJson(schema);
    EXPECT_TRUE(parsed) << schema;
    if (parsed) workspace->nodeDictionary->AddSchema(parsed.json.get());
  }
  return workspace;
}

/// Base of the tests of the editor's parts: all classes are there, boxes and log lines are kept, and toolkit warnings
/// fail the test.
class EditorTest : public testing::Test {
protected:
  EditorTest() { ToolkitEnvironment::Start(&Tesselor::RegisterComponents); }

  ToolkitWarnings warnings;
  CapturedBoxes boxes;
  CapturedLog log;
};

} // namespace TestSupport
