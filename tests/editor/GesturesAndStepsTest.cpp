// What gestures, undo steps and documents do to one another.
#include "WindowStage.h"
#include "commands/BatchDeleteNodeActionCommand.h"
#include "commands/CreateNodeActionCommand.h"
#include "graph/NodeBundle.h"
#include "graph/StructureChange.h"
#include "nodes/NodePinControl.h"
#include "toolkit/controls/Canvas.h"
#include "toolkit/controls/MenuItem.h"
#include "workspace/Workspace.h"

#include <functional>
#include <gtest/gtest.h>

namespace Tesselor {
namespace {

using TestSupport::WindowStage;
using Toolkit::Point;
using Toolkit::Ptr;
using Toolkit::Rect;

std::string Schema(const char* id, const char* type) {
  const std::string pin = std::string(R"("Type": ")") + type + R"(", "color": "red", "Multiple": true})";
  return std::string(R"({"id": ")") + id + R"(", "title": "A", "color": "red", "inputs": [{"id": "In", )" + pin +
         R"(], "outputs": [{"id": "Out", )" + pin + R"(], "Schema": {"Items": {"node": "A", "pin": "Out"}}})";
}

class GesturesAndSteps : public testing::Test {
protected:
  GesturesAndSteps()
      : workspace({Schema("A", "T"), Schema("B", "U")}), window({.directory = workspace.Path()}),
        graph(window.View().GetGraph()), parent(*graph.ContentNodes().at(0)) {}

  Ptr<ContentNode> Make(float dx, float dy, const char* type = "A") {
    Ptr<ContentNode> node = window.View().CurrentRoot()->workspace->nodeDictionary->CreateNode(type, true);
    graph.Add(*node, {parent.Bounds().x + dx, parent.Bounds().y + dy});
    return node;
  }
  Ptr<Connection> Join(ContentNode& above, ContentNode& below) {
    auto connection = Toolkit::MakePtr<Connection>(*above.FirstOutput(), *below.FirstInput());
    graph.Attach(*connection);
    return connection;
  }
  Point BodyOf(const BaseNode& node) {
    const Rect box = WindowStage::BoxOf(node);
    return {box.x + box.width / 2, box.Bottom() - 5};
  }
  Point PinOf(const ContentNode& node, const char* id) { return WindowStage::MiddleOf(window.Pin(node, id)); }
  void Choose(std::string_view header) {
    auto* item = TestSupport::Find<Toolkit::MenuItem>(
        window.Root(), [&](const Toolkit::MenuItem& each) { return each.GetHeader().AsStringView() == header; });
    ASSERT_TRUE(item) << header;
    window.Click(*item);
  }
  void UndoAll() {
    while (window.History().Size() > window.History().UndoneCount()) window.Undo();
  }

  TestSupport::TestWorkspace workspace;
  WindowStage window;
  Graph& graph;
  ContentNode& parent;
};

TEST_F(GesturesAndSteps, PinsAreJoinedOnce) {
  const auto child = Make(500, 100);
  window.LookAt(parent);
  window.Drag(PinOf(parent, "Out"), PinOf(*child, "In"));
  const std::string connected = window.Exported();
  window.Drag(PinOf(parent, "Out"), PinOf(*child, "In"));
  EXPECT_EQ(graph.Connections().GetConnections().size(), 1u);
  EXPECT_EQ(window.History().Size(), 1u);
  // A second connection of the same pins is none.
  Join(parent, *child);
  EXPECT_EQ(graph.Connections().GetConnections().size(), 1u);
  EXPECT_EQ(window.Exported(), connected);
}

TEST_F(GesturesAndSteps, TheFreeEndOfACurveFollowsTheMouse) {
  window.LookAt(parent);
  for (const auto& [id, freeEnd] : {std::pair("Out", size_t{0}), {"In", size_t{3}}}) {
    const Point pin = PinOf(parent, id);
    window.Press(pin);
    for (const Point mouse : {Point{pin.x + 50, pin.y + 90}, {pin.x - 30, pin.y - 60}}) {
      window.MoveTo(mouse);
      const auto* path = Toolkit::DynamicCast<ConnectionPath>(graph.Panel().Child(graph.Panel().ChildCount() - 1));
      ASSERT_TRUE(path);
      EXPECT_EQ(path->GetCurve()[freeEnd], window.ToPanel(mouse));
      EXPECT_EQ(path->GetCurve()[3 - freeEnd], window.ToPanel(pin));
    }
    window.Press(Toolkit::Key::Escape);
    window.Release(pin);
  }
}

TEST_F(GesturesAndSteps, TheMiddleButtonDragsNoConnection) {
  window.LookAt(parent);
  const size_t children = graph.Panel().ChildCount();
  window.Click(PinOf(parent, "Out"), {.button = Toolkit::MouseButton::Middle});
  EXPECT_EQ(graph.Panel().ChildCount(), children);
  EXPECT_EQ(window.Input().Captured(), nullptr);
}

TEST_F(GesturesAndSteps, UndoEndsADragFirst) {
  window.LookAt(parent);
  const float start = parent.Bounds().x;
  Point body = BodyOf(parent);
  window.Drag(body, {body.x + 40, body.y + 30});
  EXPECT_EQ(parent.Bounds().x, start + 40);
  body = BodyOf(parent);
  window.Press(body);
  window.MoveTo({body.x + 10, body.y});
  window.Undo();
  EXPECT_EQ(parent.Bounds().x, start);
  window.MoveTo({body.x + 20, body.y});
  window.Release({body.x + 20, body.y});
  UndoAll();
  EXPECT_EQ(parent.Bounds().x, start);
}

TEST_F(GesturesAndSteps, UndoTakesTheNodeOfADraggedConnection) {
  const auto child = window.View().CurrentRoot()->workspace->nodeDictionary->CreateNode("A", true);
  window.History().Run(std::make_unique<CreateNodeActionCommand>(
      graph, *child, Point{parent.Bounds().x + 500, parent.Bounds().y + 100}));
  window.LookAt(parent);
  const Point pin = PinOf(*child, "In");
  window.Press(pin);
  window.MoveTo({pin.x + 50, pin.y + 50});
  window.Undo();
  EXPECT_FALSE(graph.Contains(*child));
  window.MoveTo(PinOf(parent, "Out"));
  window.Release(PinOf(parent, "Out"));
  EXPECT_TRUE(graph.Connections().GetConnections().empty());
}

TEST_F(GesturesAndSteps, UndoTakesThePinOfABegunConnection) {
  const auto child = window.View().CurrentRoot()->workspace->nodeDictionary->CreateNode("A", true);
  window.History().Run(std::make_unique<CreateNodeActionCommand>(
      graph, *child, Point{parent.Bounds().x + 500, parent.Bounds().y + 100}));
  window.LookAt(parent);
  window.RightClick(window.Pin(*child, "In"));
  Choose("Start Connection");
  window.Undo();
  window.RightClick(window.Pin(parent, "Out"));
  EXPECT_TRUE(window.Shows("Start Connection"));
  EXPECT_FALSE(window.Shows("Complete Connection"));
  window.Press(Toolkit::Key::Escape);
  window.Redo();
  EXPECT_FALSE(child->FindPinControl(*child->FirstInput())->IsPendingConnection());
}

TEST_F(GesturesAndSteps, EscapeAndAnotherDocumentForgetABegunConnection) {
  const std::function<void()> ends[] = {[this] { window.Press(Toolkit::Key::Escape); },
                                        [this] {
                                          window.View().ClearDocument();
                                          window.View().CreateDefaultRoot();
                                        }};
  for (const auto& end : ends) {
    const auto openMenu = [this] {
      const ContentNode& node = *graph.ContentNodes().at(0);
      window.LookAt(node);
      window.RightClick(PinOf(node, "Out"));
    };
    openMenu();
    Choose("Start Connection");
    const ContentNode& node = *graph.ContentNodes().at(0);
    EXPECT_TRUE(node.FindPinControl(*node.FirstOutput())->IsPendingConnection());
    end();
    openMenu();
    EXPECT_TRUE(window.Shows("Start Connection"));
    EXPECT_FALSE(window.Shows("Cancel Connection"));
    window.Press(Toolkit::Key::Escape);
  }
}

TEST_F(GesturesAndSteps, AnotherDocumentEndsADrag) {
  window.LookAt(parent);
  const Ptr<ContentNode> kept(&parent);
  const size_t children = graph.Panel().ChildCount();
  const Point out = PinOf(parent, "Out");
  window.Press(out);
  window.MoveTo({out.x + 50, out.y + 50});
  window.View().ClearDocument();
  window.View().CreateDefaultRoot();
  window.Settle();
  const Point in = PinOf(*graph.ContentNodes().at(0), "In");
  window.MoveTo(in);
  window.Release(in);
  EXPECT_TRUE(graph.Connections().GetConnections().empty());
  EXPECT_EQ(graph.Panel().ChildCount(), children);
  EXPECT_EQ(window.History().Size(), 0u);
}

TEST_F(GesturesAndSteps, StepsOfAFormerDocumentBringNothingBack) {
  const auto child = Make(500, 100);
  const auto connection = Join(parent, *child);
  window.History().Run(
      std::make_unique<BatchDeleteNodeActionCommand>(graph, std::vector<Ptr<BaseNode>>{Ptr<BaseNode>(child)}));
  window.View().ClearDocument();
  const size_t children = graph.Panel().ChildCount();
  window.Undo();
  EXPECT_TRUE(graph.ContentNodes().empty());
  EXPECT_TRUE(graph.Connections().GetConnections().empty());
  window.Redo();
  EXPECT_EQ(graph.Panel().ChildCount(), children);
  // A cut curve of it stays away as well.
  ConnectionBundle(graph, {connection}).PutBack();
  EXPECT_TRUE(graph.Connections().GetConnections().empty());
}

TEST_F(GesturesAndSteps, NumbersAndTypesComeBack) {
  const auto first = Make(0, 400), second = Make(0, 800), other = Make(0, 1200, "B");
  const auto child = Make(600, 300), link = Make(900, 300, "Link");
  const auto cut = Join(*first, *child);
  for (float y : {100.0f, 200.0f}) Join(*second, *Make(600, y));
  Join(*second, *child);
  Join(*first, *link);
  Join(*other, *link);
  const auto typeOfLink = [&link] { return link->FirstOutput()->EffectiveBlueprint().Type; };
  EXPECT_EQ(child->arrayIndex, 2);
  EXPECT_EQ(typeOfLink(), "T");
  ConnectionBundle connections(graph, {cut});
  NodeBundle nodes(graph, {Ptr<BaseNode>(first)});
  connections.TakeOut();
  connections.PutBack();
  EXPECT_EQ(child->arrayIndex, 2);
  nodes.TakeOut();
  EXPECT_EQ(typeOfLink(), "U");
  nodes.PutBack();
  EXPECT_EQ(child->arrayIndex, 2);
  EXPECT_EQ(typeOfLink(), "T");
}

TEST_F(GesturesAndSteps, TheTypeOfALinkFollowsTheOrderOfItsChildren) {
  const auto upper = Make(600, 400), lower = Make(600, 800, "B"), link = Make(300, 300, "Link");
  Join(*link, *upper);
  Join(*link, *lower);
  EXPECT_EQ(link->FirstOutput()->EffectiveBlueprint().Type, "T");
  Toolkit::Canvas::SetTop(lower.Get(), parent.Bounds().y);
  graph.RefreshOrderAround({lower.Get()});
  EXPECT_EQ(link->FirstOutput()->EffectiveBlueprint().Type, "U");
}

TEST_F(GesturesAndSteps, AConnectionLeavesAndComesBackInOneChange) {
  const auto child = Make(500, 100);
  const auto connection = Join(parent, *child);
  {
    const StructureChange change(graph);
    graph.Detach(*connection);
    graph.Attach(*connection);
  }
  EXPECT_TRUE(graph.Connections().Contains(*connection));
  EXPECT_EQ(connection->GetPath().VisualParent(), &graph.Panel());
  EXPECT_EQ(child->FirstInput()->connections.size(), 1u);
}

} // namespace
} // namespace Tesselor
