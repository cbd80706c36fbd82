#include "toolkit/controls/Image.h"

#include "toolkit/render/Painter.h"

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

void Image::OnRender(Painter& painter) {
  if (!painter.Images()) return;
  std::shared_ptr<const Bitmap> bitmap = (*painter.Images())(GetString(SourceProperty));
  if (!bitmap) return;
  const auto stretch = Get<Stretch>(StretchProperty);
  float width = static_cast<float>(bitmap->Width()), height = static_cast<float>(bitmap->Height());
  if (stretch == Stretch::Fill) {
    width = ActualWidth();
    height = ActualHeight();
  } else if (stretch != Stretch::None) {
    const float x = ActualWidth() / width, y = ActualHeight() / height;
    const float scale = stretch == Stretch::Uniform ? std::min(x, y) : std::max(x, y);
    width *= scale;
    height *= scale;
  }
  painter.DrawImage(std::move(bitmap),
                    {(ActualWidth() - width) * 0.5f, (ActualHeight() - height) * 0.5f, width, height});
}

} // namespace Toolkit
