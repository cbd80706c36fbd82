#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace Tesselor {

/// A number of a file that no double holds, for its digits or its size, so that a tree that was parsed from it has lost
/// them already.
struct LongNumber {
  /// How many numbers stand before it in the text.
  size_t index = 0;
  std::string digits;
};

/// All of them in a valid JSON text, in one pass.
std::vector<LongNumber> FindLongNumbers(std::string_view text);

} // namespace Tesselor
