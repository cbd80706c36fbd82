#pragma once

#include <string>

namespace Tesselor {

/// What tells a file as it stands from any other state of it, without reading it: changes with each write and with a
/// file that takes its place. Empty if there is none. Only good to be compared.
std::string FileStateOf(const std::string& path);

} // namespace Tesselor
