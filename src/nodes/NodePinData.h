#pragma once

#include "toolkit/base/Observable.h"
#include "toolkit/controls/StackPanel.h"
#include "toolkit/render/Brush.h"
#include "workspace/NodePinBlueprint.h"

#include <string_view>
#include <vector>

namespace Tesselor {

class BaseField;
class ContentNode;

/// One pin of a node: where connections end, and the truth about them. The data context of the control that shows it.
/// Owned by the `Input` or `Output` collection of its node and made by `ContentNode::AddPin` only.
class NodePinData : public Toolkit::NotifyPropertyChangedBase {
  TOOLKIT_TYPE(NodePinData)
public:
  NodePinData(ContentNode* owner, bool isInput, const NodePinBlueprint& blueprint);

  /// The pin's own record, or the one taken over from what a pass-through node is connected to.
  const NodePinBlueprint& EffectiveBlueprint() const { return resolvedBlueprint ? *resolvedBlueprint : *blueprint; }
  bool IsBlank() const { return blueprint == &BlankBlueprint(); }

  /// Joins the two pins, each at most once; false if they were joined already. Not a check: `CanConnect` is. The order
  /// of the children is brought up to date by `RefreshChildOrder`.
  bool Join(NodePinData& other);
  bool IsConnectedTo(const NodePinData& other) const;

  /// Sorts the children of a `Multiple` output pin by height on the canvas; those at the same height keep their order.
  void RefreshChildOrder();
  /// Numbers the children of a `Multiple` output pin in the order in which they stand now. A child of several pins is
  /// numbered by one of them, see `ContentNode::NumberingPin`.
  void RenumberChildren();

  /// Takes over another record's colour and type; null means the pin's own again.
  void SetResolvedBlueprint(const NodePinBlueprint* record);
  void AddFieldContent(BaseField& field);
  void SetVisible(bool value);

  /// Whether two pins may be joined: opposite sides, fitting declared types, and neither taken unless it is
  /// `Multiple`.
  static bool CanConnect(const NodePinData& a, const NodePinData& b);

  /// The shared record of the pins that are gaps.
  static const NodePinBlueprint& BlankBlueprint();

  // What documents bind to.
  bool IsInput() const { return isInput; }
  bool IsMap() const { return blueprint->IsMap; }
  bool IsVisible() const { return isVisible; }
  std::string_view Label() const { return blueprint->Label; }
  std::string_view Description() const { return blueprint->Description; }
  Toolkit::SolidColorBrush* BorderColor() const { return borderColor.Get(); }
  Toolkit::StackPanel* PinFieldContent() const { return pinFieldContent.Get(); }

  /// Not owned; lives as long as the workspace.
  const NodePinBlueprint* blueprint;
  const NodePinBlueprint* resolvedBlueprint = nullptr;
  /// The pins at the other ends, without duplicates; those of a `Multiple` output pin are in child order. Not owned:
  /// whoever takes a node out of the document ends its connections first.
  std::vector<NodePinData*> connections;
  /// Never null; not owned.
  ContentNode* owner;
  /// Where connections end, relative to the node's corner. The node's to keep: `ContentNode::AnchorOf`.
  Toolkit::Point anchor;
  /// A load saw an array or a map for this pin, so an empty one is written back.
  bool hadArray = false;

private:
  bool isInput;
  bool isVisible = true;
  Toolkit::Ptr<Toolkit::SolidColorBrush> borderColor;
  Toolkit::Ptr<Toolkit::StackPanel> pinFieldContent;
};

} // namespace Tesselor
