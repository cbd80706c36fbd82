#pragma once

#include <cstdint>
#include <vector>

#include "toolkit/text/DecodedText.h"

namespace Toolkit {

/// One paragraph: characters [first, end), and the characters [end, next) of the line end behind it.
struct Paragraph {
  uint32_t first = 0;
  uint32_t end = 0;
  uint32_t next = 0;
};

/// Cuts a text at its line ends: LF, CR LF and CR. A text that ends with a line end has an empty paragraph behind it,
/// so there is always one more paragraph than line ends.
std::vector<Paragraph> SplitParagraphs(const DecodedText& text);

/// For each character of [first, end), whether a line may be broken behind it (Unicode's line breaking rules).
std::vector<bool> FindBreakOpportunities(const DecodedText& text, size_t first, size_t end);

} // namespace Toolkit
