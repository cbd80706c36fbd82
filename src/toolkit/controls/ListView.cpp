#include "toolkit/controls/ListView.h"

#include "toolkit/markup/Template.h"

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
  ViewProperty = type.Property<GridView*>("View", nullptr, DependencyProperty::AffectsMeasure);
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
  // Columns without a width of their own take that of their widest cell, so all rows are asked before any is laid
  // out.
  columnWidths.assign(view->ColumnCount(), 0);
  for (size_t c = 0; c < view->ColumnCount(); ++c) {
    const float width = view->Column(c).Get<float>(GridViewColumn::WidthProperty);
    columnWidths[c] = IsAuto(width) ? Auto : width;
  }
  std::vector<float> wanted(columnWidths.size(), 0);
  for (size_t r = 0; r < host->ChildCount(); ++r) {
    auto* row = DynamicCast<GridViewRow>(static_cast<Object*>(host->Child(r)));
    if (!row) continue;
    row->Measure({Infinity, Infinity});
    for (size_t c = 0; c < wanted.size() && c < row->VisualChildCount(); ++c)
      wanted[c] = std::max(wanted[c], row->CellSize(c).width);
  }
  bool changed = false;
  for (size_t c = 0; c < columnWidths.size(); ++c) {
    if (!IsAuto(columnWidths[c])) continue;
    columnWidths[c] = wanted[c];
    changed = true;
  }
  if (changed)
    for (size_t r = 0; r < host->ChildCount(); ++r) host->Child(r)->InvalidateMeasure();
  host->InvalidateMeasure();
  return Selector::MeasureOverride(available);
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
    const float width = list->ColumnWidth(c);
    cells[c]->Measure({IsAuto(width) ? Infinity : width, available.height});
    wanted.width += IsAuto(width) ? cells[c]->DesiredSize().width : width;
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

} // namespace Toolkit
