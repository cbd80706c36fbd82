#include "toolkit/controls/Grid.h"

#include <algorithm>

namespace Toolkit {

TOOLKIT_TYPE_IMPL(DefinitionBase, DependencyObject, "DefinitionBase")
void DefinitionBase::Describe(TypeBuilder<DefinitionBase>& type) {
  // One whose length is not bound is the same for all instances of a document.
  type.Shareable();
}

DependencyObject* DefinitionBase::InheritanceParent() const { return grid; }

void DefinitionBase::OnPropertyChanged(const PropertyChange& change) {
  DependencyObject::OnPropertyChanged(change);
  if (grid && (change.property.flags & DependencyProperty::AffectsParentMeasure)) grid->InvalidateMeasure();
}

TOOLKIT_TYPE_IMPL(RowDefinition, DefinitionBase, "RowDefinition")
void RowDefinition::Describe(TypeBuilder<RowDefinition>& type) {
  HeightProperty = type.Property<GridLength>("Height", GridLength(), DependencyProperty::AffectsParentMeasure);
  MinHeightProperty = type.Property<float>("MinHeight", 0, DependencyProperty::AffectsParentMeasure);
  MaxHeightProperty = type.Property<float>("MaxHeight", Infinity, DependencyProperty::AffectsParentMeasure);
}

TOOLKIT_TYPE_IMPL(ColumnDefinition, DefinitionBase, "ColumnDefinition")
void ColumnDefinition::Describe(TypeBuilder<ColumnDefinition>& type) {
  WidthProperty = type.Property<GridLength>("Width", GridLength(), DependencyProperty::AffectsParentMeasure);
  MinWidthProperty = type.Property<float>("MinWidth", 0, DependencyProperty::AffectsParentMeasure);
  MaxWidthProperty = type.Property<float>("MaxWidth", Infinity, DependencyProperty::AffectsParentMeasure);
}

TOOLKIT_TYPE_IMPL(Grid, Panel, "Grid")
void Grid::Describe(TypeBuilder<Grid>& type) {
  const uint32_t moves = DependencyProperty::AffectsParentMeasure;
  RowProperty = type.Property<int32_t>("Row", 0, moves);
  ColumnProperty = type.Property<int32_t>("Column", 0, moves);
  RowSpanProperty = type.Property<int32_t>("RowSpan", 1, moves);
  ColumnSpanProperty = type.Property<int32_t>("ColumnSpan", 1, moves);
  type.List<&Grid::AddRow>("RowDefinitions");
  type.List<&Grid::AddColumn>("ColumnDefinitions");
}

Grid::~Grid() {
  Forget(rows);
  Forget(columns);
}

void Grid::Forget(const Definitions& definitions) {
  // A definition that documents share belongs to the grid that took it last.
  for (const Ptr<DefinitionBase>& definition : definitions)
    if (definition->grid == this) definition->grid = nullptr;
}

void Grid::AddRow(RowDefinition* row) {
  rows.emplace_back(row);
  row->grid = this;
  row->RefreshInheritance(0);
  InvalidateMeasure();
}

void Grid::AddColumn(ColumnDefinition* column) {
  columns.emplace_back(column);
  column->grid = this;
  column->RefreshInheritance(0);
  InvalidateMeasure();
}

void Grid::ClearRows() {
  Forget(rows);
  rows.clear();
  InvalidateMeasure();
}

void Grid::RefreshInheritanceOfChildren(uint16_t changedBits) {
  for (const Definitions* definitions : {&rows, &columns})
    for (const Ptr<DefinitionBase>& definition : *definitions)
      if (definition->grid == this) definition->RefreshInheritance(changedBits);
  Panel::RefreshInheritanceOfChildren(changedBits);
}

void Grid::StartTracks(const Definitions& definitions, Tracks& tracks) {
  tracks.clear();
  for (const Ptr<DefinitionBase>& definition : definitions) {
    Track track{definition->Length(), definition->Minimum(), definition->Maximum(), 0};
    if (track.length.unit == GridUnit::Pixel) track.size = track.length.value;
    track.size = std::clamp(track.size, track.minimum, std::max(track.minimum, track.maximum));
    tracks.push_back(track);
  }
  if (tracks.empty()) tracks.push_back({GridLength(), 0, Infinity, 0});
}

void Grid::ShareStars(Tracks& tracks, float available) {
  float weights = 0, rest = available;
  for (const Track& track : tracks) {
    if (track.length.unit == GridUnit::Star)
      weights += track.length.value;
    else
      rest -= track.size;
  }
  rest = std::max(0.0f, rest);
  // A track that its limits hold takes no further part in the sharing.
  std::vector<bool> held(tracks.size(), false);
  for (bool changed = true; changed;) {
    changed = false;
    for (size_t i = 0; i < tracks.size(); ++i) {
      Track& track = tracks[i];
      if (track.length.unit != GridUnit::Star || held[i]) continue;
      const float share = weights > 0 ? rest * track.length.value / weights : 0;
      const float limited = std::clamp(share, track.minimum, std::max(track.minimum, track.maximum));
      track.size = limited;
      if (limited != share) {
        held[i] = true;
        weights -= track.length.value;
        rest = std::max(0.0f, rest - limited);
        changed = true;
        break;
      }
    }
  }
}

bool Grid::Has(const Tracks& tracks, Span span, GridUnit unit) {
  for (size_t i = span.first; i < span.first + span.count; ++i)
    if (tracks[i].length.unit == unit) return true;
  return false;
}

float Grid::Sum(const Tracks& tracks, Span span) {
  float sum = 0;
  for (size_t i = span.first; i < span.first + span.count; ++i) sum += tracks[i].size;
  return sum;
}

void Grid::Grow(Tracks& tracks, Span span, float wanted) {
  // What spans several tracks widens the last one that can grow.
  float missing = wanted - Sum(tracks, span);
  if (missing <= 0) return;
  for (size_t i = span.first + span.count; i-- > span.first;) {
    if (tracks[i].length.unit == GridUnit::Pixel) continue;
    const float grown = std::min(tracks[i].size + missing, std::max(tracks[i].minimum, tracks[i].maximum));
    missing -= grown - tracks[i].size;
    tracks[i].size = grown;
    if (missing <= 0) return;
  }
}

float Grid::WantedOfStars(const Tracks& tracks, Span span, float length) {
  float fixed = 0, stars = 0, allStars = 0;
  for (const Track& track : tracks)
    if (track.length.unit == GridUnit::Star) allStars += track.length.value;
  for (size_t i = span.first; i < span.first + span.count; ++i) {
    if (tracks[i].length.unit == GridUnit::Star)
      stars += tracks[i].length.value;
    else
      fixed += tracks[i].size;
  }
  return stars > 0 ? std::max(0.0f, length - fixed) * allStars / stars : 0.0f;
}

Grid::Cell Grid::CellOf(const UIElement& child) const {
  const auto span = [](const Tracks& tracks, int32_t first, int32_t count) {
    const size_t start = std::min(static_cast<size_t>(std::max(0, first)), tracks.size() - 1);
    return Span{start, std::min(static_cast<size_t>(std::max(1, count)), tracks.size() - start)};
  };
  return {span(rowTracks, child.Get<int32_t>(RowProperty), child.Get<int32_t>(RowSpanProperty)),
          span(columnTracks, child.Get<int32_t>(ColumnProperty), child.Get<int32_t>(ColumnSpanProperty))};
}

Size Grid::MeasureOverride(Size available) {
  if (rows.empty() && columns.empty()) return MeasureAsOneCell(available);
  StartTracks(rows, rowTracks);
  StartTracks(columns, columnTracks);
  // What stands in content-sized columns alone says how wide they are; then the stars share what is left, and all
  // others are measured with their width known. The rows follow from the heights.
  const auto measure = [&](bool isContentSized) {
    for (size_t i = 0; i < ChildCount(); ++i) {
      const Cell cell = CellOf(*Child(i));
      const bool isContent =
          Has(columnTracks, cell.columns, GridUnit::Auto) && !Has(columnTracks, cell.columns, GridUnit::Star);
      if (isContent == isContentSized) MeasureInTracks(*Child(i), cell, available);
    }
  };
  measure(true);
  if (available.width != Infinity) ShareStars(columnTracks, available.width);
  measure(false);
  if (available.height != Infinity && rowTracks.size() > 1) MeasureStarRows(available);
  return WantedSize();
}

Size Grid::MeasureAsOneCell(Size available) {
  Size wanted;
  for (size_t i = 0; i < ChildCount(); ++i) {
    Child(i)->Measure(available);
    wanted.width = std::max(wanted.width, Child(i)->DesiredSize().width);
    wanted.height = std::max(wanted.height, Child(i)->DesiredSize().height);
  }
  return wanted;
}

bool Grid::HasFreeWidth(const Cell& cell, Size available) const {
  if (Has(columnTracks, cell.columns, GridUnit::Star)) return available.width == Infinity;
  return Has(columnTracks, cell.columns, GridUnit::Auto);
}

void Grid::MeasureInTracks(UIElement& child, const Cell& cell, Size available) {
  const bool hasAutoRow = Has(rowTracks, cell.rows, GridUnit::Auto);
  const bool hasFixedHeight = !hasAutoRow && !Has(rowTracks, cell.rows, GridUnit::Star);
  const bool hasFreeWidth = HasFreeWidth(cell, available);
  float height = Infinity;
  if (hasFixedHeight)
    height = Sum(rowTracks, cell.rows);
  else if (!hasAutoRow && rowTracks.size() == 1)
    height = available.height;
  child.Measure({hasFreeWidth ? Infinity : Sum(columnTracks, cell.columns), height});
  if (hasFreeWidth) Grow(columnTracks, cell.columns, child.DesiredSize().width);
  if (!hasFixedHeight) Grow(rowTracks, cell.rows, child.DesiredSize().height);
}

void Grid::MeasureStarRows(Size available) {
  // Children of star rows know their height only now. It stays out of the tracks: a star wants what its children want.
  Tracks shared = rowTracks;
  ShareStars(shared, available.height);
  for (size_t i = 0; i < ChildCount(); ++i) {
    const Cell cell = CellOf(*Child(i));
    if (!Has(rowTracks, cell.rows, GridUnit::Star) || !HasFreeWidth(cell, available)) continue;
    // A height that calls for a scroll bar makes the child wider, and its column with it.
    Child(i)->Measure({Infinity, Sum(shared, cell.rows)});
    Grow(columnTracks, cell.columns, Child(i)->DesiredSize().width);
  }
  if (available.width != Infinity) ShareStars(columnTracks, available.width);
  for (size_t i = 0; i < ChildCount(); ++i) {
    const Cell cell = CellOf(*Child(i));
    if (Has(rowTracks, cell.rows, GridUnit::Star))
      Child(i)->Measure({Sum(columnTracks, cell.columns), Sum(shared, cell.rows)});
  }
}

Size Grid::WantedSize() const {
  Size fixed, stars;
  for (const Track& track : rowTracks)
    if (track.length.unit != GridUnit::Star) fixed.height += track.size;
  for (const Track& track : columnTracks)
    if (track.length.unit != GridUnit::Star) fixed.width += track.size;
  // A star track wants only what its children want.
  for (size_t i = 0; i < ChildCount(); ++i) {
    const Cell cell = CellOf(*Child(i));
    const Size wanted = Child(i)->DesiredSize();
    stars.width = std::max(stars.width, WantedOfStars(columnTracks, cell.columns, wanted.width));
    stars.height = std::max(stars.height, WantedOfStars(rowTracks, cell.rows, wanted.height));
  }
  return {fixed.width + stars.width, fixed.height + stars.height};
}

Size Grid::ArrangeOverride(Size finalSize) {
  if (rows.empty() && columns.empty()) {
    for (size_t i = 0; i < ChildCount(); ++i) Child(i)->Arrange({0, 0, finalSize.width, finalSize.height});
    return finalSize;
  }
  ShareStars(rowTracks, finalSize.height);
  ShareStars(columnTracks, finalSize.width);
  for (size_t i = 0; i < ChildCount(); ++i) {
    const Cell cell = CellOf(*Child(i));
    Child(i)->Arrange({Sum(columnTracks, {0, cell.columns.first}), Sum(rowTracks, {0, cell.rows.first}),
                       Sum(columnTracks, cell.columns), Sum(rowTracks, cell.rows)});
  }
  return finalSize;
}

} // namespace Toolkit
