#include "toolkit/controls/ListView.h"

#include "toolkit/markup/Template.h"
#include "toolkit/render/Brush.h"
#include "toolkit/render/Painter.h"

#include <algorithm>

namespace Toolkit {

TOOLKIT_TYPE_IMPL(GridViewColumnHeader, ContentControl, "GridViewColumnHeader")
void GridViewColumnHeader::Describe(TypeBuilder<GridViewColumnHeader>&) {}

TOOLKIT_TYPE_IMPL(GridViewColumn, DependencyObject, "GridViewColumn")
void GridViewColumn::Describe(TypeBuilder<GridViewColumn>& type) {
  WidthProperty = type.Property<float>("Width", Auto);
  HeaderProperty = type.Property<Value>("Header");
  CellTemplateProperty = type.Property<DataTemplate*>("CellTemplate");
}

DependencyObject* GridViewColumn::InheritanceParent() const { return view; }

void GridViewColumn::OnPropertyChanged(const PropertyChange& change) {
  DependencyObject::OnPropertyChanged(change);
  if (&change.property == WidthProperty && view && view->list) view->list->InvalidateMeasure();
}

TOOLKIT_TYPE_IMPL(GridView, DependencyObject, "GridView")
void GridView::Describe(TypeBuilder<GridView>& type) {
  ColumnHeaderContainerStyleProperty = type.Property<Toolkit::Style*>("ColumnHeaderContainerStyle");
  type.List<&GridView::AddColumn>("Columns");
  type.Content("Columns");
}

GridView::~GridView() {
  for (const Ptr<GridViewColumn>& column : columns) column->view = nullptr;
}

void GridView::AddColumn(GridViewColumn* column) {
  columns.emplace_back(column);
  column->view = this;
  column->RefreshInheritance(0);
}

DependencyObject* GridView::InheritanceParent() const { return list; }

void GridView::RefreshInheritanceOfChildren(uint16_t changedBits) {
  for (const Ptr<GridViewColumn>& column : columns) column->RefreshInheritance(changedBits);
}

TOOLKIT_TYPE_IMPL(ListView, Selector, "ListView")
void ListView::Describe(TypeBuilder<ListView>& type) {
  using P = DependencyProperty;
  ViewProperty = type.Property<GridView*>("View", nullptr, P::AffectsMeasure);
  HighlightBrushProperty = type.Property<Brush*>("HighlightBrush", nullptr, P::AffectsRender);
  SelectionBrushProperty = type.Property<Brush*>("SelectionBrush", nullptr, P::AffectsRender);
}

ListView::~ListView() {
  if (GridView* view = GetView()) view->list = nullptr;
}

void ListView::OnPropertyChanged(const PropertyChange& change) {
  Selector::OnPropertyChanged(change);
  if (&change.property != ViewProperty) return;
  if (auto* former = static_cast<GridView*>(change.oldValue.AsObject())) former->list = nullptr;
  if (GridView* view = GetView()) {
    view->list = this;
    view->RefreshInheritance(0);
  }
}

void ListView::RefreshInheritanceOfChildren(uint16_t changedBits) {
  if (GridView* view = GetView()) view->RefreshInheritance(changedBits);
  Selector::RefreshInheritanceOfChildren(changedBits);
}

Ptr<FrameworkElement> ListView::CreateContainer(Object* item) {
  if (!GetView()) return Selector::CreateContainer(item);
  auto row = MakePtr<GridViewRow>(*this);
  row->SetDataContext(item);
  return row;
}

Size ListView::MeasureOverride(Size available) {
  GridView* view = GetView();
  Panel* host = ItemsHost();
  if (!view || !host) return Selector::MeasureOverride(available);
  std::vector<float> given(view->ColumnCount());
  for (size_t c = 0; c < given.size(); ++c) {
    const float width = view->Column(c).Get<float>(GridViewColumn::WidthProperty);
    given[c] = IsAuto(width) ? -1 : width;
  }
  if (given != givenWidths) {
    givenWidths = given;
    for (size_t r = 0; r < host->ChildCount(); ++r) host->Child(r)->InvalidateMeasure();
    host->InvalidateMeasure();
  }
  const Size wanted = Selector::MeasureOverride(available);
  // Columns without a width of their own take that of their widest cell. Rows measure their cells without regard to
  // each other, so that a change in one of them does not measure the others.
  std::vector<float> widths(given.size(), 0);
  for (size_t r = 0; r < host->ChildCount(); ++r) {
    const auto* row = DynamicCast<GridViewRow>(host->Child(r));
    if (!row) continue;
    for (size_t c = 0; c < widths.size() && c < row->VisualChildCount(); ++c)
      widths[c] = std::max(widths[c], row->CellSize(c).width);
  }
  float total = Chrome().Horizontal();
  for (size_t c = 0; c < widths.size(); ++c) {
    if (given[c] >= 0) widths[c] = given[c];
    total += widths[c];
  }
  if (widths != columnWidths) {
    columnWidths = widths;
    for (size_t r = 0; r < host->ChildCount(); ++r) host->Child(r)->InvalidateArrange();
    host->InvalidateArrange();
  }
  return {std::max(wanted.width, total), wanted.height};
}

TOOLKIT_TYPE_IMPL(GridViewRow, FrameworkElement, "GridViewRow")
void GridViewRow::Describe(TypeBuilder<GridViewRow>&) {}

GridViewRow::GridViewRow(ListView& list) : list(&list) {}

GridViewRow::~GridViewRow() {
  for (const Ptr<UIElement>& cell : cells) ReleaseVisualChild(cell.Get());
}

void GridViewRow::MakeCells(GridView& view) {
  for (size_t c = 0; c < view.ColumnCount(); ++c) {
    const auto* cellTemplate =
        static_cast<const DataTemplate*>(view.Column(c).GetValue(GridViewColumn::CellTemplateProperty).AsObject());
    if (!cellTemplate) continue;
    cellTemplate->Instantiate(this, [this](FrameworkElement& cell) {
      cells.emplace_back(&cell);
      AddVisualChild(&cell);
    });
  }
}

void GridViewRow::PrepareForMeasure() {
  if (cells.empty() && list && list->GetView()) MakeCells(*list->GetView());
}

Size GridViewRow::MeasureOverride(Size available) {
  Size wanted;
  for (size_t c = 0; c < cells.size(); ++c) {
    const float given = list->GivenWidth(c);
    cells[c]->Measure({given < 0 ? Infinity : given, available.height});
    wanted.width += given < 0 ? cells[c]->DesiredSize().width : given;
    wanted.height = std::max(wanted.height, cells[c]->DesiredSize().height);
  }
  return wanted;
}

Size GridViewRow::ArrangeOverride(Size finalSize) {
  float x = 0;
  for (size_t c = 0; c < cells.size(); ++c) {
    const float width = list->ColumnWidth(c);
    cells[c]->Arrange({x, 0, width, finalSize.height});
    x += width;
  }
  return finalSize;
}

void GridViewRow::OnChildDesiredSizeChanged(UIElement* child) {
  FrameworkElement::OnChildDesiredSizeChanged(child);
  for (size_t c = 0; c < cells.size(); ++c)
    if (cells[c].Get() == child && list->GivenWidth(c) < 0) list->InvalidateMeasure();
}

void GridViewRow::OnRender(Painter& painter) {
  const Rect box{0, 0, ActualWidth(), ActualHeight()};
  if (list->GetSelectedItem() && list->GetSelectedItem() == GetDataContext())
    painter.DrawRectangle(box, list->Get<Brush*>(ListView::SelectionBrushProperty));
  else if (Get<bool>(IsMouseOverProperty))
    painter.DrawRectangle(box, list->Get<Brush*>(ListView::HighlightBrushProperty));
}

void GridViewRow::OnRoutedEvent(const RoutedEventArgs& args) {
  FrameworkElement::OnRoutedEvent(args);
  // The press stays free for what lies around, which may want to be dragged by it.
  if (args.event == &MouseLeftButtonDownEvent && IsEnabled()) list->SetSelectedItem(GetDataContext());
}

} // namespace Toolkit
