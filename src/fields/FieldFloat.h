#pragma once

#include "fields/BaseField.h"
#include "toolkit/base/RoutedEvent.h"
#include "values/FieldTextData.h"

#include <limits>

namespace Toolkit {
class TextBox;
}

namespace Tesselor {

/// A number, edited as text with up to six decimals: what a file has beyond them is rounded away by loading it.
class FieldFloat : public BaseField {
  TOOLKIT_TYPE(FieldFloat)
public:
  static inline const Toolkit::DependencyProperty* WidthProperty = nullptr;

  FieldFloat();
  FieldTextData* GetFieldTextData() const { return fieldTextData.Get(); }

  /// A text that is no number is written as 0, with a box.
  void Serialize(cJSON* object, const std::string& key) override;
  void Deserialize(const cJSON* object, const std::string& key) override;
  void DeserializeOptions(const cJSON* options, bool applyDefaults) override;
  void DeserializeValue(const cJSON* item) override;
  bool IsDefault() const override;
  std::string GetValueAsString() const override;

private:
  void InitializeComponent() override;
  void OnTextChanged(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);

  Toolkit::Ptr<FieldTextData> fieldTextData;
  Toolkit::Ptr<Toolkit::TextBox> inputText;
  double minValue = std::numeric_limits<double>::lowest();
  double maxValue = std::numeric_limits<double>::max();
  double defaultValue = 0;
};

} // namespace Tesselor
