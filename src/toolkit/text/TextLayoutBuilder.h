#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "toolkit/text/LineBreaks.h"
#include "toolkit/text/TextLayout.h"
#include "toolkit/text/TextShaper.h"

namespace Toolkit {

/// Fills one TextLayout: shapes each paragraph, breaks it into lines, and puts each line's runs in visual order.
class TextLayout::Builder {
public:
  Builder(TextLayout& layout, const TextLayoutOptions& options, FontCollection& fonts, TextShaper& shaper);

  void Build();

private:
  void AddParagraph(const Paragraph& paragraph);
  void MeasureClusters(const Paragraph& paragraph);
  uint32_t FindLineEnd(const Paragraph& paragraph, uint32_t first);
  void AddLine(const Paragraph& paragraph, uint32_t first, uint32_t end, bool isWrapped);
  uint32_t Trim(uint32_t first, uint32_t end);
  void CollectPieces(uint32_t first, uint32_t end);
  void OrderPieces();
  void PlacePieces(LayoutLine& line);
  void PlaceEllipsis(LayoutLine& line);
  void Align();

  /// The part of a shaped run that stands on one line.
  struct Piece {
    uint32_t run;
    uint32_t first, end;
    uint8_t level;
  };

  float Advance(uint32_t character, double x) const;
  double TabWidth(double x) const;
  bool IsBlank(uint32_t character) const;

  TextLayout& layout;
  const TextLayoutOptions& options;
  FontCollection& fonts;
  TextShaper& shaper;
  DecodedText decoded;
  ShapedText shaped;
  /// For each character of the paragraph, its cluster's width in ems at the cluster's first character; behind that,
  /// `InsideCluster`.
  std::vector<float> widths;
  std::vector<bool> breaks;
  std::vector<Piece> pieces;
  uint32_t paragraphFirst = 0;
  size_t nextRun = 0;
  float baselineOffset = 0;
  double widest = 0;
  double ellipsisWidth = 0;
  FaceChoice ellipsisFace;
  uint32_t ellipsisGlyph = 0;
};

} // namespace Toolkit
