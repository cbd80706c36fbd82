#pragma once

#include "nodes/ContentNode.h"
#include "platform/JsonFile.h"

#include <cstddef>
#include <string>
#include <utility>

namespace Tesselor {

class CopyDetails;

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
  /// stands for all nodes. `details`, which outlives the writer, is told of all that is written.
  explicit NodeWriter(NodeSet selection, CopyDetails* details = nullptr)
      : fields(FieldsToWrite::Changed), selection(std::move(selection)), details(details) {}

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
  /// The object of a node below which all others of the copy stand.
  JsonPtr WriteTopOfCopy(ContentNode& node);
  /// Whether nodes were left out of a copy because they stand deeper than any text may nest.
  bool IsTooDeep() const { return isTooDeep; }

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
  void WriteChildrenOfCopy(cJSON* json, const ContentNode& link);

  FieldsToWrite fields;
  NodeSet selection;
  CopyDetails* details = nullptr;
  /// How many nodes of a copy are being written, each inside of the one before.
  size_t depth = 0;
  bool isTooDeep = false;
  /// The nodes that are being written now.
  NodeSet open;
};

} // namespace Tesselor
