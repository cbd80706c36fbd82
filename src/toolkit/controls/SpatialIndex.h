#pragma once

#include "toolkit/base/Geometry.h"

#include <cstdint>
#include <map>
#include <unordered_map>
#include <vector>

namespace Toolkit {

/// Finds boxes by place, of whatever sizes, at a cost that follows what is found. A box stands in one cell: at the
/// level whose cells are at least as large as the box, in the cell that holds its middle. So it reaches out of its cell
/// by half a cell at most, and a search looks that much further. Items are numbers of the caller's; not checked.
class SpatialIndex {
public:
  /// Boxes whose numbers are not finite are never found.
  void Insert(uint32_t item, const Rect& box);
  /// `box` is the one that the item was inserted with.
  void Remove(uint32_t item, const Rect& box);
  /// Appends the items whose cells may reach `area`, in no order: a few of them lie outside of it.
  void Find(const Rect& area, std::vector<uint32_t>& found) const;

private:
  struct Level {
    std::unordered_map<uint64_t, std::vector<uint32_t>> cells;
  };
  /// By the exponent of the cell's length.
  std::map<int, Level> levels;
};

} // namespace Toolkit
