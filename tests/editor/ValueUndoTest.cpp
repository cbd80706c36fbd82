// Values are edited in the real window by clicks and keys, and walked back and forth by Ctrl+Z.
#include "WindowStage.h"
#include "document/NodeWriter.h"
#include "editor/PanelBaseField.h"
#include "fields/EnumItemData.h"
#include "platform/JsonFile.h"
#include "toolkit/controls/ButtonBase.h"
#include "toolkit/controls/CheckBox.h"
#include "toolkit/controls/ComboBox.h"
#include "toolkit/controls/Slider.h"
#include "toolkit/controls/TextBlock.h"

#include <functional>
#include <gtest/gtest.h>

namespace Tesselor {
namespace {

using Toolkit::Button;
using Toolkit::Key;
using Toolkit::TextBox;

constexpr const char* schema = R"({"id": "All", "title": "All", "color": "red", "content": [
    {"Id": "text", "Type": "String"}, {"Id": "small", "Type": "SmallString"}, {"Id": "int", "Type": "Int"},
    {"Id": "float", "Type": "Float"}, {"Id": "mixed", "Type": "Mixed"}, {"Id": "raw", "Type": "RawJson"},
    {"Id": "slider", "Type": "IntSlider"}, {"Id": "check", "Type": "Checkbox"},
    {"Id": "file", "Type": "FilePath"}, {"Id": "uuid", "Type": "FilePath", "Options": {"UseUUID": true}},
    {"Id": "enum", "Type": "Enum", "Options": {"Values": ["A", "B"], "Default": "A"}},
    {"Id": "filtered", "Type": "EnumFilterable", "Options": {"Values": ["A", "B"]}},
    {"Id": "made", "Type": "SmallString", "Options": {"IsUUID": true, "IsNodeName": true, "Default": ""}},
    {"Id": "files", "Type": "List", "Options": {"Type": "uuid"}},
    {"Id": "list", "Type": "List"}, {"Id": "dictionary", "Type": "Dictionary"},
    {"Id": "object", "Type": "Object", "Options": {"Fields": [
      {"Id": "text", "Type": "SmallString"}, {"Id": "list", "Type": "List"}]}}],
  "Schema": {"text": "text", "small": "small", "int": "int", "float": "float", "mixed": "mixed", "raw": "raw",
    "slider": "slider", "check": "check", "file": "file", "uuid": "uuid", "enum": "enum", "filtered": "filtered",
    "made": "made", "files": "files", "list": "list",
    "dictionary": "dictionary", "object": "object"}})";

/// The window with one node that has a field of each kind.
class ValueUndo : public testing::Test {
protected:
  ValueUndo() : node(*window.View().RootNode()) { window.LookAt(node); }

  std::string State() const {
    const JsonPtr json(cJSON_CreateObject());
    NodeWriter writer(FieldsToWrite::Changed);
    node.Serialize(json.get(), writer, NodeIdMember::Omitted);
    return PrintJson(json.get());
  }

  /// Where edits are made: in the node's own control, or in the inspector's.
  BaseField& Control(const char* id) const {
    BaseField& field = window.Field(node, id);
    if (!isInInspector) return field;
    for (PanelBaseField* row : TestSupport::All<PanelBaseField>(window.Root()))
      if (row->GetNodeField() == &field) return *TestSupport::All<BaseField>(*row).front();
    throw std::runtime_error("the inspector does not show the field");
  }
  template <class T> T& Part(const char* field, size_t index = 0) const {
    return *TestSupport::All<T>(Control(field)).at(index);
  }
  Button& LastButton(const char* field) const { return *TestSupport::All<Button>(Control(field)).back(); }
  /// What the texts, boxes and lists of a field's control show.
  static std::string Shown(BaseField& control) {
    std::string shown;
    for (TextBox* box : TestSupport::All<TextBox>(control)) shown += "[" + std::string(box->GetText()) + "]";
    for (auto* box : TestSupport::All<Toolkit::CheckBox>(control)) shown += box->IsChecked() ? "x" : "-";
    for (auto* slider : TestSupport::All<Toolkit::Slider>(control))
      shown += std::to_string(slider->Get<float>(Toolkit::Slider::ValueProperty));
    for (auto* combo : TestSupport::All<Toolkit::ComboBox>(control)) {
      const auto* option = Toolkit::DynamicCast<EnumItemData>(combo->GetSelectedItem());
      shown += option ? "<" + option->GetValue().ToString() + ">" : "<>";
    }
    for (auto* text : TestSupport::All<Toolkit::TextBlock>(control)) shown += "'" + std::string(text->GetText()) + "'";
    return shown;
  }
  void ExpectBothControlsShowTheSame(const std::string& when) {
    window.Settle();
    for (const auto& [id, field] : node.contentFields) {
      isInInspector = true;
      EXPECT_EQ(Shown(Control(id.c_str())), Shown(*field)) << id << " " << when;
    }
  }
  void Type(const char* field, const std::string& text, size_t index = 0) {
    window.TypeInto(Part<TextBox>(field, index), text);
  }
  void Click(const Toolkit::UIElement& element, float part = 0.5f) {
    const Toolkit::Rect box = window.BoxOf(element);
    window.Click({box.x + box.width * part, box.y + box.height / 2});
  }
  void Choose(const char* field, Key key) {
    Click(Part<Toolkit::ComboBox>(field));
    window.Press(key);
    window.Press(Key::Return);
  }
  /// As a user who is done with a field does.
  void ClickOnCanvas() { window.Click(window.EmptySpot()); }
  /// A click on the canvas would close the inspector.
  void FinishEdit() {
    if (isInInspector)
      window.Focus(window.Canvas().GetPanel());
    else
      ClickOnCanvas();
  }
  void OpenInspector() {
    const Toolkit::Rect box = window.BoxOf(node);
    window.DoubleClick({box.x + box.width / 2, box.Bottom() - 5});
  }

  bool isInInspector = false;
  TestSupport::TestWorkspace workspace{{schema}};
  TestSupport::WindowStage window{{.directory = workspace.Path(), .size = {2000, 3000}}};
  ContentNode& node;
};

class ValueUndoInBothControls : public ValueUndo, public testing::WithParamInterface<bool> {};

INSTANTIATE_TEST_SUITE_P(NodeAndInspector, ValueUndoInBothControls, testing::Bool());

TEST_P(ValueUndoInBothControls, WalksBackAndForthThroughTheEditsOfAllKinds) {
  isInInspector = GetParam();
  if (isInInspector) OpenInspector();
  window.dialogs.path = workspace.Write("hero.json", R"({"Id": "hero-id"})");
  const struct {
    const char* what;
    std::function<void()> edit;
  } edits[] = {
      {"text", [&] { Type("text", "line \"1\"\\"); }},
      {"the same again", [&] { Type("text", "other"); }},
      {"small text", [&] { Type("small", "gr\xc3\xbc\xc3\x9f"); }},
      {"whole number", [&] { Type("int", "4x2"); }},
      {"number", [&] { Type("float", "-2.5"); }},
      {"mixed", [&] { Type("mixed", "true"); }},
      {"raw", [&] { Type("raw", "[1]"); }},
      {"slider", [&] { Click(Part<Toolkit::Slider>("slider"), 0.8f); }},
      {"tick", [&] { Click(Part<Toolkit::CheckBox>("check")); }},
      {"tick again", [&] { Click(Part<Toolkit::CheckBox>("check")); }},
      {"chosen file", [&] { Click(Part<Button>("file")); }},
      {"typed uuid", [&] { Type("uuid", "typed"); }},
      {"new row", [&] { Click(LastButton("list")); }},
      {"another row", [&] { Click(LastButton("list")); }},
      {"row text", [&] { Type("list", "second", 1); }},
      {"row moved up", [&] { Click(Part<Button>("list", 4)); }},
      {"row removed", [&] { Click(Part<Button>("list", 7)); }},
      {"new entry", [&] { Click(LastButton("dictionary")); }},
      {"key", [&] { Type("dictionary", "k"); }},
      {"value", [&] { Type("dictionary", "v", 1); }},
      {"second entry", [&] { Click(LastButton("dictionary")); }},
      {"entry moved down", [&] { Click(Part<Button>("dictionary", 1)); }},
      {"option", [&] { Choose("enum", Key::Down); }},
      {"first option", [&] { Choose("filtered", Key::Down); }},
      {"other option", [&] { Choose("filtered", Key::Down); }},
      {"made uuid", [&] { Click(Part<Button>("made", 0)); }},
      {"made name", [&] { Click(Part<Button>("made", 1)); }},
      {"row for a file", [&] { Click(LastButton("files")); }},
      {"file for the row", [&] { Click(Part<Button>("files", 2)); }},
      {"nested text", [&] { Type("object", "inner"); }},
      {"nested row", [&] { Click(LastButton("object")); }},
  };
  std::vector<std::string> states{State()};
  for (const auto& edit : edits) {
    edit.edit();
    FinishEdit();
    EXPECT_EQ(window.History().Size(), states.size()) << edit.what;
    states.push_back(State());
    EXPECT_NE(states.back(), states[states.size() - 2]) << edit.what;
    if (GetParam()) ExpectBothControlsShowTheSame(edit.what);
  }
  for (int round = 0; round < 2; ++round) {
    for (size_t i = states.size() - 1; i-- > 0;) {
      window.Undo();
      EXPECT_EQ(State(), states[i]) << "undo of: " << edits[i].what;
      if (GetParam()) ExpectBothControlsShowTheSame("after the undo of: " + std::string(edits[i].what));
    }
    for (size_t i = 1; i < states.size(); ++i) {
      window.Redo();
      EXPECT_EQ(State(), states[i]) << "redo of: " << edits[i - 1].what;
    }
  }
  EXPECT_TRUE(window.boxes.boxes.empty());
}

TEST_F(ValueUndo, MakesNoStepWithoutAChange) {
  const std::string before = State();
  const auto expectNothing = [&](const char* what) {
    ClickOnCanvas();
    EXPECT_EQ(window.History().Size(), 0u) << what;
    window.History().Clear();
  };
  Click(Part<TextBox>("text"));
  expectNothing("a stay without typing");
  Click(Part<TextBox>("small"));
  window.Type("ab");
  window.Press(Key::Back);
  window.Press(Key::Back);
  expectNothing("typed and deleted again");
  Click(Part<Toolkit::Slider>("slider"), 0.02f);
  window.Press(Key::PageUp);
  window.Press(Key::PageDown);
  window.Press(Key::Home);
  expectNothing("a slider moved there and back");
  EXPECT_EQ(State(), before);
  Choose("enum", Key::Up);
  expectNothing("the option that was chosen before");
}

TEST_F(ValueUndo, TakesBackWhatIsDoneToAComment) {
  Graph& graph = window.View().GetGraph();
  CommentNode& comment = graph.AddCommentNode(node.Bounds().x, node.Bounds().Bottom() + 100);
  comment.SetCommentText("old");
  window.Settle();
  auto& box = *comment.FindName<TextBox>("CommentTextBox");
  const auto state = [&comment] { return PrintJson(comment.ToJson().get(), JsonForm::Compact); };
  const std::string before = state();
  window.TypeInto(box, "new");
  const auto font = [&](const char* button) { Click(*comment.FindName<Button>(button)); };
  font("IncreaseFontBigBtn");
  ClickOnCanvas();
  EXPECT_EQ(comment.CommentText(), "new");
  EXPECT_EQ(comment.CommentFontSize(), 33);
  ASSERT_EQ(window.History().Size(), 2u) << "the font while the text is being edited, then the text";
  window.Undo();
  EXPECT_EQ(comment.CommentText(), "old");
  window.Undo();
  EXPECT_EQ(state(), before);
  window.Redo();
  window.Redo();
  EXPECT_EQ(comment.CommentText(), "new");
  EXPECT_EQ(comment.CommentFontSize(), 33);
  // At its bound nothing changes, which is no step.
  comment.SetCommentFontSize(128);
  window.Focus(&box);
  font("IncreaseFontBtn");
  ClickOnCanvas();
  EXPECT_EQ(window.History().Size(), 2u);
}

TEST_F(ValueUndo, KeepsWhatWasUndoneInItsOwnBoxWhenTheBoxIsLeft) {
  Graph& graph = window.View().GetGraph();
  CommentNode& comment = graph.AddCommentNode(node.Bounds().x, node.Bounds().Bottom() + 100);
  window.Settle();
  const auto move = [&] {
    ClickOnCanvas();
    graph.Selected().Clear();
    graph.Selected().Add(comment);
    window.Press(Key::Right);
  };
  for (TextBox* box : {&Part<TextBox>("text"), &Part<TextBox>("small"), comment.FindName<TextBox>("CommentTextBox")}) {
    window.History().Clear();
    move();
    window.Undo();
    window.Focus(box);
    window.Type("one ");
    window.Type("two");
    window.Undo();
    EXPECT_EQ(box->GetText(), "one ");
    EXPECT_EQ(window.History().Size(), 1u) << "in the box it is no step yet";
    ClickOnCanvas();
    EXPECT_EQ(box->GetText(), "one ");
    EXPECT_EQ(window.History().Size(), 2u) << "the move that was undone before is gone";
    window.Redo();
    EXPECT_EQ(box->GetText(), "one two");
    window.Redo();
    EXPECT_EQ(box->GetText(), "one two");
    window.Undo();
    window.Undo();
    EXPECT_EQ(box->GetText(), "");
    // Undone and redone in the box, it is a step like any other.
    window.Focus(box);
    window.Type("new");
    window.Undo();
    window.Redo();
    ClickOnCanvas();
    EXPECT_EQ(box->GetText(), "new");
    EXPECT_EQ(window.History().UndoneCount(), 0u);
    window.Undo();
    EXPECT_EQ(box->GetText(), "");
  }
}

} // namespace
} // namespace Tesselor
