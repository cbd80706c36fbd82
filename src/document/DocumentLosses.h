#pragma once

#include "document/LossReport.h"
#include "toolkit/base/Object.h"

#include <string>
#include <vector>

struct cJSON;

namespace Tesselor {

class ContentNode;
class Graph;
struct RootType;

/// What a save costs a file, and the node in whose object the value stands.
struct DocumentLoss {
  Loss loss;
  /// Null for values of no node, and once the node is gone.
  Toolkit::WeakPtr<ContentNode> node;
};

/// What a save of the graph as it was loaded from `file` would change in that. A default that the workspace leaves out
/// of its files is no loss: a load brings it back. Of a document that a save makes many times larger only that is told.
/// Leaves the graph as it is: also the UUIDs that writing makes are taken back. Nothing for a document that can't be
/// written at all.
std::vector<DocumentLoss> FindDocumentLosses(const cJSON& file, const std::vector<LongNumber>& longNumbers,
                                             const Graph& graph, const RootType& root);

/// The losses as a text for another process that has the same nodes, and back.
std::string WriteLosses(const std::vector<DocumentLoss>& losses, const std::vector<Toolkit::Ptr<ContentNode>>& nodes);
std::vector<DocumentLoss> ReadLosses(const std::string& text, const std::vector<Toolkit::Ptr<ContentNode>>& nodes);

} // namespace Tesselor
