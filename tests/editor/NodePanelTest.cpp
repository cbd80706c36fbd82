#include "editor/NodePanel.h"
#include "EditorTest.h"
#include "editor/PanelBaseField.h"
#include "fields/FieldList.h"
#include "nodes/ContentNode.h"
#include "toolkit/controls/TextBox.h"
#include "values/ActionHistory.h"

namespace {

using Tesselor::BaseField;
using Tesselor::NodePanel;
using Tesselor::PanelBaseField;
using Toolkit::Ptr;
using Toolkit::Visibility;

class NodePanelTest : public TestSupport::EditorTest {
protected:
  NodePanelTest()
      : workspace(TestSupport::MakeWorkspace(
            {R"({"id": "A", "title": "A", "color": "red", "Schema": {"Type": "$Const:Line", "Text": "Text"}, "content": [
               {"Id": "Text", "Type": "String", "Options": {"Label": "Text", "Default": "hello"}},
               {"Id": "Hidden", "Type": "SmallString", "Options": {"Label": "Hidden", "Active": false}},
               {"Id": "List", "Type": "List", "Options": {"Label": "List", "Type": "String"}}]})",
             R"({"id": "Bare", "title": "Bare", "color": "red"})",
             R"({"id": "Plain", "title": "P", "color": "red", "content": [{"Id": "Text", "Type": "String"}]})"})),
        panel(Toolkit::MakePtr<NodePanel>()), stage(*panel) {
    node = workspace->nodeDictionary->CreateNode("A", true);
  }
  ~NodePanelTest() override { Tesselor::ActionHistory::Instance().Clear(); }

  size_t RowCount() const { return panel->GetFieldsStack()->ChildCount(); }
  PanelBaseField* Row(size_t index) const {
    return static_cast<PanelBaseField*>(panel->GetFieldsStack()->Child(index));
  }
  BaseField* Copy(size_t index) const { return static_cast<BaseField*>(Row(index)->GetFieldRow()->Child(1)); }

  std::shared_ptr<Tesselor::Workspace> workspace;
  Ptr<NodePanel> panel;
  TestSupport::Stage stage;
  Ptr<Tesselor::ContentNode> node;
};

TEST_F(NodePanelTest, ListsTheBodyFieldsInTheSchemasOrder) {
  panel->OpenNode(node.Get());
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
  panel->Close();
  EXPECT_EQ(panel->GetNodePanelVisibility(), Visibility::Collapsed);
  EXPECT_EQ(RowCount(), 0u);
}

TEST_F(NodePanelTest, StaysClosedForATypeWithoutBodyFields) {
  panel->OpenNode(node.Get());
  panel->OpenNode(workspace->nodeDictionary->CreateNode("Bare", true).Get());
  EXPECT_EQ(panel->GetNodePanelVisibility(), Visibility::Collapsed);
  EXPECT_EQ(RowCount(), 0u);
  panel->OpenNode(workspace->nodeDictionary->CreateNode("Plain", true).Get());
  EXPECT_EQ(panel->GetNodeName(), "Plain");
}

TEST_F(NodePanelTest, ShowsAndHidesAFieldByAClickAlone) {
  panel->OpenNode(node.Get());
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
  panel->OpenNode(node.Get());
  stage.Settle();
  auto* box = TestSupport::All<Toolkit::TextBox>(Copy(0)).at(0);
  EXPECT_EQ(box->GetText(), "hello");
  stage.Click(*box);
  box->SelectAll();
  stage.Type("changed");
  stage.Focus(nullptr);
  EXPECT_EQ(node->contentFields.at("Text")->GetValueAsString(), "changed");

  auto* list = static_cast<Tesselor::FieldList*>(node->contentFields.at("List").Get());
  EXPECT_EQ(static_cast<Tesselor::FieldList*>(Copy(2))->GetList(), list->GetList());
}

} // namespace
