#pragma once

#include <memory>
#include <string_view>

struct hb_buffer_t;

namespace Toolkit {

class FontFace;

/// The widths of printable ASCII text in one face, from a table of pairs that is filled by shaping each pair once.
/// Measuring is then a walk over the text, some fifty times cheaper than shaping it, with the same result: in these
/// characters a glyph's advance depends on its neighbour alone. A face in which that does not hold says so.
class AsciiAdvances {
public:
  /// The buffer is used for shaping pairs and belongs to the caller.
  AsciiAdvances(FontFace& face, hb_buffer_t* buffer);

  /// The width in pixels at the given em size, or a negative number if the face joins or moves some of the text's
  /// pairs, so that the text must be shaped.
  double Measure(std::string_view text, float size);

private:
  static constexpr int First = ' ';
  static constexpr int Count = '~' - ' ' + 1;
  /// The row behind the last character holds the advances at the end of a text.
  static constexpr int EndOfText = Count;

  float ShapePair(int character, int follower);

  FontFace& face;
  hb_buffer_t* buffer;
  /// In ems, by character and the one that follows; NaN where not asked yet, negative where unsuited.
  std::unique_ptr<float[]> advances;
};

} // namespace Toolkit
