#include "platform/JsonMemory.h"

#include <cjson/cJSON.h>
#include <cstdlib>
#include <utility>

namespace Tesselor {

namespace {

JsonMemory::Allocator currentAllocator{&std::malloc, &std::free};
size_t failures = 0;

void* Allocate(size_t size) {
  void* block = currentAllocator.allocate(size);
  if (!block) ++failures;
  return block;
}

void Free(void* block) { currentAllocator.free(block); }

} // namespace

JsonMemory::JsonMemory() : failuresBefore(failures) {
  static const bool isRouted = [] {
    cJSON_Hooks hooks{&Allocate, &Free};
    cJSON_InitHooks(&hooks);
    return true;
  }();
  static_cast<void>(isRouted);
}

bool JsonMemory::RanOut() const { return failures != failuresBefore; }

JsonMemory::Allocator JsonMemory::SetAllocator(Allocator allocator) {
  return std::exchange(currentAllocator, allocator);
}

} // namespace Tesselor
