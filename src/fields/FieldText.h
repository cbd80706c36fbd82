#pragma once

#include "fields/BaseField.h"
#include "toolkit/base/RoutedEvent.h"
#include "values/FieldTextData.h"

namespace Tesselor {

/// A text of several lines. It has no comparable default, so it is always written.
class FieldText : public BaseField {
  TOOLKIT_TYPE(FieldText)
public:
  static inline const Toolkit::DependencyProperty* WidthProperty = nullptr;
  static inline const Toolkit::DependencyProperty* HeightProperty = nullptr;

  FieldText();
  FieldTextData* GetFieldTextData() const { return fieldTextData.Get(); }

  void Serialize(cJSON* object, const std::string& key) override;
  void Deserialize(const cJSON* object, const std::string& key) override;
  void DeserializeOptions(const cJSON* options, bool applyDefaults) override;
  std::string GetValueAsString() const override;

private:
  void InitializeComponent() override;
  bool HasSizeOfItsOptions() const override { return true; }
  void OnInputLostFocus(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args) {}

  Toolkit::Ptr<FieldTextData> fieldTextData;
};

} // namespace Tesselor
