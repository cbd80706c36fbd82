#include "toolkit/render/GlyphAtlas.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_OUTLINE_H

namespace Toolkit {

namespace {

/// The shear of a slanted face and the added width of an emboldened one, in fractions of the em.
constexpr double Slant = 0.2;
constexpr double Weight = 1.0 / 28;

void Style(FT_Outline& outline, const FaceChoice& face, double em) {
  if (face.embolden) FT_Outline_Embolden(&outline, static_cast<FT_Pos>(em * Weight));
  if (face.slant) {
    const FT_Matrix shear{0x10000, static_cast<FT_Fixed>(Slant * 0x10000), 0, 0x10000};
    FT_Outline_Transform(&outline, &shear);
  }
}

} // namespace

class GlyphAtlas::Page {
public:
  static constexpr uint32_t BlockSize = 16;
  struct Slot {
    bool isMade = false;
    GlyphMask mask;
    std::unique_ptr<uint8_t[]> bytes;
  };
  using Block = std::array<Slot, BlockSize * 4>;

  FaceChoice face;
  int eighths = 0;
  uint64_t lastFrame = 0;
  size_t byteSize = sizeof(Page);
  std::vector<std::unique_ptr<Block>> blocks;
};

GlyphAtlas::GlyphAtlas(FontCollection& fonts, size_t byteLimit) : fonts(fonts), byteLimit(byteLimit) {}
GlyphAtlas::~GlyphAtlas() = default;

void GlyphAtlas::BeginFrame() {
  ++frame;
  size_t size = ByteSize();
  while (size > byteLimit) {
    const auto oldest = std::min_element(pages.begin(), pages.end(),
                                         [](const auto& a, const auto& b) { return a->lastFrame < b->lastFrame; });
    size -= (*oldest)->byteSize;
    pages.erase(oldest);
  }
}

GlyphAtlas::Page& GlyphAtlas::Open(const FaceChoice& face, float size) {
  const int eighths = std::clamp(static_cast<int>(size * 8 + 0.5f), 1, static_cast<int>(MaximumSize) * 8);
  for (size_t i = 0; i < pages.size(); ++i) {
    Page& page = *pages[i];
    if (page.eighths != eighths || page.face != face) continue;
    page.lastFrame = frame;
    // The pages of the present zoom gather in front.
    if (i > 3) std::swap(pages[i], pages[i / 2]);
    return page;
  }
  pages.push_back(std::make_unique<Page>());
  Page& page = *pages.back();
  page.face = face;
  page.eighths = eighths;
  page.lastFrame = frame;
  return page;
}

const GlyphMask& GlyphAtlas::Mask(Page& page, uint32_t glyph, int quarter) {
  static const GlyphMask none;
  // Font files have at most 65,536 glyphs.
  if (glyph > 0xffff) return none;
  const size_t block = glyph / Page::BlockSize;
  if (block >= page.blocks.size()) {
    page.byteSize += (block + 1 - page.blocks.size()) * sizeof(page.blocks[0]);
    page.blocks.resize(block + 1);
  }
  if (!page.blocks[block]) {
    page.blocks[block] = std::make_unique<Page::Block>();
    page.byteSize += sizeof(Page::Block);
  }
  Page::Slot& slot = (*page.blocks[block])[glyph % Page::BlockSize * 4 + static_cast<uint32_t>(quarter)];
  if (!slot.isMade) {
    slot.isMade = true;
    Render(page, glyph, quarter, slot.mask);
    if (slot.mask.coverage) {
      const size_t size = static_cast<size_t>(slot.mask.width) * static_cast<size_t>(slot.mask.height);
      slot.bytes = std::make_unique<uint8_t[]>(size);
      std::memcpy(slot.bytes.get(), slot.mask.coverage, size);
      slot.mask.coverage = slot.bytes.get();
      page.byteSize += size;
    }
  }
  return slot.mask;
}

/// The coverage lies in a buffer that the next call overwrites.
void GlyphAtlas::Render(Page& page, uint32_t glyph, int quarter, GlyphMask& mask) {
  static thread_local std::vector<uint8_t> rows;
  FT_Face face = fonts.Face(page.face.face).OutlineFace();
  if (!face || FT_Set_Char_Size(face, page.eighths * 8, page.eighths * 8, 72, 72) != 0 ||
      FT_Load_Glyph(face, glyph, FT_LOAD_NO_HINTING | FT_LOAD_NO_BITMAP) != 0 ||
      face->glyph->format != FT_GLYPH_FORMAT_OUTLINE)
    return;
  FT_Outline& outline = face->glyph->outline;
  Style(outline, page.face, page.eighths * 8);
  FT_Outline_Translate(&outline, quarter * 16, 0);
  if (FT_Render_Glyph(face->glyph, FT_RENDER_MODE_NORMAL) != 0) return;
  const FT_Bitmap& bitmap = face->glyph->bitmap;
  if (bitmap.width == 0 || bitmap.rows == 0 || bitmap.pixel_mode != FT_PIXEL_MODE_GRAY) return;
  mask.left = face->glyph->bitmap_left;
  mask.top = face->glyph->bitmap_top;
  mask.width = static_cast<int>(bitmap.width);
  mask.height = static_cast<int>(bitmap.rows);
  rows.resize(size_t{bitmap.width} * bitmap.rows);
  for (unsigned y = 0; y < bitmap.rows; ++y)
    std::memcpy(&rows[size_t{y} * bitmap.width], bitmap.buffer + static_cast<ptrdiff_t>(y) * bitmap.pitch,
                bitmap.width);
  mask.coverage = rows.data();
}

PathOutline GlyphAtlas::Outline(const FaceChoice& choice, uint32_t glyph) {
  struct Sink {
    PathOutline outline;
    float em;
    Point at;
    bool isOpen = false;
    Point Convert(const FT_Vector* v) const { return {static_cast<float>(v->x) / em, -static_cast<float>(v->y) / em}; }
  };
  Sink sink;
  FT_Face face = fonts.Face(choice.face).OutlineFace();
  if (!face || FT_Load_Glyph(face, glyph, FT_LOAD_NO_SCALE | FT_LOAD_NO_BITMAP) != 0 ||
      face->glyph->format != FT_GLYPH_FORMAT_OUTLINE)
    return {};
  sink.em = static_cast<float>(face->units_per_EM);
  Style(face->glyph->outline, choice, sink.em);
  FT_Outline_Funcs functions{};
  functions.move_to = [](const FT_Vector* to, void* user) {
    Sink& s = *static_cast<Sink*>(user);
    if (s.isOpen) s.outline.Close();
    s.isOpen = true;
    s.outline.MoveTo(s.at = s.Convert(to));
    return 0;
  };
  functions.line_to = [](const FT_Vector* to, void* user) {
    Sink& s = *static_cast<Sink*>(user);
    s.outline.LineTo(s.at = s.Convert(to));
    return 0;
  };
  functions.conic_to = [](const FT_Vector* control, const FT_Vector* to, void* user) {
    Sink& s = *static_cast<Sink*>(user);
    const Point c = s.Convert(control), end = s.Convert(to);
    const auto third = [&](Point p) { return Point{p.x + (c.x - p.x) * 2 / 3, p.y + (c.y - p.y) * 2 / 3}; };
    s.outline.CurveTo(third(s.at), third(end), end);
    s.at = end;
    return 0;
  };
  functions.cubic_to = [](const FT_Vector* p, const FT_Vector* q, const FT_Vector* to, void* user) {
    Sink& s = *static_cast<Sink*>(user);
    s.outline.CurveTo(s.Convert(p), s.Convert(q), s.at = s.Convert(to));
    return 0;
  };
  FT_Outline_Decompose(&face->glyph->outline, &functions, &sink);
  if (sink.isOpen) sink.outline.Close();
  return std::move(sink.outline);
}

size_t GlyphAtlas::ByteSize() const {
  size_t size = 0;
  for (const auto& page : pages) size += page->byteSize;
  return size;
}

} // namespace Toolkit
