#pragma once

#include "toolkit/controls/Control.h"

namespace Toolkit {

enum class TickPlacement : uint8_t { None, TopLeft, BottomRight, Both };
const EnumDescription& DescribeEnum(TickPlacement);

/// A value chosen on a horizontal track, by dragging, clicking the track or with the arrow and page keys.
class Slider : public Control {
  TOOLKIT_TYPE(Slider)
public:
  static inline const DependencyProperty* ValueProperty = nullptr;
  static inline const DependencyProperty* MinimumProperty = nullptr;
  static inline const DependencyProperty* MaximumProperty = nullptr;
  static inline const DependencyProperty* TickFrequencyProperty = nullptr;
  static inline const DependencyProperty* SmallChangeProperty = nullptr;
  static inline const DependencyProperty* LargeChangeProperty = nullptr;
  static inline const DependencyProperty* TickPlacementProperty = nullptr;
  static inline const DependencyProperty* IsSnapToTickEnabledProperty = nullptr;
  static inline const DependencyProperty* IsDraggingProperty = nullptr;
  static inline const DependencyProperty* ThumbBrushProperty = nullptr;
  static const RoutedEvent ValueChangedEvent;

  Slider() = default;
  float GetValueNumber() const { return Get<float>(ValueProperty); }
  /// Kept between `Minimum` and `Maximum`.
  void SetValueNumber(float value);

protected:
  void OnRoutedEvent(const RoutedEventArgs& args) override;
  void OnPropertyChanged(const PropertyChange& change) override;
  void OnRender(Painter& painter) override;
  Size MeasureOverride(Size available) override;
  bool HitTestSelf(Point point) const override;

private:
  /// Where the thumb's middle stands.
  float ThumbPosition() const;
  void MoveTo(float x);

  /// How far from the thumb's middle it was taken.
  float grip = 0;
};

} // namespace Toolkit
