#pragma once

namespace Toolkit {

/// A straight (not premultiplied) RGBA colour in sRGB; every channel is 0 to 1.
struct Color {
  float r = 0, g = 0, b = 0, a = 0;

  static constexpr Color FromBytes(int red, int green, int blue, int alpha = 255) {
    return {static_cast<float>(red / 255.0), static_cast<float>(green / 255.0), static_cast<float>(blue / 255.0),
            static_cast<float>(alpha / 255.0)};
  }
  friend constexpr bool operator==(const Color&, const Color&) = default;
};

/// The named colours that code (rather than documents) refers to.
namespace Colors {
inline constexpr Color DimGray = Color::FromBytes(105, 105, 105);
inline constexpr Color Magenta = Color::FromBytes(255, 0, 255);
inline constexpr Color White = Color::FromBytes(255, 255, 255);
inline constexpr Color LightGreen = Color::FromBytes(144, 238, 144);
inline constexpr Color Yellow = Color::FromBytes(255, 255, 0);
inline constexpr Color Transparent = Color{1, 1, 1, 0};
} // namespace Colors

} // namespace Toolkit
