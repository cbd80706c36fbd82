#pragma once

#include "graph/Graph.h"

#include <cstddef>
#include <limits>
#include <memory>
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
    /// The links that lead to this one, and the pins of real nodes that are joined to it itself.
    std::vector<Record*> upstream;
    std::vector<Endpoint> ownSources;
    /// The indices of the direct connections that stood for an output, by its text.
    std::unordered_map<std::string, size_t> outputPlaces;
    /// The first of the direct connections that stood for what is behind this link.
    size_t place = NoPlace;
  };
  static constexpr size_t NoPlace = std::numeric_limits<size_t>::max();
  /// The pins of real nodes from which a link is reached. Links of a chain share them.
  using Sources = std::shared_ptr<const std::vector<Endpoint>>;
  /// A link with the first direct connection that stood for an output of its own.
  using PlacedLinks = std::vector<std::pair<Record*, size_t>>;

  Endpoint Resolve(std::string_view text) const;
  /// As an end to which a link leads: what stands in for a type has one pin for all that the type has.
  Endpoint ResolveTarget(std::string_view text) const;
  Record* FindLink(std::string_view text);
  void ResolveUpstream();
  /// Upstream links before those that they lead to, as far as there is no ring.
  std::vector<Record*> InOrderOfFlow();
  Sources SourcesOf(Record& record, const std::unordered_map<const Record*, Sources>& known) const;
  void TakeDirectConnectionsOut();
  void PlaceLinks(PlacedLinks placed);
  void PlaceLinksAtSources();
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
  /// The real pins that links are joined to, with these links and with all that hangs on the pin through them.
  struct SourcePin {
    std::vector<const Record*> links;
    PlacedLinks placed;
    /// Where each of the links stands on the pin.
    std::unordered_map<const Record*, size_t> places;
  };
  std::unordered_map<const NodePinData*, SourcePin> sourcePins;
};

} // namespace Tesselor
