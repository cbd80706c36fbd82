#pragma once

#include "toolkit/render/Brush.h"
#include "toolkit/visual/FrameworkElement.h"

namespace Toolkit {

/// Tells the size of an image in pixels by its path below the texture root; a zero size if there is no such image.
using ImageSizeProvider = Size (*)(std::string_view path);

/// Shows an image file.
class Image : public FrameworkElement {
  TOOLKIT_TYPE(Image)
public:
  static inline const DependencyProperty* SourceProperty = nullptr;
  static inline const DependencyProperty* StretchProperty = nullptr;
  Image() = default;
  static void SetSizeProvider(ImageSizeProvider provider);

protected:
  void OnRender(Painter& painter) override;
  Size MeasureOverride(Size available) override;
  bool HitTestSelf(Point point) const override { return Rect{0, 0, ActualWidth(), ActualHeight()}.Contains(point); }
};

} // namespace Toolkit
