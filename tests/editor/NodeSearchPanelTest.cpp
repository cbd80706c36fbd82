#include "editor/NodeSearchPanel.h"
#include "EditorTest.h"
#include "Expected.h"
#include "toolkit/controls/Border.h"
#include "toolkit/controls/ButtonBase.h"
#include "toolkit/controls/Canvas.h"
#include "toolkit/controls/ItemsControl.h"
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
      TestSupport::MakeWorkspace({R"({"id": "A", "title": "A", "color": "red", "content": [
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
  panel->Open(snapshot);

  const std::pair<const char*, const char*> cases[] = {
      {"", "Content First node; Content Second; Content Third; Group A group with text; Group Other; "
           "Comment Text of a note; "},
      {"TEXT", "Content First node: alpha text; Content Second: text; Group A group with text; "
               "Comment Text of a note; "},
      {"zULU", "Content First node: zulu text; "},
      // A title that matches hides a field that does too.
      {"th", "Content Third; Group A group with text; Group Other; "},
      {"hidden", ""},
  };
  for (const auto& [text, listed] : cases) {
    panel->Search(text);
    EXPECT_EQ(Listed(), listed) << text;
  }
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

} // namespace
