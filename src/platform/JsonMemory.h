#pragma once

#include <cstddef>

namespace Tesselor {

/// Hears of every allocation that fails while JSON is built or printed. Members for which there is no memory are left
/// out of a tree without a word, and a file without them must not take the place of a complete one.
class JsonMemory {
public:
  /// Counts from now on. The first one routes all allocations of the JSON library through here.
  JsonMemory();
  bool RanOut() const;

  struct Allocator {
    void* (*allocate)(size_t size);
    void (*free)(void* block);
  };
  /// Replaces the allocator, for all of the library, and returns the former one. Blocks of the one are freed by the
  /// other.
  static Allocator SetAllocator(Allocator allocator);

private:
  size_t failuresBefore;
};

} // namespace Tesselor
