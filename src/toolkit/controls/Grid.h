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
  static void SetColumn(UIElement* element, int32_t column) { element->SetValue(ColumnProperty, column); }

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
  using Definitions = std::vector<Ptr<DefinitionBase>>;
  void Forget(const Definitions& definitions);
  static void StartTracks(const Definitions& definitions, std::vector<Track>& tracks);
  static void ShareStars(std::vector<Track>& tracks, float available);
  static float Sum(const std::vector<Track>& tracks, size_t first, size_t count);
  static void Grow(std::vector<Track>& tracks, size_t first, size_t count, float wanted);
  void Cell(const UIElement& child, size_t& row, size_t& column, size_t& rowSpan, size_t& columnSpan) const;

  Definitions rows, columns;
  std::vector<Track> rowTracks, columnTracks;
};

} // namespace Toolkit
