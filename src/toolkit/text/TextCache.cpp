#include "toolkit/text/TextCache.h"

#include <bit>
#include <functional>

namespace Toolkit {

namespace {

/// Bytes that one generation of each table may hold, roughly.
constexpr size_t SizeTableLimit = 6 << 20;
constexpr size_t LayoutTableLimit = 8 << 20;
constexpr size_t SizeEntryCost = 128;
constexpr size_t LayoutEntryCost = 512;
/// A layout keeps about this much for each byte of its text: a glyph, and the text itself twice.
constexpr size_t LayoutByteCost = 24;

size_t Combine(size_t seed, size_t value) { return (seed ^ value) * 0x9E3779B97F4A7C15ull; }

} // namespace

TextCache& TextCache::Instance() {
  static TextCache instance(FontCollection::Instance());
  return instance;
}

TextCache::TextCache(FontCollection& fonts) : fonts(fonts), shaper(fonts) {}

size_t TextCache::KeyHash::operator()(const KeyView& key) const {
  size_t hash = std::hash<std::string_view>()(key.text);
  hash = Combine(hash, std::bit_cast<uint32_t>(key.style.size));
  hash = Combine(hash, static_cast<size_t>(key.style.weight) << 32 | static_cast<size_t>(key.style.style) << 16 |
                           key.style.family);
  hash = Combine(hash, std::bit_cast<uint32_t>(key.options.maxWidth));
  hash = Combine(hash, static_cast<size_t>(key.options.wrapping) << 16 |
                           static_cast<size_t>(key.options.trimming) << 8 | static_cast<size_t>(key.options.alignment));
  return hash ^ (hash >> 32);
}

template <typename T> const T* TextCache::Table<T>::Find(const KeyView& key, size_t keyCost, size_t limit) {
  const auto found = young.find(key);
  if (found != young.end()) {
    ++statistics.hits;
    return &found->second;
  }
  const auto older = old.find(key);
  if (older == old.end()) {
    ++statistics.misses;
    return nullptr;
  }
  ++statistics.hits;
  T value = std::move(older->second);
  old.erase(older);
  return &Add(key, std::move(value), keyCost, limit);
}

template <typename T> const T& TextCache::Table<T>::Add(const KeyView& key, T value, size_t keyCost, size_t limit) {
  if (cost + keyCost > limit && !young.empty()) {
    old = std::move(young);
    young.clear();
    cost = 0;
  }
  cost += keyCost;
  return young.emplace(Key{std::string(key.text), key.style, key.options}, std::move(value)).first->second;
}

TextSize TextCache::MeasureAscii(std::string_view text, const TextStyle& style) {
  const FaceChoice choice = fonts.Choose(style);
  const FontFace& face = fonts.Face(choice.face);
  const double width = shaper.MeasureAscii(text, choice, style.size);
  return {RoundUpTextLength(width),
          RoundUpTextLength(static_cast<double>(face.Ascent() + face.Descent() + face.LineGap()) * style.size)};
}

TextSize TextCache::MeasureText(std::string_view text, const TextStyle& style) {
  const KeyView key{text, style, {}};
  const size_t cost = text.size() + SizeEntryCost;
  if (const TextSize* known = sizes.Find(key, cost, SizeTableLimit)) return *known;
  const bool isPlain = IsPrintableAscii(text) && fonts.Face(fonts.Choose(style).face).CoversAscii();
  const TextSize size = isPlain ? MeasureAscii(text, style) : TextLayout(text, style, {}, fonts, shaper).Size();
  return sizes.Add(key, size, cost, SizeTableLimit);
}

TextSize TextCache::MeasureText(std::string_view text, const TextStyle& style, const TextLayoutOptions& options) {
  if (options.wrapping == TextWrapping::NoWrap && options.trimming == TextTrimming::None)
    return MeasureText(text, style);
  return Layout(text, style, options)->Size();
}

std::shared_ptr<const TextLayout> TextCache::Layout(std::string_view text, const TextStyle& style,
                                                    const TextLayoutOptions& options) {
  const KeyView key{text, style, options};
  const size_t cost = text.size() * LayoutByteCost + LayoutEntryCost;
  if (const auto* known = layouts.Find(key, cost, LayoutTableLimit)) return *known;
  return layouts.Add(key, std::make_shared<const TextLayout>(text, style, options, fonts, shaper), cost,
                     LayoutTableLimit);
}

} // namespace Toolkit
