#include "fields/FieldEnum.h"
#include "fields/FieldList.h"
#include "graph/GraphTest.h"
#include "nodes/NodePinControl.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <random>

namespace Tesselor {

using Toolkit::MouseButton;
using Toolkit::Point;
using Toolkit::Ptr;
using List = std::vector<Ptr<Connection>>;

class Connections : public TestSupport::GraphTest {
protected:
  /// The middle of a pin's shape on the canvas, straight from the visual tree.
  Point MiddleOf(ContentNode& node, const NodePinData& pin) {
    const Point anchor = node.AnchorOf(pin);
    node.MakeControls();
    view.canvas->UpdateLayout();
    EXPECT_EQ(node.AnchorOf(pin), anchor) << "the controls change nothing";
    const Toolkit::FrameworkElement* shape = node.FindPinControl(pin)->PinElement();
    return shape->TransformToAncestor(view.canvas.Get()).Map({shape->ActualWidth() / 2, shape->ActualHeight() / 2});
  }
  void ExpectEnds(const Connection& connection) {
    const Point in = MiddleOf(*connection.GetInputNode(), *connection.GetInputPin());
    const Point out = MiddleOf(*connection.GetOutputNode(), *connection.GetOutputPin());
    EXPECT_NEAR(connection.GetInputSource().x, in.x, 1e-3);
    EXPECT_NEAR(connection.GetInputSource().y, in.y, 1e-3);
    EXPECT_NEAR(connection.GetOutputSource().x, out.x, 1e-3);
    EXPECT_NEAR(connection.GetOutputSource().y, out.y, 1e-3);
  }
};

TEST_F(Connections, BendByTheDistanceOfThePins) {
  struct Case {
    Point input, output;
    float reach;
  };
  for (const Case& c : {Case{{400, 0}, {0, 0}, 20},
                        {{0, 500}, {0, 0}, 100},
                        {{0, 40}, {0, 0}, 40},
                        {{4000, 300}, {0, 0}, 200},
                        {{0, 0}, {4000, 300}, 200},
                        {{20000, 0}, {0, 0}, 807.10678f},
                        {{7, 8}, {7, 8}, 0}}) {
    const Curve curve = Connection::CurveBetween(c.input, c.output);
    EXPECT_EQ(curve[0], c.input);
    EXPECT_NEAR(curve[1].x, c.input.x - c.reach, 1e-2);
    EXPECT_EQ(curve[1].y, c.input.y);
    EXPECT_NEAR(curve[2].x, c.output.x + c.reach, 1e-2);
    EXPECT_EQ(curve[2].y, c.output.y);
    EXPECT_EQ(curve[3], c.output);
  }
}

TEST_F(Connections, FollowWhateverMovesTheirPins) {
  AddSchema("{'id':'F','title':'F','color':'red','inputs':[{'id':'In','Type':'T','color':'red'}],'outputs':[{'id':"
            "'Unused','Type':'T','color':'red'},{'id':'Out','Type':'T','color':'red'}],'content':[{'Id':'list','Type':"
            "'List'},{'Id':'enum','Type':'Enum','Options':{'Enum':['a','b']}}]}");
  ContentNode& node = AddAt("F", 600, 300);
  const Ptr<Connection> in = Connect(AddAt("A", 100, 100), node);
  const auto out = Toolkit::MakePtr<Connection>(*node.FindPin("Out"), *AddAt("A", 1800, 100).FirstInput());
  view->Attach(*out);
  view.Layout();
  auto& list = static_cast<FieldList&>(*node.FindField("list"));
  struct Case {
    const char* what;
    std::function<void()> change;
    /// Which way the ends at the node go: those at its left side, and those at its right side.
    Point inputWay, outputWay;
  };
  const Case cases[] = {
      {"the node is moved", [&] { Toolkit::Canvas::SetLeft(&node, 700); }, {1, 0}, {1, 0}},
      {"a comment is shown", [&] { node.SetComment("a comment"); }, {0, 1}, {0, 1}},
      {"a comment is typed", [&] { node.GetFieldCommentData()->SetValue("one\ntwo"); }, {0, 1}, {0, 1}},
      {"a comment is hidden",
       [&] { node.SetValue(ContentNode::CommentBlockVisibilityProperty, Toolkit::Visibility::Collapsed); },
       {0, -1},
       {0, -1}},
      {"a title is typed", [&] { node.SetTitle(std::string(200, 'm')); }, {0, 0}, {1, 0}},
      {"a title is taken back", [&] { node.SetTitle("F"); }, {0, 0}, {-1, 0}},
      {"rows are added",
       [&] {
         list.SetValues({"a", "b", "c"});
       },
       {0, 0},
       {0, 0}},
      {"a box of choices grows",
       [&] { node.FindField("enum")->SetValue(FieldEnum::WidthProperty, 600); },
       {0, 0},
       {1, 0}},
      {"unused pins are hidden", [&] { node.ToggleUnusedOutputPins(); }, {0, 0}, {0, -1}},
      {"the compact view", [&] { node.ShowInFull(false); }, {0, 0}, {-1, 0}},
  };
  const auto wayFrom = [](Point before, Point after) {
    const auto sign = [](float way) { return static_cast<float>((way > 0.01f) - (way < -0.01f)); };
    return Point{sign(after.x - before.x), sign(after.y - before.y)};
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    const Point input = in->GetInputSource(), output = out->GetOutputSource();
    c.change();
    view.canvas->UpdateLayout();
    EXPECT_EQ(wayFrom(input, in->GetInputSource()), c.inputWay);
    EXPECT_EQ(wayFrom(output, out->GetOutputSource()), c.outputWay);
    ExpectEnds(*in);
    ExpectEnds(*out);
  }
}

TEST_F(Connections, FollowAClickAndTheMouse) {
  ContentNode& parent = AddAt("A", 100, 100);
  ContentNode& child = AddAt("A", 800, 100);
  const Ptr<Connection> connection = Connect(parent, child);
  view.Layout();
  Toolkit::InputState input(*view.canvas);
  std::vector<Toolkit::Object*> clicked;
  view.canvas->AddHandler(
      Connection::ConnectionClickedEvent,
      Toolkit::RoutedEventHandler::From(
          [&](Toolkit::Object*, const Toolkit::RoutedEventArgs& args) { clicked.push_back(args.source); }));
  const auto stroke = [&] { return connection->GetPath().GetStroke(); };
  const Point on{600, connection->GetInputSource().y + 1}, beside{600, on.y + 30};

  EXPECT_EQ(stroke(), ConnectionPath::Stroke::Normal);
  input.MouseMove(on);
  EXPECT_EQ(stroke(), ConnectionPath::Stroke::Hover);
  input.MouseMove(beside);
  EXPECT_EQ(stroke(), ConnectionPath::Stroke::Normal);
  connection->ShowSelected();
  input.MouseMove(on);
  input.MouseMove(beside);
  EXPECT_EQ(stroke(), ConnectionPath::Stroke::Selected);

  input.MouseDown(MouseButton::Left, on, 1);
  input.MouseDown(MouseButton::Right, on, 1);
  EXPECT_EQ(clicked, (std::vector<Toolkit::Object*>{connection.Get(), connection.Get()}));
  // A curve that moved is hit at its new place.
  TestSupport::TestGraph::Place(parent, 100, 400);
  TestSupport::TestGraph::Place(child, 800, 400);
  view.canvas->UpdateLayout();
  EXPECT_EQ(view.canvas->HitTest({on.x, on.y + 300}), &connection->GetPath());
  EXPECT_NE(view.canvas->HitTest(on), &connection->GetPath());
}

TEST_F(Connections, AreSelectedOneByAClick) {
  ContentNode& hub = Add("A");
  List all;
  for (int i = 0; i < 3; ++i) all.push_back(Connect(hub, Add("A")));
  ConnectionManager& manager = view->Connections();
  const auto expectSelected = [&](List expected) {
    EXPECT_EQ(manager.Selected(), expected);
    for (const Ptr<Connection>& connection : all)
      EXPECT_EQ(connection->IsShownSelected(), std::count(expected.begin(), expected.end(), connection) > 0);
  };
  manager.SelectOne(*all[0]);
  expectSelected({all[0]});
  manager.SelectOne(*all[1]);
  expectSelected({all[1]});
  manager.SelectOne(*all[1]);
  expectSelected({});
  for (const Ptr<Connection>& connection : all) manager.Select(*connection);
  manager.Select(*all[0]);
  expectSelected(all);
  view->Detach(*all[1]);
  expectSelected({all[0], all[2]});
  manager.SelectOne(*all[2]);
  expectSelected({all[2]});
}

TEST_F(Connections, OfANodeOrAPinAreFoundInTheOrderOfTheList) {
  std::vector<ContentNode*> nodes;
  for (int i = 0; i < 5; ++i) nodes.push_back(&Add("A"));
  ConnectionManager& manager = view->Connections();
  std::mt19937 random(3);
  List model;
  const auto expectModel = [&] {
    EXPECT_EQ(List(manager.GetConnections().begin(), manager.GetConnections().end()), model);
    for (const ContentNode* node : nodes) {
      List ofNode, ofPin;
      for (const Ptr<Connection>& connection : model) {
        const bool isChild = connection->GetInputNode() == node;
        if (isChild || connection->GetOutputNode() == node) ofNode.push_back(connection);
        if (isChild) ofPin.push_back(connection);
      }
      EXPECT_EQ(manager.ConnectionsOf(*node), ofNode);
      EXPECT_EQ(manager.ConnectionsOf(*node->FirstInput()), ofPin);
    }
  };
  // Among them some from a node to itself.
  for (int i = 0; i < 30; ++i) {
    ContentNode& from = *nodes[random() % 5];
    ContentNode& to = *nodes[random() % 5];
    if (!from.FirstOutput()->IsConnectedTo(*to.FirstInput())) model.push_back(Connect(from, to));
  }
  expectModel();
  for (int i = 0; i < 6; ++i) {
    const auto gone = model.begin() + static_cast<std::ptrdiff_t>(random() % model.size());
    view->Detach(**gone);
    EXPECT_FALSE(manager.Contains(**gone));
    model.erase(gone);
    expectModel();
  }
  view->Remove(*nodes[2]);
  std::erase_if(model, [&](const Ptr<Connection>& connection) {
    return connection->GetInputNode() == nodes[2] || connection->GetOutputNode() == nodes[2];
  });
  nodes.erase(nodes.begin() + 2);
  expectModel();
}

TEST_F(Connections, AreMetByACutLineInTheOrderOfTheList) {
  ContentNode& hub = AddAt("A", 0, 200);
  List all;
  for (const float top : {600.0f, 0.0f, 300.0f}) all.push_back(Connect(hub, AddAt("A", 900, top)));
  view.Layout();
  const float x = 899;
  const auto heightOf = [&](size_t i) { return all[i]->GetInputSource().y; };
  const ConnectionManager& manager = view->Connections();
  EXPECT_EQ(manager.FindByCutLine({x, heightOf(2) - 20}, {x, 1000}), (List{all[0], all[2]}));
  EXPECT_EQ(manager.FindByCutLine({x, 1000}, {x, -100}), all);
  EXPECT_TRUE(manager.FindByCutLine({1500, 0}, {1500, 900}).empty());
}

} // namespace Tesselor
