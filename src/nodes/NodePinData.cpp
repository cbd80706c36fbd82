#include "nodes/NodePinData.h"

#include "fields/BaseField.h"
#include "nodes/ContentNode.h"
#include "nodes/NodePinControl.h"
#include "toolkit/controls/Canvas.h"

#include <algorithm>
#include <cstdint>

namespace Tesselor {

namespace {

bool Contains(const std::vector<NodePinData*>& pins, const NodePinData* pin) {
  return std::find(pins.begin(), pins.end(), pin) != pins.end();
}

/// A node that was never placed stands as if it were at the top.
float HeightOnCanvas(const NodePinData& pin) {
  const float top = Toolkit::Canvas::GetTop(pin.owner);
  return Toolkit::IsAuto(top) ? 0 : top;
}

} // namespace

TOOLKIT_TYPE_IMPL(NodePinData, Toolkit::NotifyPropertyChangedBase, "Tesselor.NodePinData")
void NodePinData::Describe(Toolkit::TypeBuilder<NodePinData>& type) {
  type.Member<&NodePinData::IsInput>("IsInput");
  type.Member<&NodePinData::IsMap>("IsMap");
  type.Member<&NodePinData::BorderColor>("BorderColor");
  type.Member<&NodePinData::Label>("Label");
  type.Member<&NodePinData::Description>("Description");
  type.Member<&NodePinData::PinFieldContent>("PinFieldContent");
  type.Member<&NodePinData::IsVisible>("IsVisible");
}

NodePinData::NodePinData(ContentNode* owner, bool isInput, const NodePinBlueprint& blueprint)
    : blueprint(&blueprint), owner(owner), isInput(isInput), borderColor(Toolkit::Brushes::Of(blueprint.color)) {}

bool NodePinData::Join(NodePinData& other) {
  if (IsConnectedTo(other)) return false;
  connections.push_back(&other);
  other.connections.push_back(this);
  return true;
}

bool NodePinData::IsConnectedTo(const NodePinData& other) const {
  // Both lists hold the pair or neither does. A pin with very many children is met through their short lists.
  return connections.size() <= other.connections.size() ? Contains(connections, &other)
                                                        : Contains(other.connections, this);
}

void NodePinData::RefreshChildOrder() {
  const auto isHigher = [](const NodePinData* a, const NodePinData* b) {
    return HeightOnCanvas(*a) < HeightOnCanvas(*b);
  };
  if (!isInput && blueprint->Multiple && !std::is_sorted(connections.begin(), connections.end(), isHigher))
    std::stable_sort(connections.begin(), connections.end(), isHigher);
}

void NodePinData::RenumberChildren() {
  if (isInput || !blueprint->Multiple) return;
  for (size_t i = 0; i < connections.size(); ++i) {
    ContentNode& child = *connections[i]->owner;
    if (child.NumberingPin() == this) child.SetArrayIndex(static_cast<int32_t>(i));
  }
}

void NodePinData::SetResolvedBlueprint(const NodePinBlueprint* record) {
  if (resolvedBlueprint == record) return;
  resolvedBlueprint = record;
  borderColor = Toolkit::Brushes::Of(EffectiveBlueprint().color);
  OnPropertyChanged("BorderColor");
}

void NodePinData::AddFieldContent(BaseField& field) {
  if (!pinFieldContent) pinFieldContent = Toolkit::MakePtr<Toolkit::StackPanel>();
  pinFieldContent->AddChild(&field);
  OnPropertyChanged("PinFieldContent");
}

void NodePinData::SetVisible(bool value) {
  if (isVisible == value) return;
  isVisible = value;
  // Its row takes another room now, which only its controls know.
  if (NodePinControl* control = owner->FindPinControl(*this)) control->MakeControls();
  OnPropertyChanged("IsVisible");
}

bool NodePinData::CanConnect(const NodePinData& a, const NodePinData& b) {
  if (a.isInput == b.isInput) return false;
  const std::string& typeOfA = a.blueprint->Type;
  const std::string& typeOfB = b.blueprint->Type;
  if (typeOfA != typeOfB && typeOfA != "Generic" && typeOfB != "Generic") return false;
  const auto isTaken = [](const NodePinData& pin) { return !pin.connections.empty() && !pin.blueprint->Multiple; };
  return !isTaken(a) && !isTaken(b);
}

const NodePinBlueprint& NodePinData::BlankBlueprint() {
  static const NodePinBlueprint blank;
  return blank;
}

} // namespace Tesselor
