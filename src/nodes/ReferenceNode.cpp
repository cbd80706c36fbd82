#include "nodes/ReferenceNode.h"

#include "fields/FieldFactory.h"
#include "fields/FieldSmallText.h"
#include "nodes/NodeKeys.h"
#include "nodes/NodePosition.h"
#include "platform/FileDialogs.h"
#include "platform/JsonFile.h"
#include "platform/LogFile.h"
#include "toolkit/application/MessageBox.h"
#include "toolkit/controls/ButtonBase.h"
#include "toolkit/controls/StackPanel.h"
#include "toolkit/controls/TextBox.h"
#include "toolkit/markup/GUI.h"

#include <cmath>
#include <limits>
#include <string_view>

namespace Tesselor {

using Toolkit::Visibility;

namespace {

constexpr char ComponentName[] = "ov::NPC::Plotter::ParametersComponent";
constexpr char DoubleParameter[] = "ov::NPC::Plotter::DoubleParameterDefinition";
constexpr char IntParameter[] = "ov::NPC::Plotter::IntParameterDefinition";
constexpr int ReferenceWidth = 300;
constexpr int ParameterWidth = 75;

void Report(const std::string& text) {
  LogFile::Write(text);
  Toolkit::MessageBox::Show(text, "Attention!", Toolkit::MessageBoxButton::OK, Toolkit::MessageBoxImage::Error);
}

/// Nothing that is typed into the boxes of `content` would be read.
void MakeReadOnly(Toolkit::Object* content) {
  if (auto* box = Toolkit::DynamicCast<Toolkit::TextBox>(content))
    box->SetValue(Toolkit::TextBox::IsReadOnlyProperty, true);
  if (auto* panel = Toolkit::DynamicCast<Toolkit::Panel>(content))
    for (size_t i = 0; i < panel->ChildCount(); ++i) MakeReadOnly(panel->Child(i));
}

void CollapseChildren(const Toolkit::StackPanel* panel) {
  for (size_t i = 0; panel && i < panel->ChildCount(); ++i) panel->Child(i)->SetVisibility(Visibility::Collapsed);
}

/// Whole numbers that a 32-bit field would cut are shown as floats.
bool IsInt32(double value) {
  return value == std::trunc(value) && value >= std::numeric_limits<int32_t>::min() &&
         value <= std::numeric_limits<int32_t>::max();
}

const char* TypeOfParameter(std::string_view definition) {
  if (definition == DoubleParameter) return "Float";
  return definition == IntParameter ? "Int" : "SmallString";
}

} // namespace

TOOLKIT_TYPE_IMPL(ReferenceNode, ContentNode, "Tesselor.ReferenceNode")
void ReferenceNode::Describe(Toolkit::TypeBuilder<ReferenceNode>& type) {
  FileNameProperty = type.Property<std::string>("FileName", "File");
  FileIdProperty = type.Property<std::string>("FileId");
  type.Handler<&ReferenceNode::SelectFile>("SelectFile", Toolkit::ButtonBase::ClickEvent);
}

ReferenceNode::ReferenceNode(std::string typeId, const NodeBlueprint& blueprint)
    : ContentNode(WithoutDocument{}, std::move(typeId), blueprint) {
  ReferenceNode::InitializeComponent();
}

void ReferenceNode::InitializeComponent() {
  Toolkit::GUI::LoadComponent(*this, "ReferenceNode.xaml");
  FindParts();
  nodeReference = FindName<Toolkit::StackPanel>("NodeReference");
  nodeParameters = FindName<Toolkit::StackPanel>("NodeParameters");
}

void ReferenceNode::SelectFile(Toolkit::Object*, const Toolkit::RoutedEventArgs&) {
  const auto path = FileDialogs::Open();
  if (!path) return;
  const size_t separator = path->find_last_of("/\\");
  const std::string name = separator == std::string::npos ? *path : path->substr(separator + 1);
  const std::string stem = name.substr(0, name.find('.'));
  SetValue(FileNameProperty, stem);
  LoadFileParameters(*path, stem);
}

void ReferenceNode::LoadFileParameters(const std::string& path, const std::string& fileName) {
  const JsonParseResult file = ParseJson(ReadTextFile(path).value_or(std::string()));
  const cJSON* item = cJSON_GetObjectItem(file.json.get(), Blueprint().fileRefValue.c_str());
  if (!item) {
    Report("The loaded asset '" + fileName + "' does not contain a '" + Blueprint().fileRefValue +
           "' field. Please check the value of 'FileRefValue' on the reference node's schema.");
    SetValue(FileNameProperty, "");
    return;
  }
  if (!cJSON_IsString(item)) return;
  const cJSON* component = cJSON_GetObjectItem(cJSON_GetObjectItem(file.json.get(), "Components"), ComponentName);
  const cJSON* parameters = cJSON_GetObjectItem(component, "Parameters");
  if (!parameters) {
    Report(fileName + " does not contain a " + ComponentName + " component.");
    return;
  }
  SetValue(FileIdProperty, std::string_view(item->valuestring));
  contentFields.clear();
  keptValues.clear();
  CollapseChildren(nodeReference);
  CollapseChildren(nodeParameters);
  AddReferenceField();
  const cJSON* parameter = nullptr;
  cJSON_ArrayForEach(parameter, parameters) {
    const auto definition = JsonText(cJSON_GetObjectItem(parameter, "$Type"));
    if (!definition || !parameter->string) continue;
    const cJSON* value = cJSON_GetObjectItem(parameter, "Value");
    AddParameterField(parameter->string, TypeOfParameter(*definition), JsonPtr(cJSON_Duplicate(value, true)),
                      ValueOrigin::ReferencedFile);
  }
}

void ReferenceNode::Serialize(cJSON* json, bool writeNodeId, bool saveAllFields) {
  WriteComment(json);
  if (writeNodeId) cJSON_AddStringToObject(json, Keys::NodeId, TypeId().c_str());
  cJSON_AddStringToObject(json, Keys::FileName, std::string(FileName()).c_str());
  cJSON_AddStringToObject(json, Blueprint().fileRefKey.c_str(), std::string(FileId()).c_str());
  cJSON* values = cJSON_CreateObject();
  for (const auto& [name, field] : contentFields) {
    const auto kept = keptValues.find(name);
    if (kept != keptValues.end() && field->GetValueAsString() == kept->second.shownText)
      cJSON_AddItemToObject(values, name.c_str(), ParseJson(kept->second.json).json.release());
    else if (saveAllFields || field->ShouldSerialize())
      field->Serialize(values, name);
  }
  cJSON_AddItemToObject(json, Blueprint().modifyKey.c_str(), values);
}

void ReferenceNode::Deserialize(const cJSON* json, const Workspace&, Graph&, bool) {
  LogDeserialization(json);
  if (const auto title = JsonText(cJSON_GetObjectItem(json, Keys::Title))) SetTitle(*title);
  if (const auto comment = JsonText(cJSON_GetObjectItem(json, Keys::Comment))) SetComment(*comment);
  LoadPosition(*this, json, PositionPrecision::Fraction);
  const auto fileId = JsonText(cJSON_GetObjectItem(json, Blueprint().fileRefKey.c_str()));
  if (!fileId) return;
  SetValue(FileIdProperty, *fileId);
  const auto fileName = JsonText(cJSON_GetObjectItem(json, Keys::FileName));
  if (!fileName) return;
  SetValue(FileNameProperty, *fileName);
  AddReferenceField();
  const cJSON* member = nullptr;
  cJSON_ArrayForEach(member, cJSON_GetObjectItem(json, Blueprint().modifyKey.c_str())) {
    if (!member->string) continue;
    if (cJSON_IsNumber(member)) {
      const bool isInt = IsInt32(member->valuedouble);
      const double value = isInt ? member->valueint : static_cast<float>(member->valuedouble);
      AddParameterField(member->string, isInt ? "Int" : "Float", JsonPtr(cJSON_CreateNumber(value)),
                        ValueOrigin::Asset);
    } else {
      AddParameterField(member->string, "SmallString",
                        JsonPtr(cJSON_IsString(member) ? cJSON_CreateString(member->valuestring) : nullptr),
                        ValueOrigin::Asset);
    }
    // Of equal names the first has the field.
    if (const auto field = contentFields.find(member->string); field != contentFields.end())
      keptValues.emplace(member->string, KeptValue{PrintJson(member), field->second->GetValueAsString()});
  }
}

void ReferenceNode::AddReferenceField() {
  const Toolkit::Ptr<BaseField> field =
      AddField(Blueprint().fileRefKey.c_str(), "SmallString", ReferenceWidth,
               JsonPtr(cJSON_CreateString(std::string(FileId()).c_str())), nodeReference);
  if (field) MakeReadOnly(field->GetContent().AsObject());
}

void ReferenceNode::AddParameterField(const char* name, const char* type, JsonPtr defaultValue, ValueOrigin origin) {
  const Toolkit::Ptr<BaseField> field = AddField(name, type, ParameterWidth, std::move(defaultValue), nodeParameters);
  if (!field) return;
  if (origin == ValueOrigin::Asset) field->MarkLoaded();
  contentFields.emplace(name, field);
}

Toolkit::Ptr<BaseField> ReferenceNode::AddField(const char* name, const char* type, int width, JsonPtr defaultValue,
                                                Toolkit::StackPanel* panel) {
  const JsonPtr options(cJSON_CreateObject());
  cJSON_AddStringToObject(options.get(), "Label", name);
  cJSON_AddNumberToObject(options.get(), "Width", width);
  if (defaultValue) cJSON_AddItemToObject(options.get(), "Default", defaultValue.release());
  Toolkit::Ptr<BaseField> field = CreateField(type, options.get(), true);
  if (!field) return nullptr;
  field->SetOwnerNode(this);
  if (panel) panel->AddChild(field.Get());
  referenceFields.push_back(field);
  return field;
}

} // namespace Tesselor
