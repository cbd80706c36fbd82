#pragma once

#include "fields/BaseField.h"
#include "values/FieldIntData.h"

namespace Tesselor {

/// A whole number chosen on a slider, whose bounds are the slider's own. It has no comparable default.
class FieldIntSlider : public BaseField {
  TOOLKIT_TYPE(FieldIntSlider)
public:
  static inline const Toolkit::DependencyProperty* MaximumProperty = nullptr;
  static inline const Toolkit::DependencyProperty* MinimumProperty = nullptr;
  static inline const Toolkit::DependencyProperty* WidthProperty = nullptr;
  static inline const Toolkit::DependencyProperty* TickFrequencyProperty = nullptr;
  static inline const Toolkit::DependencyProperty* LargeChangeProperty = nullptr;

  FieldIntSlider();
  FieldIntData* GetFieldIntData() const { return fieldIntData.Get(); }

  void Serialize(cJSON* object, const std::string& key) override;
  void Deserialize(const cJSON* object, const std::string& key) override;
  void DeserializeOptions(const cJSON* options, bool applyDefaults) override;
  std::string GetValueAsString() const override;

private:
  void InitializeComponent() override;

  Toolkit::Ptr<FieldIntData> fieldIntData;
};

} // namespace Tesselor
