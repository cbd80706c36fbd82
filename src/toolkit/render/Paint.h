#pragma once

#include "toolkit/base/Color.h"
#include "toolkit/base/Geometry.h"
#include "toolkit/render/ImageStore.h"

#include <array>
#include <memory>
#include <vector>

namespace Toolkit {

class Brush;

/// The premultiplied 8-bit form of a colour; channels that are out of range or not numbers are clamped.
Pixel PremultiplyColor(const Color& color, float opacity = 1);

/// The colours along a gradient, premultiplied. Gradients with equal stops share one ramp.
class GradientRamp {
public:
  struct Stop {
    float offset;
    Color color;
    friend bool operator==(const Stop&, const Stop&) = default;
  };
  static std::shared_ptr<const GradientRamp> Of(std::vector<Stop> stops, float opacity);

  const std::array<Pixel, 256>& Colors() const { return colors; }
  bool IsOpaque() const { return opaque; }

private:
  std::vector<Stop> stops;
  float opacity = 1;
  bool opaque = true;
  std::array<Pixel, 256> colors{};
};

enum class PaintKind : uint8_t { None, Solid, Linear, Image };

/// What a brush comes to for one area: plain values that a display list keeps, in the list's coordinates.
struct Paint {
  PaintKind kind = PaintKind::None;
  /// The image repeats in all directions; else it stands once in `imageArea`.
  bool isTiled = false;
  /// Outside of `imageArea`, the image's border pixels go on instead of nothing.
  bool clampsImage = false;
  /// Of a solid paint.
  Pixel color = 0;
  /// Of an image.
  float opacity = 1;
  /// Of a gradient.
  Point start, end;
  Rect imageArea;
  std::shared_ptr<const GradientRamp> ramp;
  std::shared_ptr<const Bitmap> bitmap;

  static Paint Solid(Pixel color);
  static Paint Image(std::shared_ptr<const Bitmap> bitmap, const Rect& area);
  /// None for a null brush, a transparent one, and an image that is not there.
  static Paint Resolve(const Brush* brush, const Rect& area, const ImageFinder& images);

  friend bool operator==(const Paint&, const Paint&) = default;
};

} // namespace Toolkit
