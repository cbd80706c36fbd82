#include "toolkit/controls/Image.h"

#include <algorithm>

namespace Toolkit {

namespace {
ImageSizeProvider sizeProvider = nullptr;
}

TOOLKIT_TYPE_IMPL(Image, FrameworkElement, "Image")
void Image::Describe(TypeBuilder<Image>& type) {
  SourceProperty = type.Property<SharedString>("Source", SharedString(), DependencyProperty::AffectsMeasure);
  StretchProperty = type.Property<Stretch>("Stretch", Stretch::Uniform, DependencyProperty::AffectsMeasure);
}

void Image::SetSizeProvider(ImageSizeProvider provider) { sizeProvider = provider; }

Size Image::MeasureOverride(Size available) {
  const Size natural = sizeProvider ? sizeProvider(GetString(SourceProperty)) : Size();
  if (natural.width <= 0 || natural.height <= 0) return {};
  if (Get<Stretch>(StretchProperty) == Stretch::None) return natural;
  // As large as fits, in proportion; free lengths take the image's own.
  float scale = std::min(available.width / natural.width, available.height / natural.height);
  if (scale == Infinity) scale = 1;
  return {natural.width * scale, natural.height * scale};
}

} // namespace Toolkit
