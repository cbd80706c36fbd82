// The part of ContentNode that reads its own JSON object, member by member.

#include "document/DocumentPrint.h"
#include "document/NodeEntry.h"
#include "graph/Graph.h"
#include "nodes/GenericContentNode.h"
#include "nodes/NodeKeys.h"
#include "nodes/NodePosition.h"
#include "platform/JsonFile.h"
#include "platform/LogFile.h"
#include "toolkit/application/MessageBox.h"
#include "workspace/Workspace.h"

#include <string_view>

namespace Tesselor {

namespace {

/// Keys of the editor that no schema sees, whatever it lists.
bool IsSkipped(std::string_view key) {
  if (key == Keys::FormerFloatingNodes) return true;
  return key.starts_with('$') && key != Keys::Key && key != Keys::Value;
}

} // namespace

void ContentNode::Deserialize(const cJSON* json, const Workspace& workspace, Graph& view, bool selectNewNodes) {
  LogDeserialization(json);
  const NodeEntry entry(json);
  if (const auto title = JsonText(entry.title)) SetTitle(*title);
  if (const auto comment = JsonText(entry.comment)) SetComment(*comment);
  if (const auto name = JsonText(entry.name)) nodeName = *name;
  ApplyPosition(*this, entry.Place());
  const cJSON* member = nullptr;
  cJSON_ArrayForEach(member, json) if (member->string) DeserializeMember(json, member, workspace, view, selectNewNodes);
}

void ContentNode::LogDeserialization(const cJSON* json) const {
  std::string text = "Deserializing node: '" + Blueprint().title + "'. \nJSON:\n";
  DocumentPrint::Append(text, json);
  LogFile::Write(text);
}

void ContentNode::DeserializeMember(const cJSON* json, const cJSON* member, const Workspace& workspace, Graph& view,
                                    bool selectNewNodes) {
  const char* key = member->string;
  if (IsSkipped(key)) return;
  const std::string schemaKey = ResolveSchemaKey(key, member);
  const std::string* fieldId = Blueprint().schema.Find(schemaKey);
  const std::string line = "Deserializing field: '" + std::string(key) + "'.";
  const bool isChildren = IsPassthrough() && std::string_view(key) == Keys::Children && cJSON_IsArray(member);
  if (fieldId && !isChildren) {
    LogFile::WriteBoth(line, "Found entry in schema: '" + *fieldId + "'.");
    DeserializeField(json, key, *fieldId);
    return;
  }
  LogFile::Write(line);
  if (isChildren) {
    DeserializeChildren(member, workspace, view, selectNewNodes);
    return;
  }
  if (const NodePinTarget* target = Blueprint().pinSchema.Find(schemaKey))
    if (DeserializePinMember(json, member, *target, workspace, view, selectNewNodes)) return;
  if (DeserializeAdditionalProperty(member, workspace, view, selectNewNodes) ||
      DeserializeParameters(member, workspace, view, selectNewNodes))
    return;
  if (cJSON_IsObject(member))
    DeserializeGeneric(member, workspace, view, selectNewNodes);
  else
    ReportUnknownField(key, member);
}

void ContentNode::DeserializeField(const cJSON* objectJson, const char* jsonKey, const std::string& fieldId) {
  if (std::string_view(jsonKey) == Keys::Value) {
    const auto found = contentFields.find(fieldId);
    if (found == contentFields.end()) return;
    BaseField& field = *found->second;
    field.DeserializeValue(cJSON_GetObjectItem(objectJson, Keys::Value));
    // Most classes take values by key only; a map's scalar must reach them all the same.
    if (!field.HasLoadedValue()) field.Deserialize(objectJson, Keys::Value);
    return;
  }
  if (BaseField* field = FindField(fieldId)) field->Deserialize(objectJson, jsonKey);
}

std::string ContentNode::ResolveSchemaKey(const char* jsonKey, const cJSON* value) const {
  std::string result = jsonKey;
  const std::string asField = result + "$Ref";
  const std::string asPin = result + "$Pin";
  if (Blueprint().schema.Contains(asField)) result = asField;
  const bool fitsPin =
      cJSON_IsObject(value) || (cJSON_IsArray(value) && (!value->child || cJSON_IsObject(value->child)));
  if (fitsPin && Blueprint().pinSchema.Contains(asPin)) result = asPin;
  return result;
}

void ContentNode::DeserializeGeneric(const cJSON* json, const Workspace& workspace, Graph& view, bool selectNewNodes) {
  LogFile::Write("Creating generic node");
  const Toolkit::Ptr<ContentNode> node = workspace.nodeDictionary->CreateNode(BuiltIn::Generic, false);
  auto* generic = Toolkit::DynamicCast<GenericContentNode>(node);
  if (!generic) return;
  view.AddNode(*generic, 0, 0, selectNewNodes);
  generic->Deserialize(json, workspace, view, selectNewNodes);
  LoadPosition(*generic, json);
  generic->ConnectToParent(*this, view);
}

void ContentNode::ReportUnknownField(const char* key, const cJSON* value) const {
  Toolkit::MessageBox::Show(LogUnknownField(key, value), "Attention!", Toolkit::MessageBoxButton::OK,
                            Toolkit::MessageBoxImage::Error);
}

std::string ContentNode::LogUnknownField(const char* key, const cJSON* value) const {
  std::string text = "Unknown field encountered when loading file. Field '" + std::string(key ? key : "") + ": ";
  DocumentPrint::Append(text, value);
  text += "' in node: '" + Blueprint().title +
          "'. Saving will override this file and erase this field. Proceed with caution.";
  LogFile::Write(text);
  return text;
}

} // namespace Tesselor
