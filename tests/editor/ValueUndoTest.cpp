// Values are edited in the real window by clicks and keys, and walked back and forth by Ctrl+Z.
#include "CapturedBoxes.h"
#include "CapturedLog.h"
#include "TemporaryDirectory.h"
#include "ToolkitEnvironment.h"
#include "app/ComponentRegistration.h"
#include "editor/MainView.h"
#include "editor/NodeEditorCanvas.h"
#include "nodes/ContentNode.h"
#include "platform/FileDialogs.h"
#include "platform/JsonFile.h"
#include "toolkit/controls/ButtonBase.h"
#include "toolkit/controls/Canvas.h"
#include "toolkit/controls/CheckBox.h"
#include "toolkit/controls/ComboBox.h"
#include "toolkit/controls/Slider.h"
#include "toolkit/controls/TextBox.h"
#include "toolkit/visual/Input.h"
#include "values/ActionHistory.h"

#include <functional>
#include <gtest/gtest.h>

namespace Tesselor {
namespace {

using Toolkit::Button;
using Toolkit::Key;
using Toolkit::MouseButton;
using Toolkit::Point;
using Toolkit::TextBox;

constexpr const char* configuration =
    R"({"WorkspaceName": "Test", "Roots": {"All": {"RootNodeType": "All", "MenuName": "All"}}})";
constexpr const char* schema = R"({"id": "All", "title": "All", "color": "red", "content": [
    {"Id": "text", "Type": "String"}, {"Id": "small", "Type": "SmallString"}, {"Id": "int", "Type": "Int"},
    {"Id": "float", "Type": "Float"}, {"Id": "mixed", "Type": "Mixed"}, {"Id": "raw", "Type": "RawJson"},
    {"Id": "slider", "Type": "IntSlider"}, {"Id": "check", "Type": "Checkbox"},
    {"Id": "file", "Type": "FilePath"}, {"Id": "uuid", "Type": "FilePath", "Options": {"UseUUID": true}},
    {"Id": "enum", "Type": "Enum", "Options": {"Values": ["A", "B"], "Default": "A"}},
    {"Id": "list", "Type": "List"}, {"Id": "dictionary", "Type": "Dictionary"},
    {"Id": "object", "Type": "Object", "Options": {"Fields": [
      {"Id": "text", "Type": "SmallString"}, {"Id": "list", "Type": "List"}]}}],
  "Schema": {"text": "text", "small": "small", "int": "int", "float": "float", "mixed": "mixed", "raw": "raw",
    "slider": "slider", "check": "check", "file": "file", "uuid": "uuid", "enum": "enum", "list": "list",
    "dictionary": "dictionary", "object": "object"}})";

template <class T> void Collect(Toolkit::UIElement& root, std::vector<T*>& found) {
  if (T* element = Toolkit::DynamicCast<T>(&root)) found.push_back(element);
  for (size_t i = 0; i < root.VisualChildCount(); ++i)
    if (Toolkit::UIElement* child = root.VisualChild(i)) Collect(*child, found);
}

/// The window with one node that has a field of each kind.
class ValueUndo : public testing::Test, public FileDialogBackend {
protected:
  ValueUndo() {
    TestSupport::ToolkitEnvironment::Start(&RegisterComponents);
    directory.Write("Workspaces/Test/_Workspace.json", configuration);
    directory.Write("Workspaces/Test/All.json", schema);
    scope = std::make_unique<TestSupport::CurrentDirectoryScope>(directory.Path());
    formerDialogs = FileDialogs::SetBackend(this);
    view = Toolkit::MakePtr<MainView>();
    view->SetClientSize({2000, 3000});
    input = std::make_unique<Toolkit::InputState>(*view);
    view->ChangeRootType("All");
    view->CreateDefaultRoot();
    Settle();
    const ContentNode& node = *view->RootNode();
    view->GetCanvas().ResetViewTo({Toolkit::Canvas::GetLeft(&node) + node.ActualWidth() / 2,
                                   Toolkit::Canvas::GetTop(&node) + node.ActualHeight() / 2});
    History().Clear();
    Settle();
  }
  ~ValueUndo() override {
    input->SetFocus(nullptr);
    History().Clear();
    view->ClearDocument();
    view->DetachAsRoot();
    FileDialogs::SetBackend(formerDialogs);
  }

  std::optional<std::string> Open(const std::string&) override { return chosenFile; }
  std::optional<std::string> Save(const std::string&) override { return {}; }

  static ActionHistory& History() { return ActionHistory::Instance(); }
  void Settle() { view->SetClientSize({2000, 3000}); }
  std::string State() const {
    const JsonPtr json(cJSON_CreateObject());
    view->RootNode()->Serialize(json.get(), false, false);
    return PrintJson(json.get());
  }

  BaseField& Field(const char* name) const { return *view->RootNode()->FindField(name); }
  /// The element of that class at that place in a field's tree.
  template <class T> T& Part(const char* field, size_t index = 0) const {
    std::vector<T*> found;
    Collect(Field(field), found);
    return *found.at(index);
  }
  Button& LastButton(const char* field) const {
    std::vector<Button*> found;
    Collect(Field(field), found);
    return *found.back();
  }

  void ClickAt(Point point) {
    input->MouseMove(point);
    input->MouseDown(MouseButton::Left, point, 1);
    input->MouseUp(MouseButton::Left, point);
    Settle();
  }
  void Click(const Toolkit::UIElement& element, float part = 0.5f) {
    ClickAt(element.TransformToAncestor(nullptr).Map({element.ActualWidth() * part, element.ActualHeight() / 2}));
  }
  /// As a user who is done with a field does.
  void ClickOnCanvas() {
    const NodeEditorCanvas& canvas = view->GetCanvas();
    ClickAt(canvas.TransformToAncestor(nullptr).Map({canvas.ActualWidth() - 20, canvas.ActualHeight() - 20}));
  }
  void Type(TextBox& box, const std::string& text) {
    Click(box);
    ASSERT_TRUE(box.IsFocused());
    Press({Key::LeftCtrl, Key::A});
    input->TextInput(text);
    Settle();
  }
  void Press(const std::vector<Key>& keys) {
    for (const Key key : keys) input->KeyDown(key);
    for (size_t i = keys.size(); i-- > 0;) input->KeyUp(keys[i]);
    Settle();
  }
  void PressUndo() { Press({Key::LeftCtrl, Key::Z}); }
  void PressRedo() { Press({Key::LeftCtrl, Key::LeftShift, Key::Z}); }

  TestSupport::TemporaryDirectory directory;
  std::unique_ptr<TestSupport::CurrentDirectoryScope> scope;
  TestSupport::CapturedBoxes boxes;
  TestSupport::CapturedLog log;
  std::optional<std::string> chosenFile;
  FileDialogBackend* formerDialogs = nullptr;
  Toolkit::Ptr<MainView> view;
  std::unique_ptr<Toolkit::InputState> input;
};

TEST_F(ValueUndo, WalksBackAndForthThroughTheEditsOfAllKinds) {
  chosenFile = directory.Write("hero.json", R"({"Id": "hero-id"})");
  const struct {
    const char* what;
    std::function<void()> edit;
  } edits[] = {
      {"text", [&] { Type(Part<TextBox>("text"), "line \"1\"\\"); }},
      {"the same again", [&] { Type(Part<TextBox>("text"), "other"); }},
      {"small text", [&] { Type(Part<TextBox>("small"), "gr\xc3\xbc\xc3\x9f"); }},
      {"whole number", [&] { Type(Part<TextBox>("int"), "4x2"); }},
      {"number", [&] { Type(Part<TextBox>("float"), "-2.5"); }},
      {"mixed", [&] { Type(Part<TextBox>("mixed"), "true"); }},
      {"raw", [&] { Type(Part<TextBox>("raw"), "[1]"); }},
      {"slider", [&] { Click(Part<Toolkit::Slider>("slider"), 0.8f); }},
      {"tick", [&] { Click(Part<Toolkit::CheckBox>("check")); }},
      {"tick again", [&] { Click(Part<Toolkit::CheckBox>("check")); }},
      {"chosen file", [&] { Click(Part<Button>("file")); }},
      {"typed uuid", [&] { Type(Part<TextBox>("uuid"), "typed"); }},
      {"new row", [&] { Click(LastButton("list")); }},
      {"another row", [&] { Click(LastButton("list")); }},
      {"row text", [&] { Type(Part<TextBox>("list", 1), "second"); }},
      {"row moved up", [&] { Click(Part<Button>("list", 4)); }},
      {"row removed", [&] { Click(Part<Button>("list", 7)); }},
      {"new entry", [&] { Click(LastButton("dictionary")); }},
      {"key", [&] { Type(Part<TextBox>("dictionary", 0), "k"); }},
      {"value", [&] { Type(Part<TextBox>("dictionary", 1), "v"); }},
      {"nested text", [&] { Type(Part<TextBox>("object", 0), "inner"); }},
      {"nested row", [&] { Click(LastButton("object")); }},
  };
  std::vector<std::string> states{State()};
  for (const auto& edit : edits) {
    edit.edit();
    ClickOnCanvas();
    EXPECT_EQ(History().Size(), states.size()) << edit.what;
    states.push_back(State());
    EXPECT_NE(states.back(), states[states.size() - 2]) << edit.what;
  }
  for (int round = 0; round < 2; ++round) {
    for (size_t i = states.size() - 1; i-- > 0;) {
      PressUndo();
      EXPECT_EQ(State(), states[i]) << "undo of: " << edits[i].what;
    }
    for (size_t i = 1; i < states.size(); ++i) {
      PressRedo();
      EXPECT_EQ(State(), states[i]) << "redo of: " << edits[i - 1].what;
    }
  }
  EXPECT_TRUE(boxes.boxes.empty());
}

TEST_F(ValueUndo, MakesNoStepWithoutAChangeAndForSelections) {
  const std::string before = State();
  const auto expectNothing = [&](const char* what) {
    ClickOnCanvas();
    EXPECT_EQ(History().Size(), 0u) << what;
    History().Clear();
  };
  Click(Part<TextBox>("text"));
  expectNothing("a stay without typing");
  Click(Part<TextBox>("small"));
  input->TextInput("ab");
  Press({Key::Back});
  Press({Key::Back});
  expectNothing("typed and deleted again");
  Click(Part<Toolkit::Slider>("slider"), 0.02f);
  Press({Key::PageUp});
  Press({Key::PageDown});
  Press({Key::Home});
  expectNothing("a slider moved there and back");
  EXPECT_EQ(State(), before);
  auto& combo = Part<Toolkit::ComboBox>("enum");
  Click(combo);
  Press({Key::Down});
  Press({Key::Return});
  EXPECT_EQ(Field("enum").GetValueAsString(), "B");
  expectNothing("a selection");
}

} // namespace
} // namespace Tesselor
