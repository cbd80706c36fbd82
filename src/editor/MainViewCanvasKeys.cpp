// What keys do on the canvas that the mouse does by pointing.

#include "editor/MainView.h"

#include "commands/BatchDeleteConnectionActionCommand.h"
#include "editor/ConnectionRefusal.h"
#include "editor/FirstField.h"
#include "editor/GraphWalk.h"
#include "editor/NodeEditorCanvas.h"
#include "editor/NodePanel.h"
#include "editor/PinList.h"
#include "nodes/CommentNode.h"
#include "nodes/GroupNode.h"
#include "nodes/NodeNames.h"
#include "toolkit/visual/Input.h"
#include "values/ActionHistory.h"

#include <algorithm>
#include <cmath>

namespace Tesselor {

using Toolkit::Key;
using Toolkit::Keyboard;
using Toolkit::Point;
using Toolkit::Rect;
using Toolkit::UIElement;

namespace {

/// Between a node and what is put beside it, in canvas units.
constexpr float GapToChild = 80, GapBelow = 20;
/// Around the nodes that a new group holds; its title stands above.
constexpr float GroupMargin = 30, GroupTitleRoom = 70;
constexpr float FrameStep = 10;
constexpr float TitleHeight = 40;
/// What is kept free for a node or a comment whose size is not known yet.
constexpr float RoomForNewWidth = 600, RoomForNewHeight = 300;

/// To the right of the node, below all children that it has.
Point PlaceOfNextChild(const ContentNode& node) {
  const Rect bounds = node.Bounds();
  float top = bounds.y;
  for (size_t i = 0; i < node.Output().Count(); ++i)
    for (const NodePinData* child : node.Output().Get(i)->connections)
      top = std::max(top, child->owner->Bounds().Bottom() + GapBelow);
  return {bounds.Right() + GapToChild, top};
}

/// The nearest place at or below `wanted` where a box of its size covers no node and no comment.
Point FreePlace(const Graph& graph, Rect wanted) {
  for (bool isMoved = true; isMoved;) {
    isMoved = false;
    const auto giveWay = [&](const auto& nodes) {
      for (const auto& node : nodes) {
        const Rect bounds = node->Bounds();
        if (!wanted.Intersects(bounds)) continue;
        wanted.y = bounds.Bottom() + GapBelow;
        isMoved = true;
      }
    };
    giveWay(graph.ContentNodes());
    giveWay(graph.CommentNodes());
  }
  return {wanted.x, wanted.y};
}

/// Below which menus about the node open.
Rect TitleInWindow(const BaseNode& node) {
  return node.TransformToAncestor(nullptr).MapBounds({0, 0, node.Bounds().width, TitleHeight});
}

} // namespace

BaseNode* MainView::SelectedNode() const {
  const Selection::Nodes& selected = graph->Selected().GetNodes();
  return selected.size() == 1 ? selected.front().Get() : nullptr;
}

bool MainView::IsCanvasFocused() const {
  const UIElement* focused = Keyboard::GetFocused();
  return !focused || focused == &graph->Panel();
}

void MainView::SelectAlone(BaseNode& node) {
  graph->Connections().DeselectAll();
  graph->Selected().Clear();
  graph->Selected().Add(node);
  if (const auto* group = Toolkit::DynamicCast<GroupNode>(&node)) graph->Selected().AddContentsOf(*group, *graph);
}

void MainView::Walk(WalkTo way) {
  const Selection::Nodes& selected = graph->Selected().GetNodes();
  BaseNode* from = selected.empty() ? nullptr : selected.back().Get();
  BaseNode* to = from ? NeighbourOf(*from, *graph, way) : StartOfWalk(*graph);
  if (!to) {
    constexpr const char* Ends[] = {"has no parent", "has no child", "is the first", "is the last"};
    return Tell(from ? NameOf(*from) + " " + Ends[static_cast<size_t>(way)] : "There is no node");
  }
  if (from && (Keyboard::IsKeyDown(Key::LeftShift) || Keyboard::IsKeyDown(Key::RightShift))) {
    // The walk goes on from the node that was added last.
    graph->Selected().Remove(*to);
    graph->Selected().Add(*to);
  } else {
    SelectAlone(*to);
  }
  const Selection::Nodes& now = graph->Selected().GetNodes();
  Tell(now.size() == 1 ? "Selected " + NameOf(*to)
                       : "Selected " + Counted(now.size(), "node", "nodes") + ", last " + NameOf(*to));
  glide->ToShow(to->Bounds());
}

void MainView::WalkToRoot() {
  // The keys that follow are about what is in the middle now.
  if (graph->Root()) SelectAlone(*graph->Root());
  GoToRoot();
}

void MainView::EditFirstField() {
  BaseNode* node = SelectedNode();
  if (!node) return Tell("Select one node to edit it");
  if (!FocusFirstField(*node)) Tell(NameOf(*node) + " has no field");
}

bool MainView::LeaveField() {
  UIElement* focused = Keyboard::GetFocused();
  if (!focused || focused == &graph->Panel()) return false;
  const Toolkit::Ptr<UIElement> alive(focused);
  for (UIElement* e = focused; e; e = e->UIParent()) {
    auto* node = Toolkit::DynamicCast<BaseNode>(e);
    if (node && !node->IsSelected()) SelectAlone(*node);
    if (!node && e != nodePanel) continue;
    return graph->Panel().Focus();
  }
  return false;
}

void MainView::ToggleInspector() {
  const UIElement* focused = Keyboard::GetFocused();
  if (focused && nodePanel->IsAncestorOf(focused)) {
    graph->Panel().Focus();
    return nodePanel->Close();
  }
  if (!IsCanvasFocused()) LeaveField();
  ContentNode* node = SelectedContentNode();
  if (!node) return Tell("Select one node to show its fields");
  if (nodePanel->Node() != node) nodePanel->OpenNode(node);
  if (!nodePanel->Node()) return Tell(NameOf(*node) + " has no fields");
  UpdateLayout();
  // The canvas has become narrower.
  glide->ToShow(node->Bounds());
  FocusFirstTextBox(*nodePanel->GetFieldsStack()) || FocusFirstControl(*nodePanel->GetFieldsStack());
}

void MainView::OpenNodesMenuByKey() {
  if (!workspaces.currentRoot) return;
  BaseNode* selected = SelectedNode();
  auto* node = Toolkit::DynamicCast<ContentNode>(selected);
  if (!node) {
    const Rect bounds = selected ? selected->Bounds() : Rect();
    newNodes->OpenMenuByKey(selected ? Point{bounds.x + GroupMargin, bounds.y + GroupTitleRoom}
                                     : nodeEditorCanvas->MiddleOfView());
    return;
  }
  const Point next = PlaceOfNextChild(*node);
  const Point place = FreePlace(*graph, {next.x, next.y, RoomForNewWidth, RoomForNewHeight});
  const std::vector<NodePinData*> pins = FreeOutputsOf(*node);
  if (pins.empty()) {
    Tell(NameOf(*node) + " has no free output: the new node won't be connected");
    return newNodes->OpenMenuByKey({node->Bounds().x, node->Bounds().Bottom() + GapBelow});
  }
  if (pins.size() == 1) return newNodes->OpenMenuByKeyFor(*pins.front(), place);
  std::vector<KeyMenu::Entry> entries;
  for (NodePinData* pin : pins)
    entries.push_back({"New Child: " + NameOf(*pin), [this, alive = Toolkit::Ptr<ContentNode>(node), pin, place] {
                         newNodes->OpenMenuByKeyFor(*pin, place);
                       }});
  keyMenu.Open(graph->Panel(), TitleInWindow(*node), entries);
}

void MainView::OpenPinList() {
  ContentNode* node = SelectedContentNode();
  if (!node) return Tell("Select one node to see its pins");
  ForgetPendingPinOfGoneNode();
  PinList list;
  list.connect = [this](NodePinData& target, NodePinData& source) { TryCreateConnection(target, source); };
  list.cut = [this](NodePinData& pin) {
    ActionHistory::Instance().Run(
        std::make_unique<BatchDeleteConnectionActionCommand>(*graph, graph->Connections().ConnectionsOf(pin)));
  };
  list.tell = [this](const std::string& text) { Tell(text); };
  const std::vector<KeyMenu::Entry> entries = list.EntriesFor(*node, pendingPin);
  if (entries.empty()) return Tell(NameOf(*node) + " has no pins");
  keyMenu.Open(graph->Panel(), TitleInWindow(*node), entries);
}

void MainView::OpenNodeMenu() {
  BaseNode* node = SelectedNode();
  if (!node) return OpenNodesMenuByKey();
  const auto run = [this](void (MainView::*command)()) { return [this, command] { (this->*command)(); }; };
  std::vector<KeyMenu::Entry> entries{{"Edit", run(&MainView::EditFirstField), "Enter"},
                                      {"Edit Title", run(&MainView::EditTitle), "F2"}};
  if (SelectedContentNode()) {
    entries.push_back({"Show Fields", run(&MainView::ToggleInspector), "Alt+Enter"});
    entries.push_back({"Pins", run(&MainView::OpenPinList), "Ctrl+P"});
    entries.push_back({"New Child", run(&MainView::OpenNodesMenuByKey), "Insert"});
    entries.push_back({"Set As Root", run(&MainView::SetSelectedAsRoot), "Ctrl+R"});
  }
  entries.push_back({"Copy", run(&MainView::Copy), "Ctrl+C"});
  entries.push_back({"Cut", run(&MainView::Cut), "Ctrl+X"});
  entries.push_back({"Duplicate", run(&MainView::Duplicate), "Ctrl+D"});
  entries.push_back({"Delete", run(&MainView::DeleteSelection), "Delete"});
  keyMenu.Open(graph->Panel(), TitleInWindow(*node), entries);
}

void MainView::GroupSelection() {
  Rect around;
  for (const auto& node : graph->Selected().GetNodes()) around = around.Union(node->Bounds());
  BeginEdit();
  if (graph->Selected().IsEmpty()) {
    newNodes->CreateGroupAt(nodeEditorCanvas->MiddleOfView());
  } else {
    newNodes->CreateGroupAround({around.x - GroupMargin, around.y - GroupTitleRoom, around.width + 2 * GroupMargin,
                                 around.height + GroupTitleRoom + GroupMargin});
  }
  SelectAlone(*graph->GroupNodes().back());
  glide->ToShow(graph->GroupNodes().back()->Bounds());
}

void MainView::AddComment() {
  const BaseNode* node = SelectedNode();
  const Point wanted =
      node ? Point{node->Bounds().x, node->Bounds().Bottom() + GapBelow} : nodeEditorCanvas->MiddleOfView();
  const Point place = FreePlace(*graph, {wanted.x, wanted.y, RoomForNewWidth, RoomForNewHeight});
  BeginEdit();
  newNodes->CreateCommentAt(place);
  CommentNode& comment = *graph->CommentNodes().back();
  SelectAlone(comment);
  FocusFirstField(comment);
  glide->ToShow(comment.Bounds());
}

void MainView::ResizeFrame(Point direction) {
  auto* frame = Toolkit::DynamicCast<FrameNode>(SelectedNode());
  if (!frame) return Tell("Select one group or comment to resize it");
  frameResizes->Resize(*frame, {direction.x * FrameStep, direction.y * FrameStep});
}

void MainView::ShowNewNode() {
  if (const BaseNode* node = SelectedNode()) glide->ToShow(node->Bounds());
}

void MainView::ZoomBy(int steps) {
  nodeEditorCanvas->ZoomBySteps(steps);
  TellZoom();
}

void MainView::ZoomToActualSize() {
  nodeEditorCanvas->ResetViewTo(nodeEditorCanvas->MiddleOfView());
  TellZoom();
}

void MainView::ZoomToFit() {
  Rect all;
  const auto add = [&](const auto& nodes) {
    for (const auto& node : nodes) all = all.Union(node->Bounds());
  };
  add(graph->ContentNodes());
  add(graph->GroupNodes());
  add(graph->CommentNodes());
  if (all.width <= 0) return Tell("There is nothing to show");
  nodeEditorCanvas->ShowAll(all);
  TellZoom();
}

void MainView::TellZoom() {
  // The wheel may change it at any time, and tells nothing.
  TellForAWhile("Zoom " + std::to_string(static_cast<int>(std::lround(nodeEditorCanvas->GetZoom() * 100))) + " %");
}

} // namespace Tesselor
