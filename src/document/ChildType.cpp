#include "document/ChildType.h"

#include "document/NodeEntry.h"
#include "document/StandIn.h"
#include "nodes/ContentNode.h"
#include "nodes/NodeIdentity.h"
#include "nodes/NodeKeys.h"
#include "platform/JsonFile.h"
#include "platform/LogFile.h"
#include "platform/MessageBoxes.h"
#include "toolkit/application/MessageBox.h"
#include "workspace/Workspace.h"

namespace Tesselor {

ChildType ChildType::OfEntry(const cJSON* json, const std::string& nodeName, const NodeVariant* variant) {
  ChildType result;
  result.type = nodeName;
  if (!variant) return result;
  if (const auto value = JsonText(cJSON_GetObjectItem(json, variant->VariantFieldName.c_str())))
    result.UseVariantValue(*value, *variant);
  else
    result.UseDefaultVariant(*variant);
  return result;
}

ChildType ChildType::OfObject(const ContentNode& parent, const cJSON* json, const cJSON* parentJson,
                              const std::string& nodeName, const NodeVariant* variant, const Workspace& workspace) {
  const bool hasValue = variant && cJSON_IsString(cJSON_GetObjectItem(json, variant->VariantFieldName.c_str()));
  const auto assetType = JsonText(cJSON_GetObjectItem(parentJson, "Type"));
  if (!variant || hasValue || parent.TypeId() != "Root" || !assetType || assetType->empty())
    return OfEntry(json, nodeName, variant);
  ChildType result;
  if (const std::string* components = workspace.AssetTypeComponents.Find(*assetType)) {
    result.type = *components;
    return result;
  }
  const std::string text =
      "No matching components node was found for asset type '" + *assetType + "'. A generic node will be created.";
  LogFile::Write(text);
  Toolkit::MessageBox::Show(text, AttentionCaption);
  result.type = BuiltIn::Generic;
  return result;
}

void ChildType::UseVariantValue(const std::string& value, const NodeVariant& variant) {
  if (const std::string* found = variant.Variants.Find(value)) {
    type = *found;
    return;
  }
  LogFile::Write("Could not find variant entry '" + value + "' in variant: '" + type + "'.");
  type = BuiltIn::Generic;
}

void ChildType::UseDefaultVariant(const NodeVariant& variant) {
  if (const std::string* found = variant.Variants.Find("")) {
    type = *found;
    LogFile::Write("Using default variant node: '" + type + "'.");
  } else {
    type = BuiltIn::Generic;
  }
}

void ChildType::ReadIdentity(const NodeEntry& entry) {
  const auto id = JsonText(entry.nodeId);
  if (!id) return;
  const NodeIdentity parts = NodeIdentity::Of(*id);
  type = parts.type;
  uuid = parts.uuid;
  identity = *id;
}

void ChildType::ReadKind(const NodeEntry& entry) {
  isGeneric = entry.generic || type == BuiltIn::Generic;
  isLink = cJSON_IsTrue(entry.link);
}

Toolkit::Ptr<ContentNode> ChildType::Create(const NodeDictionary& dictionary) const {
  if (isLink)
    LogFile::Write("Creating Link node");
  else if (isGeneric)
    LogFile::Write("Creating generic node");
  else
    LogFile::Write("Creating child node: '" + type + "'.");
  const std::string id = isLink ? BuiltIn::Link : isGeneric ? BuiltIn::Generic : type;
  return MakeNodeOrStandIn(dictionary, id, identity);
}

} // namespace Tesselor
