#pragma once

#include "nodes/ContentNode.h"

#include <vector>

namespace Tesselor {

/// Brings the pass-through nodes among `changed`, and all that they are joined to through pass-through nodes, up to
/// date: each takes over the pin record of what flows through it, and says whether both of its sides agree. The result
/// follows from the connections alone, not from the order in which they were made. Linear in what is joined.
void RefreshLinkTypes(const std::vector<ContentNode*>& changed);

} // namespace Tesselor
