#pragma once

#include "fields/BaseField.h"
#include "toolkit/base/RoutedEvent.h"
#include "values/FieldTextData.h"

#include <string_view>

namespace Tesselor {

/// Refers to another file, by its name without folder and extension, or by the `Id` in it with the name beside. Which
/// of the two is fixed by the schema; the path itself is not kept.
class FieldFilePath : public BaseField {
  TOOLKIT_TYPE(FieldFilePath)
public:
  static inline const Toolkit::DependencyProperty* FileNameProperty = nullptr;
  static inline const Toolkit::DependencyProperty* WidthProperty = nullptr;
  static inline const Toolkit::DependencyProperty* UUIDVisibilityProperty = nullptr;

  FieldFilePath();
  FieldTextData* GetFileUUID() const { return fileUUID.Get(); }
  std::string_view GetFileName() const { return GetString(FileNameProperty); }
  void SetFileName(const Toolkit::SharedString& name) { SetValue(FileNameProperty, name); }

  void Serialize(cJSON* object, const std::string& key) override;
  void Deserialize(const cJSON* object, const std::string& key) override;
  void DeserializeOptions(const cJSON* options, bool applyDefaults) override;
  std::string GetValueAsString() const override;

private:
  void InitializeComponent() override;
  void SelectFile(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);
  /// Lets the user choose a file.
  void ChooseFile();
  bool UsesUUID() const;
  void FieldNameMouseDown(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args) {}

  Toolkit::Ptr<FieldTextData> fileUUID;
};

} // namespace Tesselor
