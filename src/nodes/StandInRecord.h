#pragma once

#include "platform/JsonFile.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace Tesselor {

/// What a generic node stands in for, and what the file's metadata says of it and of the nodes that its text holds. It
/// goes where the node goes, and back into the metadata with each save.
struct StandInRecord {
  /// An entry of `$Nodes`.
  struct Place {
    std::string key;
    JsonPtr json;
  };
  /// A pin of the text that a pass-through node names at `index` in its list `key`.
  struct Endpoint {
    std::string linkId;
    std::string_view key;
    size_t index;
    std::string text;
  };

  std::string type;
  /// The whole "$NodeId" of the entry; empty if it has none.
  std::string identity;
  /// The pin by which pass-through nodes that lead here name it; empty if there are none.
  std::string inputPin;
  std::vector<Place> places;
  std::vector<Endpoint> endpoints;
};

} // namespace Tesselor
