// The members of GenericContentNode that give its forms in JSON.

#include "document/NodeReader.h"
#include "document/NodeWriter.h"
#include "fields/FieldRawJson.h"
#include "nodes/GenericContentNode.h"
#include "nodes/NodeKeys.h"
#include "nodes/NodePosition.h"
#include "platform/JsonFile.h"

namespace Tesselor {

namespace {

/// What a save writes anew behind the root's members.
void RemoveMetadata(cJSON* document) {
  const bool isOwnObject = cJSON_HasObjectItem(document, Keys::Metadata);
  if (isOwnObject) return cJSON_DeleteItemFromObject(document, Keys::Metadata);
  for (const char* key : {Keys::Nodes, Keys::FloatingNodes, Keys::FormerFloatingNodes, Keys::Links, Keys::Groups,
                          Keys::Comments, Keys::WorkspaceId})
    cJSON_DeleteItemFromObject(document, key);
}

} // namespace

void GenericContentNode::SerializeChild(cJSON* json, NodeWriter& writer) {
  SerializeWithId(json, writer, NodeLayout::Omitted);
}

void GenericContentNode::SerializeWithId(cJSON* json, NodeWriter&, NodeLayout position) {
  const StandInRecord* record = StandsFor();
  if (record && !record->identity.empty())
    cJSON_AddStringToObject(json, Keys::NodeId, (NodeId().empty() ? record->identity : Identity()).c_str());
  NodeWriter::WriteComment(json, *this);
  if (position == NodeLayout::Written) SavePosition(*this, json);
  if (!record) cJSON_AddTrueToObject(json, Keys::Generic);
  FieldRawJson* field = RawField();
  if (!field) return;
  const Toolkit::SharedString text = field->TextToSave();
  const JsonPtr parsed = ParseJson(text.ToString()).json;
  if (!parsed) return;
  for (cJSON* member = parsed->child; member;) {
    cJSON* next = member->next;
    if (member->string) {
      cJSON_DetachItemViaPointer(parsed.get(), member);
      cJSON_AddItemToObject(json, member->string, member);
    }
    member = next;
  }
}

void GenericContentNode::Deserialize(const cJSON* json, NodeReader& reader) {
  if (const auto comment = JsonText(cJSON_GetObjectItem(json, Keys::Comment))) SetComment(*comment);
  LoadPosition(*this, json, PositionPrecision::Fraction);
  SetTargetKey(json && json->string ? json->string : "Array");
  const JsonPtr copy(cJSON_Duplicate(json, true));
  for (const char* key : {Keys::Position, Keys::RootNodePosition, Keys::Comment, Keys::Generic, Keys::NodeId})
    cJSON_DeleteItemFromObject(copy.get(), key);
  if (reader.IsRoot(*this)) RemoveMetadata(copy.get());
  if (reader.IsPaste()) cJSON_DeleteItemFromObject(copy.get(), Keys::Copied);
  FieldRawJson* field = RawField();
  if (!field || !copy) return;
  field->GetFieldTextData()->SetValue(PrintJson(copy.get()));
  // The field takes the text for its last valid one now: later edits need not begin with a focus on this control.
  field->TextToSave();
}

} // namespace Tesselor
