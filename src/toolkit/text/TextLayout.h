#pragma once

#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "toolkit/text/FontCollection.h"
#include "toolkit/text/TextBoundaries.h"
#include "toolkit/text/TextStyle.h"

namespace Toolkit {

class TextShaper;

struct TextLayoutOptions {
  /// The width that wraps, trims and aligns, in device-independent pixels.
  float maxWidth = std::numeric_limits<float>::infinity();
  TextWrapping wrapping = TextWrapping::NoWrap;
  TextTrimming trimming = TextTrimming::None;
  /// Within `maxWidth` if that is finite, else within the widest line.
  TextAlignment alignment = TextAlignment::Left;
  friend bool operator==(const TextLayoutOptions&, const TextLayoutOptions&) = default;
};

/// A glyph with its origin on the baseline, in pixels from the layout's upper left corner, y downward. `cluster` is
/// the byte offset of the first character that it stands for.
struct LayoutGlyph {
  uint32_t id = 0;
  uint32_t cluster = 0;
  float x = 0, y = 0;
  float advance = 0;
};

/// Glyphs of one face, from left to right. All ranges are half-open; the text range counts bytes.
struct LayoutRun {
  FaceChoice face;
  bool isRightToLeft = false;
  /// Stands for the text that was cut off, which is its text range.
  bool isEllipsis = false;
  uint32_t firstGlyph = 0, endGlyph = 0;
  uint32_t textStart = 0, textEnd = 0;
  float x = 0, width = 0;
};

struct LayoutLine {
  /// The text shown on the line, and where the next line's begins: behind the line end, or at once where it is wrapped.
  uint32_t textStart = 0, textEnd = 0, nextStart = 0;
  uint32_t firstRun = 0, endRun = 0;
  float x = 0, width = 0;
  float y = 0, height = 0;
  /// The baseline's distance from the layout's upper edge.
  float baseline = 0;
  bool isWrapped = false;
  bool isTrimmed = false;
};

struct CaretGeometry {
  float x = 0, y = 0, height = 0;
};

struct TextRectangle {
  float x = 0, y = 0, width = 0, height = 0;
};

/// The laid-out form of one text in one style: its lines, their glyphs, and where a caret stands. Indices are byte
/// offsets of the text given. A layout never changes; it refers to faces by id only.
class TextLayout {
public:
  TextLayout(std::string_view text, const TextStyle& style, const TextLayoutOptions& options, FontCollection& fonts,
             TextShaper& shaper);

  /// The widest line, rounded up, by the height of all lines.
  TextSize Size() const { return size; }
  const std::string& Text() const { return text; }
  const TextStyle& Style() const { return style; }
  const std::vector<LayoutLine>& Lines() const { return lines; }
  const std::vector<LayoutRun>& Runs() const { return runs; }
  const std::vector<LayoutGlyph>& Glyphs() const { return glyphs; }
  float LineHeight() const { return lineHeight; }

  /// Where a caret before the character at `index` stands; at a wrapped line's end, that is the next line's start.
  CaretGeometry CaretPosition(size_t index) const;
  /// The caret index nearest to a point; points outside count as the nearest line and end.
  size_t HitTest(float x, float y) const;
  /// The rectangles that mark a selected range, from top to bottom and from left to right.
  std::vector<TextRectangle> SelectionRectangles(size_t start, size_t end) const;

  /// The line that holds the index.
  size_t LineAt(size_t index) const;
  /// The first and the last caret index of the line that holds the index (the Home and End keys).
  size_t LineStart(size_t index) const { return lines[LineAt(index)].textStart; }
  size_t LineEnd(size_t index) const;

private:
  class Builder;

  /// The box of one grapheme.
  struct Cell {
    float left, right;
    uint32_t start, end;
    bool isRightToLeft;
    float Leading() const { return isRightToLeft ? right : left; }
    float Trailing() const { return isRightToLeft ? left : right; }
  };
  struct LineCells {
    uint32_t first = 0, end = 0;
    float endX = 0;
  };
  /// Carets are asked for in few layouts only, so their boxes are made when they first are.
  void MakeCells() const;
  void AddRunCells(const LayoutRun& run) const;

  std::string text;
  TextStyle style;
  TextSize size;
  float lineHeight = 0;
  std::vector<LayoutLine> lines;
  std::vector<LayoutRun> runs;
  std::vector<LayoutGlyph> glyphs;

  mutable std::vector<Cell> cells;
  mutable std::vector<LineCells> cellsOfLine;
  /// For each byte of the text, the cell that starts there.
  mutable std::vector<uint32_t> cellAt;
};

} // namespace Toolkit
