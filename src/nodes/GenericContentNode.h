#pragma once

#include "nodes/ContentNode.h"

#include <optional>
#include <string>
#include <utility>

namespace Tesselor {

class FieldRawJson;

/// Stands for JSON that no schema describes: shows the object as text in one raw field, and writes the members of
/// that text back, so that a load and a save keep them.
class GenericContentNode : public ContentNode {
  TOOLKIT_TYPE(GenericContentNode)
public:
  explicit GenericContentNode(const NodeBlueprint& blueprint);

  void SerializeChild(cJSON* json, NodeWriter& writer) override;
  void SerializeWithId(cJSON* json, NodeWriter& writer, NodeLayout position) override;
  void Deserialize(const cJSON* json, NodeReader& reader) override;

  /// The key under which a parent writes this node from a dynamic pin; empty until the node is read.
  const std::string& TargetKey() const { return targetKey; }
  void SetTargetKey(std::string key) { targetKey = std::move(key); }
  /// From now on the node is written without the mark of generic ones, and with the former "$NodeId" of what it stands
  /// for, unless that is empty.
  void StandFor(std::string formerIdentity) { standsFor = std::move(formerIdentity); }
  bool IsStandIn() const { return standsFor.has_value(); }
  const std::string& FormerIdentity() const { return *standsFor; }
  /// Null if the schema has another field in its place.
  FieldRawJson* RawField() const;

private:
  std::string targetKey;
  std::optional<std::string> standsFor;
};

} // namespace Tesselor
