#include "fields/FieldFilePath.h"

#include "fields/AssetIdReader.h"
#include "fields/FieldFilePathActionCommand.h"
#include "fields/FieldOptions.h"
#include "platform/FileDialogs.h"
#include "toolkit/controls/ButtonBase.h"
#include "values/ActionHistory.h"

#include <cjson/cJSON.h>

namespace Tesselor {

using Toolkit::SharedString;
using Toolkit::Visibility;

namespace {

/// The key beside a UUID that holds the file's name.
std::string CompanionKey(const std::string& key) { return "$" + key + "_FileName"; }

} // namespace

TOOLKIT_TYPE_IMPL(FieldFilePath, BaseField, "Tesselor.FieldFilePath")
void FieldFilePath::Describe(Toolkit::TypeBuilder<FieldFilePath>& type) {
  FileNameProperty = type.Property<std::string>("FileName");
  WidthProperty = type.Property<int32_t>("Width", 75);
  UUIDVisibilityProperty = type.Property<Visibility>("UUIDVisibility", Visibility::Collapsed);
  type.Member<&FieldFilePath::GetFileUUID>("FileUUID");
  type.Handler<&FieldFilePath::SelectFile>("SelectFile", Toolkit::ButtonBase::ClickEvent);
  type.Handler<&FieldFilePath::FieldNameMouseDown>("FieldNameMouseDown", MouseDownEvent);
}

FieldFilePath::FieldFilePath() : fileUUID(Toolkit::MakePtr<FieldTextData>()) { MakeControls(); }

void FieldFilePath::InitializeComponent() {
  BindToSelf();
  LoadDocument("FieldFilePath.xaml");
}

bool FieldFilePath::UsesUUID() const { return Get<Visibility>(UUIDVisibilityProperty) == Visibility::Visible; }

void FieldFilePath::Serialize(cJSON* object, const std::string& key) {
  const SharedString name = GetValue(FileNameProperty).AsString();
  if (!UsesUUID()) {
    cJSON_AddStringToObject(object, key.c_str(), name.CString());
    return;
  }
  cJSON_AddStringToObject(object, key.c_str(), fileUUID->GetText().CString());
  cJSON_AddStringToObject(object, CompanionKey(key).c_str(), name.CString());
}

void FieldFilePath::Deserialize(const cJSON* object, const std::string& key) {
  const cJSON* item = cJSON_GetObjectItem(object, key.c_str());
  if (!cJSON_IsString(item)) return;
  if (UsesUUID()) {
    fileUUID->SetValue(item->valuestring);
    const cJSON* name = cJSON_GetObjectItem(object, CompanionKey(key).c_str());
    if (cJSON_IsString(name)) SetFileName(name->valuestring);
  } else {
    SetFileName(item->valuestring);
  }
  hasLoadedValue = true;
}

void FieldFilePath::DeserializeOptions(const cJSON* options, bool applyDefaults) {
  BaseField::DeserializeOptions(options, applyDefaults);
  const FieldOptions own(options);
  if (const auto width = own.Integer(FieldOption::Width)) SetValue(WidthProperty, *width);
  if (own.Has(FieldOption::UseUUID)) {
    const bool usesUUID = own.IsTrue(FieldOption::UseUUID);
    SetValue(UUIDVisibilityProperty, usesUUID ? Visibility::Visible : Visibility::Collapsed);
  }
  if (const auto text = own.SharedText(FieldOption::Default); text && applyDefaults) {
    if (UsesUUID())
      fileUUID->SetValue(*text);
    else
      SetFileName(*text);
  }
}

std::string FieldFilePath::GetValueAsString() const { return std::string(GetFileName()); }

void FieldFilePath::SelectFile(Toolkit::Object*, const Toolkit::RoutedEventArgs&) {
  Subject<FieldFilePath>().ChooseFile();
}

void FieldFilePath::ChooseFile() {
  const std::optional<std::string> path = FileDialogs::Open();
  if (!path) return;
  const SharedString oldName = GetValue(FileNameProperty).AsString();
  const SharedString newName = FileStem(*path);
  if (UsesUUID()) {
    const std::optional<std::string> id = ReadAssetId(*path);
    if (!id) return;
    fileUUID->SetValue(*id);
  }
  SetFileName(newName);
  ActionHistory::Instance().Push(
      std::make_unique<FieldFilePathActionCommand>(Toolkit::Ptr<FieldFilePath>(this), oldName, newName));
}

} // namespace Tesselor
