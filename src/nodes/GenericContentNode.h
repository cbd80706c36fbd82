#pragma once

#include "nodes/ContentNode.h"
#include "nodes/StandInRecord.h"

#include <memory>
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
  /// From now on the node is written without the mark of generic ones, and with the "$NodeId" of what it stands for,
  /// unless that is empty.
  void StandFor(std::string type, std::string identity);
  /// Null unless it stands in for something.
  StandInRecord* StandsFor() const { return standsFor.get(); }
  /// With the type of what it stands for.
  std::string Identity() const override;
  /// Null if the schema has another field in its place.
  FieldRawJson* RawField() const;

private:
  std::string targetKey;
  std::unique_ptr<StandInRecord> standsFor;
};

} // namespace Tesselor
