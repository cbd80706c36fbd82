#include "toolkit/text/FontFace.h"

#include <ft2build.h>
#include FT_FREETYPE_H
#include <hb-ot.h>
#include <hb.h>

namespace Toolkit {

namespace {

/// Shared by all faces and never closed: faces may outlive any owner that could close it.
FT_Library OutlineLibrary() {
  static FT_Library library = [] {
    FT_Library made = nullptr;
    return FT_Init_FreeType(&made) == 0 ? made : nullptr;
  }();
  return library;
}

} // namespace

std::unique_ptr<FontFace> FontFace::FromMemory(std::span<const unsigned char> bytes, int index) {
  return FromBlob(hb_blob_create(reinterpret_cast<const char*>(bytes.data()), static_cast<unsigned>(bytes.size()),
                                 HB_MEMORY_MODE_READONLY, nullptr, nullptr),
                  index);
}

std::unique_ptr<FontFace> FontFace::FromFile(const std::string& path, int index) {
  return FromBlob(hb_blob_create_from_file(path.c_str()), index);
}

std::unique_ptr<FontFace> FontFace::FromBlob(hb_blob_t* blob, int index) {
  std::unique_ptr<FontFace> result(new FontFace);
  result->blob = blob;
  result->faceIndex = index;
  hb_face_t* face = hb_face_create(blob, static_cast<unsigned>(index));
  if (hb_face_get_glyph_count(face) == 0) {
    hb_face_destroy(face);
    return nullptr;
  }
  result->unitsPerEm = static_cast<int>(hb_face_get_upem(face));
  result->font = hb_font_create(face);
  hb_face_destroy(face);
  hb_font_set_scale(result->font, result->unitsPerEm, result->unitsPerEm);

  hb_font_extents_t extents{};
  hb_font_get_h_extents(result->font, &extents);
  const float em = static_cast<float>(result->unitsPerEm);
  result->ascent = static_cast<float>(extents.ascender) / em;
  result->descent = static_cast<float>(-extents.descender) / em;
  result->lineGap = static_cast<float>(extents.line_gap) / em;
  result->coversAscii = true;
  for (char32_t c = ' '; c <= '~' && result->coversAscii; ++c) result->coversAscii = result->HasGlyph(c);
  return result;
}

FontFace::~FontFace() {
  if (outlines) FT_Done_Face(outlines);
  hb_font_destroy(font);
  hb_blob_destroy(blob);
}

unsigned FontFace::GlyphFor(char32_t character) const {
  hb_codepoint_t glyph = 0;
  return hb_font_get_nominal_glyph(font, character, &glyph) ? glyph : 0;
}

float FontFace::GlyphAdvance(unsigned glyph) const {
  return static_cast<float>(hb_font_get_glyph_h_advance(font, glyph)) / static_cast<float>(unitsPerEm);
}

FT_FaceRec_* FontFace::OutlineFace() {
  if (outlinesTried) return outlines;
  outlinesTried = true;
  unsigned size = 0;
  const char* data = hb_blob_get_data(blob, &size);
  FT_Face opened = nullptr;
  if (OutlineLibrary() && FT_New_Memory_Face(OutlineLibrary(), reinterpret_cast<const FT_Byte*>(data),
                                             static_cast<FT_Long>(size), faceIndex, &opened) == 0)
    outlines = opened;
  return outlines;
}

} // namespace Toolkit
