#include "toolkit/base/SharedString.h"

#include <cstdlib>
#include <cstring>

#include "toolkit/base/FailedAllocation.h"

namespace Toolkit {

SharedString::SharedString(std::string_view text) {
  if (text.empty()) return;
  block = static_cast<Block*>(std::malloc(sizeof(Block) + text.size() + 1));
  if (!block) FailAllocation();
  block->references = 1;
  block->length = static_cast<uint32_t>(text.size());
  std::memcpy(block->Text(), text.data(), text.size());
  block->Text()[text.size()] = 0;
}

void SharedString::Release(Block* block) {
  if (block && --block->references == 0) std::free(block);
}

} // namespace Toolkit
