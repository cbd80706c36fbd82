#pragma once

#include <cstdint>
#include <string>

struct cJSON;

namespace Tesselor {

class ContentNode;
class NodePinData;
class NodeReader;
struct ChildType;
struct NodeVariant;

/// Makes the children that stand behind the key of one pin.
class PinReader {
public:
  /// `nodeName` is the type or the family that the schema gives the children, and `variant` the family; it may be null.
  PinReader(NodeReader& reader, NodePinData& pin, const std::string& nodeName, const NodeVariant* variant);

  /// One child. `parentJson` is the object of the node that has the pin.
  void ReadObject(const cJSON* json, const cJSON* parentJson);
  /// A child for each element of an array or member of a map.
  void ReadArray(const cJSON* json);

private:
  void ReadEntry(const cJSON* json, const cJSON* element, int32_t index);
  void ReadEntryInto(ContentNode& child, const cJSON* element);
  void ConnectEntry(ContentNode& child, const ChildType& type);
  void ConnectKnown(ContentNode& node);
  void ConnectByType(ContentNode& child, bool isLink, bool isGeneric);

  NodeReader& reader;
  ContentNode& parent;
  NodePinData& pin;
  const std::string& nodeName;
  const NodeVariant* variant;
  /// The key of the pin on which the array's first child of the declared type hangs: all others hang on theirs of that
  /// name.
  std::string childPin;
};

} // namespace Tesselor
