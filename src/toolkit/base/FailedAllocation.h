#pragma once

#include <new>

namespace Toolkit {

/// For a block that the C library had no memory for: what `new` does where it has none, so that the program's own
/// handler hears of both.
[[noreturn]] inline void FailAllocation() {
  if (const std::new_handler handler = std::get_new_handler()) handler();
  throw std::bad_alloc();
}

} // namespace Toolkit
