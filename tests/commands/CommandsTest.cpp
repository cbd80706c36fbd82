// The law of all commands: undo gives back the exported document and the picture as they were, redo as they became.
#include "WindowStage.h"
#include "commands/BatchDeleteConnectionActionCommand.h"
#include "commands/BatchDeleteNodeActionCommand.h"
#include "commands/BatchMoveActionCommand.h"
#include "commands/BatchPasteNodeActionCommand.h"
#include "commands/CreateConnectionActionCommand.h"
#include "commands/CreateNodeActionCommand.h"
#include "commands/ResizeGroupNodeActionCommand.h"
#include "commands/SetRootNodeActionCommand.h"
#include "toolkit/controls/Canvas.h"
#include "workspace/Workspace.h"

#include <gtest/gtest.h>

#include <functional>
#include <sstream>

namespace Tesselor {
namespace {

using Toolkit::Ptr;
using Command = std::unique_ptr<IActionCommand>;

class Commands : public testing::Test {
protected:
  Commands() : window("quest"), graph(window.View().GetGraph()) {}

  /// What a save writes, and what of the picture does not follow from it.
  std::string State() {
    window.Settle();
    std::ostringstream state;
    state << window.Exported() << "\n";
    const auto show = [&state](const BaseNode& node) {
      const Toolkit::Rect box = node.Bounds();
      state << node.Title() << " " << box.x << "," << box.y << " " << box.width << "x" << box.height << " z"
            << Canvas::GetZIndex(&node) << (node.IsSelected() ? " selected" : "") << "\n";
    };
    for (const auto& node : graph.ContentNodes()) {
      show(*node);
      state << node->GetString(ContentNode::ArrayIndexTextProperty)
            << node->Get<bool>(ContentNode::IsLinkValidProperty);
      for (const ContentNode::Pins* pins : {&node->Input(), &node->Output()})
        for (size_t i = 0; i < pins->Count(); ++i) state << " " << pins->Get(i)->EffectiveBlueprint().Type;
      state << "\n";
    }
    for (const auto& node : graph.GroupNodes()) show(*node);
    for (const auto& node : graph.CommentNodes()) show(*node);
    std::vector<std::string> curves;
    for (const auto& connection : graph.Connections().GetConnections()) {
      std::ostringstream curve;
      curve << connection->GetInputSource().x << "," << connection->GetInputSource().y << "-"
            << connection->GetOutputSource().x << "," << connection->GetOutputSource().y << " z"
            << Canvas::GetZIndex(&connection->GetPath()) << connection->GetPath().IsAttached() << "\n";
      curves.push_back(curve.str());
    }
    std::sort(curves.begin(), curves.end());
    for (const std::string& curve : curves) state << curve;
    return state.str();
  }

  /// Runs the command and takes it back, twice.
  void ExpectLaw(const Command& command) {
    const std::string before = State();
    command->Do();
    const std::string after = State();
    EXPECT_NE(after, before);
    for (int i = 0; i < 2; ++i) {
      command->Undo();
      EXPECT_EQ(State(), before);
      command->Do();
      EXPECT_EQ(State(), after);
    }
    command->Undo();
  }

  Ptr<ContentNode> Make(const char* type) {
    return window.View().CurrentRoot()->workspace->nodeDictionary->CreateNode(type, true);
  }
  /// A `Multiple` pin with four children.
  NodePinData& PinWithChildren() {
    for (const auto& node : graph.ContentNodes())
      for (size_t i = 0; i < node->Output().Count(); ++i) {
        NodePinData& pin = *node->Output().Get(i);
        if (!pin.blueprint->Multiple || pin.connections.size() < 2) continue;
        while (pin.connections.size() < 4) {
          const Ptr<ContentNode> link = Make("Link");
          graph.Add(*link, {750000, 750000});
          graph.Attach(*Toolkit::MakePtr<Connection>(pin, *link->FirstInput()));
        }
        return pin;
      }
    throw std::runtime_error("no pin with two children");
  }
  MoveRecord Move(BaseNode& node, float dx, float dy) {
    const Toolkit::Rect box = node.Bounds();
    return {Ptr<BaseNode>(&node), box.x, box.y, box.x + dx, box.y + dy};
  }

  using Canvas = Toolkit::Canvas;
  TestSupport::WindowStage window;
  Graph& graph;
};

TEST_F(Commands, GiveBackWhatTheyTook) {
  NodePinData& pin = PinWithChildren();
  // Children of one height and of several parents, whose order only their lists know.
  for (NodePinData* child : pin.connections) Canvas::SetTop(child->owner, 750000);
  const auto all = [this] {
    std::vector<Ptr<BaseNode>> nodes;
    for (const auto& node : graph.ContentNodes()) nodes.emplace_back(node.Get());
    for (const auto& node : graph.GroupNodes()) nodes.emplace_back(node.Get());
    for (const auto& node : graph.CommentNodes()) nodes.emplace_back(node.Get());
    return nodes;
  };
  const Ptr<ContentNode> link = Make("Link");
  graph.Add(*link, {750000, 750000});
  graph.Attach(*Toolkit::MakePtr<Connection>(pin, *link->FirstInput()));
  const Ptr<ContentNode> line = Make("DialogueLine");
  ASSERT_TRUE(link && line);
  const auto connections = graph.Connections().ConnectionsOf(pin);
  struct Case {
    const char* what;
    std::function<Command()> make;
  };
  const Case cases[] = {
      {"delete a middle child",
       [&] {
         return std::make_unique<BatchDeleteNodeActionCommand>(
             graph, std::vector<Ptr<BaseNode>>{Ptr<BaseNode>(pin.connections[1]->owner)});
       }},
      {"delete the root",
       [&] {
         return std::make_unique<BatchDeleteNodeActionCommand>(graph,
                                                               std::vector<Ptr<BaseNode>>{Ptr<BaseNode>(graph.Root())});
       }},
      {"delete everything", [&] { return std::make_unique<BatchDeleteNodeActionCommand>(graph, all()); }},
      {"delete a group and a comment",
       [&] {
         return std::make_unique<BatchDeleteNodeActionCommand>(
             graph, std::vector<Ptr<BaseNode>>{Ptr<BaseNode>(graph.GroupNodes()[0].Get()),
                                               Ptr<BaseNode>(graph.CommentNodes()[0].Get())});
       }},
      {"cut every other connection of a pin",
       [&] {
         return std::make_unique<BatchDeleteConnectionActionCommand>(
             graph, std::vector<Ptr<Connection>>{connections.at(1), connections.at(3)});
       }},
      {"cut a link off",
       [&] {
         return std::make_unique<BatchDeleteConnectionActionCommand>(graph, graph.Connections().ConnectionsOf(*link));
       }},
      {"create a node",
       [&] {
         return std::make_unique<CreateNodeActionCommand>(graph, *line, Toolkit::Point{7, 8});
       }},
      {"create a group",
       [&] {
         return std::make_unique<CreateNodeActionCommand>(graph, *Toolkit::MakePtr<GroupNode>(), Toolkit::Point{7, 8});
       }},
      {"create a comment",
       [&] {
         return std::make_unique<CreateNodeActionCommand>(graph, *Toolkit::MakePtr<CommentNode>(),
                                                          Toolkit::Point{7, 8});
       }},
      {"set the root", [&] { return std::make_unique<SetRootNodeActionCommand>(graph, *pin.connections[0]->owner); }},
      {"resize a group from its left edge",
       [&] {
         GroupNode& group = *graph.GroupNodes()[0];
         Toolkit::Rect bounds = group.Bounds();
         bounds.x -= 40;
         bounds.width += 40;
         return std::make_unique<ResizeGroupNodeActionCommand>(group, group.Bounds(), bounds);
       }},
      {"move nodes of all kinds",
       [&] {
         std::vector<MoveRecord> moves;
         for (const auto& node : all()) moves.push_back(Move(*node, 11, 22));
         return std::make_unique<BatchMoveActionCommand>(graph, std::move(moves));
       }},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    // Identities that a first save gives out are no change of the command.
    window.Exported();
    ExpectLaw(c.make());
  }
}

TEST_F(Commands, OfAConnectionRefreshTheOrderOfItsSiblingsAndGiveItBack) {
  NodePinData& pin = PinWithChildren();
  const Ptr<ContentNode> link = Make("Link");
  graph.Add(*link, {750000, 750000});
  // The heights have changed since the children were ordered last.
  Canvas::SetTop(pin.connections[0]->owner, 760000);
  window.Exported();
  ExpectLaw(std::make_unique<CreateConnectionActionCommand>(graph, *link->FirstInput(), pin));
}

TEST_F(Commands, OfAPasteTakeAwayAllThatCame) {
  const Ptr<ContentNode> parent = Make("DialogueLine"), child = Make("DialogueChoice");
  const Ptr<GroupNode> group(&graph.AddGroupNode(100, 100));
  const std::string before = State();
  graph.Add(*parent, {10, 10});
  graph.Add(*child, {500, 10});
  NodePinData* out = nullptr;
  for (size_t i = 0; i < parent->Output().Count(); ++i)
    for (size_t k = 0; k < child->Input().Count(); ++k)
      if (NodePinData::CanConnect(*parent->Output().Get(i), *child->Input().Get(k)) && !out) {
        out = parent->Output().Get(i);
        graph.Attach(*Toolkit::MakePtr<Connection>(*out, *child->Input().Get(k)));
      }
  ASSERT_TRUE(out);
  window.Exported();
  const std::string after = State();
  BatchPasteNodeActionCommand paste(graph, {Ptr<BaseNode>(parent.Get()), Ptr<BaseNode>(child.Get())}, {});
  paste.Undo();
  EXPECT_EQ(State(), before);
  paste.Do();
  EXPECT_EQ(State(), after);
  const Ptr<BaseNode> selectedBefore(graph.CommentNodes()[0].Get());
  BatchPasteNodeActionCommand second(graph, {Ptr<BaseNode>(child.Get())}, {selectedBefore});
  graph.Remove(*selectedBefore);
  second.Undo();
  EXPECT_TRUE(graph.Selected().IsEmpty()) << "what has gone is not selected again";
}

} // namespace
} // namespace Tesselor
