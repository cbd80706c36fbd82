#pragma once

#include "fields/BaseField.h"
#include "values/FieldTextData.h"

namespace Tesselor {

/// A text that decides itself, at each save, whether it is a truth value, a number or a string. The type that the
/// value had in the file is not remembered.
class FieldMixed : public BaseField {
  TOOLKIT_TYPE(FieldMixed)
public:
  static inline const Toolkit::DependencyProperty* WidthProperty = nullptr;

  FieldMixed();
  FieldTextData* GetFieldTextData() const { return fieldTextData.Get(); }

  void Serialize(cJSON* object, const std::string& key) override;
  void Deserialize(const cJSON* object, const std::string& key) override;
  void DeserializeOptions(const cJSON* options, bool applyDefaults) override;
  std::string GetValueAsString() const override;

private:
  void InitializeComponent() override;
  bool HasSizeOfItsOptions() const override { return true; }

  Toolkit::Ptr<FieldTextData> fieldTextData;
};

} // namespace Tesselor
