#pragma once

#include "toolkit/base/DependencyObject.h"

#include <vector>

namespace Toolkit {

/// What areas and lines are painted with. Shared freely, so a brush in use is replaced, not changed.
class Brush : public DependencyObject {
  TOOLKIT_TYPE(Brush)
public:
  /// 0 to 1, on top of the alpha of the colours.
  static inline const DependencyProperty* OpacityProperty = nullptr;
  float GetOpacity() const { return Get<float>(OpacityProperty); }
  /// A copy that may be changed on its own.
  virtual Ptr<Brush> Clone() const = 0;

protected:
  Brush() = default;
};

class SolidColorBrush : public Brush {
  TOOLKIT_TYPE(SolidColorBrush)
public:
  static inline const DependencyProperty* ColorProperty = nullptr;
  SolidColorBrush() = default;
  explicit SolidColorBrush(const Toolkit::Color& color);
  Toolkit::Color GetColor() const { return Get<Toolkit::Color>(ColorProperty); }
  Ptr<Brush> Clone() const override;
};

class GradientStop : public DependencyObject {
  TOOLKIT_TYPE(GradientStop)
public:
  static inline const DependencyProperty* ColorProperty = nullptr;
  /// 0 to 1 along the gradient.
  static inline const DependencyProperty* OffsetProperty = nullptr;
  GradientStop() = default;
  GradientStop(const Toolkit::Color& color, float offset);
};

/// A colour that changes from `StartPoint` to `EndPoint`, both in fractions of the painted area.
class LinearGradientBrush : public Brush {
  TOOLKIT_TYPE(LinearGradientBrush)
public:
  static inline const DependencyProperty* StartPointProperty = nullptr;
  static inline const DependencyProperty* EndPointProperty = nullptr;
  LinearGradientBrush() = default;
  void SetStartPoint(Point point) { SetValue(StartPointProperty, point); }
  void SetEndPoint(Point point) { SetValue(EndPointProperty, point); }
  void AddStop(GradientStop* stop) { stops.emplace_back(stop); }
  const std::vector<Ptr<GradientStop>>& Stops() const { return stops; }
  Ptr<Brush> Clone() const override;

private:
  std::vector<Ptr<GradientStop>> stops;
};

enum class TileMode : uint8_t { None, Tile };
enum class BrushMappingMode : uint8_t { Absolute, RelativeToBoundingBox };
enum class Stretch : uint8_t { None, Fill, Uniform, UniformToFill };
const EnumDescription& DescribeEnum(TileMode);
const EnumDescription& DescribeEnum(BrushMappingMode);
const EnumDescription& DescribeEnum(Stretch);

/// Paints with an image, once or as tiles.
class ImageBrush : public Brush {
  TOOLKIT_TYPE(ImageBrush)
public:
  /// The image's path below the texture root.
  static inline const DependencyProperty* ImageSourceProperty = nullptr;
  static inline const DependencyProperty* TileModeProperty = nullptr;
  static inline const DependencyProperty* ViewportProperty = nullptr;
  static inline const DependencyProperty* ViewportUnitsProperty = nullptr;
  static inline const DependencyProperty* StretchProperty = nullptr;
  ImageBrush() = default;
  Ptr<Brush> Clone() const override;
};

/// Ready-made brushes of named colours. Shared: clone one before changing it.
class Brushes {
public:
  static Ptr<SolidColorBrush> Of(const Toolkit::Color& color);
  static Ptr<SolidColorBrush> Magenta() { return Of(Colors::Magenta); }
  static Ptr<SolidColorBrush> White() { return Of(Colors::White); }
  static Ptr<SolidColorBrush> LightGreen() { return Of(Colors::LightGreen); }
  static Ptr<SolidColorBrush> Yellow() { return Of(Colors::Yellow); }
};

/// A soft shadow behind an element.
class DropShadowEffect : public DependencyObject {
  TOOLKIT_TYPE(DropShadowEffect)
public:
  static inline const DependencyProperty* BlurRadiusProperty = nullptr;
  static inline const DependencyProperty* ShadowDepthProperty = nullptr;
  static inline const DependencyProperty* OpacityProperty = nullptr;
  static inline const DependencyProperty* ColorProperty = nullptr;
  DropShadowEffect() = default;
};

} // namespace Toolkit
