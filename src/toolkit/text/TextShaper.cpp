#include "toolkit/text/TextShaper.h"

#include <algorithm>
#include <span>

#include <fribidi.h>
#include <hb.h>

namespace Toolkit {

namespace {

/// The first character of any right-to-left script or direction control outside ASCII and Latin text.
constexpr char32_t FirstBidirectional = 0x590;

hb_language_t Language() {
  static const hb_language_t language = hb_language_from_string("en", -1);
  return language;
}

/// Characters that never ask for another face than their neighbours': they are invisible or joined to them.
bool FollowsNeighbourFace(char32_t c) {
  return c < 0x20 || c == 0x7F || (c >= 0x200B && c <= 0x200F) || (c >= 0x202A && c <= 0x202E) ||
         (c >= 0x2060 && c <= 0x206F) || (c >= 0xFE00 && c <= 0xFE0F) || c == 0xFEFF || (c >= 0xE0000 && c <= 0xE0FFF);
}

/// What the characters of a run need from the font.
enum class Complexity { Ascii, Simple, Full };

/// Interface text must show what was typed, so in the scripts that do not need them contextual alternates (an arrow
/// in place of "->") are off. ASCII has no marks to compose, and looking for them takes half the time of shaping.
void ShapeBuffer(FontFace& face, hb_buffer_t* buffer, Complexity complexity) {
  static const hb_feature_t off[] = {
      {HB_TAG('c', 'a', 'l', 't'), 0, HB_FEATURE_GLOBAL_START, HB_FEATURE_GLOBAL_END},
      {HB_TAG('c', 'c', 'm', 'p'), 0, HB_FEATURE_GLOBAL_START, HB_FEATURE_GLOBAL_END},
  };
  const unsigned count = complexity == Complexity::Ascii ? 2 : complexity == Complexity::Simple ? 1 : 0;
  hb_shape(face.ShapingFont(), buffer, off, count);
}

/// A run is shaped in pieces of at most so many characters, since the shaper's own memory is several times the text,
/// and its search for the base of a mark goes back over all marks before it.
constexpr size_t LongestPiece = 1 << 14;
/// How far before the end of a piece the characters behind it can still change its glyphs.
constexpr size_t FurthestInfluence = 1 << 8;

/// Where to end a piece of the characters [first, end) whose glyphs are given, so that what follows can be shaped for
/// itself with the same result. If no such place is near the end, the cut is made at a cluster, and be it at `end`.
size_t FindCut(std::span<const hb_glyph_info_t> glyphs, size_t first, size_t end) {
  const size_t earliest = first + (end - first) / 2;
  const size_t latest = end - FurthestInfluence;
  size_t safe = 0, any = 0;
  for (const hb_glyph_info_t& glyph : glyphs) {
    if (glyph.cluster < earliest || glyph.cluster > latest) continue;
    any = std::max<size_t>(any, glyph.cluster);
    if ((hb_glyph_info_get_glyph_flags(&glyph) & HB_GLYPH_FLAG_UNSAFE_TO_BREAK) == 0)
      safe = std::max<size_t>(safe, glyph.cluster);
  }
  return safe > 0 ? safe : any > 0 ? any : end;
}

bool IsMark(char32_t c) {
  const hb_unicode_general_category_t category = hb_unicode_general_category(hb_unicode_funcs_get_default(), c);
  return category == HB_UNICODE_GENERAL_CATEGORY_NON_SPACING_MARK ||
         category == HB_UNICODE_GENERAL_CATEGORY_ENCLOSING_MARK || category == HB_UNICODE_GENERAL_CATEGORY_SPACING_MARK;
}

uint32_t ScriptOf(char32_t c) {
  if (c >= 0x80) return hb_unicode_script(hb_unicode_funcs_get_default(), c);
  const bool isLetter = (c | 0x20) >= 'a' && (c | 0x20) <= 'z';
  return isLetter ? HB_SCRIPT_LATIN : HB_SCRIPT_COMMON;
}

} // namespace

bool IsPrintableAscii(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return c >= ' ' && c <= '~'; });
}

TextShaper::TextShaper(FontCollection& fonts) : fonts(fonts), buffer(hb_buffer_create()) {}

TextShaper::~TextShaper() { hb_buffer_destroy(buffer); }

void TextShaper::Shape(const DecodedText& text, size_t first, size_t end, const TextStyle& style, ShapedText& result) {
  result.runs.clear();
  result.glyphs.clear();
  result.hasRightToLeft = false;
  if (first >= end) return;
  FindLevels(text, first, end, result);
  FindFaces(text, first, end, style);

  const size_t count = end - first;
  const auto isTab = [&](size_t i) { return text.characters[first + i] == '\t'; };
  for (size_t start = 0; start < count;) {
    size_t stop = start + 1;
    uint32_t script = scripts[start];
    if (!isTab(start)) {
      for (; stop < count && !isTab(stop); ++stop) {
        if (levels[stop] != levels[start] || faces[stop] != faces[start]) break;
        const bool isNeutral = scripts[stop] == HB_SCRIPT_COMMON || scripts[stop] == HB_SCRIPT_INHERITED;
        const bool wasNeutral = script == HB_SCRIPT_COMMON || script == HB_SCRIPT_INHERITED;
        if (!isNeutral && !wasNeutral && scripts[stop] != script) break;
        if (wasNeutral) script = scripts[stop];
      }
    }
    ShapedRun run;
    run.face = faces[start];
    run.level = levels[start];
    run.isTab = isTab(start);
    while (start < stop) start = ShapeRun(text, first + start, first + stop, run, script, result) - first;
  }
}

void TextShaper::FindLevels(const DecodedText& text, size_t first, size_t end, ShapedText& result) {
  const size_t count = end - first;
  levels.assign(count, 0);
  const auto begin = text.characters.begin() + static_cast<std::ptrdiff_t>(first);
  if (std::none_of(begin, begin + static_cast<std::ptrdiff_t>(count),
                   [](char32_t c) { return c >= FirstBidirectional; }))
    return;

  static_assert(sizeof(FriBidiChar) == sizeof(char32_t));
  const auto* characters = reinterpret_cast<const FriBidiChar*>(text.characters.data() + first);
  const auto length = static_cast<FriBidiStrIndex>(count);
  std::vector<FriBidiCharType> types(count);
  std::vector<FriBidiBracketType> brackets(count);
  std::vector<FriBidiLevel> embedding(count);
  fribidi_get_bidi_types(characters, length, types.data());
  fribidi_get_bracket_types(characters, length, types.data(), brackets.data());
  FriBidiParType base = FRIBIDI_PAR_LTR;
  if (fribidi_get_par_embedding_levels_ex(types.data(), brackets.data(), length, &base, embedding.data()) == 0) return;
  for (size_t i = 0; i < count; ++i) {
    levels[i] = static_cast<uint8_t>(std::max<int>(0, embedding[i]));
    if (levels[i] & 1) result.hasRightToLeft = true;
  }
}

void TextShaper::FindFaces(const DecodedText& text, size_t first, size_t end, const TextStyle& style) {
  const size_t count = end - first;
  const FaceChoice own = fonts.Choose(style);
  const FontFace& ownFace = fonts.Face(own.face);
  faces.resize(count);
  scripts.resize(count);
  FaceChoice current = own;
  for (size_t i = 0; i < count; ++i) {
    const char32_t c = text.characters[first + i];
    scripts[i] = ScriptOf(c);
    if (c >= ' ' && c <= '~' && ownFace.CoversAscii()) {
      current = own;
    } else if (FollowsNeighbourFace(c) || (i > 0 && c >= 0x300 && IsMark(c) && fonts.Face(current.face).HasGlyph(c))) {
      // Keeps the face of the character before it.
    } else {
      current = fonts.ChooseFor(c, style);
    }
    faces[i] = current;
  }
}

size_t TextShaper::ShapeRun(const DecodedText& text, size_t first, size_t end, ShapedRun run, uint32_t script,
                            ShapedText& result) {
  const bool isCut = end - first > LongestPiece;
  if (isCut) end = first + LongestPiece;
  run.firstCharacter = static_cast<uint32_t>(first);
  run.firstGlyph = static_cast<uint32_t>(result.glyphs.size());
  FontFace& face = fonts.Face(run.face.face);
  if (run.isTab) {
    result.glyphs.push_back({face.GlyphFor(' '), run.firstCharacter, 0, 0, 0});
  } else {
    hb_buffer_clear_contents(buffer);
    hb_buffer_set_direction(buffer, run.IsRightToLeft() ? HB_DIRECTION_RTL : HB_DIRECTION_LTR);
    const bool isNeutral = script == HB_SCRIPT_COMMON || script == HB_SCRIPT_INHERITED;
    if (isNeutral) script = HB_SCRIPT_LATIN;
    hb_buffer_set_script(buffer, static_cast<hb_script_t>(script));
    hb_buffer_set_language(buffer, Language());
    const auto* characters = reinterpret_cast<const hb_codepoint_t*>(text.characters.data());
    hb_buffer_add_codepoints(buffer, characters, static_cast<int>(text.characters.size()), static_cast<unsigned>(first),
                             static_cast<int>(end - first));
    const auto begin = text.characters.begin();
    const bool isAscii =
        std::all_of(begin + static_cast<std::ptrdiff_t>(first), begin + static_cast<std::ptrdiff_t>(end),
                    [](char32_t c) { return c >= ' ' && c <= '~'; });
    const bool isSimple = script == HB_SCRIPT_LATIN || script == HB_SCRIPT_CYRILLIC || script == HB_SCRIPT_GREEK;
    ShapeBuffer(face, buffer, isAscii ? Complexity::Ascii : isSimple ? Complexity::Simple : Complexity::Full);

    unsigned count = 0;
    const hb_glyph_info_t* infos = hb_buffer_get_glyph_infos(buffer, &count);
    const hb_glyph_position_t* positions = hb_buffer_get_glyph_positions(buffer, &count);
    if (isCut) end = FindCut({infos, count}, first, end);
    const float em = static_cast<float>(face.UnitsPerEm());
    // No room is reserved for each run's glyphs: many short runs would each move all glyphs before them.
    for (unsigned i = 0; i < count; ++i) {
      if (infos[i].cluster >= end) continue;
      result.glyphs.push_back({infos[i].codepoint, infos[i].cluster, static_cast<float>(positions[i].x_advance) / em,
                               static_cast<float>(positions[i].x_offset) / em,
                               static_cast<float>(positions[i].y_offset) / em});
    }
  }
  run.endCharacter = static_cast<uint32_t>(end);
  run.endGlyph = static_cast<uint32_t>(result.glyphs.size());
  result.runs.push_back(run);
  return end;
}

double TextShaper::MeasureAscii(std::string_view text, const FaceChoice& choice, float size) {
  FontFace& face = fonts.Face(choice.face);
  if (choice.face >= asciiAdvances.size()) asciiAdvances.resize(choice.face + 1u);
  std::unique_ptr<AsciiAdvances>& advances = asciiAdvances[choice.face];
  if (!advances) advances = std::make_unique<AsciiAdvances>(face, buffer);
  const double known = advances->Measure(text, size);
  if (known >= 0) return known;

  ShapeAscii(face, text, buffer);
  unsigned count = 0;
  const hb_glyph_position_t* positions = hb_buffer_get_glyph_positions(buffer, &count);
  const float em = static_cast<float>(face.UnitsPerEm());
  double sum = 0;
  for (unsigned i = 0; i < count; ++i)
    sum += static_cast<double>(static_cast<float>(positions[i].x_advance) / em) * size;
  return sum;
}

void ShapeAscii(FontFace& face, std::string_view text, hb_buffer_t* buffer) {
  hb_buffer_clear_contents(buffer);
  hb_buffer_set_direction(buffer, HB_DIRECTION_LTR);
  hb_buffer_set_script(buffer, HB_SCRIPT_LATIN);
  hb_buffer_set_language(buffer, Language());
  hb_buffer_add_utf8(buffer, text.data(), static_cast<int>(text.size()), 0, static_cast<int>(text.size()));
  ShapeBuffer(face, buffer, Complexity::Ascii);
}

} // namespace Toolkit
