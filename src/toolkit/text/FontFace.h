#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <string>

struct FT_FaceRec_;
struct hb_blob_t;
struct hb_font_t;

namespace Toolkit {

/// One face of a font file: its shaping font and, made on first use, its outlines. All metrics are fractions of the
/// em, so that nothing here depends on a size. Owned by the FontCollection, which outlives every layout.
class FontFace {
public:
  /// The bytes must outlive the face. Null if they hold no usable font.
  static std::unique_ptr<FontFace> FromMemory(std::span<const unsigned char> bytes, int index = 0);
  /// Null if the file cannot be read or holds no usable font.
  static std::unique_ptr<FontFace> FromFile(const std::string& path, int index = 0);

  ~FontFace();
  FontFace(const FontFace&) = delete;
  FontFace& operator=(const FontFace&) = delete;

  int UnitsPerEm() const { return unitsPerEm; }
  /// Above the baseline, below it (positive), and the extra space between two lines.
  float Ascent() const { return ascent; }
  float Descent() const { return descent; }
  float LineGap() const { return lineGap; }
  /// True if every printable ASCII character has a glyph.
  bool CoversAscii() const { return coversAscii; }

  bool HasGlyph(char32_t character) const { return GlyphFor(character) != 0; }
  /// 0, the glyph for what is missing, if the face lacks the character.
  unsigned GlyphFor(char32_t character) const;
  float GlyphAdvance(unsigned glyph) const;

  /// For shaping; positions come in units of the em.
  hb_font_t* ShapingFont() const { return font; }
  /// For drawing outlines; the caller sets the size. Null if the font cannot be opened for drawing.
  FT_FaceRec_* OutlineFace();

private:
  FontFace() = default;
  static std::unique_ptr<FontFace> FromBlob(hb_blob_t* blob, int index);

  hb_blob_t* blob = nullptr;
  hb_font_t* font = nullptr;
  FT_FaceRec_* outlines = nullptr;
  bool outlinesTried = false;
  bool coversAscii = false;
  int faceIndex = 0;
  int unitsPerEm = 0;
  float ascent = 0, descent = 0, lineGap = 0;
};

} // namespace Toolkit
