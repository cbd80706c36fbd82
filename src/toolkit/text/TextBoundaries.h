#pragma once

#include <cstddef>
#include <string_view>

namespace Toolkit {

/// Where a caret may stand in a UTF-8 text. Indices are byte offsets; any index up to the text's size may be asked
/// for, and one inside a character counts as that character's start. The work depends on the length of the grapheme
/// or word that is crossed, not on the text's.

/// The next or previous end of a grapheme cluster (a base with its marks, a joined emoji, a flag, CR with LF); the
/// text's size or 0 at the ends.
size_t NextGrapheme(std::string_view text, size_t index);
size_t PreviousGrapheme(std::string_view text, size_t index);

/// The same as `NextGrapheme` for an index where a grapheme starts. Spares the look back, so that a walk over a row of
/// flags takes no longer than over other text.
size_t GraphemeEnd(std::string_view text, size_t start);

/// The start of the next or previous word, as Ctrl and an arrow key move.
size_t NextWord(std::string_view text, size_t index);
size_t PreviousWord(std::string_view text, size_t index);

struct TextRange {
  size_t start = 0;
  size_t end = 0;
  friend bool operator==(const TextRange&, const TextRange&) = default;
};

/// The run of letters, of blanks or of signs that holds the character at `index`, as a double click selects. At the
/// end of the text, the run before it.
TextRange WordAt(std::string_view text, size_t index);

} // namespace Toolkit
