#include "editor/NodesMenu.h"
#include "EditorTest.h"
#include "editor/CreateNodeButton.h"
#include "editor/NodeCategoryHeader.h"
#include "toolkit/controls/ButtonBase.h"
#include "toolkit/controls/Canvas.h"
#include "toolkit/controls/HeaderedContentControl.h"
#include "toolkit/controls/Shapes.h"
#include "toolkit/controls/TextBlock.h"
#include "toolkit/render/Brush.h"

#include <optional>

namespace {

using Tesselor::CreateNodeButton;
using Tesselor::DroppedPinSide;
using Tesselor::NodeMenuFilter;
using Tesselor::NodesMenu;
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
  NodesMenuTest() : menu(Toolkit::MakePtr<NodesMenu>()), panel(Toolkit::MakePtr<Toolkit::Canvas>()) {
    panel->SetValue(Toolkit::UIElement::FocusableProperty, true);
    panel->AddChild(menu.Get());
    stage.emplace(*panel);
    workspace = TestSupport::MakeWorkspace({
        Schema("Line", "A line", "red", "Talk", "Talk"),
        Schema("Choice", "A choice", "red", "Talk", "Option"),
        Schema("Option", "One option", "blue", "Option", "Talk"),
        Schema("Loose", "Loose end", "green", "Thing", "Generic"),
    });
    workspace->nodeDictionary->AddToCategory("Dialogue", "Line");
    workspace->nodeDictionary->AddToCategory("Dialogue", "Choice");
    workspace->nodeDictionary->AddToCategory("Options", "Choice");
    workspace->nodeDictionary->AddToCategory("Options", "Option");
    workspace->nodeDictionary->AddToCategory("Options", "Gone");
    menu->SetWorkspace(workspace);
  }

  Toolkit::Expander* Row(size_t index) {
    return static_cast<Toolkit::Expander*>(static_cast<Toolkit::Grid*>(menu->GetList()->Child(index))->Child(0));
  }

  /// "<category>+ <id> <id>; ..." as the rows stand, with + for an open one.
  std::string Listed() {
    std::string text;
    for (size_t i = 0; i < menu->GetList()->ChildCount(); ++i) {
      auto* header = static_cast<Toolkit::UIElement*>(Row(i)->GetHeader().AsObject());
      text += std::string(TestSupport::All<Toolkit::TextBlock>(header).at(0)->GetText());
      text += Row(i)->IsExpanded() ? "+" : "";
      const auto* buttons = static_cast<Toolkit::Panel*>(Row(i)->GetContent().AsObject());
      for (size_t k = 0; k < buttons->ChildCount(); ++k)
        text += " " + static_cast<CreateNodeButton*>(buttons->Child(k))->GetNodeId();
      text += "; ";
    }
    return text;
  }

  const Tesselor::NodePinBlueprint* Pin(const std::string& node, bool isInput) {
    const Tesselor::NodeBlueprint* blueprint = workspace->nodeDictionary->FindBlueprint(node);
    return (isInput ? blueprint->inputs : blueprint->outputs).at(0).get();
  }

  std::shared_ptr<Tesselor::Workspace> workspace;
  Toolkit::Ptr<NodesMenu> menu;
  Toolkit::Ptr<Toolkit::Canvas> panel;
  std::optional<TestSupport::Stage> stage;
};

const char* const Everything =
    "Generic Generic; Dialogue Line Choice; Options Choice Option; Uncategorized Link Loose; ";

TEST_F(NodesMenuTest, ListsCategoriesAndWhatNoCategoryNames) { EXPECT_EQ(Listed(), Everything); }

TEST_F(NodesMenuTest, FiltersByTextAndByTheDroppedPin) {
  struct Case {
    const char* what;
    NodeMenuFilter filter;
    std::string listed;
  };
  const Tesselor::NodePinBlueprint* generic = Pin("Loose", false);
  for (const Case& c : {
           Case{"title, not id", {"A LINE"}, "Dialogue+ Line; "},
           {"text opens every row",
            {"E"},
            "Generic+ Generic; Dialogue+ Line Choice; Options+ Choice Option; "
            "Uncategorized+ Loose; "},
           {"nothing", {"XYZ"}, ""},
           {"from an output: its type and the generic node",
            {"", DroppedPinSide::Output, Pin("Line", false)},
            "Generic Generic; Dialogue+ Line Choice; Options+ Choice; "},
           {"from an input", {"", DroppedPinSide::Input, Pin("Option", true)}, "Dialogue Choice; Options+ Choice; "},
           {"from an input, one row only", {"LINE", DroppedPinSide::Input, Pin("Option", true)}, ""},
           {"one row is open",
            {"", DroppedPinSide::Output, Pin("Loose", true)},
            "Generic Generic; Uncategorized+ Loose; "},
           {"from a generic pin",
            {"", DroppedPinSide::Output, generic},
            "Generic Generic; Dialogue+ Line Choice; Options+ Choice Option; Uncategorized+ Link Loose; "},
           {"generic pin and text", {"OPTION", DroppedPinSide::Input, generic}, "Options+ Option; "},
           {"text and pin",
            {"CHOICE", DroppedPinSide::Output, Pin("Line", false)},
            "Dialogue+ Choice; Options+ Choice; "},
           {"no record", {"", DroppedPinSide::Input, nullptr}, ""},
           {"none", {}, Everything},
       }) {
    menu->ApplyFilter(c.filter);
    EXPECT_EQ(Listed(), c.listed) << c.what;
  }
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
  stage->Settle();
  EXPECT_TRUE(menu->GetSearchTextBox()->IsFocused());
  menu->ApplyFilter({"", DroppedPinSide::Output, Pin("Line", false)});
  stage->Type("choi");
  EXPECT_EQ(menu->GetSearchText(), "choi");
  EXPECT_EQ(Listed(), "Dialogue+ Choice; Options+ Choice; ");
  // Clearing the text keeps the filter by the pin.
  menu->GetSearchTextBox()->SetText("");
  EXPECT_EQ(Listed(), "Generic Generic; Dialogue+ Line Choice; Options+ Choice; ");
  menu->SetSearchText("line");
  menu->Hide();
  EXPECT_FALSE(menu->IsOpen());
  EXPECT_TRUE(menu->GetFilter().IsDefault());
  EXPECT_EQ(menu->GetSearchTextBox()->GetText(), "");
  EXPECT_EQ(Listed(), Everything);
  EXPECT_TRUE(panel->IsFocused()) << "a closed menu takes no more keys";
  // Without a text the list stays, though its filter has gone.
  menu->ApplyFilter({"", DroppedPinSide::Input, Pin("Option", true)});
  menu->Hide();
  EXPECT_EQ(Listed(), "Dialogue Choice; Options+ Choice; ");
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
  const auto note = [&](const Toolkit::RoutedEvent& event) {
    stage->Root().AddHandler(
        event, Toolkit::RoutedEventHandler::From([&raised](Toolkit::Object*, const Toolkit::RoutedEventArgs& args) {
          const auto* node = dynamic_cast<const Tesselor::CreateNodeEventArgs*>(&args);
          raised.push_back(args.event->name.Text() + (node ? " " + node->nodeId : ""));
        }));
  };
  note(CreateNodeButton::CreateNodeEvent);
  note(NodesMenu::CreateGroupEvent);
  note(NodesMenu::CreateLinkEvent);
  note(NodesMenu::CreateCommentEvent);
  menu->Open();
  stage->Settle();
  for (const char* name : {"CreateGroup", "CreateLink", "CreateComment"})
    stage->Click(*menu->FindName<Toolkit::Button>(name));
  // The row opens and closes by its header, and each button tells its type once.
  for (int i = 0; i < 3; ++i) stage->Click(*static_cast<Toolkit::UIElement*>(Row(1)->GetHeader().AsObject()));
  ASSERT_TRUE(Row(1)->IsExpanded());
  auto* button = TestSupport::All<CreateNodeButton>(Row(1)).at(1);
  stage->Click(*button);
  EXPECT_EQ(raised, (std::vector<std::string>{"CreateGroup", "CreateLink", "CreateComment", "CreateNode Choice"}));

  EXPECT_EQ(button->FindName<Toolkit::TextBlock>("ButtonLabel")->GetText(), "A choice");
  const auto* tip = button->FindName<Toolkit::Button>("CreateNode")
                        ->Get<Toolkit::TextBlock*>(Toolkit::FrameworkElement::ToolTipProperty);
  ASSERT_TRUE(tip);
  EXPECT_EQ(tip->GetText(), "About Choice");
}

} // namespace
