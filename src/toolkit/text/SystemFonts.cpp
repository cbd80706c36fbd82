#include "toolkit/text/SystemFonts.h"

#include <fontconfig/fontconfig.h>

namespace Toolkit {

std::optional<FontFile> FindSystemFont(char32_t character, FontWeight weight, FontStyle style) {
  FcPattern* pattern = FcPatternCreate();
  FcCharSet* wanted = FcCharSetCreate();
  FcCharSetAddChar(wanted, character);
  FcPatternAddCharSet(pattern, FC_CHARSET, wanted);
  FcPatternAddBool(pattern, FC_SCALABLE, FcTrue);
  FcPatternAddString(pattern, FC_FAMILY, reinterpret_cast<const FcChar8*>("sans-serif"));
  FcPatternAddInteger(pattern, FC_WEIGHT, weight == FontWeight::Normal ? FC_WEIGHT_REGULAR : FC_WEIGHT_BOLD);
  FcPatternAddInteger(pattern, FC_SLANT, style == FontStyle::Normal ? FC_SLANT_ROMAN : FC_SLANT_ITALIC);
  FcConfigSubstitute(nullptr, pattern, FcMatchPattern);
  FcDefaultSubstitute(pattern);

  std::optional<FontFile> result;
  FcResult status = FcResultNoMatch;
  if (FcPattern* match = FcFontMatch(nullptr, pattern, &status)) {
    FcCharSet* covered = nullptr;
    FcChar8* path = nullptr;
    int index = 0;
    FcPatternGetInteger(match, FC_INDEX, 0, &index);
    // The best match need not have the character: the match weighs the family as well.
    if (FcPatternGetCharSet(match, FC_CHARSET, 0, &covered) == FcResultMatch && FcCharSetHasChar(covered, character) &&
        FcPatternGetString(match, FC_FILE, 0, &path) == FcResultMatch)
      result = FontFile{reinterpret_cast<const char*>(path), index & 0xFFFF};
    FcPatternDestroy(match);
  }
  FcCharSetDestroy(wanted);
  FcPatternDestroy(pattern);
  return result;
}

} // namespace Toolkit
