#pragma once

#include "toolkit/base/Object.h"

#include <string>

struct cJSON;

namespace Tesselor {

class ContentNode;
class NodeDictionary;
class Workspace;
struct NodeEntry;
struct NodeVariant;

/// What kind of node an entry of an asset becomes, worked out from the schema, its variant and the entry itself.
struct ChildType {
  /// For an element of an array or a member of a map. `variant` may be null.
  static ChildType OfEntry(const cJSON* json, const std::string& nodeName, const NodeVariant* variant);
  /// For one object behind a pin of `parent`, whose own JSON decides for a root without a variant value.
  static ChildType OfObject(const ContentNode& parent, const cJSON* json, const cJSON* parentJson,
                            const std::string& nodeName, const NodeVariant* variant, const Workspace& workspace);

  /// A type in the entry's "$NodeId" beats schema and variant.
  void ReadIdentity(const NodeEntry& entry);
  void ReadKind(const NodeEntry& entry);
  void ApplyEntry(const NodeEntry& entry) {
    ReadIdentity(entry);
    ReadKind(entry);
  }
  /// Logs the decision and makes the node, or what stands in for it.
  Toolkit::Ptr<ContentNode> Create(const NodeDictionary& dictionary) const;

  std::string type;
  /// Empty if the entry has none.
  std::string uuid;
  /// The whole text of its "$NodeId"; empty if there is none.
  std::string identity;
  bool isGeneric = false;
  bool isLink = false;

private:
  void UseVariantValue(const std::string& value, const NodeVariant& variant);
  void UseDefaultVariant(const NodeVariant& variant);
};

} // namespace Tesselor
