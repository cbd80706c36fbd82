#include "toolkit/text/FontCollection.h"

#include <algorithm>
#include <cctype>
#include <cmath>

#include "toolkit/base/Diagnostics.h"

namespace Toolkit {

FontCollection& FontCollection::Instance() {
  static FontCollection instance;
  return instance;
}

FontCollection::FontCollection() : findFallback(FindSystemFont) {}

bool FontCollection::Register(std::string_view family, FontWeight weight, FontStyle style,
                              std::span<const unsigned char> bytes) {
  std::unique_ptr<FontFace> face = FontFace::FromMemory(bytes);
  if (!face) {
    TOOLKIT_WARN("Text", "The font '" + std::string(family) + "' holds no usable face.");
    return false;
  }
  const auto found =
      std::find_if(families.begin(), families.end(), [&](const Family& each) { return each.name == family; });
  Family& target = found != families.end() ? *found : families.emplace_back(Family{std::string(family), {}});
  target.faces.push_back({weight, style, static_cast<FaceId>(faces.size())});
  faces.push_back(std::move(face));
  return true;
}

FamilyId FontCollection::FindFamily(std::string_view name) const {
  const auto equal = [](unsigned char a, unsigned char b) { return std::tolower(a) == std::tolower(b); };
  for (size_t i = 0; i < families.size(); ++i)
    if (std::equal(name.begin(), name.end(), families[i].name.begin(), families[i].name.end(), equal))
      return static_cast<FamilyId>(i);
  return 0;
}

FaceChoice FontCollection::Nearest(const Family& family, FontWeight weight, FontStyle style) {
  const auto isHeavy = [](FontWeight each) { return each >= FontWeight::SemiBold; };
  // A wrong weight shows more than a wrong slant, and a drawn slant looks better than a drawn weight.
  const auto cost = [&](const RegisteredFace& face) {
    const int distance = std::abs(static_cast<int>(face.weight) - static_cast<int>(weight));
    return (isHeavy(face.weight) != isHeavy(weight) ? 10000 : 0) + (face.style != style ? 1000 : 0) + distance;
  };
  const RegisteredFace& best =
      *std::min_element(family.faces.begin(), family.faces.end(),
                        [&](const RegisteredFace& a, const RegisteredFace& b) { return cost(a) < cost(b); });
  return {best.face, isHeavy(weight) && !isHeavy(best.weight),
          style == FontStyle::Italic && best.style == FontStyle::Normal};
}

FaceChoice FontCollection::Choose(const TextStyle& style) const {
  TOOLKIT_ASSERT(!families.empty());
  const size_t family = style.family < families.size() ? style.family : 0;
  return Nearest(families[family], style.weight, style.style);
}

FaceChoice FontCollection::ChooseFor(char32_t character, const TextStyle& style) {
  const FaceChoice own = Choose(style);
  if (Face(own.face).HasGlyph(character)) return own;
  for (const Family& family : families) {
    const FaceChoice other = Nearest(family, style.weight, style.style);
    if (Face(other.face).HasGlyph(character)) return other;
  }
  const std::optional<FaceId> fallback = Fallback(character, style);
  return fallback ? FaceChoice{*fallback, false, false} : own;
}

std::optional<FaceId> FontCollection::Fallback(char32_t character, const TextStyle& style) {
  const auto known = faceByCharacter.find(character);
  if (known != faceByCharacter.end()) return known->second;

  std::optional<FaceId> result;
  for (const FaceId face : fallbackFaces) {
    if (!Face(face).HasGlyph(character)) continue;
    result = face;
    break;
  }
  if (!result && findFallback) {
    if (const std::optional<FontFile> file = findFallback(character, style.weight, style.style)) {
      const auto [entry, isNew] = faceByFile.try_emplace(file->path + ":" + std::to_string(file->index));
      if (isNew) {
        if (std::unique_ptr<FontFace> face = FontFace::FromFile(file->path, file->index)) {
          entry->second = static_cast<FaceId>(faces.size());
          faces.push_back(std::move(face));
          fallbackFaces.push_back(*entry->second);
        }
      }
      if (entry->second && Face(*entry->second).HasGlyph(character)) result = entry->second;
    }
  }
  faceByCharacter.emplace(character, result);
  return result;
}

void FontCollection::SetFallbackFinder(FallbackFinder finder) {
  findFallback = std::move(finder);
  fallbackFaces.clear();
  faceByCharacter.clear();
  faceByFile.clear();
}

} // namespace Toolkit
