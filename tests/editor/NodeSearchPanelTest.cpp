#include "editor/NodeSearchPanel.h"
#include "EditorTest.h"
#include "Expected.h"
#include "toolkit/controls/Border.h"
#include "toolkit/controls/ButtonBase.h"
#include "toolkit/controls/Canvas.h"
#include "toolkit/controls/ItemsControl.h"
#include "toolkit/controls/ScrollViewer.h"
#include "toolkit/render/Brush.h"

namespace {

using Tesselor::NodeSearchPanel;
using Tesselor::NodeSearchResult;
using Toolkit::MakePtr;
using Toolkit::Ptr;

class NodeSearchPanelTest : public TestSupport::EditorTest {
protected:
  void AddNode(const char* title, const std::string& zulu, const std::string& alpha) {
    Ptr<Tesselor::ContentNode> node = workspace->nodeDictionary->CreateNode("A", true);
    node->SetTitle(title);
    for (const auto& [id, text] : {std::pair("Zulu", zulu), {"Alpha", alpha}}) {
      const Tesselor::JsonPtr object(cJSON_CreateObject());
      cJSON_AddStringToObject(object.get(), "K", text.c_str());
      node->contentFields.at(id)->Deserialize(object.get(), "K");
    }
    Toolkit::Canvas::SetLeft(node.Get(), 750012.75f);
    Toolkit::Canvas::SetTop(node.Get(), 749999);
    snapshot.contentNodes.push_back(node);
  }
  template <class T> void AddFrame(std::vector<Ptr<T>>& list, const char* title) {
    list.push_back(MakePtr<T>());
    list.back()->SetTitle(title);
  }

  /// "<type> <title>[: <context>]; " of each result.
  std::string Listed() const {
    std::string lines;
    for (size_t i = 0; i < panel->GetSearchResults()->Count(); ++i) {
      const NodeSearchResult& result = *panel->GetSearchResults()->Get(i);
      lines += result.GetNodeType().ToString() + " " + result.GetTitle().ToString() +
               (result.HasMatchContext() ? ": " + result.GetMatchContext().ToString() : "") + "; ";
    }
    return lines;
  }

  std::shared_ptr<Tesselor::Workspace> workspace =
      TestSupport::MakeWorkspace({R"({"id": "A", "title": "Kind", "color": "red", "content": [
          {"Id": "Zulu", "Type": "String", "Options": {"Label": "Z"}},
          {"Id": "Alpha", "Type": "String", "Options": {"Label": "A"}}]})"});
  NodeSearchPanel::Snapshot snapshot;
  Ptr<NodeSearchPanel> panel = MakePtr<NodeSearchPanel>();
  TestSupport::Stage stage{*panel};
};

TEST_F(NodeSearchPanelTest, FindsTitlesThenFieldsInKeyOrder) {
  AddNode("First node", "zulu text", "alpha text");
  AddNode("Second", "text", "");
  snapshot.contentNodes.push_back(nullptr);
  AddNode("Third", "", "nothing");
  AddFrame(snapshot.commentNodes, "Text of a note");
  snapshot.commentNodes[0]->SetCommentText("hidden words");
  AddFrame(snapshot.groupNodes, "A group with text");
  AddFrame(snapshot.groupNodes, "Other");
  snapshot.contentNodes[1]->SetComment("a remark");
  snapshot.contentNodes[3]->mapKey = "key in a map";
  panel->Open(snapshot);

  const std::pair<const char*, const char*> cases[] = {
      {"", "Content First node; Content Second; Content Third; Group A group with text; Group Other; "
           "Comment Text of a note; "},
      {"TEXT", "Content First node: alpha text; Content Second: text; Group A group with text; "
               "Comment Text of a note; "},
      // Values come before keys, which count as a whole only.
      {"zULU", "Content First node: zulu text; Content Second: Zulu; Content Third: Zulu; "},
      {"zul", "Content First node: zulu text; "},
      // A title that matches hides a field that does too.
      {"th", "Content Third; Group A group with text; Group Other; "},
      {"hidden", "Comment Text of a note: hidden words; "},
      {"remark", "Content Second: a remark; "},
      {"in a map", "Content Third: key in a map; "},
      {"kind", "Content First node: Kind; Content Second: Kind; Content Third: Kind; "},
      {"not there", ""},
  };
  for (const auto& [text, listed] : cases) {
    panel->Search(text);
    EXPECT_EQ(Listed(), listed) << text;
  }
  EXPECT_EQ(panel->GetString(NodeSearchPanel::CountTextProperty), "No node matches");
  panel->Search("third");
  EXPECT_EQ(panel->GetString(NodeSearchPanel::CountTextProperty), "1 match");
  panel->Search("th");
  EXPECT_EQ(panel->GetString(NodeSearchPanel::CountTextProperty), "3 matches");
  panel->Search("");
  panel->Forget();
  EXPECT_EQ(Listed(), "");
  EXPECT_TRUE(panel->IsOpen());
  panel->Search("");
  EXPECT_EQ(Listed(), "");
}

TEST_F(NodeSearchPanelTest, CutsALongContextBetweenCharacters) {
  const std::string fifty = "key " + std::string(46, 'x');
  std::string accents = "key ";
  for (int i = 0; i < 46; ++i) accents += "é";
  for (const auto& [value, context] : {std::pair{fifty, fifty},
                                       {fifty + "y", fifty.substr(0, 47) + "..."},
                                       {accents, accents},
                                       {accents + "é", accents.substr(0, 4 + 2 * 43) + "..."}}) {
    snapshot = {};
    AddNode("Node", value, "");
    panel->Open(snapshot);
    panel->Search("KEY");
    EXPECT_EQ(Listed(), "Content Node: " + context + "; ");
  }
}

TEST_F(NodeSearchPanelTest, SearchesAfterAPauseInTyping) {
  AddNode("Apple", "", "");
  AddNode("Pear", "", "");
  panel->Open(snapshot);
  stage.Settle();
  auto* box = panel->FindName<Toolkit::TextBox>("SearchTextBox");
  ASSERT_TRUE(box->IsFocused());
  stage.Type("pea");
  stage.Wait(99);
  EXPECT_EQ(Listed(), "Content Apple; Content Pear; ");
  stage.Wait(1);
  EXPECT_EQ(Listed(), "Content Pear; ");
  // The text stays over a closing and is selected, so that typing replaces it.
  panel->Reset();
  EXPECT_FALSE(panel->IsOpen());
  EXPECT_EQ(Listed(), "Content Pear; ");
  panel->Open(snapshot);
  stage.Settle();
  EXPECT_EQ(box->SelectionLength(), 3u);
  stage.Click(*TestSupport::All<Toolkit::Button>(*panel).at(0));
  EXPECT_EQ(box->GetText(), "");
  EXPECT_EQ(Listed(), "Content Apple; Content Pear; ");
}

TEST_F(NodeSearchPanelTest, SelectsTheClickedResultAlone) {
  AddNode("Apple", "pear", "");
  AddNode("Pear", "", "");
  panel->Open(snapshot);
  panel->Search("pear");
  std::vector<const Tesselor::BaseNode*> selected;
  panel->AddHandler(NodeSearchPanel::SearchResultSelectedEvent,
                    Toolkit::RoutedEventHandler::From([&](Toolkit::Object*, const Toolkit::RoutedEventArgs& args) {
                      selected.push_back(static_cast<const Tesselor::SearchResultSelectedEventArgs&>(args).node.Get());
                    }));
  stage.Settle();
  auto* list = panel->FindName<Toolkit::ItemsControl>("ResultList");
  const auto row = [&](size_t index) {
    return TestSupport::All<Toolkit::Border>(list->GetItemContainerGenerator().ContainerFromIndex(index)).at(0);
  };
  const auto color = [&](size_t index) {
    return row(index)->Get<Toolkit::SolidColorBrush*>(Toolkit::Border::BackgroundProperty)->GetColor();
  };
  NodeSearchResult* first = panel->GetSearchResults()->Get(0);
  NodeSearchResult* second = panel->GetSearchResults()->Get(1);
  stage.Click(*row(0));
  stage.Click(*row(1));
  EXPECT_EQ(selected,
            (std::vector<const Tesselor::BaseNode*>{snapshot.contentNodes[0].Get(), snapshot.contentNodes[1].Get()}));
  EXPECT_FALSE(first->IsSelected());
  EXPECT_TRUE(second->IsSelected());
  EXPECT_EQ(panel->GetSelectedResult(), second);
  EXPECT_EQ(color(0), Toolkit::Color::FromBytes(0x3D, 0x43, 0x47));
  EXPECT_EQ(color(1), Toolkit::Color::FromBytes(0x4A, 0x7A, 0x9F)) << "selected wins over the mouse above it";
  stage.MoveTo(row(0));
  EXPECT_EQ(color(0), Toolkit::Color::FromBytes(0x4A, 0x51, 0x58));

  TestSupport::ExpectLayout("SearchResults", *list);

  panel->Reset();
  EXPECT_FALSE(second->IsSelected());
  EXPECT_FALSE(panel->GetSelectedResult());
}

TEST_F(NodeSearchPanelTest, IsWorkedByTheKeysOfItsTextBox) {
  // More than there are lines at once.
  for (int i = 0; i < 150; ++i) AddNode(("Apple " + std::to_string(i)).c_str(), "", "");
  AddNode("Pear", "", "");
  panel->Open(snapshot);
  std::vector<std::string> chosen;
  panel->AddHandler(NodeSearchPanel::SearchResultSelectedEvent,
                    Toolkit::RoutedEventHandler::From([&](Toolkit::Object*, const Toolkit::RoutedEventArgs& args) {
                      chosen.emplace_back(
                          static_cast<const Tesselor::SearchResultSelectedEventArgs&>(args).node->Title());
                    }));
  stage.Settle();
  const auto marked = [this] {
    const NodeSearchResult* result = panel->GetSelectedResult();
    return result ? result->GetTitle().ToString() : "none";
  };
  stage.Press(Toolkit::Key::Up);
  EXPECT_EQ(marked(), "Pear") << "the last, which had no line before";
  auto* viewer = panel->FindName<Toolkit::ScrollViewer>("ResultViewer");
  EXPECT_GT(viewer->ScrollOffset().y, 1000) << "what is marked is in sight";
  stage.Press(Toolkit::Key::Down);
  EXPECT_EQ(marked(), "Pear");
  stage.Press(Toolkit::Key::PageUp);
  EXPECT_EQ(marked(), "Apple 145");
  EXPECT_TRUE(chosen.empty()) << "the view stays until Enter";
  // A key does not wait for the pause after which a search runs.
  stage.Type("14");
  stage.Press(Toolkit::Key::Down);
  EXPECT_EQ(marked(), "Apple 14");
  stage.Press(Toolkit::Key::Down);
  stage.Press(Toolkit::Key::Return);
  EXPECT_EQ(chosen, std::vector<std::string>{"Apple 114"});
  EXPECT_TRUE(panel->IsOpen());
  stage.Wait(200);
  EXPECT_EQ(marked(), "Apple 114") << "the search that was due has run";
  stage.Press(Toolkit::Key::Escape);
  EXPECT_FALSE(panel->IsOpen());
}

TEST_F(NodeSearchPanelTest, MarksWhatWasFoundAndTellsWhereTheNodeHangs) {
  const std::string far = std::string(80, 'a') + " needle " + std::string(80, 'b');
  AddNode("The needle in a title", "", "");
  AddNode("Other", far, "");
  AddNode("Kind", "needle", "");
  AddNode("[ROOT] Kind", "needle", "");
  AddFrame(snapshot.groupNodes, "Group needle");
  panel->Open(snapshot);
  panel->Search("NEEDLE");
  const auto parts = [this](size_t index) {
    const NodeSearchResult& result = *panel->GetSearchResults()->Get(index);
    return result.TitleBefore().ToString() + "[" + result.TitleMatch().ToString() + "]" +
           result.TitleAfter().ToString() + " | " + result.ContextHolder().ToString() +
           result.ContextBefore().ToString() + "[" + result.ContextMatch().ToString() + "]" +
           result.ContextAfter().ToString() + " | " + result.TypeTitle().ToString();
  };
  EXPECT_EQ(parts(0), "The [needle] in a title | [] | Kind");
  EXPECT_EQ(parts(1), "Other[] | Z: ..." + std::string(14, 'a') + " [needle] " + std::string(25, 'b') + "... | Kind");
  EXPECT_EQ(parts(2), "Kind[] | Z: [needle] | ") << "the type says nothing that the title doesn't";
  EXPECT_EQ(parts(3), "[ROOT] Kind[] | Z: [needle] | ");
  EXPECT_EQ(parts(4), "Group [needle] | [] | Group");
  stage.Settle();
  const auto* list = panel->FindName<Toolkit::ItemsControl>("ResultList");
  for (size_t i = 0; i < 5; ++i) {
    const auto badges = TestSupport::All<Toolkit::Border>(list->GetItemContainerGenerator().ContainerFromIndex(i));
    EXPECT_EQ(badges.at(1)->IsVisible(), i != 2 && i != 3) << i;
  }
}

} // namespace
