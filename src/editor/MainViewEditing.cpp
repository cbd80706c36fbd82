// What the user adds to the graph and does to what is selected.

#include "editor/MainView.h"

#include "editor/CreateNodeButton.h"
#include "editor/NodeEditorCanvas.h"
#include "editor/NodePanel.h"
#include "editor/NodeSearchPanel.h"
#include "editor/NodesMenu.h"
#include "nodes/NodeNames.h"
#include "toolkit/visual/Input.h"
#include "workspace/NodeDictionary.h"
#include "workspace/RootType.h"
#include "workspace/Workspace.h"

namespace Tesselor {

using Toolkit::Key;
using Toolkit::Keyboard;

namespace {

constexpr float NudgeStep = 1, LongNudgeStep = 10;

bool LiesInMenu(Toolkit::Object* source) {
  for (const auto* e = Toolkit::DynamicCast<Toolkit::UIElement>(source); e; e = e->UIParent())
    if (Toolkit::DynamicCast<NodesMenu>(e)) return true;
  return false;
}

} // namespace

void MainView::BeginEdit() {
  gestures->Cancel();
  newNodes->CloseMenu();
  nodeSearchPanel->Reset();
}

void MainView::CloseInspectorOfGoneNode() {
  if (nodePanel->Node() && !graph->Contains(*nodePanel->Node())) nodePanel->Close();
}

void MainView::SelectAll() {
  SelectAllNodes(*graph);
  Tell("Selected " + Counted(graph->Selected().GetNodes().size(), "node", "nodes"));
}

void MainView::DeleteSelection() {
  BeginEdit();
  if (!DeleteSelected(*graph)) return Tell("Nothing is selected to delete");
  pendingPin.Clear();
  CloseInspectorOfGoneNode();
}

void MainView::EditTitle() {
  const Selection::Nodes& selected = graph->Selected().GetNodes();
  if (selected.size() == 1 && !gestures->IsUnderWay()) selected.front()->BeginTitleEdit();
}

void MainView::Nudge(Toolkit::Point direction) {
  if (gestures->IsUnderWay()) return;
  const bool isLong = Keyboard::IsKeyDown(Key::LeftShift) || Keyboard::IsKeyDown(Key::RightShift);
  const float step = isLong ? LongNudgeStep : NudgeStep;
  nudges->Move({direction.x * step, direction.y * step});
}

const NodeDictionary* MainView::Dictionary() const {
  return HasWorkspace() ? workspaces.currentRoot->workspace->nodeDictionary.get() : nullptr;
}

void MainView::OnShowNodesMenu(Toolkit::Object*, const ShowNodesMenuEventArgs& args) {
  if (workspaces.currentRoot) newNodes->OpenMenu({args.x, args.y});
}

void MainView::OnNodesMenuClosed(Toolkit::Object*, const Toolkit::RoutedEventArgs&) { newNodes->CloseMenu(); }

void MainView::ContainerBorder_MouseUp(Toolkit::Object*, const Toolkit::MouseButtonEventArgs& args) {
  if (!LiesInMenu(args.source)) newNodes->CloseMenu();
}

void MainView::OnCreateNode(Toolkit::Object*, const CreateNodeEventArgs& args) {
  const bool isByKey = newNodes->IsOpenedByKey();
  if (const NodeDictionary* dictionary = Dictionary()) newNodes->Create(*dictionary, args.nodeId);
  if (isByKey) ShowNewNode();
  nodeSearchPanel->Reset();
}

void MainView::OnCreateLink(Toolkit::Object*, const Toolkit::RoutedEventArgs&) {
  const bool isByKey = newNodes->IsOpenedByKey();
  if (const NodeDictionary* dictionary = Dictionary()) newNodes->CreateLink(*dictionary);
  if (isByKey) ShowNewNode();
  nodeSearchPanel->Reset();
}

void MainView::OnCreateGroup(Toolkit::Object*, const Toolkit::RoutedEventArgs&) {
  const bool isByKey = newNodes->IsOpenedByKey();
  newNodes->CreateGroup();
  if (isByKey) ShowNewNode();
  nodeSearchPanel->Reset();
}

void MainView::OnCreateComment(Toolkit::Object*, const Toolkit::RoutedEventArgs&) {
  const bool isByKey = newNodes->IsOpenedByKey();
  newNodes->CreateComment();
  if (isByKey) ShowNewNode();
  nodeSearchPanel->Reset();
}

} // namespace Tesselor
