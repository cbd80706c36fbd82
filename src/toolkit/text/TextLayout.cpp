#include "toolkit/text/TextLayout.h"

#include <algorithm>
#include <cmath>

#include "toolkit/text/TextLayoutBuilder.h"

namespace Toolkit {

namespace {

constexpr uint32_t NoCell = std::numeric_limits<uint32_t>::max();

} // namespace

TextLayout::TextLayout(std::string_view text, const TextStyle& style, const TextLayoutOptions& options,
                       FontCollection& fonts, TextShaper& shaper)
    : text(text), style(style) {
  Builder(*this, options, fonts, shaper).Build();
}

size_t TextLayout::LineAt(size_t index) const {
  const auto after = std::upper_bound(lines.begin(), lines.end(), index,
                                      [](size_t value, const LayoutLine& line) { return value < line.textStart; });
  return after == lines.begin() ? 0 : static_cast<size_t>(after - lines.begin()) - 1;
}

size_t TextLayout::LineEnd(size_t index) const {
  const LayoutLine& line = lines[LineAt(index)];
  // A wrapped line's end is the next line's start, so its last caret stands before its last grapheme.
  return line.isWrapped ? PreviousGrapheme(text, line.nextStart) : line.textEnd;
}

CaretGeometry TextLayout::CaretPosition(size_t index) const {
  MakeCells();
  index = CharacterStart(text, index);
  const size_t lineIndex = LineAt(index);
  const LayoutLine& line = lines[lineIndex];
  CaretGeometry caret{cellsOfLine[lineIndex].endX, line.y, line.height};
  if (index < line.textEnd) {
    // An index inside a grapheme, or inside what an ellipsis stands for, counts as its start.
    while (index > line.textStart && cellAt[index] == NoCell) --index;
    if (cellAt[index] != NoCell) caret.x = cells[cellAt[index]].Leading();
  }
  return caret;
}

size_t TextLayout::HitTest(float x, float y) const {
  MakeCells();
  const float row = std::floor(y / lineHeight);
  const size_t lineIndex =
      row <= 0 || std::isnan(row) ? 0 : std::min(lines.size() - 1, static_cast<size_t>(std::min(row, 1e9f)));
  const LayoutLine& line = lines[lineIndex];
  const auto begin = cells.begin() + cellsOfLine[lineIndex].first;
  const auto end = cells.begin() + cellsOfLine[lineIndex].end;
  if (begin == end) return line.textStart;
  if (x < begin->left) return line.textStart;
  const auto hit = std::partition_point(begin, end, [&](const Cell& cell) { return cell.right <= x; });
  if (hit == end) return LineEnd(line.textStart);
  const bool isLeftHalf = x < (hit->left + hit->right) / 2;
  const size_t index = isLeftHalf != hit->isRightToLeft ? hit->start : hit->end;
  return std::min(index, LineEnd(line.textStart));
}

std::vector<TextRectangle> TextLayout::SelectionRectangles(size_t start, size_t end) const {
  std::vector<TextRectangle> rectangles;
  if (start >= end) return rectangles;
  MakeCells();
  for (size_t i = LineAt(start); i < lines.size() && lines[i].textStart < end; ++i) {
    const LayoutLine& line = lines[i];
    bool isOpen = false;
    for (uint32_t c = cellsOfLine[i].first; c < cellsOfLine[i].end; ++c) {
      const Cell& cell = cells[c];
      const bool isSelected = cell.start < end && cell.end > start;
      if (isSelected && isOpen) {
        rectangles.back().width = cell.right - rectangles.back().x;
      } else if (isSelected) {
        rectangles.push_back({cell.left, line.y, cell.right - cell.left, line.height});
      }
      isOpen = isSelected;
    }
  }
  return rectangles;
}

void TextLayout::MakeCells() const {
  if (!cellsOfLine.empty()) return;
  cellAt.assign(text.size() + 1, NoCell);
  cells.reserve(glyphs.size());
  for (const LayoutLine& line : lines) {
    LineCells range;
    range.first = static_cast<uint32_t>(cells.size());
    for (uint32_t i = line.firstRun; i < line.endRun; ++i) AddRunCells(runs[i]);
    range.end = static_cast<uint32_t>(cells.size());
    // Behind the last character in the order of the text, which need not be the rightmost.
    range.endX = line.x;
    uint32_t furthest = line.textStart;
    for (uint32_t i = range.first; i < range.end; ++i) {
      cellAt[cells[i].start] = i;
      if (cells[i].end <= furthest) continue;
      furthest = cells[i].end;
      range.endX = cells[i].Trailing();
    }
    cellsOfLine.push_back(range);
  }
}

void TextLayout::AddRunCells(const LayoutRun& run) const {
  float x = run.x;
  for (uint32_t i = run.firstGlyph; i < run.endGlyph;) {
    const uint32_t start = glyphs[i].cluster;
    uint32_t next = i;
    float right = x;
    for (; next < run.endGlyph && glyphs[next].cluster == start; ++next) right += glyphs[next].advance;
    const bool isLastOfText = run.isRightToLeft ? i == run.firstGlyph : next == run.endGlyph;
    const uint32_t end = isLastOfText ? run.textEnd : glyphs[run.isRightToLeft ? i - 1 : next].cluster;

    // A ligature's width is shared out evenly among the graphemes that it stands for. A grapheme may go on behind it.
    const std::string_view covered = std::string_view(text).substr(0, end);
    uint32_t count = 0;
    if (!run.isEllipsis)
      for (size_t at = start; at < end; at = GraphemeEnd(covered, at)) ++count;
    count = std::max(count, 1u);
    const float step = (right - x) / static_cast<float>(count);
    const size_t firstCell = cells.size();
    size_t at = start;
    for (uint32_t part = 0; part < count; ++part) {
      const size_t partEnd = part + 1 == count ? end : GraphemeEnd(covered, at);
      const float offset = step * static_cast<float>(part);
      const float left = run.isRightToLeft ? right - offset - step : x + offset;
      cells.push_back(
          {left, left + step, static_cast<uint32_t>(at), static_cast<uint32_t>(partEnd), run.isRightToLeft});
      at = partEnd;
    }
    // Cells stand from left to right, as a search by position needs them.
    if (run.isRightToLeft) std::reverse(cells.begin() + static_cast<std::ptrdiff_t>(firstCell), cells.end());
    x = right;
    i = next;
  }
}

} // namespace Toolkit
