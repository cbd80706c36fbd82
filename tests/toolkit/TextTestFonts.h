#pragma once

#include "app/EmbeddedData.h"
#include "toolkit/text/FontCollection.h"
#include "toolkit/text/TextCache.h"

/// The interface font alone: the system's fonts are never asked, so that results are the same on every machine.
struct TextTestFonts {
  Toolkit::FontCollection fonts;
  Toolkit::TextShaper shaper{fonts};
  int askedForFallback = 0;

  TextTestFonts() {
    fonts.Register("Inter", Toolkit::FontWeight::Normal, Toolkit::FontStyle::Normal, Tesselor::EmbeddedFontRegular());
    fonts.Register("Inter", Toolkit::FontWeight::Bold, Toolkit::FontStyle::Normal, Tesselor::EmbeddedFontBold());
    fonts.Register("Inter", Toolkit::FontWeight::Normal, Toolkit::FontStyle::Italic, Tesselor::EmbeddedFontItalic());
    fonts.SetFallbackFinder([this](char32_t, Toolkit::FontWeight, Toolkit::FontStyle) {
      ++askedForFallback;
      return std::optional<Toolkit::FontFile>();
    });
  }

  Toolkit::TextLayout Layout(std::string_view text, const Toolkit::TextLayoutOptions& options = {},
                             const Toolkit::TextStyle& style = {}) {
    return Toolkit::TextLayout(text, style, options, fonts, shaper);
  }
};
