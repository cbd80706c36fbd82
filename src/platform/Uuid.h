#pragma once

#include <string>

namespace Tesselor {

/// A new random UUID (version 4) in lower-case text of 36 characters, from a process-wide generator that is seeded on
/// the first call. For the UI thread only.
std::string GenerateUuid();

/// The same form from the operating system's own generator.
std::string GenerateSystemUuid();

} // namespace Tesselor
