// The controls of a node's fields are made when the node first comes so near that they can be read.
#include "WindowStage.h"
#include "toolkit/controls/TextBox.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <string>

namespace Tesselor {
namespace {

using TestSupport::WindowStage;

constexpr const char* schema = R"({"id": "Many", "title": "Many", "color": "red",
  "inputs": [{"id": "in", "Type": "Many", "color": "red"}],
  "outputs": [{"id": "out", "Type": "Many", "color": "red", "Multiple": true}],
  "content": [{"Id": "text", "Type": "String"}, {"Id": "hidden", "Type": "SmallString", "Options": {"Active": false}}],
  "Schema": {"text": "text", "hidden": "hidden", "next": {"node": "Many", "pin": "out"}}})";

class FieldsInSight : public testing::Test {
protected:
  FieldsInSight() : directory({schema}) {
    std::string children;
    for (int i = 0; i < 60; ++i)
      children += std::string(i ? "," : "") + R"({"$NodeId": "Many-)" + std::to_string(i) + R"(", "text": "t)" +
                  std::to_string(i) + R"("})";
    const std::string file = R"({"$NodeId": "Many-root", "text": "r", "next": [)" + children +
                             R"(], "$NodeEditorMetadata": {"$WorkspaceID": "Many"}})";
    window.emplace(
        TestSupport::WindowSetup{.document = directory.Write("many.json", file), .directory = directory.Path()});
  }
  BaseField& Text(size_t node) const { return *window->View().ContentNodes().at(node)->FindField("text"); }
  size_t Made() const {
    const auto& nodes = window->View().ContentNodes();
    return static_cast<size_t>(std::count_if(nodes.begin(), nodes.end(),
                                             [](const auto& node) { return node->FindField("text")->HasControls(); }));
  }

  TestSupport::TestWorkspace directory;
  std::optional<WindowStage> window;
};

TEST_F(FieldsInSight, HaveTheirControlsAndTheOthersWait) {
  EXPECT_LT(Made(), 30u);
  const auto& nodes = window->View().ContentNodes();
  ASSERT_EQ(nodes.size(), 61u);
  ContentNode& far = *nodes.back();
  ASSERT_FALSE(Text(60).HasControls());
  const Toolkit::Rect bounds = far.Bounds();
  const std::string before = window->Exported();

  // From so far away a node is a box.
  window->LookAt(*nodes[30], 0.2f);
  const size_t passed = Made();
  const Toolkit::Point start = window->Canvas().GetTranslation(), at = window->ToWindow(far.Middle());
  window->Canvas().SetTranslationClamped(start.x + 640 - at.x, start.y + 400 - at.y);
  window->Settle();
  EXPECT_EQ(Made(), passed);
  window->LookAt(far);
  EXPECT_TRUE(Text(60).HasControls());
  EXPECT_EQ(far.Bounds(), bounds);
  EXPECT_EQ(window->FieldPart<Toolkit::TextBox>(far, "text").GetText(), "t59");
  // A hidden field waits on.
  EXPECT_FALSE(far.FindField("hidden")->HasControls());
  far.ShowInFull(true);
  window->Settle();
  EXPECT_TRUE(far.FindField("hidden")->HasControls());

  window->TypeInto(window->FieldPart<Toolkit::TextBox>(far, "text"), "typed");
  window->Undo();
  window->Settle();
  EXPECT_EQ(window->Exported(), before);
  window->Redo();
  EXPECT_NE(window->Exported(), before);
}

} // namespace
} // namespace Tesselor
