#include "toolkit/render/Paint.h"

#include "toolkit/render/Brush.h"

#include <algorithm>

namespace Toolkit {

namespace {

/// 0 to 1; 0 for what is not a number.
float Unit(float value) { return value >= 0 ? std::min(value, 1.0f) : 0.0f; }

Rect ImageArea(const ImageBrush& brush, const Rect& viewport, const Bitmap& bitmap) {
  const float width = static_cast<float>(bitmap.Width()), height = static_cast<float>(bitmap.Height());
  float x = 1, y = 1;
  switch (brush.Get<Stretch>(ImageBrush::StretchProperty)) {
  case Stretch::Fill: return viewport;
  case Stretch::None: break;
  case Stretch::Uniform: x = y = std::min(viewport.width / width, viewport.height / height); break;
  case Stretch::UniformToFill: x = y = std::max(viewport.width / width, viewport.height / height); break;
  }
  return {viewport.x + (viewport.width - width * x) / 2, viewport.y + (viewport.height - height * y) / 2, width * x,
          height * y};
}

Paint ResolveImage(const ImageBrush& brush, const Rect& area, const ImageFinder& images) {
  const SharedString source = brush.Get<SharedString>(ImageBrush::ImageSourceProperty);
  std::shared_ptr<const Bitmap> bitmap;
  if (images && !source.IsEmpty()) bitmap = images(source.View());
  if (!bitmap) return {};
  Rect viewport = brush.Get<Rect>(ImageBrush::ViewportProperty);
  if (brush.Get<BrushMappingMode>(ImageBrush::ViewportUnitsProperty) == BrushMappingMode::RelativeToBoundingBox)
    viewport = {area.x + viewport.x * area.width, area.y + viewport.y * area.height, viewport.width * area.width,
                viewport.height * area.height};
  Paint paint;
  paint.isTiled = brush.Get<TileMode>(ImageBrush::TileModeProperty) == TileMode::Tile;
  paint.imageArea = paint.isTiled ? viewport : ImageArea(brush, viewport, *bitmap);
  if (!(paint.imageArea.width > 0) || !(paint.imageArea.height > 0)) return {};
  paint.kind = PaintKind::Image;
  paint.opacity = Unit(brush.GetOpacity());
  paint.bitmap = std::move(bitmap);
  return paint.opacity > 0 ? paint : Paint();
}

Paint ResolveGradient(const LinearGradientBrush& brush, const Rect& area) {
  std::vector<GradientRamp::Stop> stops;
  for (const Ptr<GradientStop>& stop : brush.Stops())
    stops.push_back(
        {Unit(stop->Get<float>(GradientStop::OffsetProperty)), stop->Get<Color>(GradientStop::ColorProperty)});
  if (stops.empty()) return {};
  Paint paint;
  paint.kind = PaintKind::Linear;
  const auto place = [&](Point p) { return Point{area.x + p.x * area.width, area.y + p.y * area.height}; };
  paint.start = place(brush.Get<Point>(LinearGradientBrush::StartPointProperty));
  paint.end = place(brush.Get<Point>(LinearGradientBrush::EndPointProperty));
  paint.ramp = GradientRamp::Of(std::move(stops), Unit(brush.GetOpacity()));
  return paint;
}

} // namespace

Pixel PremultiplyColor(const Color& color, float opacity) {
  const float alpha = Unit(color.a) * Unit(opacity);
  const auto channel = [&](float value) { return static_cast<uint32_t>(Unit(value) * alpha * 255 + 0.5f); };
  return static_cast<uint32_t>(alpha * 255 + 0.5f) << 24 | channel(color.r) << 16 | channel(color.g) << 8 |
         channel(color.b);
}

std::shared_ptr<const GradientRamp> GradientRamp::Of(std::vector<Stop> stops, float opacity) {
  // Display lists are recorded on one thread; a theme has few different gradients.
  static std::vector<std::weak_ptr<const GradientRamp>> known;
  std::stable_sort(stops.begin(), stops.end(), [](const Stop& a, const Stop& b) { return a.offset < b.offset; });
  std::erase_if(known, [](const auto& each) { return each.expired(); });
  for (const auto& each : known) {
    const std::shared_ptr<const GradientRamp> ramp = each.lock();
    if (ramp->opacity == opacity && ramp->stops == stops) return ramp;
  }
  auto ramp = std::make_shared<GradientRamp>();
  size_t next = 0;
  for (size_t i = 0; i < ramp->colors.size(); ++i) {
    const float at = static_cast<float>(i) / 255;
    while (next < stops.size() && stops[next].offset <= at) ++next;
    const Stop& from = stops[next > 0 ? next - 1 : 0];
    const Stop& to = stops[std::min(next, stops.size() - 1)];
    const float length = to.offset - from.offset;
    const float t = length > 0 ? (at - from.offset) / length : 0;
    const auto mix = [&](float a, float b) { return a + (b - a) * t; };
    ramp->colors[i] = PremultiplyColor({mix(from.color.r, to.color.r), mix(from.color.g, to.color.g),
                                        mix(from.color.b, to.color.b), mix(from.color.a, to.color.a)},
                                       opacity);
  }
  for (const Pixel color : ramp->colors) ramp->opaque = ramp->opaque && AlphaOf(color) == 255;
  ramp->stops = std::move(stops);
  ramp->opacity = opacity;
  known.push_back(ramp);
  return ramp;
}

Paint Paint::Solid(Pixel color) {
  Paint paint;
  if (AlphaOf(color) == 0) return paint;
  paint.kind = PaintKind::Solid;
  paint.color = color;
  return paint;
}

Paint Paint::Image(std::shared_ptr<const Bitmap> bitmap, const Rect& area) {
  Paint paint;
  if (!bitmap || !(area.width > 0) || !(area.height > 0)) return paint;
  paint.kind = PaintKind::Image;
  paint.clampsImage = true;
  paint.imageArea = area;
  paint.bitmap = std::move(bitmap);
  return paint;
}

Paint Paint::Resolve(const Brush* brush, const Rect& area, const ImageFinder& images) {
  if (const auto* solid = DynamicCast<SolidColorBrush>(brush))
    return Solid(PremultiplyColor(solid->GetColor(), solid->GetOpacity()));
  if (const auto* gradient = DynamicCast<LinearGradientBrush>(brush)) return ResolveGradient(*gradient, area);
  if (const auto* image = DynamicCast<ImageBrush>(brush)) return ResolveImage(*image, area, images);
  return {};
}

} // namespace Toolkit
