#pragma once

#include <string>

namespace Tesselor {

/// The directory that image names such as "Assets/folder.png" are relative to: empty for the current directory, which
/// is taken if it has a directory `Assets`, else the `Data` directory beside the program's own if there is one.
std::string FindTextureRoot();

} // namespace Tesselor
