#include "toolkit/text/AsciiAdvances.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include <hb.h>

#include "toolkit/text/FontFace.h"
#include "toolkit/text/TextShaper.h"

namespace Toolkit {

namespace {

constexpr float Unsuited = -1;

} // namespace

AsciiAdvances::AsciiAdvances(FontFace& face, hb_buffer_t* buffer)
    : face(face), buffer(buffer), advances(std::make_unique<float[]>(Count * (Count + 1))) {
  std::fill_n(advances.get(), Count * (Count + 1), std::numeric_limits<float>::quiet_NaN());
}

double AsciiAdvances::Measure(std::string_view text, float size) {
  double width = 0;
  for (size_t i = 0; i < text.size(); ++i) {
    const int character = text[i] - First;
    const int follower = i + 1 < text.size() ? text[i + 1] - First : EndOfText;
    float& advance = advances[static_cast<size_t>(follower * Count + character)];
    if (std::isnan(advance)) advance = ShapePair(character, follower);
    if (advance == Unsuited) return -1;
    width += static_cast<double>(advance) * size;
  }
  return width;
}

float AsciiAdvances::ShapePair(int character, int follower) {
  const unsigned length = follower == EndOfText ? 1 : 2;
  const char text[2] = {static_cast<char>(character + First), static_cast<char>(follower + First)};
  ShapeAscii(face, {text, length}, buffer);
  unsigned count = 0;
  const hb_glyph_info_t* infos = hb_buffer_get_glyph_infos(buffer, &count);
  const hb_glyph_position_t* positions = hb_buffer_get_glyph_positions(buffer, &count);
  if (count != length) return Unsuited;
  for (unsigned i = 0; i < count; ++i)
    if (infos[i].codepoint != face.GlyphFor(static_cast<unsigned char>(text[i])) || positions[i].x_advance < 0)
      return Unsuited;
  // The pair must leave the second glyph's own advance alone.
  const float em = static_cast<float>(face.UnitsPerEm());
  const float last = static_cast<float>(positions[count - 1].x_advance) / em;
  if (length == 2 && last != face.GlyphAdvance(infos[1].codepoint)) return Unsuited;
  return static_cast<float>(positions[0].x_advance) / em;
}

} // namespace Toolkit
