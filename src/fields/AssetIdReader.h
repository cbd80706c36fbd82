#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace Tesselor {

/// The name of a chosen file: what stands behind the path's last "/" or "\", cut at its last ".".
std::string FileStem(std::string_view path);

/// The `Id` of an asset file. A file that is no JSON or has no such key is told to the user and in the log; an `Id` of
/// another type than string is passed over in silence. Nothing comes back in either case.
std::optional<std::string> ReadAssetId(const std::string& path);

} // namespace Tesselor
