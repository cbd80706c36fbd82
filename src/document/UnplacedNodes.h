#pragma once

#include <unordered_set>

namespace Tesselor {

class ContentNode;
class Graph;

/// For a document whose file places some nodes only: nodes that the format gives no lasting identity come without a
/// place on every load. Each one whose parent is placed goes to the right of it, below the siblings there, instead of
/// lying with all others in the canvas's middle. `placed` holds the nodes that have a place; connections are made and
/// sizes known.
void PlaceUnplacedNodes(const Graph& view, std::unordered_set<const ContentNode*> placed);

} // namespace Tesselor
