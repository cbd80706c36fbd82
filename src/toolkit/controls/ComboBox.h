#pragma once

#include "toolkit/controls/Selector.h"

#include <string>

namespace Toolkit {

class ComboBoxList;
class Popup;
struct KeyEventArgs;

/// Shows the selected item; its list drops down in a popup that is made when it first opens. While the list is open,
/// keys move a light in it, and Return or a click selects. Letters go to the next item that begins with them.
class ComboBox : public Selector {
  TOOLKIT_TYPE(ComboBox)
public:
  static inline const DependencyProperty* IsDropDownOpenProperty = nullptr;
  static inline const DependencyProperty* MaxDropDownHeightProperty = nullptr;
  static inline const DependencyProperty* ArrowBrushProperty = nullptr;

  ComboBox();
  ~ComboBox() override;
  bool IsDropDownOpen() const { return Get<bool>(IsDropDownOpenProperty); }
  void SetIsDropDownOpen(bool open) { SetValue(IsDropDownOpenProperty, open); }
  /// The text that stands for an item, by `DisplayMemberPath`.
  SharedString TextOf(Object* item) const;
  /// Closes the list and selects the item; -1 only closes.
  void Choose(int32_t index);
  /// The open list, or null.
  ComboBoxList* List() const;
  /// Letters that are typed come as text, so that any script will do.
  Rect CaretRectangle() const override;

protected:
  void OnRoutedEvent(const RoutedEventArgs& args) override;
  void OnPropertyChanged(const PropertyChange& change) override;
  void OnItemsChanged(const CollectionChange& change) override;
  void PrepareForMeasure() override {}
  void OnRender(Painter& painter) override;
  Size MeasureOverride(Size available) override;
  Size ArrangeOverride(Size finalSize) override;
  bool HitTestSelf(Point point) const override { return Rect{0, 0, ActualWidth(), ActualHeight()}.Contains(point); }

private:
  void OpenList();
  bool OnListKey(const KeyEventArgs& args);
  void OnClosedKey(const KeyEventArgs& args);
  void FindTyped(std::string_view text);
  bool IsTyping() const;

  Ptr<ComboBoxList> list;
  Ptr<Popup> popup;
  std::string typed;
  double typedAt = 0;
};

} // namespace Toolkit
