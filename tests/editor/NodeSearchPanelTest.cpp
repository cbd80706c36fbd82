#include "editor/NodeSearchPanel.h"
#include "EditorTest.h"
#include "toolkit/controls/Border.h"
#include "toolkit/controls/ButtonBase.h"
#include "toolkit/controls/Canvas.h"
#include "toolkit/controls/ItemsControl.h"
#include "toolkit/controls/TextBlock.h"
#include "toolkit/controls/TextBox.h"
#include "toolkit/render/Brush.h"

#include <cjson/cJSON.h>

namespace {

using Tesselor::NodeSearchPanel;
using Tesselor::NodeSearchResult;
using Toolkit::MakePtr;
using Toolkit::Ptr;

class NodeSearchPanelTest : public TestSupport::EditorTest {
protected:
  NodeSearchPanelTest()
      : workspace(TestSupport::MakeWorkspace({R"({"id": "A", "title": "A", "color": "red", "content": [
          {"Id": "Zulu", "Type": "String", "Options": {"Label": "Z"}},
          {"Id": "Alpha", "Type": "String", "Options": {"Label": "A"}}]})"})),
        panel(MakePtr<NodeSearchPanel>()), stage(*panel) {}

  void AddNode(const char* title, const std::string& zulu, const std::string& alpha) {
    Ptr<Tesselor::ContentNode> node = workspace->nodeDictionary->CreateNode("A", true);
    node->SetTitle(title);
    Write(*node->contentFields.at("Zulu"), zulu);
    Write(*node->contentFields.at("Alpha"), alpha);
    Toolkit::Canvas::SetLeft(node.Get(), 750012.75f);
    Toolkit::Canvas::SetTop(node.Get(), 749999);
    snapshot.contentNodes.push_back(node);
  }
  template <class T> void AddFrame(std::vector<Ptr<T>>& list, const char* title) {
    list.push_back(MakePtr<T>());
    list.back()->SetTitle(title);
  }
  static void Write(Tesselor::BaseField& field, const std::string& text) {
    cJSON* object = cJSON_CreateObject();
    cJSON_AddStringToObject(object, "K", text.c_str());
    field.Deserialize(object, "K");
    cJSON_Delete(object);
  }

  /// "<type> <title>[: <context>]" of each result.
  std::vector<std::string> Listed() const {
    std::vector<std::string> lines;
    for (size_t i = 0; i < panel->GetSearchResults()->Count(); ++i) {
      const NodeSearchResult& result = *panel->GetSearchResults()->Get(i);
      lines.push_back(result.GetNodeType().ToString() + " " + result.GetTitle().ToString() +
                      (result.HasMatchContext() ? ": " + result.GetMatchContext().ToString() : ""));
    }
    return lines;
  }

  std::shared_ptr<Tesselor::Workspace> workspace;
  NodeSearchPanel::Snapshot snapshot;
  Ptr<NodeSearchPanel> panel;
  TestSupport::Stage stage;
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

  struct Case {
    const char* text;
    std::vector<std::string> listed;
  };
  for (const Case& c : {Case{"",
                             {"Content First node", "Content Second", "Content Third", "Group A group with text",
                              "Group Other", "Comment Text of a note"}},
                        {"TEXT",
                         {"Content First node: alpha text", "Content Second: text", "Group A group with text",
                          "Comment Text of a note"}},
                        {"zULU", {"Content First node: zulu text"}},
                        // A title that matches hides a field that does too.
                        {"th", {"Content Third", "Group A group with text", "Group Other"}},
                        {"hidden", {}}}) {
    panel->Search(c.text);
    EXPECT_EQ(Listed(), c.listed) << c.text;
  }
  panel->Forget();
  EXPECT_TRUE(Listed().empty());
  EXPECT_TRUE(panel->IsOpen());
  panel->Search("");
  EXPECT_TRUE(Listed().empty());
}

TEST_F(NodeSearchPanelTest, CutsALongContextBetweenCharacters) {
  const std::string fifty = "key " + std::string(46, 'x');
  std::string accents = "key ";
  for (int i = 0; i < 46; ++i) accents += "é";
  struct Case {
    std::string value;
    std::string context;
  };
  for (const Case& c : {Case{fifty, fifty},
                        {fifty + "y", fifty.substr(0, 47) + "..."},
                        {accents, accents},
                        {accents + "é", accents.substr(0, 4 + 2 * 43) + "..."}}) {
    snapshot = {};
    AddNode("Node", c.value, "");
    panel->Open(snapshot);
    panel->Search("KEY");
    ASSERT_EQ(panel->GetSearchResults()->Count(), 1u);
    EXPECT_EQ(panel->GetSearchResults()->Get(0)->GetMatchContext().View(), c.context);
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
  EXPECT_EQ(Listed().size(), 2u);
  stage.Wait(1);
  EXPECT_EQ(Listed(), (std::vector<std::string>{"Content Pear"}));
  // The text stays over a closing and is selected, so that typing replaces it.
  panel->Reset();
  EXPECT_FALSE(panel->IsOpen());
  EXPECT_EQ(Listed().size(), 1u);
  panel->Open(snapshot);
  stage.Settle();
  EXPECT_EQ(box->SelectionLength(), 3u);
  stage.Click(*TestSupport::All<Toolkit::Button>(panel.Get()).at(0));
  EXPECT_EQ(box->GetText(), "");
  EXPECT_EQ(Listed().size(), 2u);
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
  stage.MoveTo(stage.MiddleOf(*row(0)));
  EXPECT_EQ(color(0), Toolkit::Color::FromBytes(0x4A, 0x51, 0x58));

  std::vector<std::string> texts;
  for (const auto* text : TestSupport::All<Toolkit::TextBlock>(row(0)))
    if (text->IsVisible()) texts.emplace_back(text->GetText());
  EXPECT_EQ(texts, (std::vector<std::string>{"Apple", "Content", "pear", "X: ", "750013", "  Y: ", "749999"}));
  EXPECT_EQ(TestSupport::All<Toolkit::TextBlock>(row(1)).at(2)->GetVisibility(), Toolkit::Visibility::Collapsed);

  panel->Reset();
  EXPECT_FALSE(second->IsSelected());
  EXPECT_FALSE(panel->GetSelectedResult());
}

} // namespace
