#include "NodeTest.h"

#include "Elements.h"
#include "fields/FieldSmallText.h"
#include "toolkit/controls/ButtonBase.h"
#include "toolkit/controls/Canvas.h"
#include "toolkit/controls/TextBlock.h"
#include "toolkit/controls/TextBox.h"
#include "toolkit/visual/Input.h"
#include "values/ActionHistory.h"

namespace Tesselor {

using Toolkit::Visibility;

/// Titles and comments of nodes, through real input.
class NodeTexts : public TestSupport::NodeTest {
protected:
  NodeTexts() {
    AddSchema("{'id':'Plain','title':'Plain','color':'blue'}");
    ActionHistory::Instance().Clear();
  }
  ~NodeTexts() override { ActionHistory::Instance().Clear(); }

  void Press(Toolkit::UIElement& element, uint32_t count = 1) {
    view.Layout();
    const Toolkit::Point middle =
        element.TransformToAncestor(nullptr).Map({element.ActualWidth() * 0.5f, element.ActualHeight() * 0.5f});
    input.MouseMove(middle);
    input.MouseDown(Toolkit::MouseButton::Left, middle, count);
    input.MouseUp(Toolkit::MouseButton::Left, middle);
    view.Layout();
  }
  static Toolkit::TextBox* FindTextBox(Toolkit::UIElement& from) {
    if (auto* box = Toolkit::DynamicCast<Toolkit::TextBox>(&from)) return box;
    for (size_t i = 0; i < from.VisualChildCount(); ++i)
      if (Toolkit::TextBox* box = FindTextBox(*from.VisualChild(i))) return box;
    return nullptr;
  }
  std::string WrittenComment(ContentNode& node) {
    const JsonPtr json = Parse(Written(node, NodeIdMember::Omitted));
    const cJSON* comment = cJSON_GetObjectItem(json.get(), "$Comment");
    return comment ? comment->valuestring : "";
  }

  Toolkit::InputState input{*view.canvas};
};

TEST_F(NodeTexts, OfACommentGoThroughItsThreeStates) {
  ContentNode& node = Add("Plain");
  auto state = [&] {
    std::string text;
    for (const auto* property :
         {ContentNode::CommentBlockVisibilityProperty, ContentNode::CommentInputVisibilityProperty,
          ContentNode::CommentTextVisibilityProperty})
      text += node.Get<Visibility>(property) == Visibility::Visible ? 'V' : '-';
    return text;
  };
  auto& toggle = *node.FindName<Toolkit::Button>("CommentToggleButton");
  auto& block = *node.FindName("CommentBlock");
  EXPECT_EQ(state(), "--V");
  Press(toggle);
  EXPECT_EQ(state(), "V-V");
  Press(block);
  EXPECT_EQ(state(), "V-V") << "one click edits nothing";
  Press(block, 2);
  EXPECT_EQ(state(), "VV-");
  Press(toggle);
  EXPECT_EQ(state(), "VV-") << "the toggle does nothing while the comment is edited";
  Press(*FindTextBox(block));
  input.KeyDown(Toolkit::Key::Return);
  input.KeyUp(Toolkit::Key::Return);
  EXPECT_EQ(state(), "V-V");
  Press(toggle);
  EXPECT_EQ(state(), "--V");
}

TEST_F(NodeTexts, AreWrittenWhileTheirBoxStillHasTheFocus) {
  // A save by keyboard comes while the author's caret still stands in the box.
  ContentNode& node = Add("Plain");
  Press(*node.FindName<Toolkit::Button>("CommentToggleButton"));
  Press(*node.FindName("CommentBlock"), 2);
  Toolkit::TextBox* box = FindTextBox(*node.FindName("CommentBlock"));
  ASSERT_TRUE(box);
  Press(*box);
  box->SelectAll();
  input.TextInput("ask combat");
  EXPECT_TRUE(box->IsFocused());
  EXPECT_EQ(WrittenComment(node), "ask combat");
  EXPECT_EQ(ActionHistory::Instance().Size(), 0u);
  auto* title = node.FindName<Toolkit::TextBox>("TitleTextBlock");
  Press(*title, 2);
  EXPECT_EQ(ActionHistory::Instance().Size(), 1u) << "one step for the session that ended";
  input.TextInput("Renamed");
  EXPECT_EQ(node.Title(), "Renamed");
  ActionHistory::Instance().UndoLast();
  EXPECT_EQ(WrittenComment(node), "");

  GroupNode& group = view->AddGroupNode(1200, 300);
  group.SetDataContext(&group);
  view.Layout();
  group.BeginTitleEdit();
  input.TextInput("Act");
  EXPECT_EQ(group.Title().substr(0, 3), "Act");
}

TEST_F(NodeTexts, AreOneUndoStepPerEditOnEveryKindOfNode) {
  ActionHistory& history = ActionHistory::Instance();
  AddSchema("{'id':'Ref','title':'Ref','color':'red','isreference':true,'filerefkey':'K','filerefvalue':'Id',"
            "'modifykey':'V'}");
  for (const char* type : {"Plain", "Ref"}) {
    ContentNode& node = Add(type);
    Press(*node.FindName<Toolkit::Button>("CommentToggleButton"));
    Press(*node.FindName("CommentBlock"), 2);
    Toolkit::TextBox* box = FindTextBox(*node.FindName("CommentBlock"));
    Press(*box);
    box->SelectAll();
    input.TextInput("typed");
    input.SetFocus(nullptr);
    EXPECT_EQ(history.Size(), 1u) << type;
    history.UndoLast();
    EXPECT_EQ(WrittenComment(node), "") << type;
    history.RedoLast();
    EXPECT_EQ(WrittenComment(node), "typed") << type;
    history.Clear();
  }
  for (BaseNode* node : std::initializer_list<BaseNode*>{&Add("Plain"), &Add("Ref"), &view->AddGroupNode(1200, 300),
                                                         &view->AddCommentNode(0, 0)}) {
    node->SetDataContext(node);
    view.Layout();
    const std::string before(node->Title());
    node->BeginTitleEdit();
    input.TextInput("typed");
    input.SetFocus(nullptr);
    EXPECT_EQ(history.Size(), 1u) << before;
    EXPECT_EQ(node->Title(), "typed") << before;
    history.UndoLast();
    EXPECT_EQ(node->Title(), before);
    history.Clear();
  }
}

TEST_F(NodeTexts, TellWhichOneOfItsTypeANodeIs) {
  const struct {
    const char* schema;
    /// What stands beside the title of the type.
    const char* naming;
  } cases[] = {
      {"{'id':'A','title':'A','color':'red','content':[{'Id':'Label','Type':'String','Options':{'Default':'label'}},"
       "{'Id':'Title','Type':'SmallString','Options':{'Default':'title'}}]}",
       "title"},
      {"{'id':'B','title':'B','color':'red','NamingField':'Speaker','content':["
       "{'Id':'Name','Type':'String','Options':{'Default':'name'}},"
       "{'Id':'Speaker','Type':'Mixed','Options':{'Default':'speaker'}}]}",
       "speaker"},
      {"{'id':'C','title':'C','color':'red','content':[{'Id':'Name','Type':'Checkbox'},"
       "{'Id':'Id','Type':'SmallString','Options':{'Default':'id'}}]}",
       "id"},
      {"{'id':'D','title':'D','color':'red','content':[{'Id':'name','Type':'String','Options':{'Default':'x'}}]}", ""},
      {"{'id':'E','title':'E','color':'red','NamingField':'gone','content':["
       "{'Id':'Name','Type':'String','Options':{'Default':'x'}}]}",
       ""},
  };
  const auto shown = [this](ContentNode& node) {
    view.Layout();
    std::string texts;
    for (const auto* block : TestSupport::All<Toolkit::TextBlock>(node))
      if (block->IsVisible() && Toolkit::DynamicCast<Toolkit::Canvas>(block->VisualParent())) texts += block->GetText();
    return texts;
  };
  char id[] = "A";
  for (const auto& c : cases) {
    AddSchema(c.schema);
    ContentNode& node = Add(id);
    EXPECT_EQ(shown(node), c.naming) << id;
    EXPECT_EQ(node.DisplayName(), *c.naming ? c.naming : id) << id;
    ++id[0];
  }
  ContentNode& node = Add("A");
  view.Layout();
  const float width = node.ActualWidth();
  node.SetTitle("[ROOT] A");
  EXPECT_EQ(shown(node), "title");
  node.SetTitle("Hero");
  EXPECT_EQ(shown(node), "") << "a title of its own says enough";
  EXPECT_EQ(node.DisplayName(), "Hero");
  node.SetTitle("A");
  static_cast<FieldSmallText&>(*node.FindField("Title")).GetFieldTextData()->SetValue(std::string(500, 'w'));
  EXPECT_EQ(shown(node), std::string(500, 'w'));
  EXPECT_EQ(node.ActualWidth(), width) << "it takes the room that there is";
}

} // namespace Tesselor
