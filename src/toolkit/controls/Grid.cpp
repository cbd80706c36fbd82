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

void Grid::StartTracks(const Definitions& definitions, std::vector<Track>& tracks) {
  tracks.clear();
  for (const Ptr<DefinitionBase>& definition : definitions) {
    Track track{definition->Length(), definition->Minimum(), definition->Maximum(), 0};
    if (track.length.unit == GridUnit::Pixel) track.size = track.length.value;
    track.size = std::clamp(track.size, track.minimum, std::max(track.minimum, track.maximum));
    tracks.push_back(track);
  }
  if (tracks.empty()) tracks.push_back({GridLength(), 0, Infinity, 0});
}

float Grid::Sum(const std::vector<Track>& tracks, size_t first, size_t count) {
  float sum = 0;
  for (size_t i = first; i < first + count; ++i) sum += tracks[i].size;
  return sum;
}

void Grid::ShareStars(std::vector<Track>& tracks, float available) {
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

void Grid::Grow(std::vector<Track>& tracks, size_t first, size_t count, float wanted) {
  // What spans several tracks widens the last one that can grow.
  float missing = wanted - Sum(tracks, first, count);
  if (missing <= 0) return;
  for (size_t i = first + count; i-- > first;) {
    if (tracks[i].length.unit == GridUnit::Pixel) continue;
    const float grown = std::min(tracks[i].size + missing, std::max(tracks[i].minimum, tracks[i].maximum));
    missing -= grown - tracks[i].size;
    tracks[i].size = grown;
    if (missing <= 0) return;
  }
}

void Grid::Cell(const UIElement& child, size_t& row, size_t& column, size_t& rowSpan, size_t& columnSpan) const {
  auto limit = [](int32_t value, size_t count) { return std::min(static_cast<size_t>(std::max(0, value)), count - 1); };
  row = limit(child.Get<int32_t>(RowProperty), rowTracks.size());
  column = limit(child.Get<int32_t>(ColumnProperty), columnTracks.size());
  rowSpan = std::min(static_cast<size_t>(std::max(1, child.Get<int32_t>(RowSpanProperty))), rowTracks.size() - row);
  columnSpan =
      std::min(static_cast<size_t>(std::max(1, child.Get<int32_t>(ColumnSpanProperty))), columnTracks.size() - column);
}

Size Grid::MeasureOverride(Size available) {
  if (rows.empty() && columns.empty()) {
    Size wanted;
    for (size_t i = 0; i < ChildCount(); ++i) {
      Child(i)->Measure(available);
      wanted.width = std::max(wanted.width, Child(i)->DesiredSize().width);
      wanted.height = std::max(wanted.height, Child(i)->DesiredSize().height);
    }
    return wanted;
  }
  StartTracks(rows, rowTracks);
  StartTracks(columns, columnTracks);
  auto hasUnit = [](const std::vector<Track>& tracks, size_t first, size_t count, GridUnit unit) {
    for (size_t i = first; i < first + count; ++i)
      if (tracks[i].length.unit == unit) return true;
    return false;
  };
  // Columns first: what stands in content-sized columns is measured freely, then the stars share what is left, then
  // everything else is measured with its width known; rows follow from the heights.
  for (size_t pass = 0; pass < 2; ++pass) {
    for (size_t i = 0; i < ChildCount(); ++i) {
      UIElement* child = Child(i);
      size_t row, column, rowSpan, columnSpan;
      Cell(*child, row, column, rowSpan, columnSpan);
      const bool free = hasUnit(columnTracks, column, columnSpan, GridUnit::Auto) &&
                        !hasUnit(columnTracks, column, columnSpan, GridUnit::Star);
      if (free != (pass == 0)) continue;
      const bool starColumns = hasUnit(columnTracks, column, columnSpan, GridUnit::Star);
      float width = Sum(columnTracks, column, columnSpan);
      if (free || (starColumns && available.width == Infinity)) width = Infinity;
      const bool fixedRow =
          !hasUnit(rowTracks, row, rowSpan, GridUnit::Auto) && !hasUnit(rowTracks, row, rowSpan, GridUnit::Star);
      float height = Infinity;
      if (fixedRow)
        height = Sum(rowTracks, row, rowSpan);
      else if (!hasUnit(rowTracks, row, rowSpan, GridUnit::Auto) && rowTracks.size() == 1)
        height = available.height;
      child->Measure({width, height});
      const Size wanted = child->DesiredSize();
      if (free || width == Infinity) Grow(columnTracks, column, columnSpan, wanted.width);
      if (!fixedRow) Grow(rowTracks, row, rowSpan, wanted.height);
    }
    if (pass == 0 && available.width != Infinity) {
      std::vector<Track> shared = columnTracks;
      ShareStars(shared, available.width);
      columnTracks = shared;
    }
  }
  // Children of star rows know their height only now.
  if (available.height != Infinity && rowTracks.size() > 1) {
    std::vector<Track> shared = rowTracks;
    ShareStars(shared, available.height);
    for (size_t pass = 0; pass < 2; ++pass) {
      for (size_t i = 0; i < ChildCount(); ++i) {
        UIElement* child = Child(i);
        size_t row, column, rowSpan, columnSpan;
        Cell(*child, row, column, rowSpan, columnSpan);
        if (!hasUnit(rowTracks, row, rowSpan, GridUnit::Star)) continue;
        const float height = Sum(shared, row, rowSpan);
        if (pass == 1) {
          child->Measure({Sum(columnTracks, column, columnSpan), height});
        } else if (hasUnit(columnTracks, column, columnSpan, GridUnit::Star)
                       ? available.width == Infinity
                       : hasUnit(columnTracks, column, columnSpan, GridUnit::Auto)) {
          // A height that calls for a scroll bar makes the child wider, and its column with it.
          child->Measure({Infinity, height});
          Grow(columnTracks, column, columnSpan, child->DesiredSize().width);
        }
      }
      if (pass == 0 && available.width != Infinity) ShareStars(columnTracks, available.width);
    }
  }
  // A star track wants only what its children want.
  Size wanted;
  for (const Track& track : rowTracks)
    if (track.length.unit != GridUnit::Star) wanted.height += track.size;
  for (const Track& track : columnTracks)
    if (track.length.unit != GridUnit::Star) wanted.width += track.size;
  float starWidth = 0, starHeight = 0;
  for (size_t i = 0; i < ChildCount(); ++i) {
    size_t row, column, rowSpan, columnSpan;
    Cell(*Child(i), row, column, rowSpan, columnSpan);
    auto starPart = [](const std::vector<Track>& tracks, size_t first, size_t count, float length) {
      float fixed = 0, stars = 0, allStars = 0;
      for (const Track& track : tracks)
        if (track.length.unit == GridUnit::Star) allStars += track.length.value;
      for (size_t t = first; t < first + count; ++t) {
        if (tracks[t].length.unit == GridUnit::Star)
          stars += tracks[t].length.value;
        else
          fixed += tracks[t].size;
      }
      return stars > 0 ? std::max(0.0f, length - fixed) * allStars / stars : 0.0f;
    };
    starWidth = std::max(starWidth, starPart(columnTracks, column, columnSpan, Child(i)->DesiredSize().width));
    starHeight = std::max(starHeight, starPart(rowTracks, row, rowSpan, Child(i)->DesiredSize().height));
  }
  return {wanted.width + starWidth, wanted.height + starHeight};
}

Size Grid::ArrangeOverride(Size finalSize) {
  if (rows.empty() && columns.empty()) {
    for (size_t i = 0; i < ChildCount(); ++i) Child(i)->Arrange({0, 0, finalSize.width, finalSize.height});
    return finalSize;
  }
  ShareStars(rowTracks, finalSize.height);
  ShareStars(columnTracks, finalSize.width);
  for (size_t i = 0; i < ChildCount(); ++i) {
    size_t row, column, rowSpan, columnSpan;
    Cell(*Child(i), row, column, rowSpan, columnSpan);
    Child(i)->Arrange({Sum(columnTracks, 0, column), Sum(rowTracks, 0, row), Sum(columnTracks, column, columnSpan),
                       Sum(rowTracks, row, rowSpan)});
  }
  return finalSize;
}

} // namespace Toolkit
