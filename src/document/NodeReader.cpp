#include "document/NodeReader.h"

#include "document/DocumentPrint.h"
#include "document/NodeEntry.h"
#include "document/PasteDetails.h"
#include "document/PinReader.h"
#include "document/SchemaKey.h"
#include "graph/Graph.h"
#include "nodes/NodeKeys.h"
#include "nodes/NodePosition.h"
#include "platform/JsonFile.h"
#include "platform/LogFile.h"
#include "platform/MessageBoxes.h"
#include "workspace/Workspace.h"

#include <string_view>

namespace Tesselor {

namespace {

void ReadField(const ContentNode& node, const cJSON* json, const char* key, const std::string& fieldId) {
  if (std::string_view(key) == Keys::Value) {
    const auto found = node.contentFields.find(fieldId);
    if (found == node.contentFields.end()) return;
    BaseField& field = *found->second;
    field.DeserializeValue(cJSON_GetObjectItem(json, Keys::Value));
    // Most classes take values by key only; a map's scalar must reach them all the same.
    if (!field.HasLoadedValue()) field.Deserialize(json, Keys::Value);
    return;
  }
  if (BaseField* field = node.FindField(fieldId)) field->Deserialize(json, key);
}

} // namespace

const NodeDictionary& NodeReader::Dictionary() const { return *workspace.nodeDictionary; }

void NodeReader::Add(ContentNode& node) {
  graph.AddNode(node, 0, 0, newNodes == NewNodes::Selected);
  if (paste) paste->Add(node);
}

std::string NodeReader::IdentityOf(const NodeEntry& entry, const std::string& uuid) const {
  return paste ? PasteDetails::LabelOf(entry) : uuid;
}

ContentNode* NodeReader::FindNode(const std::string& identity) const {
  if (identity.empty()) return nullptr;
  return paste ? paste->Find(identity) : graph.FindNodeById(identity);
}

void NodeReader::SetIdentity(ContentNode& node, const std::string& identity) {
  if (paste)
    paste->SetLabel(node, identity);
  else if (!identity.empty())
    node.SetNodeId(identity);
}

void NodeReader::Place(ContentNode& child, const NodeEntry& entry) {
  ApplyPosition(child, entry.Place());
  NotePlace(child, entry);
  if (paste) paste->Apply(child, entry.copied);
}

void NodeReader::NotePlace(const ContentNode& node, const NodeEntry& entry) {
  if (entry.Place()) placed.insert(&node);
}

bool NodeReader::IsRoot(const ContentNode& node) const { return !paste && graph.Root() == &node; }

void NodeReader::Connect(NodePinData& childPin, NodePinData& parentPin) {
  graph.PendingConnections().push_back({childPin.owner, &childPin, parentPin.owner, &parentPin});
}

void NodeReader::ReadBody(ContentNode& node, const cJSON* json) {
  LogNode(node, json);
  const NodeEntry entry(json);
  if (const auto title = JsonText(entry.title)) node.SetTitle(*title);
  if (const auto comment = JsonText(entry.comment)) node.SetComment(*comment);
  if (const auto name = JsonText(entry.name)) node.nodeName = *name;
  ApplyPosition(node, entry.Place());
  NotePlace(node, entry);
  const cJSON* member = nullptr;
  cJSON_ArrayForEach(member, json) if (member->string) ReadMember(node, json, member);
}

void NodeReader::ReadMember(ContentNode& node, const cJSON* json, const cJSON* member) {
  const char* key = member->string;
  if (IsEditorKey(key)) return;
  const NodeBlueprint& blueprint = node.Blueprint();
  const std::string schemaKey = ResolveSchemaKey(blueprint, key, member);
  const std::string* fieldId = blueprint.schema.Find(schemaKey);
  const std::string line = "Deserializing field: '" + std::string(key) + "'.";
  const bool isChildren = node.IsPassthrough() && std::string_view(key) == Keys::Children && cJSON_IsArray(member);
  if (fieldId && !isChildren) {
    LogFile::WriteBoth(line, "Found entry in schema: '" + *fieldId + "'.");
    ReadField(node, json, key, *fieldId);
    return;
  }
  LogFile::Write(line);
  if (isChildren) {
    ReadChildrenOfLink(node, member);
    return;
  }
  if (const NodePinTarget* target = blueprint.pinSchema.Find(schemaKey))
    if (ReadPinMember(node, json, member, *target)) return;
  if (ReadAdditionalProperty(node, member) || ReadParameters(node, member)) return;
  if (cJSON_IsObject(member))
    ReadGeneric(node, member);
  else
    ReportUnknownField(node, key, member);
}

bool NodeReader::ReadPinMember(ContentNode& node, const cJSON* json, const cJSON* member, const NodePinTarget& target) {
  NodePinData* pin = node.FindPin(target.pin);
  // A schema that names a pin which isn't there: the key counts as unknown.
  if (!pin) return false;
  const NodeVariant* variant = Dictionary().FindVariant(target.node);
  LogFile::Write((variant ? "Found entry in schema: 'Node Variant: " : "Found entry in schema: '") + target.node +
                 "'.");
  PinReader reader(*this, *pin, target.node, variant);
  if (cJSON_IsArray(member) || pin->IsMap())
    reader.ReadArray(member);
  else if (cJSON_IsObject(member))
    reader.ReadObject(member, json);
  else if (!cJSON_IsNull(member))
    LogUnknownField(node, member->string, member);
  return true;
}

void NodeReader::LogNode(const ContentNode& node, const cJSON* json) const {
  std::string text = "Deserializing node: '" + node.Blueprint().title + "'. \nJSON:\n";
  AppendPrint(text, json);
  LogFile::Write(text);
}

void NodeReader::ReportUnknownField(const ContentNode& node, const char* key, const cJSON* value) const {
  ShowError(LogUnknownField(node, key, value), AttentionCaption);
}

std::string NodeReader::LogUnknownField(const ContentNode& node, const char* key, const cJSON* value) const {
  std::string text = "Unknown field encountered when loading file. Field '" + std::string(key ? key : "") + ": ";
  AppendPrint(text, value);
  text += "' in node: '" + node.Blueprint().title +
          "'. Saving will override this file and erase this field. Proceed with caution.";
  LogFile::Write(text);
  return text;
}

void NodeReader::AppendPrint(std::string& text, const cJSON* json) const {
  if (print)
    print->Append(text, json);
  else
    text += PrintJson(json);
}

} // namespace Tesselor
