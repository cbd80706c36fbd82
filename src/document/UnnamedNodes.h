#pragma once

#include "nodes/ContentNode.h"

#include <vector>

struct cJSON;

namespace Tesselor {

class Graph;

/// Generic and reference nodes behind pass-through nodes. They are written without the UUIDs by which the metadata name
/// them, so a load has to tell by their order which is which. It can where all such nodes of a pin hang behind one and
/// the same pass-through node.
namespace UnnamedNodes {

/// Gives the nodes that were read the UUIDs under which the links of a file's metadata name them. For before the links
/// are read.
void Identify(const cJSON* links, Graph& view);
/// The pass-through nodes that a load of what is written now would find without all that hangs on them.
std::vector<ContentNode*> FindUnidentified(const Graph& view);

} // namespace UnnamedNodes

} // namespace Tesselor
