#pragma once

#include "nodes/ContentNode.h"
#include "platform/JsonFile.h"

#include <string>
#include <utility>

namespace Tesselor {

enum class FieldsToWrite {
  /// Those that the field itself wants in the file: a default is left out.
  Changed,
  All,
};

/// Writes nodes and all below them into JSON objects. One writer serves one document or one copy: it knows which nodes
/// it is in the middle of, so that a cycle ends with the identity of the node that it leads back to.
class NodeWriter {
public:
  explicit NodeWriter(FieldsToWrite fields) : fields(fields) {}
  /// For the clipboard's form: below the nodes that are written, only what is part of `selection` counts. An empty one
  /// stands for all nodes.
  explicit NodeWriter(NodeSet selection) : fields(FieldsToWrite::Changed), selection(std::move(selection)) {}

  bool ShouldWrite(const BaseField& field) const { return fields == FieldsToWrite::All || field.ShouldSerialize(); }

  // What the forms of a node are made of. Each adds members to `json`.
  /// Gives the node a UUID if it has none.
  static void WriteNodeId(cJSON* json, ContentNode& node);
  /// Nothing if the node has the title of its type.
  static void WriteTitle(cJSON* json, const ContentNode& node);
  static void WriteComment(cJSON* json, const ContentNode& node);
  /// The comment, the keys of the schema, the members that it doesn't know, and the children of a pass-through node.
  void WriteBody(cJSON* json, ContentNode& node);
  /// The whole of the clipboard's form.
  void WriteCopy(cJSON* json, ContentNode& node, NodeLayout position);

private:
  JsonPtr WriteChild(ContentNode& child);
  void WriteSchemaField(cJSON* json, const ContentNode& node, const std::string& schemaKey);
  void WriteSchemaPin(cJSON* json, const ContentNode& node, const std::string& schemaKey);
  void WriteArray(cJSON* array, const NodePinData& pin);
  void WriteMap(cJSON* map, const NodePinData& pin);
  void WriteAdditionalProperties(cJSON* json, const NodePinData& pin);
  void WriteAdditionalParameters(cJSON* container, const NodePinData& pin);
  void WriteGenericPins(cJSON* json, const ContentNode& node);
  void WriteChildren(cJSON* json, const ContentNode& node);

  JsonPtr WriteCopyOf(ContentNode& child, NodeLayout genericPosition, NodeLayout position);
  void WriteSchemaPinOfCopy(cJSON* json, const ContentNode& node, const std::string& schemaKey);
  void WriteArrayOfCopies(cJSON* array, const NodePinData& pin);

  FieldsToWrite fields;
  NodeSet selection;
  /// The nodes that are being written now.
  NodeSet open;
};

} // namespace Tesselor
