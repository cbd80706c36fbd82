// The members of ContentNode that give its forms in JSON.

#include "document/NodeReader.h"
#include "document/NodeWriter.h"
#include "nodes/ContentNode.h"
#include "nodes/NodePosition.h"

namespace Tesselor {

void ContentNode::Serialize(cJSON* json, NodeWriter& writer, NodeIdMember nodeIdMember) {
  if (nodeIdMember == NodeIdMember::Written) NodeWriter::WriteNodeId(json, *this);
  writer.WriteBody(json, *this);
}

void ContentNode::SerializeChild(cJSON* json, NodeWriter& writer) {
  SerializeWithId(json, writer, NodeLayout::Omitted);
}

void ContentNode::SerializeWithId(cJSON* json, NodeWriter& writer, NodeLayout layout) {
  NodeWriter::WriteNodeId(json, *this);
  if (layout == NodeLayout::Written) {
    NodeWriter::WriteTitle(json, *this);
    SavePosition(*this, json);
  }
  writer.WriteBody(json, *this);
}

void ContentNode::SerializeForCopy(cJSON* json, NodeWriter& writer, NodeLayout position) {
  writer.WriteCopy(json, *this, position);
}

void ContentNode::Deserialize(const cJSON* json, NodeReader& reader) { reader.ReadBody(*this, json); }

} // namespace Tesselor
