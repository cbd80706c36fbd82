#pragma once

#include "toolkit/render/Brush.h"
#include "toolkit/render/Painter.h"
#include "toolkit/render/TileRasterizer.h"

#include <functional>
#include <string>
#include <vector>

namespace RenderTest {

/// A drawing in memory. Pixels are premultiplied, 0xAARRGGBB.
struct Picture {
  int width = 0, height = 0;
  std::vector<Toolkit::Pixel> pixels;

  Picture(int width, int height, Toolkit::Pixel background = 0xff000000)
      : width(width), height(height), pixels(static_cast<size_t>(width) * static_cast<size_t>(height), background) {}
  Toolkit::Pixel At(int x, int y) const { return pixels[static_cast<size_t>(y * width + x)]; }
  int Red(int x, int y) const { return static_cast<int>(At(x, y) >> 16 & 255); }
  int Green(int x, int y) const { return static_cast<int>(At(x, y) >> 8 & 255); }
  int Blue(int x, int y) const { return static_cast<int>(At(x, y) & 255); }
  Toolkit::PixelBuffer Buffer() { return {pixels.data(), width, height, width}; }
  void WritePng(const std::string& path) const;
};

using Drawing = std::function<void(Toolkit::Painter&)>;

std::shared_ptr<const Toolkit::DisplayList> Record(const Drawing& drawing);
Picture Draw(int width, int height, const Drawing& drawing, float scale = 1);
Toolkit::Ptr<Toolkit::SolidColorBrush> Solid(int rgb, int alpha = 255);

/// Expects equal pixels; else both pictures and their difference are left in the test's output folder.
void ExpectEqual(const Picture& actual, const Picture& expected, const std::string& name);

/// A canvas with a bit of everything, larger than several tiles.
std::shared_ptr<const Toolkit::DisplayList> Everything();
inline constexpr int EverythingWidth = 611, EverythingHeight = 203;

} // namespace RenderTest
