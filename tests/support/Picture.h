#pragma once

#include "toolkit/render/TileRasterizer.h"

#include <string>
#include <vector>

namespace TestSupport {

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
  /// The pixels inside of `part` and of the picture.
  Picture Part(const Toolkit::Rect& part) const;
  void WritePng(const std::string& path) const;
  /// Without a size if there is no such file.
  static Picture ReadPng(const std::string& path);
};

/// Expects equal pixels; else both pictures and their difference are left in the test's output folder.
void ExpectEqual(const Picture& actual, const Picture& expected, const std::string& name);

} // namespace TestSupport
