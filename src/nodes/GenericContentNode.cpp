#include "nodes/GenericContentNode.h"

#include "fields/FieldRawJson.h"
#include "graph/Graph.h"
#include "nodes/NodeKeys.h"
#include "nodes/NodePosition.h"
#include "platform/JsonFile.h"

namespace Tesselor {

TOOLKIT_TYPE_IMPL(GenericContentNode, ContentNode, "Tesselor.GenericContentNode")
void GenericContentNode::Describe(Toolkit::TypeBuilder<GenericContentNode>&) {}

GenericContentNode::GenericContentNode(const NodeBlueprint& blueprint) : ContentNode(BuiltIn::Generic, blueprint) {}

FieldRawJson* GenericContentNode::RawField() const {
  const auto found = contentFields.find(std::string_view(BuiltIn::Generic));
  return found == contentFields.end() ? nullptr : Toolkit::DynamicCast<FieldRawJson>(found->second);
}

void GenericContentNode::SerializeChild(cJSON* json, bool saveAllFields) {
  SerializeWithId(json, saveAllFields, false);
}

void GenericContentNode::SerializeWithId(cJSON* json, bool, bool writeLayout) {
  WriteComment(json);
  if (writeLayout) SavePosition(*this, json);
  cJSON_AddTrueToObject(json, Keys::Generic);
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

void GenericContentNode::Deserialize(const cJSON* json, const Workspace&, Graph&, bool) {
  if (const auto comment = JsonText(cJSON_GetObjectItem(json, Keys::Comment))) SetComment(*comment);
  LoadPosition(*this, json, PositionPrecision::Fraction);
  targetKey = json && json->string ? json->string : "Array";
  const JsonPtr copy(cJSON_Duplicate(json, true));
  for (const char* key : {Keys::Position, Keys::RootNodePosition, Keys::Comment, Keys::Generic, Keys::NodeId})
    cJSON_DeleteItemFromObject(copy.get(), key);
  FieldRawJson* field = RawField();
  if (!field || !copy) return;
  field->GetFieldTextData()->SetValue(PrintJson(copy.get()));
  // The field takes the text for its last valid one now: later edits need not begin with a focus on this control.
  field->TextToSave();
}

void GenericContentNode::ConnectToParent(ContentNode& parent, Graph& view) {
  NodePinData* childPin = FindPin(BuiltIn::Generic);
  if (!childPin) return;
  NodePinData* parentPin = parent.AddDynamicPin(*childPin->blueprint);
  view.PendingConnections().push_back({this, childPin, &parent, parentPin});
}

} // namespace Tesselor
