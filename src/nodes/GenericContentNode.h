#pragma once

#include "nodes/ContentNode.h"

namespace Tesselor {

class FieldRawJson;

/// Stands for JSON that no schema describes: shows the object as text in one raw field, and writes the members of
/// that text back, so that a load and a save keep them.
class GenericContentNode : public ContentNode {
  TOOLKIT_TYPE(GenericContentNode)
public:
  explicit GenericContentNode(const NodeBlueprint& blueprint);

  void SerializeChild(cJSON* json, bool saveAllFields) override;
  void SerializeWithId(cJSON* json, bool saveAllFields, bool writeLayout) override;
  void Deserialize(const cJSON* json, const Workspace& workspace, Graph& view, bool selectNewNodes) override;

  /// Queues a connection to a new output pin of `parent`, as an unknown member of it.
  void ConnectToParent(ContentNode& parent, Graph& view);

  /// The key under which a parent writes this node from a dynamic pin; empty until the node is read.
  const std::string& TargetKey() const { return targetKey; }

private:
  FieldRawJson* RawField() const;

  std::string targetKey;
};

} // namespace Tesselor
