#include "editor/NodesMenu.h"
#include "EditorTest.h"
#include "Expected.h"
#include "editor/CreateNodeButton.h"
#include "editor/NodeCategoryHeader.h"
#include "toolkit/controls/ButtonBase.h"
#include "toolkit/controls/Canvas.h"
#include "toolkit/controls/HeaderedContentControl.h"
#include "toolkit/controls/Shapes.h"
#include "toolkit/controls/TextBlock.h"
#include "toolkit/render/Brush.h"

namespace {

using Tesselor::CreateNodeButton;
using Tesselor::DroppedPinSide;
using Tesselor::NodeMenuFilter;
using Tesselor::NodesMenu;
using Tesselor::NodeTypeList;
using Toolkit::Color;
using Toolkit::Visibility;

std::string Schema(const std::string& id, const std::string& title, const std::string& color, const std::string& input,
                   const std::string& output) {
  return R"({"id": ")" + id + R"(", "title": ")" + title + R"(", "color": ")" + color + R"(", "Description": "About )" +
         id + R"(", "inputs": [{"id": "In", "Type": ")" + input + R"(", "color": "red"}],)" +
         R"("outputs": [{"id": "Out", "Type": ")" + output + R"(", "color": "red"}]})";
}

class NodesMenuTest : public TestSupport::EditorTest {
protected:
  NodesMenuTest() {
    panel->SetValue(Toolkit::UIElement::FocusableProperty, true);
    panel->AddChild(menu.Get());
    Tesselor::NodeDictionary& dictionary = *workspace->nodeDictionary;
    for (const auto& [category, id] : {std::pair("Dialogue", "Line"),
                                       {"Dialogue", "Choice"},
                                       {"Options", "Choice"},
                                       {"Options", "Option"},
                                       {"Options", "Gone"}})
      dictionary.AddToCategory(category, id);
    menu->SetWorkspace(workspace);
    stage.Put(*panel);
  }

  /// The rows that show.
  std::vector<Toolkit::Expander*> Rows() {
    std::vector<Toolkit::Expander*> rows;
    for (size_t i = 0; i < menu->GetList()->ChildCount(); ++i) {
      auto* frame = static_cast<Toolkit::Grid*>(menu->GetList()->Child(i));
      if (frame->GetVisibility() == Visibility::Visible)
        rows.push_back(static_cast<Toolkit::Expander*>(frame->Child(0)));
    }
    return rows;
  }
  Toolkit::Expander* Row(size_t index) { return Rows().at(index); }

  /// "<category>+ <id> <id>; ..." as the rows stand, with + for an open one and * before the marked entry.
  std::string Listed() {
    std::string text;
    for (const Toolkit::Expander* row : Rows()) {
      auto* header = static_cast<Toolkit::UIElement*>(row->GetHeader().AsObject());
      text += std::string(TestSupport::All<Toolkit::TextBlock>(header).at(0)->GetText());
      text += row->IsExpanded() ? "+" : "";
      const auto* types = static_cast<NodeTypeList*>(row->GetContent().AsObject());
      for (size_t k = 0; k < types->Shown().size(); ++k)
        text += (&types->ShownAt(k) == menu->Marked() ? " *" : " ") + types->ShownAt(k).id;
      text += "; ";
    }
    return text;
  }

  const Tesselor::NodePinBlueprint* Pin(const std::string& node, bool isInput) {
    const Tesselor::NodeBlueprint* blueprint = workspace->nodeDictionary->FindBlueprint(node);
    return (isInput ? blueprint->inputs : blueprint->outputs).at(0).get();
  }

  std::shared_ptr<Tesselor::Workspace> workspace = TestSupport::MakeWorkspace({
      Schema("Line", "A line", "red", "Talk", "Talk"),
      Schema("Choice", "A choice", "red", "Talk", "Option"),
      Schema("Option", "One option", "blue", "Option", "Talk"),
      Schema("Loose", "Loose end", "green", "Thing", "Generic"),
  });
  Toolkit::Ptr<NodesMenu> menu = Toolkit::MakePtr<NodesMenu>();
  Toolkit::Ptr<Toolkit::Canvas> panel = Toolkit::MakePtr<Toolkit::Canvas>();
  TestSupport::Stage stage;
};

TEST_F(NodesMenuTest, FiltersByTextAndByTheDroppedPin) {
  menu->Open();
  std::string dump = "no filter: " + Listed() + "\n";
  const auto run = [&](const char* from, const NodeMenuFilter& filter) {
    menu->ApplyFilter(filter);
    stage.Settle();
    dump += from + std::string(" '") + filter.searchText + "': " + Listed() +
            (stage.Shows("No node type matches") ? "nothing matches" : "") + "\n";
  };
  // A title counts and an id does not; a text opens every row.
  for (const char* text : {"A LINE", "E", "XYZ", ""}) run("anywhere", {text});
  for (const char* text : {"", "CHOICE"}) run("from an output", {text, DroppedPinSide::Output, Pin("Line", false)});
  for (const char* text : {"", "LINE"}) run("from an input", {text, DroppedPinSide::Input, Pin("Option", true)});
  run("from an output of one type alone", {"", DroppedPinSide::Output, Pin("Loose", true)});
  run("from a generic output", {"", DroppedPinSide::Output, Pin("Loose", false)});
  run("from a generic input", {"OPTION", DroppedPinSide::Input, Pin("Loose", false)});
  run("without a record", {"", DroppedPinSide::Input, nullptr});
  TestSupport::ExpectText("NodesMenuFilters", dump);
}

TEST_F(NodesMenuTest, ListsACategoryWithoutTypesUnlessItFilters) {
  workspace->nodeDictionary->AddToCategory("Nothing", "Gone");
  menu->SetWorkspace(workspace);
  EXPECT_NE(Listed().find("Nothing; "), std::string::npos);
  menu->ApplyFilter({"LINE"});
  EXPECT_EQ(Listed(), "Dialogue+ *Line; ");
}

TEST_F(NodesMenuTest, ColoursACategoryByItsTypesAndGreyIfTheyDisagree) {
  const Color grey = Color::FromBytes(128, 128, 128);
  const Color expected[] = {Toolkit::Colors::DimGray, workspace->nodeDictionary->FindBlueprint("Line")->color, grey,
                            grey};
  for (size_t i = 0; i < std::size(expected); ++i) {
    auto* header = static_cast<Toolkit::UIElement*>(Row(i)->GetHeader().AsObject());
    const auto* marker = TestSupport::All<Toolkit::Rectangle>(header).at(0);
    EXPECT_EQ(marker->Get<Toolkit::SolidColorBrush*>(Toolkit::Shape::FillProperty)->GetColor(), expected[i]) << i;
  }
}

TEST_F(NodesMenuTest, FiltersWhileTyping) {
  menu->Open();
  stage.Settle();
  EXPECT_TRUE(menu->GetSearchTextBox()->IsFocused());
  menu->ApplyFilter({"", DroppedPinSide::Output, Pin("Line", false)});
  stage.Type("choi");
  EXPECT_EQ(menu->GetSearchText(), "choi");
  EXPECT_EQ(Listed(), "Dialogue+ *Choice; Options+ Choice; ");
  // Clearing the text keeps the filter by the pin.
  menu->GetSearchTextBox()->SetText("");
  EXPECT_EQ(Listed(), "Generic Generic; Dialogue+ Line Choice; Options+ Choice; ");
  const std::string everything =
      "Generic Generic; Dialogue Line Choice; Options Choice Option; Uncategorized Link Loose; ";
  menu->SetSearchText("line");
  menu->Hide();
  EXPECT_FALSE(menu->IsOpen());
  EXPECT_TRUE(menu->GetFilter().IsDefault());
  EXPECT_EQ(menu->GetSearchTextBox()->GetText(), "");
  EXPECT_EQ(Listed(), everything);
  EXPECT_TRUE(panel->IsFocused()) << "a closed menu takes no more keys";
  // Without a text the list stays, though its filter has gone.
  menu->ApplyFilter({"", DroppedPinSide::Input, Pin("Option", true)});
  menu->Hide();
  EXPECT_EQ(Listed(), "Dialogue Choice; Options+ Choice; ");
}

TEST_F(NodesMenuTest, IsWorkedByTheKeysOfItsBox) {
  std::vector<std::string> taken;
  panel->AddHandler(CreateNodeButton::CreateNodeEvent,
                    Toolkit::RoutedEventHandler::From([&](Toolkit::Object*, const Toolkit::RoutedEventArgs& args) {
                      taken.push_back(static_cast<const Tesselor::CreateNodeEventArgs&>(args).nodeId);
                    }));
  menu->Open();
  stage.Settle();
  using Toolkit::Key;
  const std::pair<Key, const char*> steps[] = {
      {Key::Down, "Generic+ *Generic; Dialogue Line Choice; Options Choice Option; Uncategorized Link Loose; "},
      {Key::Down, "Generic+ Generic; Dialogue+ *Line Choice; Options Choice Option; Uncategorized Link Loose; "},
      {Key::Down, "Generic+ Generic; Dialogue+ Line *Choice; Options Choice Option; Uncategorized Link Loose; "},
      {Key::Up, "Generic+ Generic; Dialogue+ *Line Choice; Options Choice Option; Uncategorized Link Loose; "},
      {Key::PageUp, "Generic+ *Generic; Dialogue+ Line Choice; Options Choice Option; Uncategorized Link Loose; "},
      {Key::Up, "Generic+ *Generic; Dialogue+ Line Choice; Options Choice Option; Uncategorized Link Loose; "},
      {Key::PageDown, "Generic+ Generic; Dialogue+ Line Choice; Options Choice Option; Uncategorized+ Link *Loose; "},
  };
  for (const auto& [key, listed] : steps) {
    EXPECT_TRUE(stage.Press(key));
    EXPECT_EQ(Listed(), listed);
  }
  // The look follows the mark, also of a button that was made after it.
  const auto looks = [&] {
    std::vector<std::string> marked;
    for (const CreateNodeButton* button : TestSupport::All<CreateNodeButton>(menu.Get()))
      if (button->IsMarked()) marked.push_back(button->GetNodeId());
    return marked;
  };
  EXPECT_EQ(looks(), std::vector<std::string>{"Loose"});
  stage.Press(Key::Return);
  stage.Type("option");
  EXPECT_EQ(looks(), std::vector<std::string>{"Option"});
  stage.KeyDown(Key::Return);
  stage.Input().KeyDown(Key::Return, true);
  stage.KeyUp(Key::Return);
  menu->SetSearchText("");
  EXPECT_EQ(looks(), std::vector<std::string>());
  stage.Press(Key::Return);
  menu->SetSearchText("nothing of this kind");
  for (const Key key : {Key::Down, Key::Up, Key::Return}) stage.Press(key);
  menu->SetSearchText("");
  stage.Press(Key::Down);
  menu->Hide();
  EXPECT_EQ(menu->Marked(), nullptr);
  EXPECT_EQ(taken, (std::vector<std::string>{"Loose", "Option", "Generic"}));
}

TEST_F(NodesMenuTest, MakesOnlyTheEntriesInSight) {
  std::vector<std::string> schemas;
  for (int i = 0; i < 300; ++i) {
    const std::string id = "Type" + std::to_string(i);
    schemas.push_back(Schema(id, id, "red", "In", "Out"));
  }
  workspace = TestSupport::MakeWorkspace(schemas);
  menu->SetWorkspace(workspace);
  menu->Open();
  const auto made = [&] { return TestSupport::All<CreateNodeButton>(menu.Get()).size(); };
  const auto isInSight = [&](const std::string& id) {
    for (const auto* button : TestSupport::All<CreateNodeButton>(menu.Get())) {
      if (button->GetNodeId() != id) continue;
      const Toolkit::Rect box = TestSupport::Stage::BoxOf(*button);
      const Toolkit::Rect view = TestSupport::Stage::BoxOf(*menu->FindName<Toolkit::UIElement>("NodesMenuViewer"));
      return box.y >= view.y - 1 && box.Bottom() <= view.Bottom() + 1;
    }
    return false;
  };
  stage.Type("type");
  EXPECT_TRUE(isInSight("Type0"));
  EXPECT_LT(made(), 40u);
  // The list follows the mark, and what the wheel brings into sight is there.
  for (int i = 0; i < 299; ++i) stage.Press(Toolkit::Key::Down);
  EXPECT_EQ(menu->Marked()->id, "Type299");
  EXPECT_TRUE(isInSight("Type299"));
  for (int i = 0; i < 20; ++i) stage.Wheel(*menu->FindName<Toolkit::UIElement>("NodesMenuViewer"), 3);
  for (const char* id : {"Type200", "Type205", "Type210"}) EXPECT_EQ(isInSight(id), !isInSight("Type299")) << id;
  stage.Type("29");
  EXPECT_EQ(menu->Marked()->id, "Type29");
  EXPECT_TRUE(isInSight("Type29"));
  EXPECT_EQ(made(), 11u);
  // Another list begins at its top, also without a mark.
  menu->SetSearchText("type");
  stage.Press(Toolkit::Key::PageDown);
  for (int i = 0; i < 9; ++i) stage.Press(Toolkit::Key::PageDown);
  EXPECT_FALSE(isInSight("Type0"));
  menu->ApplyFilter({"", DroppedPinSide::Input, Pin("Type0", false)});
  stage.Settle();
  EXPECT_EQ(menu->Marked(), nullptr);
  EXPECT_TRUE(isInSight("Type0"));
}

TEST_F(NodesMenuTest, MakesItsRowsOnlyToShowThem) {
  menu->SetWorkspace(workspace);
  EXPECT_TRUE(TestSupport::All<Toolkit::Expander>(menu.Get()).empty());
  menu->SetNodesMenuVisibility(Visibility::Visible);
  EXPECT_EQ(TestSupport::All<Toolkit::Expander>(menu.Get()).size(), 4u);
  menu->SetWorkspace(TestSupport::MakeWorkspace({}));
  EXPECT_EQ(TestSupport::All<Toolkit::Expander>(menu.Get()).size(), 2u);
}

TEST_F(NodesMenuTest, RaisesAnEventForEachButton) {
  std::vector<std::string> raised;
  for (const Toolkit::RoutedEvent* event : {&CreateNodeButton::CreateNodeEvent, &NodesMenu::CreateGroupEvent,
                                            &NodesMenu::CreateLinkEvent, &NodesMenu::CreateCommentEvent})
    panel->AddHandler(
        *event, Toolkit::RoutedEventHandler::From([&raised](Toolkit::Object*, const Toolkit::RoutedEventArgs& args) {
          const auto* node = dynamic_cast<const Tesselor::CreateNodeEventArgs*>(&args);
          raised.push_back(args.event->name.Text() + (node ? " " + node->nodeId : ""));
        }));
  menu->Open();
  stage.Settle();
  for (const char* name : {"CreateGroup", "CreateLink", "CreateComment"})
    stage.Click(*menu->FindName<Toolkit::Button>(name));
  // The row opens and closes by its header, and each button tells its type once.
  for (int i = 0; i < 3; ++i) stage.Click(*static_cast<Toolkit::UIElement*>(Row(1)->GetHeader().AsObject()));
  ASSERT_TRUE(Row(1)->IsExpanded());
  auto* button = TestSupport::All<CreateNodeButton>(Row(1)).at(1);
  stage.Click(*button);
  EXPECT_EQ(raised, (std::vector<std::string>{"CreateGroup", "CreateLink", "CreateComment", "CreateNode Choice"}));

  TestSupport::ExpectLayout("NodesMenu", *menu);
  const auto* tip = button->FindName<Toolkit::Button>("CreateNode")
                        ->Get<Toolkit::TextBlock*>(Toolkit::FrameworkElement::ToolTipProperty);
  ASSERT_TRUE(tip);
  EXPECT_EQ(tip->GetText(), "About Choice");
}

} // namespace
