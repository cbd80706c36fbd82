#pragma once

#include "fields/BaseField.h"
#include "values/FieldCheckboxData.h"

namespace Tesselor {

/// True or false.
class FieldCheckbox : public BaseField {
  TOOLKIT_TYPE(FieldCheckbox)
public:
  FieldCheckbox();
  FieldCheckboxData* GetFieldCheckboxData() const { return fieldCheckboxData.Get(); }

  void Serialize(cJSON* object, const std::string& key) override;
  void Deserialize(const cJSON* object, const std::string& key) override;
  void DeserializeOptions(const cJSON* options, bool applyDefaults) override;
  bool IsDefault() const override;
  std::string GetValueAsString() const override;

private:
  void InitializeComponent() override;
  bool HasSizeOfItsOptions() const override { return true; }

  Toolkit::Ptr<FieldCheckboxData> fieldCheckboxData;
  bool defaultValue = false;
};

} // namespace Tesselor
