#pragma once

#include "graph/Graph.h"

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

struct cJSON;

namespace Tesselor {

class Workspace;

/// The content nodes of a view that have a UUID; of several with one, the last in the list. The keys are the nodes'
/// own texts.
std::unordered_map<std::string_view, ContentNode*> NodesById(const Graph& view);

/// Splices the pass-through nodes of a file's metadata back in. The tree holds the children directly below their
/// parents, as if there were no links: those connections are taken out, and the links' own put in their place, so that
/// the children of a pin keep the order of the file.
class LinkImport {
public:
  LinkImport(const cJSON* metadata, const Workspace& workspace, Graph& view);

  /// Makes the nodes.
  void Read();
  void SpliceIntoPendingConnections();
  /// Gives the nodes their places, once all connections are made: a place must not decide the order of children that
  /// have none themselves. Brings the parents of each node into the order of the file.
  void Finish();

private:
  struct Endpoint {
    ContentNode* node = nullptr;
    NodePinData* pin = nullptr;
    explicit operator bool() const { return pin != nullptr; }
  };
  struct Record {
    Toolkit::Ptr<ContentNode> node;
    const cJSON* json;
    std::vector<std::string> inputConnections;
    std::vector<std::string> outputConnections;
    std::string sourceEndpoint;
    /// The indices of the direct connections that stood for an output, by its text.
    std::unordered_map<std::string, size_t> outputPlaces;
  };
  /// Where among the pending connections a link connects to a parent's pin.
  using Places = std::map<std::pair<const Record*, const NodePinData*>, size_t>;

  Endpoint Resolve(std::string_view text) const;
  Record* FindLink(std::string_view text);
  std::vector<Endpoint> SourcesOf(const Record& record);
  void TakeDirectConnectionsOut();
  void RememberPlace(Record& record, const NodePinData& source, size_t index);
  void OrderOutputs(Record& record);
  size_t PlaceOfOutput(const Record& record, const std::string& text);
  void PutLinkConnectionsIn();

  const cJSON* metadata;
  const Workspace& workspace;
  Graph& view;
  std::unordered_map<std::string_view, ContentNode*> nodesById;
  std::vector<Record> records;
  std::unordered_map<std::string, size_t> recordsById;
  std::vector<bool> isRemoved;
  Places places;
};

} // namespace Tesselor
