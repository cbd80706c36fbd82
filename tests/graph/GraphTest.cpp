#include "graph/GraphTest.h"

#include "graph/ChildOrder.h"
#include "graph/StructureChange.h"
#include "toolkit/controls/TextBox.h"

namespace Tesselor {

using Toolkit::Ptr;

class GraphStructure : public TestSupport::GraphTest {
protected:
  std::vector<NodePinData*> Children(const ContentNode& node) { return node.FirstOutput()->connections; }
};

TEST_F(GraphStructure, NumbersChildrenByTheirHeight) {
  ContentNode& parent = Add("A");
  std::vector<ContentNode*> children;
  for (const float top : {50.0f, 10.0f, 30.0f, 30.0f}) {
    children.push_back(&AddAt("A", 300, top));
    Connect(parent, *children.back());
  }
  EXPECT_EQ(Indices(children), (std::vector<int>{3, 0, 1, 2}));
  Toolkit::Canvas::SetTop(children[0], 0);
  EXPECT_EQ(Indices(children), (std::vector<int>{3, 0, 1, 2}));
  view->RefreshOrderAround({children[0]});
  EXPECT_EQ(Indices(children), (std::vector<int>{0, 1, 2, 3}));
  view->Detach(*view->Connections().ConnectionsOf(*children[1]).at(0));
  EXPECT_EQ(Indices(children), (std::vector<int>{0, -1, 1, 2}));
  view->Remove(*children[2]);
  EXPECT_EQ(Indices(children), (std::vector<int>{0, -1, -1, 1}));
  // Of several parents the last one numbers; without it the other one does again.
  ContentNode& other = Add("A");
  Connect(other, *children[1]);
  const Ptr<Connection> second = Connect(other, *children[3]);
  EXPECT_EQ(Indices(children), (std::vector<int>{0, 0, -1, 1}));
  ContentNode& third = Add("A");
  Connect(third, *children[3]);
  EXPECT_EQ(Indices(children), (std::vector<int>{0, 0, -1, 0}));
  view->Remove(third);
  EXPECT_EQ(Indices(children), (std::vector<int>{0, 0, -1, 1}));
  view->Detach(*second);
  EXPECT_EQ(Indices(children), (std::vector<int>{0, 0, -1, 1}));
  ContentNode& single = Add("S");
  Connect(single, Add("A"));
  EXPECT_EQ(view->ContentNodes().back()->arrayIndex, -1);
}

TEST_F(GraphStructure, TakesANodeOutOfEverything) {
  ContentNode& parent = AddAt("A", 0, 0);
  const Ptr<ContentNode> child(&AddAt("A", 320, 40));
  child->SetNodeId("id");
  const Ptr<Connection> connection = Connect(parent, *child);
  GroupNode& group = view->AddGroupNode(300, 20);
  view.Layout();
  view->Selected().Add(*child);
  view->Selected().Add(group);
  group.SetResizeWidth(900);
  view->Selected().AddContentsOf(group, *view);
  EXPECT_EQ(view->Selected().GroupContents(), (Selection::Nodes{child}));
  view->Connections().Select(*connection);
  const size_t elements = view.canvas->ChildCount();

  view->Remove(*child);
  EXPECT_EQ(view->FindNodeById("id"), nullptr);
  EXPECT_FALSE(view->Contains(*child));
  EXPECT_EQ(view->ContentNodes().size(), 1u);
  EXPECT_EQ(view->Selected().GetNodes(), (Selection::Nodes{Ptr<BaseNode>(&group)}));
  EXPECT_FALSE(child->IsSelected());
  EXPECT_TRUE(group.IsSelected());
  EXPECT_TRUE(view->Selected().GroupContents().empty());
  EXPECT_TRUE(view->Connections().Selected().empty());
  EXPECT_TRUE(view->Connections().GetConnections().empty());
  EXPECT_TRUE(Children(parent).empty());
  EXPECT_TRUE(child->FirstInput()->connections.empty());
  EXPECT_EQ(view.canvas->ChildCount(), elements - 2);
  child->SetNodeId("other");
  EXPECT_EQ(view->FindNodeById("other"), nullptr);
  view->Remove(*child);

  // It comes back to its place in the list.
  Add("S");
  view->Add(*child, {320, 40});
  EXPECT_EQ(view->ContentNodes()[1], child);
  EXPECT_EQ(view->FindNodeById("other"), child.Get());
  view->Attach(*connection);
  view->Attach(*connection);
  EXPECT_EQ(Children(parent), std::vector<NodePinData*>{child->FirstInput()});
  EXPECT_EQ(view->Connections().GetConnections().size(), 1u);
  EXPECT_EQ(view.canvas->ChildCount(), elements + 1);
  EXPECT_EQ(Toolkit::Canvas::GetZIndex(&connection->GetPath()), -10);

  // So does all that an emptied graph had, and it is not followed any more.
  view->Clear();
  EXPECT_EQ(view.canvas->ChildCount(), 0u);
  EXPECT_TRUE(child->FirstInput()->connections.empty());
  child->SetNodeId("third");
  EXPECT_EQ(view->FindNodeById("third"), nullptr);
  EXPECT_EQ(view->FindNodeById("other"), nullptr);
}

TEST_F(GraphStructure, GroupsHoldWhatLiesStrictlyInside) {
  ContentNode& node = AddAt("A", 400, 300);
  node.SetComment("a group is never smaller than a node with a comment");
  GroupNode& inner = view->AddGroupNode(1200, 300);
  CommentNode& comment = view->AddCommentNode(1250, 350);
  GroupNode& group = view->AddGroupNode(0, 0);
  GroupNode& other = view->AddGroupNode(0, 0);
  view.Layout();
  Selection& selected = view->Selected();
  for (BaseNode* held : {static_cast<BaseNode*>(&node), static_cast<BaseNode*>(&inner)}) {
    const Toolkit::Rect box = held->Bounds();
    const struct {
      float left, top, right, bottom;
      bool isInside;
    } cases[] = {
        {1, 1, 1, 1, true}, {0, 1, 1, 1, false}, {1, 0, 1, 1, false}, {1, 1, 0, 1, false}, {1, 1, 1, 0, false}};
    for (const auto& c : cases) {
      group.SetBounds({box.x - c.left, box.y - c.top, box.width + c.left + c.right, box.height + c.top + c.bottom});
      selected.AddContentsOf(group, *view);
      EXPECT_EQ(selected.GroupContents().size(), c.isInside ? 1u : 0u) << c.left << c.top << c.right << c.bottom;
      selected.Clear();
    }
  }
  // What lies in two groups is inside of each.
  group.SetBounds({0, 0, 1600, 900});
  other.SetBounds({350, 250, 600, 600});
  selected.AddContentsOf(group, *view);
  selected.AddContentsOf(other, *view);
  const Selection::Nodes both{Ptr<BaseNode>(&node), Ptr<BaseNode>(&inner), Ptr<BaseNode>(&other), Ptr<BaseNode>(&node)};
  EXPECT_EQ(selected.GroupContents(), both) << "comments are in no group";
  EXPECT_FALSE(selected.Contains(comment));
  selected.Clear();
  EXPECT_TRUE(selected.GroupContents().empty());
}

TEST_F(GraphStructure, ChangesInBulkAsOneByOne) {
  std::vector<ContentNode*> parents, children;
  for (int i = 0; i < 3; ++i) parents.push_back(&Add("A"));
  {
    const StructureChange change(*view);
    for (int i = 0; i < 9; ++i) {
      children.push_back(&AddAt("A", 500, static_cast<float>(i * 7 % 9)));
      Connect(*parents[static_cast<size_t>(i) % 3], *children.back());
      EXPECT_EQ(children.back()->arrayIndex, -1);
    }
  }
  EXPECT_EQ(Indices(children), (std::vector<int>{0, 2, 1, 1, 0, 2, 2, 1, 0}));
  const std::vector<Ptr<BaseNode>> kept(children.begin(), children.end());
  {
    const StructureChange outer(*view);
    const StructureChange inner(*view);
    for (const size_t i : {0, 3, 4}) view->Remove(*children[i]);
    view->Add(*children[3], {0, 5});
  }
  EXPECT_EQ(Indices(children), (std::vector<int>{-1, 1, 1, -1, -1, 2, 0, 0, 0}));
  EXPECT_TRUE(view->Contains(*children[3]));
  EXPECT_EQ(view->ContentNodes().size(), 10u);
  EXPECT_EQ(view->ContentNodes()[5].Get(), children[3]);
  for (const auto& node : view->ContentNodes()) EXPECT_TRUE(view.canvas->HasChild(node.Get()));
}

TEST_F(GraphStructure, GivesTheRootItsMark) {
  ContentNode& first = Add("A");
  ContentNode& second = Add("S");
  view->SetRootNode(&first);
  EXPECT_EQ(first.Title(), "[ROOT] A");
  view->SetRootNode(&first);
  EXPECT_EQ(first.Title(), "[ROOT] A");
  view->SetRootNode(&second);
  EXPECT_EQ(first.Title(), "A");
  EXPECT_EQ(second.Title(), "[ROOT] S");
  view->SetRootNode(nullptr);
  EXPECT_EQ(second.Title(), "S");
  EXPECT_EQ(view->Root(), nullptr);
}

TEST_F(GraphStructure, LinksTakeOverTheNearestRecord) {
  const auto typeOf = [](const ContentNode& link) { return link.FirstOutput()->EffectiveBlueprint().Type; };
  std::vector<ContentNode*> links;
  for (int i = 0; i < 4; ++i) links.push_back(&Add("Link"));
  for (int i = 0; i < 3; ++i) Connect(*links[static_cast<size_t>(i)], *links[static_cast<size_t>(i) + 1]);
  EXPECT_EQ(typeOf(*links[0]), "Generic");
  ContentNode& t = Add("A");
  const Ptr<Connection> head = Connect(t, *links[0]);
  for (const ContentNode* link : links) {
    EXPECT_EQ(typeOf(*link), "T");
    EXPECT_TRUE(link->Get<bool>(ContentNode::IsLinkValidProperty));
  }
  EXPECT_EQ(links[3]->FirstInput()->BorderColor()->GetColor(), t.FirstOutput()->blueprint->color);
  EXPECT_TRUE(t.ComputeLinkValidity()) << "other nodes have nothing to agree on";
  // A mismatch shows where the types meet, and goes with its cause.
  const Ptr<Connection> tail = Connect(*links[3], Add("B"));
  EXPECT_EQ(typeOf(*links[1]), "T");
  EXPECT_EQ(typeOf(*links[3]), "U");
  EXPECT_TRUE(links[0]->Get<bool>(ContentNode::IsLinkValidProperty));
  EXPECT_FALSE(links[1]->Get<bool>(ContentNode::IsLinkValidProperty));
  view->Detach(*head);
  for (const ContentNode* link : links) {
    EXPECT_EQ(typeOf(*link), "U");
    EXPECT_TRUE(link->Get<bool>(ContentNode::IsLinkValidProperty));
  }
  view->Detach(*tail);
  EXPECT_EQ(typeOf(*links[0]), "Generic");
}

TEST_F(GraphStructure, OrderOfEqualHeightsComesBack) {
  ContentNode& parent = Add("A");
  std::vector<ContentNode*> children;
  for (int i = 0; i < 3; ++i) Connect(parent, *children.emplace_back(&AddAt("A", 500, 100)));
  ChildOrder before;
  before.NoteParentsOf(*children[0]);
  TestSupport::TestGraph::Place(*children[0], 500, 200);
  view->RefreshOrderAround({children[0]});
  TestSupport::TestGraph::Place(*children[0], 500, 100);
  view->RefreshOrderAround({children[0]});
  EXPECT_EQ(Indices(children), (std::vector<int>{2, 0, 1}));
  view->RestoreOrder(before);
  EXPECT_EQ(Indices(children), (std::vector<int>{0, 1, 2}));
  EXPECT_EQ(Children(parent).front(), children[0]->FirstInput());
}

TEST_F(GraphStructure, WhatLeavesGivesUpTheFocusAndIsHeldNoLonger) {
  ContentNode& node = AddAt("A", 0, 0);
  Ptr<BaseNode> kept(&node);
  const Toolkit::WeakPtr<BaseNode> observed(kept);
  view.Layout();
  Toolkit::InputState input(*view.canvas);
  ASSERT_TRUE(node.FindName<Toolkit::TextBox>("TitleTextBlock")->Focus());
  Connect(node, Add("A"));
  view->Remove(node);
  EXPECT_EQ(input.Focused(), nullptr);
  kept.Reset();
  view.canvas->UpdateLayout();
  EXPECT_FALSE(observed);
}

} // namespace Tesselor
