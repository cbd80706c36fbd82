#pragma once

#include <cstddef>
#include <span>

namespace Tesselor {

/// One interface document inside the program. The text is followed by a zero byte that `size` does not count.
struct EmbeddedDocument {
  const char* name;
  const char* text;
  size_t size;
};

/// The documents of the view classes, one row each, in the program's fixed order ("App.xaml" first).
std::span<const EmbeddedDocument> EmbeddedDocuments();

/// The documents of the theme, named with their folder ("Theme/<file>"), sorted by name.
std::span<const EmbeddedDocument> EmbeddedThemeDocuments();

/// The family name of the interface font, and its faces as whole font files. The bytes live as long as the program.
const char* EmbeddedFontFamily();
std::span<const unsigned char> EmbeddedFontRegular();
std::span<const unsigned char> EmbeddedFontBold();
std::span<const unsigned char> EmbeddedFontItalic();

} // namespace Tesselor
