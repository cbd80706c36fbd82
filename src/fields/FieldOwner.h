#pragma once

#include <string>
#include <string_view>

namespace Tesselor {

/// What a field knows of the node that holds it.
class FieldOwner {
public:
  /// Empty if the node has no name.
  virtual std::string NodeName() const = 0;
  virtual void SetNodeName(std::string_view name) = 0;
  /// The name of the nearest named node upstream; empty if there is none.
  virtual std::string FindUpstreamName() = 0;
  /// How the user is told of the node.
  virtual std::string NameForUser() const = 0;

protected:
  ~FieldOwner() = default;
};

} // namespace Tesselor
