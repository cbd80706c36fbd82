#pragma once

#include "nodes/NodePinData.h"
#include "toolkit/controls/UserControl.h"
#include "toolkit/visual/InputEvents.h"

namespace Tesselor {

/// Shows one pin, its data context, in a row of a node. Tells with routed events that the pin was pressed and
/// released; what that connects is the view's business.
class NodePinControl : public Toolkit::UserControl {
  TOOLKIT_TYPE(NodePinControl)
public:
  static inline const Toolkit::DependencyProperty* AnchorProperty = nullptr;
  static inline const Toolkit::DependencyProperty* IsInputProperty = nullptr;
  /// The pin waits for the other end of a connection. True for at most one pin of a view, which sets it.
  static inline const Toolkit::DependencyProperty* IsPendingConnectionProperty = nullptr;
  /// Bubbling, with plain arguments whose source is this control: the pin was pressed, was released, and wants its
  /// menu.
  static const Toolkit::RoutedEvent NodePinMouseDownEvent, NodePinMouseUpEvent, NodePinMenuEvent;

  /// Makes the controls now, if they still wait to be seen. With the same place and size as without.
  void MakeControls();
  bool HasControls() const { return hasControls; }
  /// Null before the control stands in a list of pins.
  NodePinData* PinData() const;
  bool IsInput() const { return Get<bool>(IsInputProperty); }
  bool IsPendingConnection() const { return Get<bool>(IsPendingConnectionProperty); }
  void SetPendingConnection(bool value) { SetValue(IsPendingConnectionProperty, value); }

  /// The drawn shape, where connections end; null before layout, and while the controls wait. Found once and then
  /// kept.
  Toolkit::FrameworkElement* PinElement() const;
  /// The middle of the drawn shape in the coordinates of an ancestor; (0, 0) if it can't be found.
  Toolkit::Point PinCentre(const Toolkit::UIElement* ancestor) const;

protected:
  Toolkit::Size MeasureOverride(Toolkit::Size available) override;
  Toolkit::Size ArrangeOverride(Toolkit::Size finalSize) override;

private:
  void InitializeComponent();
  /// Where the room of this pin is known or to be kept; null if it shows more than its record tells.
  PinRoom* SharedRoom() const;
  void Pin_MouseDown(Toolkit::Object* sender, const Toolkit::MouseButtonEventArgs& args);
  void Pin_MouseUp(Toolkit::Object* sender, const Toolkit::MouseButtonEventArgs& args);
  void ShowPinContextMenu();

  mutable Toolkit::WeakPtr<Toolkit::FrameworkElement> pinElement;
  bool hasControls = false;
};

} // namespace Tesselor
