#include "editor/NewNodes.h"

#include "commands/CreateConnectionActionCommand.h"
#include "commands/CreateNodeActionCommand.h"
#include "editor/NodeEditorCanvas.h"
#include "graph/Graph.h"
#include "nodes/CommentNode.h"
#include "nodes/GenericContentNode.h"
#include "nodes/GroupNode.h"
#include "nodes/NodeKeys.h"
#include "platform/MessageBoxes.h"
#include "toolkit/controls/TextBox.h"
#include "values/ActionHistory.h"
#include "workspace/NodeDictionary.h"

namespace Tesselor {

using Toolkit::Point;
using Toolkit::Ptr;

namespace {

/// The first pin of a new node at which a connection from `source` may end, by the types that flow through the two.
NodePinData* FittingPin(const ContentNode& node, const NodePinData& source) {
  const std::string& type = source.EffectiveBlueprint().Type;
  const bool takesAll =
      node.IsPassthrough() || type == BuiltIn::Generic || Toolkit::DynamicCast<GenericContentNode>(&node) != nullptr;
  const ContentNode::Pins& candidates = source.IsInput() ? node.Output() : node.Input();
  for (size_t i = 0; i < candidates.Count(); ++i) {
    NodePinData& pin = *candidates.Get(i);
    const std::string& pinType = pin.EffectiveBlueprint().Type;
    if (!pin.IsBlank() && (takesAll || pinType == type || pinType == BuiltIn::Generic)) return &pin;
  }
  return nullptr;
}

/// Gives the focus to the first text box at or below an element that takes it.
bool FocusFirstTextBox(Toolkit::UIElement& element) {
  if (auto* box = Toolkit::DynamicCast<Toolkit::TextBox>(&element)) return box->Focus();
  for (size_t i = 0; i < element.VisualChildCount(); ++i)
    if (Toolkit::UIElement* child = element.VisualChild(i); child && FocusFirstTextBox(*child)) return true;
  return false;
}

} // namespace

void NewNodes::OpenMenu(Point at) {
  spawnPosition = at;
  NodesMenu& menu = *canvas.GetNodesMenu();
  menu.Open();
  const Point place = canvas.ClampMenuPosition(at);
  Toolkit::Canvas::SetLeft(&menu, place.x);
  Toolkit::Canvas::SetTop(&menu, place.y);
}

void NewNodes::OpenMenuFor(Ptr<Connection> connection, Point at) {
  dropped = std::move(connection);
  NodeMenuFilter filter;
  const NodePinData& pin = dropped->AttachedPin();
  filter.pinSide = pin.IsInput() ? DroppedPinSide::Input : DroppedPinSide::Output;
  filter.pinBlueprint = &pin.EffectiveBlueprint();
  canvas.GetNodesMenu()->ApplyFilter(filter);
  OpenMenu(at);
}

void NewNodes::CloseMenu() {
  dropped.Reset();
  NodesMenu& menu = *canvas.GetNodesMenu();
  // A list that only fits the dropped pin must not be what the next opening shows.
  if (!menu.GetFilter().IsDefault()) menu.ApplyFilter(NodeMenuFilter());
  menu.Hide();
}

bool NewNodes::Create(const NodeDictionary& dictionary, const std::string& typeId) {
  const Ptr<ContentNode> node = dictionary.CreateNode(typeId, true);
  if (!node) return false;
  PutDown(*node);
  Connect(*node);
  CloseMenu();
  FocusFirstField(*node);
  return true;
}

void NewNodes::CreateLink(const NodeDictionary& dictionary) {
  if (!Create(dictionary, BuiltIn::Link)) ShowError("Link node type not found", "Error");
}

void NewNodes::CreateGroup() {
  const auto group = Toolkit::MakePtr<GroupNode>();
  PutDownFrame(*group);
  group->UpdateLayout();
  group->BeginTitleEdit();
}

void NewNodes::CreateComment() { PutDownFrame(*Toolkit::MakePtr<CommentNode>()); }

void NewNodes::PutDownFrame(FrameNode& frame) {
  PutDown(frame);
  frame.SetZoom(canvas.GetZoom());
  CloseMenu();
}

void NewNodes::PutDown(BaseNode& node) {
  ActionHistory::Instance().Run(std::make_unique<CreateNodeActionCommand>(graph, node, spawnPosition));
}

void NewNodes::FocusFirstField(ContentNode& node) {
  // Its fields are there from the first layout on.
  node.MakeFieldControls();
  node.UpdateLayout();
  if (auto* body = node.FindName<Toolkit::UIElement>("NodeContent")) FocusFirstTextBox(*body);
}

void NewNodes::Connect(ContentNode& node) {
  if (!dropped) return;
  NodePinData& source = dropped->AttachedPin();
  NodePinData* pin = FittingPin(node, source);
  if (pin && NodePinData::CanConnect(*pin, source))
    ActionHistory::Instance().Run(std::make_unique<CreateConnectionActionCommand>(graph, *pin, source));
}

} // namespace Tesselor
