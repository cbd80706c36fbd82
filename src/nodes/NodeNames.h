#pragma once

#include "toolkit/base/Object.h"

#include <string>
#include <vector>

namespace Tesselor {

class BaseNode;

/// How the user is told of a node of any kind.
std::string NameOf(const BaseNode& node);
/// The name of a single node, else how many there are: "3 nodes".
std::string NameOf(const std::vector<Toolkit::Ptr<BaseNode>>& nodes);

/// "1 match", "2 matches" and so on.
std::string Counted(size_t count, const char* one, const char* many);

} // namespace Tesselor
