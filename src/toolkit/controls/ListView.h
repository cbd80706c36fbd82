#pragma once

#include "toolkit/controls/ContentControl.h"
#include "toolkit/controls/Selector.h"

namespace Toolkit {

class GridView;
class ListView;

/// The header cell of a column.
class GridViewColumnHeader : public ContentControl {
  TOOLKIT_TYPE(GridViewColumnHeader)
public:
  GridViewColumnHeader() = default;
};

/// One column: how wide, and how a row's item is shown in it.
class GridViewColumn : public DependencyObject {
  TOOLKIT_TYPE(GridViewColumn)
public:
  /// Not a number: as wide as its widest cell.
  static inline const DependencyProperty* WidthProperty = nullptr;
  static inline const DependencyProperty* HeaderProperty = nullptr;
  static inline const DependencyProperty* CellTemplateProperty = nullptr;
  GridViewColumn() = default;
  DependencyObject* InheritanceParent() const override;

protected:
  void OnPropertyChanged(const PropertyChange& change) override;

private:
  friend class GridView;
  GridView* view = nullptr;
};

/// The columns of a list view.
class GridView : public DependencyObject {
  TOOLKIT_TYPE(GridView)
public:
  static inline const DependencyProperty* ColumnHeaderContainerStyleProperty = nullptr;
  GridView() = default;
  ~GridView() override;
  void AddColumn(GridViewColumn* column);
  size_t ColumnCount() const { return columns.size(); }
  GridViewColumn& Column(size_t index) const { return *columns[index]; }
  DependencyObject* InheritanceParent() const override;

protected:
  void RefreshInheritanceOfChildren(uint16_t changedBits) override;

private:
  friend class ListView;
  friend class GridViewColumn;
  ListView* list = nullptr;
  std::vector<Ptr<GridViewColumn>> columns;
};

/// A list whose rows are cut into the columns of its view.
class ListView : public Selector {
  TOOLKIT_TYPE(ListView)
public:
  static inline const DependencyProperty* ViewProperty = nullptr;
  /// Paint the row under the mouse and that of the selected item.
  static inline const DependencyProperty* HighlightBrushProperty = nullptr;
  static inline const DependencyProperty* SelectionBrushProperty = nullptr;
  ListView() = default;
  ~ListView() override;
  GridView* GetView() const { return static_cast<GridView*>(GetValue(ViewProperty).AsObject()); }
  /// The width of a column as all rows share it; valid after a measure.
  float ColumnWidth(size_t index) const { return index < columnWidths.size() ? columnWidths[index] : 0; }
  /// The width that the column was given, or negative if it is as wide as its widest cell.
  float GivenWidth(size_t index) const { return index < givenWidths.size() ? givenWidths[index] : -1; }

protected:
  void OnPropertyChanged(const PropertyChange& change) override;
  void RefreshInheritanceOfChildren(uint16_t changedBits) override;
  Ptr<FrameworkElement> CreateContainer(Object* item) override;
  Size MeasureOverride(Size available) override;

private:
  std::vector<float> columnWidths, givenWidths;
};

/// One row of a list view: a cell for each column. Its data context is the item, which a click on the row selects.
class GridViewRow : public FrameworkElement {
  TOOLKIT_TYPE(GridViewRow)
public:
  GridViewRow() = default;
  explicit GridViewRow(ListView& list);
  ~GridViewRow() override;
  /// Makes the cells. The row stands in the tree by now.
  void MakeCells(GridView& view);
  size_t VisualChildCount() const override { return cells.size(); }
  UIElement* VisualChild(size_t index) const override { return cells[index].Get(); }
  /// What the cell of a column wants, at most as wide as the column was given.
  Size CellSize(size_t column) const { return cells[column]->DesiredSize(); }

protected:
  void OnChildDesiredSizeChanged(UIElement* child) override;
  void OnRender(Painter& painter) override;
  void OnRoutedEvent(const RoutedEventArgs& args) override;
  bool HitTestSelf(Point point) const override { return Rect{0, 0, ActualWidth(), ActualHeight()}.Contains(point); }
  void PrepareForMeasure() override;
  Size MeasureOverride(Size available) override;
  Size ArrangeOverride(Size finalSize) override;

private:
  ListView* list = nullptr;
  std::vector<Ptr<UIElement>> cells;
};

} // namespace Toolkit
