// What the window says about each command.
#include "editor/StatusLine.h"
#include "WindowStage.h"
#include "editor/ConnectionRefusal.h"
#include "toolkit/controls/ButtonBase.h"
#include "toolkit/controls/CheckBox.h"
#include "toolkit/controls/ComboBox.h"
#include "toolkit/controls/Slider.h"
#include "toolkit/controls/TextBlock.h"
#include "toolkit/controls/TextElement.h"
#include "toolkit/render/Brush.h"
#include "workspace/NodeDictionary.h"
#include "workspace/RootType.h"
#include "workspace/Workspace.h"

#include <gtest/gtest.h>

#include <functional>
#include <tuple>

namespace Tesselor {
namespace {

using Toolkit::Key;

class StatusLineTest : public testing::Test {
protected:
  StatusLineTest() : window("quest"), graph(window.View().GetGraph()) {}

  StatusLine& Line() const { return TestSupport::First<StatusLine>(window.Root()); }
  std::string Said() const { return std::string(Line().Text()); }
  void Select(std::vector<BaseNode*> nodes) {
    graph.Selected().Clear();
    for (BaseNode* node : nodes) graph.Selected().Add(*node);
  }

  TestSupport::WindowStage window;
  Graph& graph;
};

TEST_F(StatusLineTest, SaysWhatEachCommandDidOrWhyItDidNothing) {
  EXPECT_EQ(Said(), "Opened quest.json");
  ContentNode& nest = window.Node("The nest");
  BaseNode& other = *graph.ContentNodes()[2];
  BaseNode& group = *graph.GroupNodes()[0];
  const std::string groupName = "group " + std::string(group.Title());
  struct Case {
    std::vector<BaseNode*> selected;
    std::vector<Key> keys;
    std::string said;
  };
  const std::vector<Key> undo{Key::LeftCtrl, Key::Z}, redo{Key::LeftCtrl, Key::Y};
  const Case cases[] = {
      {{}, undo, "Nothing to undo"},
      {{}, redo, "Nothing to redo"},
      {{}, {Key::Delete}, "Nothing is selected to delete"},
      {{}, {Key::LeftCtrl, Key::C}, "Nothing is selected to copy"},
      {{}, {Key::LeftCtrl, Key::X}, "Nothing is selected to cut"},
      {{}, {Key::LeftCtrl, Key::D}, "Nothing is selected to duplicate"},
      {{}, {Key::LeftCtrl, Key::V}, "The clipboard holds no nodes"},
      {{&nest}, {Key::LeftCtrl, Key::C}, "Copied The nest"},
      {{&nest, &other}, {Key::LeftCtrl, Key::C}, "Copied 2 nodes"},
      {{}, {Key::LeftCtrl, Key::V}, "Pasted 2 nodes"},
      {{&nest}, {Key::Right}, "Moved The nest"},
      {{&nest}, undo, "Undone: move of The nest"},
      {{&nest}, redo, "Redone: move of The nest"},
      {{&nest, &other}, {Key::LeftCtrl, Key::X}, "Cut 2 nodes"},
      {{}, undo, "Undone: deletion of 2 nodes"},
      {{&group}, {Key::Delete}, "Deleted " + groupName},
      {{}, {Key::LeftCtrl, Key::S}, "Saved quest.json"},
  };
  for (const Case& each : cases) {
    Select(each.selected);
    window.Chord(each.keys);
    EXPECT_EQ(Said(), each.said);
  }
  window.Chord({Key::LeftCtrl, Key::A});
  window.Press(Key::Delete);
  window.Chord({Key::LeftCtrl, Key::S});
  EXPECT_EQ(Said(), "Not saved: there is no root. Select a node and choose Set Selected Node As Root");
  EXPECT_EQ(window.boxes.Texts().back().find("Cannot export: No root node defined.") != std::string::npos, true);
}

TEST_F(StatusLineTest, DimsAfterAWhileAndThenLeavesTheWindowAsleep) {
  const auto ink = [this] {
    return TestSupport::Named<Toolkit::TextBlock>(Line(), "StatusText")
        .Get<Toolkit::Brush*>(Toolkit::TextElement::ForegroundProperty);
  };
  const auto* fresh = ink();
  EXPECT_TRUE(Line().IsFresh());
  window.Wait(StatusLine::FreshFor - 1000);
  window.Chord({Key::LeftCtrl, Key::Z});
  window.Wait(StatusLine::FreshFor - 1000);
  EXPECT_EQ(ink(), fresh) << "each text has its own time";
  window.Wait(2000);
  EXPECT_NE(ink(), fresh);
  EXPECT_TRUE(window.Shows("Nothing to undo"));
  EXPECT_FALSE(Toolkit::Dispatcher::Current().HasWork());
  // What lies behind the line takes the press.
  const Toolkit::Point at = TestSupport::Stage::MiddleOf(Line());
  for (const Toolkit::UIElement* e = window.Input().ElementAt(at); e; e = e->UIParent()) EXPECT_NE(e, &Line());
}

TEST_F(StatusLineTest, LetsGoOfTheZoomAfterAShortWhileOrByTheNextText) {
  const StatusLine& line = Line();
  const std::vector<Key> nearer{Key::LeftCtrl, Key::Plus};
  window.Chord(nearer);
  EXPECT_TRUE(line.Text().starts_with("Zoom "));
  window.Chord({Key::LeftCtrl, Key::Z});
  window.Wait(StatusLine::ShortWhile + 100);
  EXPECT_EQ(line.Text(), "Nothing to undo");
  window.Chord(nearer);
  window.Wait(StatusLine::ShortWhile - 100);
  EXPECT_TRUE(line.Text().starts_with("Zoom "));
  window.Wait(200);
  EXPECT_EQ(line.Text(), "");
  EXPECT_EQ(line.Get<Toolkit::Visibility>(StatusLine::LineVisibilityProperty), Toolkit::Visibility::Collapsed);
  EXPECT_FALSE(Toolkit::Dispatcher::Current().HasWork());
}

/// A root of each kind of field, with a type that can only be called by its title.
class EditedValues : public testing::Test {
protected:
  std::string Said() const { return std::string(TestSupport::First<StatusLine>(window.Root()).Text()); }
  template <class T> T& Part(const char* field, size_t index = 0) {
    return window.FieldPart<T>(*window.View().RootNode(), field, index);
  }
  void Type(Toolkit::TextBox& box, const char* text) {
    window.TypeInto(box, text);
    window.Focus(&window.View().GetGraph().Panel());
  }

  TestSupport::TestWorkspace workspace{{R"({"id": "Line", "title": "Line", "color": "red", "content": [
      {"Id": "text", "Type": "String", "Options": {"Label": "Words"}},
      {"Id": "long", "Type": "SmallString", "Options": {"Label": "A caption that leaves no room for a node's name"}},
      {"Id": "flag", "Type": "Checkbox", "Options": {"Label": "Is loud"}},
      {"Id": "level", "Type": "IntSlider", "Options": {"Label": "Level", "Min": 0, "Max": 10}},
      {"Id": "kind", "Type": "Enum", "Options": {"Label": "Kind", "Values": ["One", "Two"]}},
      {"Id": "list", "Type": "List", "Options": {"Label": "Parts"}},
      {"Id": "object", "Type": "Object", "Options": {"Label": "Inside", "Fields": [
          {"Id": "inner", "Type": "String", "Options": {"Label": "Depth"}}]}}]})"}};
  TestSupport::WindowStage window{{.directory = workspace.Path(), .size = {1280, 1400}}};
};

TEST_F(EditedValues, AreToldByTheCaptionOfTheirFieldAndTheirNode) {
  window.LookAt(*window.View().RootNode());
  struct Case {
    std::function<void()> edit;
    const char* done;
    const char* undone;
  };
  const Case cases[] = {
      {[&] { Type(Part<Toolkit::TextBox>("text"), "new"); }, "Changed Words of Line to \"new\"",
       "Undone: change of Words of Line to \"new\""},
      {[&] { Type(Part<Toolkit::TextBox>("text"), "Line"); }, "Changed Words to \"Line\"",
       "Undone: change of Words to \"Line\""},
      {[&] { Type(Part<Toolkit::TextBox>("long"), "n"); },
       "Changed A caption that leaves no room for a node's name to \"n\"",
       "Undone: change of A caption that leaves no room for a node's name to \"n\""},
      {[&] { window.Click(Part<Toolkit::CheckBox>("flag")); }, "Checked Is loud of Line",
       "Undone: check of Is loud of Line"},
      {[&] {
         window.Focus(&Part<Toolkit::Slider>("level"));
         window.Press(Key::Right);
         window.Focus(&window.View().GetGraph().Panel());
       },
       "Changed Level of Line to 1", "Undone: change of Level of Line to 1"},
      {[&] { Part<Toolkit::ComboBox>("kind").SetSelectedIndex(1); }, "Chose \"Two\" in Kind of Line",
       "Undone: choice of \"Two\" in Kind of Line"},
      {[&] {
         window.Click(*TestSupport::All<Toolkit::Button>(&window.Field(*window.View().RootNode(), "list")).back());
       },
       "Changed rows of Parts of Line", "Undone: change of rows of Parts of Line"},
      {[&] { Type(Part<Toolkit::TextBox>("object"), "x"); }, "Changed Depth of Line to \"x\"",
       "Undone: change of Depth of Line to \"x\""},
  };
  for (const Case& each : cases) {
    each.edit();
    EXPECT_EQ(Said(), each.done);
    window.Undo();
    EXPECT_EQ(Said(), each.undone);
  }
}

TEST(ConnectionRefusals, NameTheReason) {
  TestSupport::TestWorkspace workspace{{
      R"({"id": "A", "title": "A", "color": "red", "inputs": [{"id": "In", "Type": "T", "Label": "Way in", "color": "red"}],
          "outputs": [{"id": "Out", "Type": "T", "color": "red"}, {"id": "Many", "Type": "T", "Multiple": true, "color": "red"},
                      {"id": "U", "Type": "U", "color": "red"}, {"id": "Any", "Type": "Generic", "color": "red"}]})",
  }};
  TestSupport::WindowStage window({.directory = workspace.Path()});
  Graph& graph = window.View().GetGraph();
  std::vector<Toolkit::Ptr<ContentNode>> nodes;
  for (int i = 0; i < 3; ++i) {
    nodes.push_back(window.View().CurrentRoot()->workspace->nodeDictionary->CreateNode("A", true));
    graph.AddNode(*nodes.back(), 0, 0, false);
    nodes.back()->SetTitle(std::string(1, static_cast<char>('a' + i)));
  }
  const auto pin = [&](int node, const char* id) -> NodePinData& { return *nodes[node]->FindPin(id); };
  graph.Attach(*Toolkit::MakePtr<Connection>(pin(0, "Out"), pin(1, "In")));
  const std::tuple<NodePinData*, NodePinData*, const char*> cases[] = {
      {&pin(0, "Out"), &pin(0, "Out"), "a pin can't be connected to itself"},
      {&pin(0, "Out"), &pin(1, "In"), "they are connected already"},
      {&pin(0, "Out"), &pin(1, "Many"), "both are outputs"},
      {&pin(0, "In"), &pin(1, "In"), "both are inputs"},
      {&pin(0, "U"), &pin(1, "In"), "the types U and T don't fit"},
      {&pin(0, "Many"), &pin(1, "In"), "\"Way in\" of b is taken"},
      {&pin(0, "Out"), &pin(2, "In"), "\"Out\" of a is taken"},
      {&pin(0, "Any"), &pin(2, "In"), ""},
      {&pin(0, "Many"), &pin(2, "In"), ""},
  };
  for (const auto& [a, b, reason] : cases) {
    EXPECT_EQ(ConnectionRefusal(*a, *b), reason);
  }
}

TEST_F(StatusLineTest, SaysNothingWhereNobodyReadsIt) {
  const auto former = Toolkit::MessageBox::SetPresenter({});
  const double next = Toolkit::Dispatcher::Current().TimeToNext();
  window.Undo();
  EXPECT_NE(Said(), "Nothing to undo");
  EXPECT_EQ(Toolkit::Dispatcher::Current().TimeToNext(), next) << "an unattended run would wait for it";
  Toolkit::MessageBox::SetPresenter(former);
}

} // namespace
} // namespace Tesselor
