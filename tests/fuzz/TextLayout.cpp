// Lays out any bytes in several ways and asks for carets everywhere: no input may crash, hang or leave the text.
#include <cstdint>
#include <string_view>

#include "app/EmbeddedData.h"
#include "toolkit/text/TextCache.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static Toolkit::FontCollection& fonts = [&]() -> Toolkit::FontCollection& {
    static Toolkit::FontCollection collection;
    collection.Register("Inter", Toolkit::FontWeight::Normal, Toolkit::FontStyle::Normal,
                        Tesselor::EmbeddedFontRegular());
    collection.SetFallbackFinder({});
    return collection;
  }();
  static Toolkit::TextShaper shaper(fonts);
  if (size < 2) return 0;
  Toolkit::TextLayoutOptions options;
  options.maxWidth = static_cast<float>(data[0]) * 2;
  options.wrapping = data[1] & 1 ? Toolkit::TextWrapping::Wrap : Toolkit::TextWrapping::NoWrap;
  options.trimming = data[1] & 2 ? Toolkit::TextTrimming::CharacterEllipsis : Toolkit::TextTrimming::None;
  options.alignment = data[1] & 4 ? Toolkit::TextAlignment::Right : Toolkit::TextAlignment::Left;
  const std::string_view text(reinterpret_cast<const char*>(data) + 2, size - 2);

  const Toolkit::TextLayout layout(text, {12}, options, fonts, shaper);
  if (layout.Lines().back().nextStart != text.size()) __builtin_trap();
  for (size_t index = 0; index <= text.size(); ++index) {
    const Toolkit::CaretGeometry caret = layout.CaretPosition(index);
    if (layout.HitTest(caret.x, caret.y + 1) > text.size()) __builtin_trap();
    if (layout.LineStart(index) > layout.LineEnd(index)) __builtin_trap();
    if (index < text.size() && (Toolkit::NextGrapheme(text, index) <= index || Toolkit::NextWord(text, index) <= index))
      __builtin_trap();
    if (index > 0 && (Toolkit::PreviousGrapheme(text, index) >= index || Toolkit::PreviousWord(text, index) >= index))
      __builtin_trap();
  }
  layout.SelectionRectangles(0, text.size());
  return 0;
}
