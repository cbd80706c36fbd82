#pragma once

#include "toolkit/render/PixelBuffer.h"

#include <vector>

namespace Toolkit {

/// An immutable picture of premultiplied pixels with its smaller copies, each half as wide and high as the one before,
/// so that a reduced picture costs what is seen of it and does not flicker.
class Bitmap {
public:
  struct Level {
    int width = 0, height = 0;
    std::vector<Pixel> pixels;
    const Pixel* Row(int y) const { return pixels.data() + static_cast<size_t>(y) * static_cast<size_t>(width); }
  };

  /// `pixels` holds width times height pixels, row by row; both are positive.
  Bitmap(int width, int height, std::vector<Pixel> pixels);

  int Width() const { return levels.front().width; }
  int Height() const { return levels.front().height; }
  const std::vector<Level>& Levels() const { return levels; }
  bool IsOpaque() const { return opaque; }
  /// The smallest copy's only pixel.
  Pixel Average() const { return levels.back().pixels.front(); }

private:
  std::vector<Level> levels;
  bool opaque = true;
};

} // namespace Toolkit
