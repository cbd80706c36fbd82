#pragma once

#include "toolkit/visual/FrameworkElement.h"

#include <memory>
#include <vector>

namespace Toolkit {

class Menu;
class Popup;
class ToolTipService;

/// Holds the open popups of a window, above all that the window shows. Without an open popup it takes no input. What
/// happens in here never makes the window lay its content out anew.
class PopupLayer : public FrameworkElement {
  TOOLKIT_TYPE(PopupLayer)
public:
  PopupLayer();
  ~PopupLayer() override;
  /// The layer of the window that the element hangs in; null if there is none.
  static PopupLayer* Of(const UIElement& element);

  /// Shows a popup above those that are open.
  void Open(Popup& popup);
  /// Closes a popup, and first all light ones above it, which were opened from it.
  void Close(Popup& popup);
  /// Closes all light popups, topmost first.
  void CloseLight();
  /// The topmost popup that is not passive, or null.
  Popup* Topmost() const;
  size_t PopupCount() const { return popups.size(); }
  /// The window's menu, which F10 gives the keys to.
  void SetMenuBar(Menu* menu);

  /// The window passes all events to the layer before it acts itself. Mouse input of popups goes on from here to them
  /// alone, and the topmost popup hears the keys first.
  void OnWindowEvent(const RoutedEventArgs& args);

  size_t VisualChildCount() const override { return popups.size(); }
  UIElement* VisualChild(size_t index) const override;
  UIElement* HitTest(Point point) override;

protected:
  Size MeasureOverride(Size available) override;
  Size ArrangeOverride(Size finalSize) override;
  void OnChildDesiredSizeChanged(UIElement*) override { InvalidateArrange(); }
  void ArrangeDirtyChild(UIElement& child) override;
  void RenderChildren(Painter& painter) override;
  void OnRoutedEvent(const RoutedEventArgs& args) override;
  void OnDetached() override;

private:
  void Remove(Popup& popup);
  void Place(Popup& popup);
  Popup* PopupOf(Object* source) const;
  bool HasLight() const;
  void PassMouse(const RoutedEventArgs& args, Popup& popup);
  void OnKey(const RoutedEventArgs& args);
  void FollowOwners();

  std::vector<Ptr<Popup>> popups;
  std::unique_ptr<ToolTipService> toolTips;
  WeakPtr<Menu> menuBar;
  Size room;
  bool followPosted = false;
};

} // namespace Toolkit
