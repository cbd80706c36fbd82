#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "toolkit/text/FontFace.h"
#include "toolkit/text/SystemFonts.h"
#include "toolkit/text/TextStyle.h"

namespace Toolkit {

using FaceId = uint16_t;

/// A face, and what drawing must add where the family has no face of its own for the style.
struct FaceChoice {
  FaceId face = 0;
  bool embolden = false;
  bool slant = false;
  friend bool operator==(const FaceChoice&, const FaceChoice&) = default;
};

/// The faces that text is set in: those registered at start-up, and system fonts for characters that these lack. A
/// face is never removed, so a FaceId stays valid as long as the collection. Used on the user interface's thread.
class FontCollection {
public:
  using FallbackFinder = std::function<std::optional<FontFile>(char32_t, FontWeight, FontStyle)>;

  /// The program's collection.
  static FontCollection& Instance();

  FontCollection();

  /// The bytes must outlive the collection. The first family registered is the default. False, with a log line, if the
  /// bytes hold no font.
  bool Register(std::string_view family, FontWeight weight, FontStyle style, std::span<const unsigned char> bytes);

  bool IsEmpty() const { return families.empty(); }
  /// The id of a registered family, letter case ignored; of an unknown one, the default's.
  FamilyId FindFamily(std::string_view name) const;

  /// The family's nearest face. A family must be registered.
  FaceChoice Choose(const TextStyle& style) const;
  /// The face that shows the character: the style's own, another registered family's, or a system font's. If no
  /// font has it, the style's own, which then shows its sign for a missing glyph.
  FaceChoice ChooseFor(char32_t character, const TextStyle& style);

  FontFace& Face(FaceId id) const { return *faces[id]; }

  /// Replaces the question to the system's fonts and forgets its answers; for tests.
  void SetFallbackFinder(FallbackFinder finder);

private:
  struct RegisteredFace {
    FontWeight weight;
    FontStyle style;
    FaceId face;
  };
  struct Family {
    std::string name;
    std::vector<RegisteredFace> faces;
  };

  static FaceChoice Nearest(const Family& family, FontWeight weight, FontStyle style);
  std::optional<FaceId> Fallback(char32_t character, const TextStyle& style);

  std::vector<std::unique_ptr<FontFace>> faces;
  std::vector<Family> families;
  FallbackFinder findFallback;
  /// The system fonts opened so far, in order; asked for a character before the system is.
  std::vector<FaceId> fallbackFaces;
  std::unordered_map<std::string, std::optional<FaceId>> faceByFile;
  std::unordered_map<char32_t, std::optional<FaceId>> faceByCharacter;
};

} // namespace Toolkit
