#pragma once

#include "toolkit/controls/Control.h"
#include "toolkit/controls/ScrollThumb.h"

namespace Toolkit {

class ComboBox;

/// The list that drops down from a combo box. Its rows are no elements: only those in sight are laid out and drawn, so
/// that thousands of items cost no more than a few.
class ComboBoxList : public Control {
  TOOLKIT_TYPE(ComboBoxList)
public:
  static inline const DependencyProperty* HighlightBrushProperty = nullptr;
  /// Marks the row of the selected item.
  static inline const DependencyProperty* SelectionBrushProperty = nullptr;
  static inline const DependencyProperty* ScrollBarBrushProperty = nullptr;

  ComboBoxList() = default;
  explicit ComboBoxList(ComboBox& owner);
  void ReleaseOwner() { box = nullptr; }

  /// The list is about to be shown: lights the selected item and brings it into the middle.
  void Begin();
  void OnItemsChanged();
  /// The row that is lit; -1 if none is.
  int32_t Current() const { return current; }
  /// Brings the row into sight as well.
  void SetCurrent(int32_t row);
  /// How many rows fit, at least 1.
  int32_t RowsOfPage() const;
  /// In the list's own coordinates; may lie outside of what is in sight.
  Rect RowBox(int32_t row) const;

protected:
  Size MeasureOverride(Size available) override;
  Size ArrangeOverride(Size finalSize) override;
  void OnRender(Painter& painter) override;
  void OnRoutedEvent(const RoutedEventArgs& args) override;

private:
  int32_t RowAt(Point point) const;
  float WidthOfRows() const;

  /// Cleared when the box goes first.
  ComboBox* box = nullptr;
  ScrollThumb bar;
  float rowHeight = 1;
  int32_t current = -1;
  bool centresCurrent = false;
};

} // namespace Toolkit
