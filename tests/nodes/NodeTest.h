#pragma once

#include "CapturedBoxes.h"
#include "CapturedLog.h"
#include "TestGraph.h"
#include "ToolkitEnvironment.h"
#include "document/NodeReader.h"
#include "document/NodeWriter.h"
#include "fields/FieldRegistration.h"
#include "nodes/NodeRegistration.h"
#include "toolkit/base/Diagnostics.h"
#include "toolkit/visual/Input.h"
#include "workspace/Workspace.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <string>

namespace TestSupport {

/// Base of the tests of nodes: a dictionary that takes schemas, and a view without a window. Boxes and log lines are
/// kept; toolkit warnings fail the test.
class NodeTest : public testing::Test {
protected:
  NodeTest() {
    Toolkit::SetLogHandler([](const char* file, uint32_t line, Toolkit::LogLevel level, const char*, const char* text) {
      if (level >= Toolkit::LogLevel::Warning) ADD_FAILURE() << file << ":" << line << " " << text;
    });
    workspace.nodeDictionary = std::make_unique<Tesselor::NodeDictionary>();
  }
  ~NodeTest() override { Toolkit::SetLogHandler(nullptr); }

  void AddSchema(const std::string& quoted) {
    const Tesselor::JsonPtr schema = Parse(quoted);
    ASSERT_TRUE(schema) << quoted;
    workspace.nodeDictionary->AddSchema(schema.get());
  }
  /// Makes a node and puts it on the canvas.
  Tesselor::ContentNode& Add(const std::string& id) {
    const Toolkit::Ptr<Tesselor::ContentNode> node = workspace.nodeDictionary->CreateNode(id, true);
    view->AddNode(*node, 0, 0, false);
    return *node;
  }
  /// Lets a node read JSON in which single quotes stand for double ones.
  void Read(Tesselor::ContentNode& node, const std::string& quoted) {
    Tesselor::NodeReader reader(*view, workspace, Tesselor::NewNodes::Unselected);
    node.Deserialize(Parse(quoted).get(), reader);
  }
  /// What the node writes, in the same form.
  static std::string Written(Tesselor::ContentNode& node, Tesselor::NodeIdMember nodeId,
                             Tesselor::FieldsToWrite fields = Tesselor::FieldsToWrite::Changed) {
    const Tesselor::JsonPtr json(cJSON_CreateObject());
    Tesselor::NodeWriter writer(fields);
    node.Serialize(json.get(), writer, nodeId);
    return Print(json.get());
  }
  /// Clicks with the left button into the middle of an element of the canvas.
  void Click(Toolkit::InputState& input, const Toolkit::UIElement& element, uint32_t count = 1) {
    view.Layout();
    const Toolkit::Point middle =
        element.TransformToAncestor(nullptr).Map({element.ActualWidth() / 2, element.ActualHeight() / 2});
    input.MouseMove(middle);
    input.MouseDown(Toolkit::MouseButton::Left, middle, count);
    input.MouseUp(Toolkit::MouseButton::Left, middle);
    view.Layout();
  }
  /// JSON in which single quotes stand for double ones.
  static Tesselor::JsonPtr Parse(std::string quoted) {
    std::replace(quoted.begin(), quoted.end(), '\'', '"');
    return Tesselor::JsonPtr(cJSON_Parse(quoted.c_str()));
  }
  static std::string Print(const cJSON* json) {
    const std::unique_ptr<char, decltype(&cJSON_free)> printed(cJSON_PrintUnformatted(json), &cJSON_free);
    std::string text = printed ? printed.get() : "";
    std::replace(text.begin(), text.end(), '"', '\'');
    return text;
  }

  /// Comes before everything that is made of toolkit objects.
  struct Environment {
    Environment() {
      ToolkitEnvironment::Start([] {
        Tesselor::RegisterFieldTypes();
        Tesselor::RegisterNodeTypes();
      });
    }
  } environment;
  CapturedBoxes boxes;
  CapturedLog log;
  Tesselor::Workspace workspace;
  TestGraph view{"Node"};
};

} // namespace TestSupport
