#include "NodeTest.h"

#include "nodes/NodePinControl.h"
#include "nodes/NodePosition.h"

#include <vector>

namespace Tesselor {

class NodePins : public TestSupport::NodeTest {
protected:
  NodePins() {
    AddSchema("{'id':'Node','title':'Node','color':'red',"
              "'inputs':[{'id':'in','Type':'A','color':'red','fields':[{'Id':'f','Type':'Int'},{'Id':'g',"
              "'Type':'Nothing'}]},{'id':'shared','Type':'A','color':'red','Multiple':true}],"
              "'outputs':[{'id':'one','Type':'A','color':'red','SpacingAbove':2},"
              "{'id':'many','Type':'A','color':'green','Multiple':true},"
              "{'id':'map','Type':'A','color':'green','Multiple':true,'IsMap':true},"
              "{'id':'other','Type':'B','color':'blue','Multiple':true}],"
              "'content':[{'Id':'x','Type':'Int'},{'Id':'x','Type':'Int','Options':{'Active':false}}]}");
  }
  void Link(NodePinData* a, NodePinData* b) { view->Attach(*Toolkit::MakePtr<Connection>(*a, *b)); }
};

TEST_F(NodePins, AreMadeFromTheSchema) {
  ContentNode& node = Add("Node");
  EXPECT_EQ(boxes.Texts(), std::vector<std::string>{"Error: Unable to create Field: Nothing"});
  EXPECT_EQ(node.Output().Count(), 6u);
  EXPECT_TRUE(node.Output().Get(0)->IsBlank());
  EXPECT_EQ(node.Output().Get(2), node.FindPin("one"));
  EXPECT_EQ(node.inputFields.size(), 1u);
  EXPECT_EQ(node.FirstInput()->PinFieldContent()->ChildCount(), 1u);
  // Two fields of one id: both are shown as they say, the table holds the first.
  EXPECT_EQ(node.contentFields.size(), 1u);
  EXPECT_EQ(node.FindField("x")->GetVisibility(), Toolkit::Visibility::Visible);

  EXPECT_EQ(node.FindPinControl(*node.FindPin("map")), nullptr);
  view.Layout();
  for (const char* id : {"in", "one", "map"}) {
    SCOPED_TRACE(id);
    const NodePinData& pin = *node.FindPin(id);
    const NodePinControl* control = node.FindPinControl(pin);
    ASSERT_TRUE(control);
    EXPECT_EQ(control->PinData(), &pin);
    EXPECT_EQ(control->IsInput(), pin.IsInput());
    ASSERT_TRUE(control->PinElement());
    EXPECT_EQ(control->PinElement()->RenderSize(), (Toolkit::Size{15, 30}));
    const float x = control->PinCentre(view.canvas.Get()).x - Toolkit::Canvas::GetLeft(&node);
    EXPECT_EQ(x < node.ActualWidth() / 2, pin.IsInput());
  }
}

TEST_F(NodePins, OfASideAreFoundInTheOrderOfTheirKeys) {
  AddSchema("{'id':'Gaps','title':'Gaps','color':'red','inputs':[{'id':'z','Type':'A','color':'red','SpacingAbove':1},"
            "{'id':'m','Type':'B','color':'red'},{'id':'n','Type':'A','color':'red'}],'outputs':[{'id':'a','Type':'A',"
            "'color':'red'}]}");
  const ContentNode& node = Add("Gaps");
  EXPECT_EQ(node.FirstInputByKey(), node.FindPin("m"));
  EXPECT_EQ(node.FindInputPinOfType("A"), node.FindPin("n"));
  EXPECT_EQ(node.FindInputPinOfType(""), nullptr) << "a gap is no pin";
  EXPECT_TRUE(node.FirstInput()->IsBlank());
}

TEST_F(NodePins, ConnectByRule) {
  ContentNode& a = Add("Node");
  ContentNode& b = Add("Node");
  ContentNode& link = Add("Link");
  const auto can = [](const ContentNode& x, const char* p, const ContentNode& y, const char* q) {
    const bool result = NodePinData::CanConnect(*x.FindPin(p), *y.FindPin(q));
    EXPECT_EQ(NodePinData::CanConnect(*y.FindPin(q), *x.FindPin(p)), result) << p << " " << q;
    return result;
  };
  EXPECT_TRUE(can(a, "one", b, "in"));
  EXPECT_FALSE(can(a, "one", b, "many"));
  EXPECT_FALSE(can(a, "in", b, "shared"));
  EXPECT_FALSE(can(a, "other", b, "in"));
  EXPECT_TRUE(can(a, "other", link, "GenericIn"));
  EXPECT_TRUE(can(link, "GenericOut", b, "in"));
  Link(a.FindPin("one"), b.FindPin("in"));
  EXPECT_FALSE(can(a, "one", b, "shared"));
  EXPECT_FALSE(can(a, "many", b, "in"));
  EXPECT_TRUE(can(a, "many", b, "shared"));
  Link(b.FindPin("in"), a.FindPin("one"));
  EXPECT_EQ(a.FindPin("one")->connections.size(), 1u);
  EXPECT_EQ(b.FindPin("in")->connections.size(), 1u);
}

TEST_F(NodePins, AreFoundByIdWhateverChanges) {
  ContentNode& a = Add("Node");
  ContentNode& b = Add("Node");
  b.SetNodeId("x");
  a.SetNodeId("x");
  EXPECT_EQ(view->FindNodeById("x"), &a);
  a.SetNodeId("y");
  EXPECT_EQ(view->FindNodeById("x"), &b);
  EXPECT_EQ(view->FindNodeById(""), nullptr);
  {
    const auto gone = workspace.nodeDictionary->CreateNode("Node", true);
    view->AddNode(*gone, 0, 0, false);
    gone->SetNodeId("z");
    EXPECT_EQ(view->FindNodeById("z"), gone.Get());
    view->Remove(*gone);
    EXPECT_EQ(view->FindNodeById("z"), nullptr);
    gone->SetNodeId("w");
  }
  EXPECT_EQ(view->FindNodeById("w"), nullptr);
}

TEST(NodePosition, StandsOnStepsOfAFifth) {
  EXPECT_FLOAT_EQ(SnapToGrid(410.1), 410.2f);
  EXPECT_FLOAT_EQ(SnapToGrid(-0.1), -0.2f);
  EXPECT_FLOAT_EQ(SnapToGrid(10.07), 10.0f);
}

} // namespace Tesselor
