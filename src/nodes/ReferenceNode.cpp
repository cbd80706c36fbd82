#include "nodes/ReferenceNode.h"

#include "fields/FieldFactory.h"
#include "fields/FieldSmallText.h"
#include "platform/FileDialogs.h"
#include "platform/JsonFile.h"
#include "platform/MessageBoxes.h"
#include "toolkit/controls/ButtonBase.h"
#include "toolkit/controls/StackPanel.h"
#include "toolkit/controls/TextBox.h"
#include "toolkit/markup/GUI.h"

#include <string_view>

namespace Tesselor {

using Toolkit::Visibility;

namespace {

constexpr char ComponentName[] = "ov::NPC::Plotter::ParametersComponent";
constexpr char DoubleParameter[] = "ov::NPC::Plotter::DoubleParameterDefinition";
constexpr char IntParameter[] = "ov::NPC::Plotter::IntParameterDefinition";
constexpr int ReferenceWidth = 300;
constexpr int ParameterWidth = 75;

void Report(const std::string& text) { ReportError(text, text, AttentionCaption); }

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
    AddParameterField(parameter->string, TypeOfParameter(*definition), JsonPtr(cJSON_Duplicate(value, true)));
  }
}

void ReferenceNode::AddReferenceField() {
  const Toolkit::Ptr<BaseField> field =
      AddField(Blueprint().fileRefKey.c_str(), "SmallString", ReferenceWidth,
               JsonPtr(cJSON_CreateString(std::string(FileId()).c_str())), nodeReference);
  if (field) MakeReadOnly(field->GetContent().AsObject());
}

void ReferenceNode::AddAssetParameter(const char* name, const char* type, JsonPtr defaultValue, std::string json) {
  if (const Toolkit::Ptr<BaseField> field = AddParameterField(name, type, std::move(defaultValue))) field->MarkLoaded();
  if (const auto field = contentFields.find(name); field != contentFields.end())
    keptValues.emplace(name, KeptValue{std::move(json), field->second->GetValueAsString()});
}

const std::string* ReferenceNode::UnchangedJson(const std::string& name) const {
  const auto kept = keptValues.find(name);
  const auto field = contentFields.find(name);
  const bool isUnchanged = kept != keptValues.end() && field != contentFields.end() &&
                           field->second->GetValueAsString() == kept->second.shownText;
  return isUnchanged ? &kept->second.json : nullptr;
}

Toolkit::Ptr<BaseField> ReferenceNode::AddParameterField(const char* name, const char* type, JsonPtr defaultValue) {
  const Toolkit::Ptr<BaseField> field = AddField(name, type, ParameterWidth, std::move(defaultValue), nodeParameters);
  if (field) contentFields.emplace(name, field);
  return field;
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
  field->MakeControls();
  if (panel) panel->AddChild(field.Get());
  return field;
}

} // namespace Tesselor
