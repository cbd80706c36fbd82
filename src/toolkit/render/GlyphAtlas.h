#pragma once

#include "toolkit/render/PathOutline.h"
#include "toolkit/text/FontCollection.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace Toolkit {

/// The coverage of one glyph at one size and quarter of a pixel.
struct GlyphMask {
  /// From the whole pixel of the origin to the mask's left column, and from the baseline up to its first row.
  int left = 0, top = 0;
  int width = 0, height = 0;
  /// Rows of `width` bytes.
  const uint8_t* coverage = nullptr;
};

/// Glyph masks without hinting, at sizes in eighths of a pixel and four places between two pixels. Pages of one face
/// and size go, the longest unused first, when the masks outgrow the limit; that happens between frames only, so a
/// mask stays valid while a frame is drawn. Used by one thread at a time.
class GlyphAtlas {
public:
  explicit GlyphAtlas(FontCollection& fonts, size_t byteLimit = 8u << 20);
  ~GlyphAtlas();

  /// Larger glyphs are to be drawn as outlines.
  static constexpr float MaximumSize = 200;

  class Page;
  void BeginFrame();
  /// `size` is the em in pixels. The page stays valid until the next `BeginFrame`.
  Page& Open(const FaceChoice& face, float size);
  /// `quarter` is 0 to 3. An empty mask if the glyph has no outline.
  const GlyphMask& Mask(Page& page, uint32_t glyph, int quarter);
  /// The glyph's outline in fractions of the em from its origin, y downward. Empty if there is none.
  PathOutline Outline(const FaceChoice& face, uint32_t glyph);

  size_t ByteSize() const;
  size_t PageCount() const { return pages.size(); }

private:
  void Render(Page& page, uint32_t glyph, int quarter, GlyphMask& mask);

  FontCollection& fonts;
  size_t byteLimit;
  uint64_t frame = 0;
  std::vector<std::unique_ptr<Page>> pages;
};

} // namespace Toolkit
