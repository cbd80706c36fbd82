#include "editor/NodePanel.h"
#include "EditorTest.h"
#include "editor/PanelBaseField.h"
#include "fields/FieldList.h"
#include "nodes/ContentNode.h"
#include "values/ActionHistory.h"

namespace {

using Tesselor::BaseField;
using Tesselor::NodePanel;
using Tesselor::PanelBaseField;
using Toolkit::Ptr;
using Toolkit::Visibility;

class NodePanelTest : public TestSupport::EditorTest {
protected:
  NodePanelTest() { panel->OpenNode(node.Get()); }
  ~NodePanelTest() override { Tesselor::ActionHistory::Instance().Clear(); }

  Ptr<Tesselor::ContentNode> MakeNode(const char* id) const { return workspace->nodeDictionary->CreateNode(id, true); }
  size_t RowCount() const { return panel->GetFieldsStack()->ChildCount(); }
  PanelBaseField* Row(size_t index) const {
    return static_cast<PanelBaseField*>(panel->GetFieldsStack()->Child(index));
  }
  BaseField* Copy(size_t index) const { return static_cast<BaseField*>(Row(index)->GetFieldRow()->Child(1)); }

  std::shared_ptr<Tesselor::Workspace> workspace = TestSupport::MakeWorkspace(
      {R"({"id": "A", "title": "A", "color": "red", "Schema": {"Type": "$Const:Line", "Text": "Text"}, "content": [
               {"Id": "Text", "Type": "String", "Options": {"Label": "Text", "Default": "hello"}},
               {"Id": "Hidden", "Type": "SmallString", "Options": {"Label": "Hidden", "Active": false}},
               {"Id": "List", "Type": "List", "Options": {"Label": "List", "Type": "String"}}]})",
       R"({"id": "Bare", "title": "Bare", "color": "red"})",
       R"({"id": "Plain", "title": "P", "color": "red", "content": [{"Id": "Text", "Type": "String"}]})"});
  Ptr<NodePanel> panel = Toolkit::MakePtr<NodePanel>();
  TestSupport::Stage stage{*panel};
  Ptr<Tesselor::ContentNode> node = MakeNode("A");
};

TEST_F(NodePanelTest, ListsTheBodyFieldsInTheSchemasOrder) {
  panel->OpenNode(node.Get());
  EXPECT_EQ(panel->GetNodePanelVisibility(), Visibility::Visible);
  EXPECT_EQ(panel->GetNodeName(), "$Const:Line");
  ASSERT_EQ(RowCount(), 3u);
  const char* const ids[] = {"Text", "Hidden", "List"};
  for (size_t i = 0; i < 3; ++i) {
    BaseField* field = node->contentFields.at(ids[i]).Get();
    EXPECT_EQ(Row(i)->GetNodeField(), field);
    EXPECT_NE(Copy(i), field);
    EXPECT_EQ(Copy(i)->GetDataContext(), field);
    EXPECT_EQ(&Copy(i)->GetType(), &field->GetType());
    EXPECT_FALSE(Copy(i)->OwnerNode());
    EXPECT_EQ(Row(i)->GetCheckBox()->IsChecked(), i != 1) << "as the field is shown on its node";
  }
  panel->OpenNode(MakeNode("Plain").Get());
  EXPECT_EQ(panel->GetNodeName(), "Plain");
  // A type without body fields has nothing to show.
  panel->OpenNode(MakeNode("Bare").Get());
  EXPECT_EQ(panel->GetNodePanelVisibility(), Visibility::Collapsed);
  EXPECT_EQ(RowCount(), 0u);
  panel->OpenNode(node.Get());
  panel->Close();
  EXPECT_EQ(panel->GetNodePanelVisibility(), Visibility::Collapsed);
  EXPECT_EQ(RowCount(), 0u);
}

TEST_F(NodePanelTest, ShowsAndHidesAFieldByAClickAlone) {
  BaseField* field = node->contentFields.at("Text").Get();
  PanelBaseField* row = Row(0);
  stage.Click(*row->GetCheckBox());
  EXPECT_EQ(field->GetVisibility(), Visibility::Collapsed);
  EXPECT_TRUE(field->IsActive());
  EXPECT_FALSE(row->Get<bool>(PanelBaseField::IsFieldVisibleProperty));
  stage.Click(*row->GetCheckBox());
  EXPECT_EQ(field->GetVisibility(), Visibility::Visible);
  // The compact view sets the boxes from code.
  row->GetCheckBox()->SetIsChecked(false);
  EXPECT_EQ(field->GetVisibility(), Visibility::Visible);
}

TEST_F(NodePanelTest, SharesTextAndRowsWithTheNodesFields) {
  stage.Settle();
  auto& box = TestSupport::First<Toolkit::TextBox>(*Copy(0));
  EXPECT_EQ(box.GetText(), "hello");
  stage.TypeInto(box, "changed");
  EXPECT_EQ(node->contentFields.at("Text")->GetValueAsString(), "changed");
  auto& list = static_cast<Tesselor::FieldList&>(*node->contentFields.at("List"));
  stage.Click(*TestSupport::All<Toolkit::Button>(*Copy(2)).back());
  EXPECT_EQ(list.GetList()->Count(), 1u);
  Tesselor::ActionHistory::Instance().UndoLast();
  EXPECT_EQ(list.GetList()->Count(), 0u);
}

} // namespace
