#pragma once

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "toolkit/text/AsciiAdvances.h"
#include "toolkit/text/DecodedText.h"
#include "toolkit/text/FontCollection.h"

struct hb_buffer_t;

namespace Toolkit {

/// A glyph in fractions of the em, y upward. `cluster` is the index of the first character that it stands for.
struct ShapedGlyph {
  uint32_t id = 0;
  uint32_t cluster = 0;
  float advance = 0;
  float offsetX = 0;
  float offsetY = 0;
};

/// Glyphs of one face and direction; very long ones are several runs. The glyphs stand in visual order, from left to
/// right; characters and glyphs are half-open ranges.
struct ShapedRun {
  FaceChoice face;
  uint8_t level = 0;
  /// A single tab, whose width only the place on its line decides.
  bool isTab = false;
  uint32_t firstCharacter = 0, endCharacter = 0;
  uint32_t firstGlyph = 0, endGlyph = 0;

  bool IsRightToLeft() const { return (level & 1) != 0; }
};

/// Runs in the order of the text.
struct ShapedText {
  std::vector<ShapedRun> runs;
  std::vector<ShapedGlyph> glyphs;
  bool hasRightToLeft = false;
};

/// Turns one paragraph (text without line ends, base direction left to right) into glyphs. Keeps its buffers between
/// calls, so one shaper serves many texts.
class TextShaper {
public:
  explicit TextShaper(FontCollection& fonts);
  ~TextShaper();
  TextShaper(const TextShaper&) = delete;
  TextShaper& operator=(const TextShaper&) = delete;

  /// Replaces what `result` held. Takes the characters [first, end) of the text.
  void Shape(const DecodedText& text, size_t first, size_t end, const TextStyle& style, ShapedText& result);

  /// The advance, in pixels, of a text that is printable ASCII throughout; the same number that a layout gets.
  double MeasureAscii(std::string_view text, const FaceChoice& face, float size);

private:
  void FindLevels(const DecodedText& text, size_t first, size_t end, ShapedText& result);
  void FindFaces(const DecodedText& text, size_t first, size_t end, const TextStyle& style);
  /// Adds one run: all of the characters [first, end), or as many as are shaped at once. Returns its end.
  size_t ShapeRun(const DecodedText& text, size_t first, size_t end, ShapedRun run, uint32_t script,
                  ShapedText& result);

  FontCollection& fonts;
  hb_buffer_t* buffer;
  std::vector<uint8_t> levels;
  std::vector<FaceChoice> faces;
  std::vector<uint32_t> scripts;
  /// By face; made when the face is first measured.
  std::vector<std::unique_ptr<AsciiAdvances>> asciiAdvances;
};

/// Shapes a printable ASCII text in one face, leaving the glyphs in the buffer.
void ShapeAscii(FontFace& face, std::string_view text, hb_buffer_t* buffer);

/// True if every byte is a printable ASCII character.
bool IsPrintableAscii(std::string_view text);

} // namespace Toolkit
