// The members of ReferenceNode that give its forms in JSON.

#include "document/NodeReader.h"
#include "document/NodeWriter.h"
#include "nodes/NodeKeys.h"
#include "nodes/NodePosition.h"
#include "nodes/ReferenceNode.h"
#include "platform/JsonFile.h"

#include <cmath>
#include <cstdint>
#include <limits>

namespace Tesselor {

namespace {

/// Whole numbers that a 32-bit field would cut are shown as floats.
bool IsInt32(double value) {
  return value == std::trunc(value) && value >= std::numeric_limits<int32_t>::min() &&
         value <= std::numeric_limits<int32_t>::max();
}

void AddParameter(ReferenceNode& node, const cJSON* member) {
  const char* type = "SmallString";
  JsonPtr shown;
  if (cJSON_IsNumber(member)) {
    const bool isInt = IsInt32(member->valuedouble);
    type = isInt ? "Int" : "Float";
    shown.reset(cJSON_CreateNumber(isInt ? member->valueint : static_cast<float>(member->valuedouble)));
  } else if (cJSON_IsString(member)) {
    shown.reset(cJSON_CreateString(member->valuestring));
  }
  node.AddAssetParameter(member->string, type, std::move(shown), PrintJson(member));
}

} // namespace

void ReferenceNode::Serialize(cJSON* json, NodeWriter& writer, NodeIdMember nodeId) {
  NodeWriter::WriteComment(json, *this);
  if (nodeId == NodeIdMember::Written) cJSON_AddStringToObject(json, Keys::NodeId, TypeId().c_str());
  WriteFile(json, writer);
}

void ReferenceNode::SerializeForCopy(cJSON* json, NodeWriter& writer, NodeLayout position) {
  ContentNode::SerializeForCopy(json, writer, position);
  WriteFile(json, writer);
}

/// The file, and the parameters that differ from it.
void ReferenceNode::WriteFile(cJSON* json, const NodeWriter& writer) const {
  cJSON_AddStringToObject(json, Keys::FileName, std::string(FileName()).c_str());
  cJSON_AddStringToObject(json, Blueprint().fileRefKey.c_str(), std::string(FileId()).c_str());
  cJSON* values = cJSON_CreateObject();
  for (const auto& [name, field] : contentFields) {
    if (const std::string* unchanged = UnchangedJson(name))
      cJSON_AddItemToObject(values, name.c_str(), ParseJson(*unchanged).json.release());
    else if (writer.ShouldWrite(*field))
      field->Serialize(values, name);
  }
  cJSON_AddItemToObject(json, Blueprint().modifyKey.c_str(), values);
}

void ReferenceNode::Deserialize(const cJSON* json, NodeReader& reader) {
  reader.LogNode(*this, json);
  if (const auto title = JsonText(cJSON_GetObjectItem(json, Keys::Title))) SetTitle(*title);
  if (const auto comment = JsonText(cJSON_GetObjectItem(json, Keys::Comment))) SetComment(*comment);
  LoadPosition(*this, json, PositionPrecision::Fraction);
  const auto fileId = JsonText(cJSON_GetObjectItem(json, Blueprint().fileRefKey.c_str()));
  if (!fileId) return;
  SetFileId(*fileId);
  const auto fileName = JsonText(cJSON_GetObjectItem(json, Keys::FileName));
  if (!fileName) return;
  SetFileName(*fileName);
  AddReferenceField();
  const cJSON* member = nullptr;
  cJSON_ArrayForEach(member, cJSON_GetObjectItem(json, Blueprint().modifyKey.c_str())) if (member->string)
      AddParameter(*this, member);
}

} // namespace Tesselor
