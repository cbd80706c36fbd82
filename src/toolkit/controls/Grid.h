#pragma once

#include "toolkit/controls/Panel.h"

namespace Toolkit {

class Grid;

/// A row or a column. Its length may be bound; it sees the grid's data context.
class DefinitionBase : public DependencyObject {
  TOOLKIT_TYPE(DefinitionBase)
public:
  DependencyObject* InheritanceParent() const override;
  virtual GridLength Length() const = 0;
  virtual float Minimum() const = 0;
  virtual float Maximum() const = 0;

protected:
  DefinitionBase() = default;
  void OnPropertyChanged(const PropertyChange& change) override;

private:
  friend class Grid;
  Grid* grid = nullptr;
};

class RowDefinition : public DefinitionBase {
  TOOLKIT_TYPE(RowDefinition)
public:
  static inline const DependencyProperty* HeightProperty = nullptr;
  static inline const DependencyProperty* MinHeightProperty = nullptr;
  static inline const DependencyProperty* MaxHeightProperty = nullptr;
  RowDefinition() = default;
  GridLength Length() const override { return Get<GridLength>(HeightProperty); }
  float Minimum() const override { return Get<float>(MinHeightProperty); }
  float Maximum() const override { return Get<float>(MaxHeightProperty); }
};

class ColumnDefinition : public DefinitionBase {
  TOOLKIT_TYPE(ColumnDefinition)
public:
  static inline const DependencyProperty* WidthProperty = nullptr;
  static inline const DependencyProperty* MinWidthProperty = nullptr;
  static inline const DependencyProperty* MaxWidthProperty = nullptr;
  ColumnDefinition() = default;
  GridLength Length() const override { return Get<GridLength>(WidthProperty); }
  float Minimum() const override { return Get<float>(MinWidthProperty); }
  float Maximum() const override { return Get<float>(MaxWidthProperty); }
};

/// Rows and columns of fixed, content-sized and proportional lengths.
class Grid : public Panel {
  TOOLKIT_TYPE(Grid)
public:
  static inline const DependencyProperty* RowProperty = nullptr;
  static inline const DependencyProperty* ColumnProperty = nullptr;
  static inline const DependencyProperty* RowSpanProperty = nullptr;
  static inline const DependencyProperty* ColumnSpanProperty = nullptr;

  Grid() = default;
  ~Grid() override;
  void AddRow(RowDefinition* row);
  void AddColumn(ColumnDefinition* column);
  size_t RowCount() const { return rows.size(); }
  void ClearRows();
  static void SetRow(UIElement* element, int32_t row) { element->SetValue(RowProperty, row); }

protected:
  Size MeasureOverride(Size available) override;
  Size ArrangeOverride(Size finalSize) override;
  void RefreshInheritanceOfChildren(uint16_t changedBits) override;

private:
  /// One row or column during layout: its wanted length, then its final one.
  struct Track {
    GridLength length;
    float minimum, maximum;
    float size;
  };
  using Tracks = std::vector<Track>;
  /// Tracks side by side.
  struct Span {
    size_t first, count;
  };
  struct Cell {
    Span rows, columns;
  };
  using Definitions = std::vector<Ptr<DefinitionBase>>;
  void Forget(const Definitions& definitions);
  static void StartTracks(const Definitions& definitions, Tracks& tracks);
  /// Gives the stars what the other tracks leave of `available`.
  static void ShareStars(Tracks& tracks, float available);
  static bool Has(const Tracks& tracks, Span span, GridUnit unit);
  static float Sum(const Tracks& tracks, Span span);
  static void Grow(Tracks& tracks, Span span, float wanted);
  /// How long all star tracks together must be for `length` to fit into the span; 0 if it has none.
  static float WantedOfStars(const Tracks& tracks, Span span, float length);
  Cell CellOf(const UIElement& child) const;

  Size MeasureAsOneCell(Size available);
  /// True if the cell's columns take their width from what stands in them.
  bool HasFreeWidth(const Cell& cell, Size available) const;
  void MeasureInTracks(UIElement& child, const Cell& cell, Size available);
  void MeasureStarRows(Size available);
  Size WantedSize() const;

  Definitions rows, columns;
  Tracks rowTracks, columnTracks;
};

} // namespace Toolkit
