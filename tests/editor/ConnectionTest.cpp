#include "EditorStage.h"
#include "editor/NodeEditorCanvas.h"
#include "graph/ConnectionManager.h"

#include <algorithm>
#include <random>

namespace {

using Tesselor::Connection;
using Tesselor::ConnectionManager;
using Tesselor::ContentNode;
using Tesselor::NodePinControl;
using Tesselor::NodePinData;
using Toolkit::MouseButton;
using Toolkit::Point;
using Toolkit::Ptr;

using List = std::vector<Ptr<Connection>>;

/// Nodes with one `Multiple` pin on each side, and connections between them.
class ConnectionTest : public TestSupport::EditorTest {
protected:
  ConnectionTest()
      : workspace(TestSupport::MakeWorkspace({R"({"id": "A", "title": "A", "color": "red",
          "inputs": [{"id": "In", "Type": "T", "color": "red", "Multiple": true}],
          "outputs": [{"id": "Out", "Type": "T", "color": "red", "Multiple": true}]})"})),
        canvas(Toolkit::MakePtr<Tesselor::NodeEditorCanvas>()), manager(canvas.Get()) {}
  ~ConnectionTest() override {
    // Nodes end their links before they go.
    for (const Ptr<ContentNode>& node : nodes) node->ForgetConnections();
  }

  ContentNode* AddNode() { return nodes.emplace_back(workspace->nodeDictionary->CreateNode("A", true)).Get(); }

  static Ptr<NodePinControl> Control(NodePinData* pin) {
    auto control = Toolkit::MakePtr<NodePinControl>();
    control->SetValue(NodePinControl::IsInputProperty, pin->IsInput());
    control->SetDataContext(pin);
    return control;
  }

  Ptr<Connection> Connect(ContentNode* from, ContentNode* to) {
    auto connection = Toolkit::MakePtr<Connection>();
    connection->SetPin(Control(to->FirstInput()).Get(), canvas->GetPanel());
    connection->SetPin(Control(from->FirstOutput()).Get(), canvas->GetPanel());
    connection->CreatePath();
    from->FirstOutput()->AddConnection(*to->FirstInput());
    EXPECT_TRUE(manager.Add(connection.Get()));
    canvas->GetPanel()->AddChild(connection->GetPath());
    return connection;
  }

  std::shared_ptr<Tesselor::Workspace> workspace;
  std::vector<Ptr<ContentNode>> nodes;
  Ptr<Tesselor::NodeEditorCanvas> canvas;
  ConnectionManager manager;
};

TEST_F(ConnectionTest, BendsTheCurveByTheDistanceOfThePins) {
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
    auto connection = Toolkit::MakePtr<Connection>();
    connection->SetInputSource(c.input);
    connection->SetOutputSource(c.output);
    connection->UpdateCurve();
    const auto* geometry = connection->Get<Toolkit::PathGeometry*>(Connection::PathGeometryProperty);
    const Toolkit::PathFigure& figure = *geometry->Figures().at(0);
    const auto* segment = Toolkit::DynamicCast<Toolkit::BezierSegment>(figure.Segments().at(0).Get());
    EXPECT_FALSE(figure.IsClosed());
    EXPECT_EQ(figure.GetStartPoint(), c.input);
    EXPECT_NEAR(segment->GetPoint1().x, c.input.x - c.reach, 1e-2);
    EXPECT_EQ(segment->GetPoint1().y, c.input.y);
    EXPECT_NEAR(segment->GetPoint2().x, c.output.x + c.reach, 1e-2);
    EXPECT_EQ(segment->GetPoint2().y, c.output.y);
    EXPECT_EQ(segment->GetPoint3(), c.output);
  }
}

TEST_F(ConnectionTest, FollowsAClickAndTheMouse) {
  TestSupport::EditorStage stage(*canvas);
  auto connection = Toolkit::MakePtr<Connection>();
  connection->SetInputSource({750600, 750300});
  connection->SetOutputSource({750200, 750300});
  connection->UpdateCurve();
  connection->CreatePath();
  canvas->GetPanel()->AddChild(connection->GetPath());
  Toolkit::Panel::SetZIndex(connection->GetPath(), -10);
  stage.Settle();
  std::vector<Toolkit::Object*> clicked;
  canvas->AddHandler(Connection::ConnectionClickedEvent,
                     Toolkit::RoutedEventHandler::From([&](Toolkit::Object*, const Toolkit::RoutedEventArgs& args) {
                       clicked.push_back(args.source);
                     }));
  const auto color = [&] {
    return static_cast<Toolkit::SolidColorBrush*>(connection->GetPath()->GetStroke())->GetColor();
  };
  const Point on{401, 301}, beside{401, 330};

  EXPECT_EQ(color(), Toolkit::Colors::White);
  stage.input->MouseMove(on);
  EXPECT_EQ(color(), Toolkit::Colors::Yellow);
  stage.input->MouseMove(beside);
  EXPECT_EQ(color(), Toolkit::Colors::White);
  connection->ShowSelected();
  stage.input->MouseMove(on);
  EXPECT_EQ(color(), Toolkit::Colors::LightGreen);
  stage.input->MouseMove(beside);
  EXPECT_EQ(color(), Toolkit::Colors::LightGreen);

  stage.input->MouseDown(MouseButton::Left, on, 1);
  stage.input->MouseDown(MouseButton::Right, on, 1);
  EXPECT_EQ(clicked, (std::vector<Toolkit::Object*>{connection.Get(), connection.Get()}));
  // A curve that moved is hit at its new place.
  connection->SetInputSource({750600, 750330});
  connection->SetOutputSource({750200, 750330});
  connection->UpdateCurve();
  stage.Settle();
  EXPECT_EQ(stage.root->HitTest({401, 331}), connection->GetPath());
  const size_t before = canvas->GetPanel()->ChildCount();
  connection.Reset();
  EXPECT_EQ(canvas->GetPanel()->ChildCount(), before - 1) << "the path goes with its connection";
}

TEST_F(ConnectionTest, SelectsOneByAClick) {
  ContentNode* hub = AddNode();
  List all;
  for (int i = 0; i < 3; ++i) all.push_back(Connect(hub, AddNode()));
  const auto expectSelected = [&](List expected) {
    EXPECT_EQ(manager.selectedConnections, expected);
    for (const Ptr<Connection>& connection : all)
      EXPECT_EQ(connection->IsShownSelected(), std::count(expected.begin(), expected.end(), connection) > 0);
  };
  manager.SelectOne(all[0].Get());
  expectSelected({all[0]});
  manager.SelectOne(all[1].Get());
  expectSelected({all[1]});
  manager.SelectOne(all[1].Get());
  expectSelected({});
  for (const Ptr<Connection>& connection : all) manager.Select(connection.Get());
  expectSelected(all);
  manager.SelectOne(all[1].Get());
  expectSelected({all[1]});
}

TEST_F(ConnectionTest, EndsTheLinkOfItsPinsOnlyWhileItStandsInTheDocument) {
  ContentNode* parent = AddNode();
  ContentNode* child = AddNode();
  Ptr<Connection> first = Connect(parent, child);
  // Undo takes the first out; another one joins the same pins; then the first is forgotten.
  EXPECT_TRUE(manager.Remove(first.Get()));
  EXPECT_FALSE(manager.Remove(first.Get()));
  parent->FirstOutput()->RemoveConnection(*child->FirstInput());
  Ptr<Connection> second = Connect(parent, child);
  EXPECT_FALSE(manager.Add(second.Get()));
  first.Reset();
  EXPECT_TRUE(child->FirstInput()->IsConnectedTo(*parent->FirstOutput()));

  manager.Select(second.Get());
  second.Reset();
  manager.RemoveAllOf(child);
  EXPECT_TRUE(manager.GetConnections().empty());
  EXPECT_TRUE(manager.selectedConnections.empty());
  EXPECT_TRUE(parent->FirstOutput()->connections.empty());
  EXPECT_TRUE(child->FirstInput()->connections.empty());
}

TEST_F(ConnectionTest, FindsTheConnectionsOfANodeInTheOrderOfTheList) {
  for (int i = 0; i < 5; ++i) AddNode();
  std::mt19937 random(3);
  List model;
  const auto expectModel = [&] {
    EXPECT_EQ(List(manager.GetConnections().begin(), manager.GetConnections().end()), model);
    for (const Ptr<ContentNode>& node : nodes) {
      List ofNode;
      for (const Ptr<Connection>& connection : model)
        if (connection->GetInputNode() == node.Get() || connection->GetOutputNode() == node.Get())
          ofNode.push_back(connection);
      EXPECT_EQ(manager.ConnectionsOf(node.Get()), ofNode);
    }
  };
  // Among them some from a node to itself.
  for (int i = 0; i < 30; ++i) {
    ContentNode* from = nodes[random() % 5].Get();
    ContentNode* to = nodes[random() % 5].Get();
    if (from->FirstOutput()->IsConnectedTo(*to->FirstInput())) continue;
    model.push_back(Connect(from, to));
  }
  expectModel();
  for (int i = 0; i < 6; ++i) {
    const auto gone = model.begin() + static_cast<std::ptrdiff_t>(random() % model.size());
    EXPECT_TRUE(manager.Remove(gone->Get()));
    EXPECT_FALSE(manager.Contains(gone->Get()));
    model.erase(gone);
    expectModel();
  }
  manager.RemoveAllOf(nodes[2].Get());
  std::erase_if(model, [&](const Ptr<Connection>& connection) {
    return connection->GetInputNode() == nodes[2].Get() || connection->GetOutputNode() == nodes[2].Get();
  });
  expectModel();
}

TEST_F(ConnectionTest, FindsWhatTheCutLineMeetsInTheOrderOfTheList) {
  ContentNode* hub = AddNode();
  List all;
  for (const float y : {300.0f, 100.0f, 200.0f}) {
    all.push_back(Connect(hub, AddNode()));
    all.back()->SetOutputSource({0, y});
    all.back()->SetInputSource({400, y});
  }
  EXPECT_EQ(manager.FindByCutLine({200, 150}, {210, 400}), (List{all[0], all[2]}));
  EXPECT_EQ(manager.FindByCutLine({210, 400}, {200, 50}), all);
  EXPECT_TRUE(manager.FindByCutLine({500, 0}, {510, 400}).empty());
}

TEST_F(ConnectionTest, RefreshesFromTheMiddlesOfThePins) {
  TestSupport::EditorStage stage(*canvas);
  ContentNode* parent = AddNode();
  ContentNode* child = AddNode();
  for (ContentNode* node : {parent, child}) {
    node->SetDataContext(node);
    canvas->GetPanel()->AddChild(node);
    Toolkit::Canvas::SetTop(node, 750100);
  }
  Toolkit::Canvas::SetLeft(parent, 750100);
  Toolkit::Canvas::SetLeft(child, 750600);
  stage.Settle();
  NodePinControl* out = parent->FindPinControl(*parent->FirstOutput());
  NodePinControl* in = child->FindPinControl(*child->FirstInput());
  ASSERT_TRUE(out && in && out->PinElement() && in->PinElement());
  auto connection = Toolkit::MakePtr<Connection>();
  connection->SetPin(out, canvas->GetPanel());
  connection->SetPin(in, canvas->GetPanel());
  manager.Add(connection.Get());
  const auto middle = [&](const NodePinControl* control) {
    const Toolkit::FrameworkElement* pin = control->PinElement();
    const Point corner = pin->TransformToAncestor(canvas->GetPanel()).Map({0, 0});
    return Point{corner.x + pin->ActualWidth() / 2, corner.y + pin->ActualHeight() / 2};
  };
  EXPECT_EQ(connection->GetOutputSource(), middle(out));
  EXPECT_EQ(connection->GetInputSource(), middle(in));
  EXPECT_LT(connection->GetOutputSource().x, connection->GetInputSource().x);

  Toolkit::Canvas::SetLeft(child, 750700);
  stage.Settle();
  manager.RefreshFor(parent);
  EXPECT_EQ(connection->GetInputSource(), middle(in));
  Toolkit::Canvas::SetTop(parent, 750222);
  stage.Settle();
  manager.RefreshAll();
  EXPECT_EQ(connection->GetOutputSource(), middle(out));
  EXPECT_EQ(connection->Get<Toolkit::PathGeometry*>(Connection::PathGeometryProperty)->Figures()[0]->GetStartPoint(),
            middle(in));
}

} // namespace
