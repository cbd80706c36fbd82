#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

#include "toolkit/text/TextLayout.h"
#include "toolkit/text/TextShaper.h"

namespace Toolkit {

/// Sizes and layouts of texts that were asked for before. Both tables are bounded: what was not used while a table
/// filled up once is forgotten. Used on the user interface's thread.
class TextCache {
public:
  /// The program's cache, over the program's fonts.
  static TextCache& Instance();

  explicit TextCache(FontCollection& fonts);

  /// The size of a text that is neither wrapped nor trimmed (line ends in it still count); the same as its layout's.
  TextSize MeasureText(std::string_view text, const TextStyle& style);
  /// The size within a width.
  TextSize MeasureText(std::string_view text, const TextStyle& style, const TextLayoutOptions& options);
  /// Never null. A layout stays valid while the caller holds it, also when the cache has forgotten it.
  std::shared_ptr<const TextLayout> Layout(std::string_view text, const TextStyle& style,
                                           const TextLayoutOptions& options = {});

  /// For when the fonts have changed.

  struct Statistics {
    size_t hits = 0;
    size_t misses = 0;
  };
  Statistics SizeStatistics() const { return sizes.statistics; }
  Statistics LayoutStatistics() const { return layouts.statistics; }

private:
  struct KeyView {
    std::string_view text;
    TextStyle style;
    TextLayoutOptions options;
    friend bool operator==(const KeyView&, const KeyView&) = default;
  };
  struct Key {
    std::string text;
    TextStyle style;
    TextLayoutOptions options;
    operator KeyView() const { return {text, style, options}; }
  };
  struct KeyHash {
    using is_transparent = void;
    size_t operator()(const KeyView& key) const;
    size_t operator()(const Key& key) const { return (*this)(KeyView(key)); }
  };
  struct KeyEqual {
    using is_transparent = void;
    bool operator()(const KeyView& a, const KeyView& b) const { return a == b; }
  };

  /// Two generations: when the young one is full it becomes the old one, and the old one goes. A value found in the
  /// old one moves to the young one.
  template <typename T> struct Table {
    using Map = std::unordered_map<Key, T, KeyHash, KeyEqual>;
    Map young, old;
    size_t cost = 0;
    Statistics statistics;

    const T* Find(const KeyView& key, size_t keyCost, size_t limit);
    const T& Add(const KeyView& key, T value, size_t keyCost, size_t limit);
  };

  TextSize MeasureAscii(std::string_view text, const TextStyle& style);

  FontCollection& fonts;
  TextShaper shaper;
  Table<TextSize> sizes;
  Table<std::shared_ptr<const TextLayout>> layouts;
};

} // namespace Toolkit
