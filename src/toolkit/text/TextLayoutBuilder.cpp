#include "toolkit/text/TextLayoutBuilder.h"

#include <algorithm>
#include <cmath>

namespace Toolkit {

namespace {

constexpr float InsideCluster = -1;
constexpr char32_t Ellipsis = 0x2026;
/// The distance of tab stops, in ems.
constexpr double TabStop = 2;
/// What rounding may add to a width that was measured before; half the step that lengths are rounded up to.
constexpr double WidthTolerance = TextStep / 2;

} // namespace

float RoundUpTextLength(double length) {
  // A length that is a multiple already must stay, whatever its last bits say.
  return static_cast<float>(std::ceil(length / TextStep - 1e-6) * TextStep);
}

TextLayout::Builder::Builder(TextLayout& layout, const TextLayoutOptions& options, FontCollection& fonts,
                             TextShaper& shaper)
    : layout(layout), options(options), fonts(fonts), shaper(shaper) {}

void TextLayout::Builder::Build() {
  const FontFace& face = fonts.Face(fonts.Choose(layout.style).face);
  layout.lineHeight =
      RoundUpTextLength(static_cast<double>(face.Ascent() + face.Descent() + face.LineGap()) * layout.style.size);
  baselineOffset = (face.Ascent() + face.LineGap() / 2) * layout.style.size;

  decoded.Assign(layout.text);
  for (const Paragraph& paragraph : SplitParagraphs(decoded)) AddParagraph(paragraph);

  layout.size = {RoundUpTextLength(widest), layout.lineHeight * static_cast<float>(layout.lines.size())};
  Align();
}

void TextLayout::Builder::AddParagraph(const Paragraph& paragraph) {
  shaper.Shape(decoded, paragraph.first, paragraph.end, layout.style, shaped);
  paragraphFirst = paragraph.first;
  nextRun = 0;
  MeasureClusters(paragraph);
  const bool wraps = options.wrapping == TextWrapping::Wrap && std::isfinite(options.maxWidth);
  if (!wraps || paragraph.first == paragraph.end) {
    AddLine(paragraph, paragraph.first, paragraph.end, false);
    return;
  }
  breaks = FindBreakOpportunities(decoded, paragraph.first, paragraph.end);
  for (uint32_t first = paragraph.first; first < paragraph.end;) {
    const uint32_t end = FindLineEnd(paragraph, first);
    AddLine(paragraph, first, end, end < paragraph.end);
    first = end;
  }
}

void TextLayout::Builder::MeasureClusters(const Paragraph& paragraph) {
  widths.assign(paragraph.end - paragraph.first, InsideCluster);
  for (const ShapedGlyph& glyph : shaped.glyphs) {
    float& width = widths[glyph.cluster - paragraph.first];
    width = (width == InsideCluster ? 0 : width) + glyph.advance;
  }
  // A mark from another face than its base is a cluster of its own, but lines are never cut inside a grapheme.
  constexpr char32_t firstMark = 0x300;
  uint32_t start = paragraph.first;
  size_t graphemeEnd = 0;
  for (uint32_t i = paragraph.first; i < paragraph.end; ++i) {
    if (decoded.offsets[i] >= graphemeEnd) {
      start = i;
      const bool isAlone = i + 1 == paragraph.end || decoded.characters[i + 1] < firstMark;
      graphemeEnd = isAlone ? decoded.offsets[i + 1] : GraphemeEnd(layout.text, decoded.offsets[i]);
      continue;
    }
    float& width = widths[i - paragraph.first];
    if (width == InsideCluster) continue;
    float& startWidth = widths[start - paragraph.first];
    startWidth = std::max(startWidth, 0.0f) + width;
    width = InsideCluster;
  }
}

double TextLayout::Builder::TabWidth(double x) const {
  const double stop = TabStop * layout.style.size;
  return (std::floor(x / stop + 1e-6) + 1) * stop - x;
}

/// The width in pixels of the cluster that starts at the character, placed at `x` on its line.
float TextLayout::Builder::Advance(uint32_t character, double x) const {
  if (decoded.characters[character] == '\t') return static_cast<float>(TabWidth(x));
  return std::max(0.0f, widths[character - paragraphFirst]) * layout.style.size;
}

bool TextLayout::Builder::IsBlank(uint32_t character) const {
  const char32_t c = decoded.characters[character];
  return c == ' ' || c == '\t' || c == 0x3000 || (c >= 0x2000 && c <= 0x200A && c != 0x2007);
}

uint32_t TextLayout::Builder::FindLineEnd(const Paragraph& paragraph, uint32_t first) {
  const double limit = options.maxWidth + WidthTolerance;
  double x = 0;
  uint32_t lastBreak = first;
  for (uint32_t i = first; i < paragraph.end;) {
    uint32_t next = i + 1;
    while (next < paragraph.end && widths[next - paragraph.first] == InsideCluster) ++next;
    x += Advance(i, x);
    // Blanks hang over the edge: they never begin a line.
    if (x > limit && !IsBlank(i)) {
      if (lastBreak > first) return lastBreak;
      // A word wider than the line is cut, but each line takes one cluster at least.
      return i > first ? i : next;
    }
    if (breaks[next - 1 - paragraph.first]) lastBreak = next;
    i = next;
  }
  return paragraph.end;
}

void TextLayout::Builder::AddLine(const Paragraph& paragraph, uint32_t first, uint32_t end, bool isWrapped) {
  LayoutLine line;
  line.isWrapped = isWrapped;
  line.textStart = decoded.offsets[first];
  line.textEnd = decoded.offsets[end];
  line.nextStart = isWrapped ? line.textEnd : decoded.offsets[end == paragraph.end ? paragraph.next : end];
  line.y = layout.lineHeight * static_cast<float>(layout.lines.size());
  line.height = layout.lineHeight;
  line.baseline = line.y + baselineOffset;

  uint32_t shownEnd = end;
  if (options.trimming == TextTrimming::CharacterEllipsis && std::isfinite(options.maxWidth)) {
    shownEnd = Trim(first, end);
    line.isTrimmed = shownEnd < end;
  }
  CollectPieces(first, shownEnd);
  OrderPieces();
  PlacePieces(line);
  if (line.isTrimmed) PlaceEllipsis(line);
  layout.lines.push_back(line);
}

/// Where the line must end so that an ellipsis fits behind it; `end` if the line fits as it is.
uint32_t TextLayout::Builder::Trim(uint32_t first, uint32_t end) {
  const double limit = options.maxWidth + WidthTolerance;
  uint32_t contentEnd = end;
  while (contentEnd > first && IsBlank(contentEnd - 1)) --contentEnd;
  if (ellipsisWidth == 0) {
    ellipsisFace = fonts.ChooseFor(Ellipsis, layout.style);
    const FontFace& face = fonts.Face(ellipsisFace.face);
    ellipsisGlyph = face.GlyphFor(Ellipsis);
    ellipsisWidth = static_cast<double>(face.GlyphAdvance(ellipsisGlyph)) * layout.style.size;
  }
  double x = 0;
  uint32_t fitting = first;
  for (uint32_t i = first; i < contentEnd; ++i) {
    if (widths[i - paragraphFirst] == InsideCluster) continue;
    if (x + ellipsisWidth <= limit) fitting = i;
    x += Advance(i, x);
    if (x > limit) return fitting;
  }
  return end;
}

void TextLayout::Builder::CollectPieces(uint32_t first, uint32_t end) {
  pieces.clear();
  uint32_t blanks = end;
  if (shaped.hasRightToLeft)
    while (blanks > first && IsBlank(blanks - 1)) --blanks;
  while (nextRun > 0 && shaped.runs[nextRun - 1].endCharacter > first) --nextRun;
  for (; nextRun < shaped.runs.size(); ++nextRun) {
    const ShapedRun& run = shaped.runs[nextRun];
    if (run.endCharacter <= first) continue;
    if (run.firstCharacter >= end) break;
    const uint32_t from = std::max(first, run.firstCharacter);
    const uint32_t to = std::min(end, run.endCharacter);
    const auto index = static_cast<uint32_t>(nextRun);
    // Blanks at a line's end belong to the paragraph's direction, whatever stands before them.
    const uint32_t middle = std::clamp(blanks, from, to);
    if (from < middle) pieces.push_back({index, from, middle, run.level});
    if (middle < to) pieces.push_back({index, middle, to, 0});
    if (run.endCharacter > end) break;
  }
}

/// Reverses, from the highest level down to the lowest odd one, every stretch of at least that level.
void TextLayout::Builder::OrderPieces() {
  uint8_t highest = 0;
  for (const Piece& piece : pieces) highest = std::max(highest, piece.level);
  for (uint8_t level = highest; level > 0; --level) {
    for (size_t i = 0; i < pieces.size();) {
      size_t end = i;
      while (end < pieces.size() && pieces[end].level >= level) ++end;
      std::reverse(pieces.begin() + static_cast<std::ptrdiff_t>(i), pieces.begin() + static_cast<std::ptrdiff_t>(end));
      i = end + 1;
    }
  }
}

void TextLayout::Builder::PlacePieces(LayoutLine& line) {
  const float em = layout.style.size;
  double x = 0;
  line.firstRun = static_cast<uint32_t>(layout.runs.size());
  for (const Piece& piece : pieces) {
    const ShapedRun& run = shaped.runs[piece.run];
    LayoutRun placed;
    placed.face = run.face;
    placed.isRightToLeft = (piece.level & 1) != 0;
    placed.textStart = decoded.offsets[piece.first];
    placed.textEnd = decoded.offsets[piece.end];
    placed.firstGlyph = static_cast<uint32_t>(layout.glyphs.size());
    placed.x = static_cast<float>(x);

    // Clusters rise or fall steadily within a run, so the piece's glyphs are a range of it.
    auto from = shaped.glyphs.begin() + run.firstGlyph;
    auto to = shaped.glyphs.begin() + run.endGlyph;
    if (run.IsRightToLeft()) {
      from = std::partition_point(from, to, [&](const ShapedGlyph& glyph) { return glyph.cluster >= piece.end; });
      to = std::partition_point(from, to, [&](const ShapedGlyph& glyph) { return glyph.cluster >= piece.first; });
    } else {
      from = std::partition_point(from, to, [&](const ShapedGlyph& glyph) { return glyph.cluster < piece.first; });
      to = std::partition_point(from, to, [&](const ShapedGlyph& glyph) { return glyph.cluster < piece.end; });
    }
    const auto place = [&](const ShapedGlyph& glyph) {
      const double advance = run.isTab ? TabWidth(x) : static_cast<double>(glyph.advance) * em;
      layout.glyphs.push_back({glyph.id, decoded.offsets[glyph.cluster], static_cast<float>(x + glyph.offsetX * em),
                               line.baseline - glyph.offsetY * em, static_cast<float>(advance)});
      x += advance;
    };
    if (run.IsRightToLeft() == placed.isRightToLeft) {
      std::for_each(from, to, place);
    } else {
      std::for_each(std::make_reverse_iterator(to), std::make_reverse_iterator(from), place);
    }
    placed.endGlyph = static_cast<uint32_t>(layout.glyphs.size());
    placed.width = static_cast<float>(x) - placed.x;
    layout.runs.push_back(placed);
  }
  line.endRun = static_cast<uint32_t>(layout.runs.size());
  if (line.isWrapped && !pieces.empty()) {
    // The blanks that a wrapped line ends with take no part in its width.
    const auto first = layout.glyphs.begin() + layout.runs[line.firstRun].firstGlyph;
    for (auto glyph = layout.glyphs.end(); glyph != first; --glyph) {
      const char c = layout.text[(glyph - 1)->cluster];
      if (c != ' ' && c != '\t') break;
      x -= (glyph - 1)->advance;
    }
  }
  line.width = static_cast<float>(x);
  // Kept apart from the lines' rounded widths, so that a size does not depend on how it was measured.
  if (!line.isTrimmed) widest = std::max(widest, x);
}

void TextLayout::Builder::PlaceEllipsis(LayoutLine& line) {
  const uint32_t cut = line.firstRun == line.endRun ? line.textStart : [&] {
    uint32_t last = line.textStart;
    for (uint32_t i = line.firstRun; i < line.endRun; ++i) last = std::max(last, layout.runs[i].textEnd);
    return last;
  }();
  LayoutRun run;
  run.face = ellipsisFace;
  run.isEllipsis = true;
  run.firstGlyph = static_cast<uint32_t>(layout.glyphs.size());
  run.endGlyph = run.firstGlyph + 1;
  run.textStart = cut;
  run.textEnd = line.textEnd;
  run.x = line.width;
  run.width = static_cast<float>(ellipsisWidth);
  layout.glyphs.push_back({ellipsisGlyph, cut, line.width, line.baseline, run.width});
  layout.runs.push_back(run);
  line.endRun = static_cast<uint32_t>(layout.runs.size());
  line.width += run.width;
  widest = std::max(widest, static_cast<double>(line.width));
}

void TextLayout::Builder::Align() {
  if (options.alignment == TextAlignment::Left) return;
  const float width = std::isfinite(options.maxWidth) ? options.maxWidth : layout.size.width;
  for (LayoutLine& line : layout.lines) {
    const float rest = std::max(0.0f, width - line.width);
    line.x = options.alignment == TextAlignment::Right ? rest : rest / 2;
    for (uint32_t i = line.firstRun; i < line.endRun; ++i) {
      LayoutRun& run = layout.runs[i];
      run.x += line.x;
      for (uint32_t glyph = run.firstGlyph; glyph < run.endGlyph; ++glyph) layout.glyphs[glyph].x += line.x;
    }
  }
}

} // namespace Toolkit
