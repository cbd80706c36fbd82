#include "toolkit/controls/SpatialIndex.h"

#include <algorithm>
#include <cmath>

namespace Toolkit {

namespace {

/// Cells are 2 to the power of this, at least and at most, so that cell numbers stay small.
constexpr int SmallestLevel = 7, LargestLevel = 24;

struct Place {
  int level;
  int32_t x, y;
};

int32_t CellOf(float at, float length) {
  // Far beyond what a panel reaches, and still exact.
  static constexpr float Far = 1e9f;
  return static_cast<int32_t>(std::clamp(std::floor(at / length), -Far, Far));
}

uint64_t KeyOf(int32_t x, int32_t y) {
  return static_cast<uint64_t>(static_cast<uint32_t>(x)) << 32 | static_cast<uint32_t>(y);
}

bool IsFinite(const Rect& box) {
  return std::isfinite(box.x) && std::isfinite(box.y) && std::isfinite(box.width) && std::isfinite(box.height);
}

Place PlaceOf(const Rect& box) {
  int level = SmallestLevel;
  const float length = std::max(box.width, box.height);
  if (length > 0) level = std::clamp(std::ilogb(length) + 1, SmallestLevel, LargestLevel);
  const float cell = std::ldexp(1.0f, level);
  return {level, CellOf(box.x + box.width * 0.5f, cell), CellOf(box.y + box.height * 0.5f, cell)};
}

} // namespace

void SpatialIndex::Insert(uint32_t item, const Rect& box) {
  if (!IsFinite(box)) return;
  const Place place = PlaceOf(box);
  levels[place.level].cells[KeyOf(place.x, place.y)].push_back(item);
}

void SpatialIndex::Remove(uint32_t item, const Rect& box) {
  if (!IsFinite(box)) return;
  const Place place = PlaceOf(box);
  const auto level = levels.find(place.level);
  if (level == levels.end()) return;
  const auto cell = level->second.cells.find(KeyOf(place.x, place.y));
  if (cell == level->second.cells.end()) return;
  std::vector<uint32_t>& items = cell->second;
  const auto found = std::find(items.begin(), items.end(), item);
  if (found == items.end()) return;
  *found = items.back();
  items.pop_back();
  if (items.empty()) level->second.cells.erase(cell);
  if (level->second.cells.empty()) levels.erase(level);
}

void SpatialIndex::Find(const Rect& area, std::vector<uint32_t>& found) const {
  if (!IsFinite(area)) return;
  for (const auto& [exponent, level] : levels) {
    const float length = std::ldexp(1.0f, exponent), reach = length * 0.5f;
    const int32_t left = CellOf(area.x - reach, length), right = CellOf(area.Right() + reach, length);
    const int32_t top = CellOf(area.y - reach, length), bottom = CellOf(area.Bottom() + reach, length);
    const double asked = (static_cast<double>(right) - left + 1) * (static_cast<double>(bottom) - top + 1);
    const auto take = [&found](const std::vector<uint32_t>& items) {
      found.insert(found.end(), items.begin(), items.end());
    };
    if (asked > static_cast<double>(level.cells.size())) {
      for (const auto& [key, items] : level.cells) {
        const auto x = static_cast<int32_t>(key >> 32), y = static_cast<int32_t>(key & 0xffffffff);
        if (x >= left && x <= right && y >= top && y <= bottom) take(items);
      }
      continue;
    }
    for (int32_t x = left; x <= right; ++x)
      for (int32_t y = top; y <= bottom; ++y)
        if (const auto cell = level.cells.find(KeyOf(x, y)); cell != level.cells.end()) take(cell->second);
  }
}

} // namespace Toolkit
