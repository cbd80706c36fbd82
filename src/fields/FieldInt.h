#pragma once

#include "fields/BaseField.h"
#include "toolkit/base/RoutedEvent.h"
#include "values/FieldTextData.h"

#include <limits>

namespace Toolkit {
class TextBox;
}

namespace Tesselor {

/// A whole number, edited as text. The text may be half a number while it is typed; only writing makes a number of it.
class FieldInt : public BaseField {
  TOOLKIT_TYPE(FieldInt)
public:
  static inline const Toolkit::DependencyProperty* WidthProperty = nullptr;

  FieldInt();
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
  int32_t minValue = std::numeric_limits<int32_t>::min();
  int32_t maxValue = std::numeric_limits<int32_t>::max();
  int32_t defaultValue = 0;
};

} // namespace Tesselor
