#pragma once

#include "fields/BaseField.h"
#include "toolkit/base/RoutedEvent.h"
#include "values/FieldTextData.h"

namespace Tesselor {

/// A text of one line, with buttons that make a UUID or a name for it. As a node's name it gives its text back to the
/// node when the focus leaves.
class FieldSmallText : public BaseField {
  TOOLKIT_TYPE(FieldSmallText)
public:
  static inline const Toolkit::DependencyProperty* WidthProperty = nullptr;
  static inline const Toolkit::DependencyProperty* IsUUIDVisibilityProperty = nullptr;
  static inline const Toolkit::DependencyProperty* GenerateNodeNameVisibilityProperty = nullptr;

  FieldSmallText();
  FieldTextData* GetFieldTextData() const { return fieldTextData.Get(); }

  void Serialize(cJSON* object, const std::string& key) override;
  void Deserialize(const cJSON* object, const std::string& key) override;
  void DeserializeOptions(const cJSON* options, bool applyDefaults) override;
  bool IsDefault() const override;
  std::string GetValueAsString() const override;

private:
  void InitializeComponent() override;
  bool HasSizeOfItsOptions() const override { return true; }
  /// Takes a text that a button made, as an undo step.
  void Replace(const Toolkit::SharedString& text);
  void GenerateUUIDEvent(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);
  void GenerateNodeNameEvent(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);
  void OnInputLostFocus(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);

  Toolkit::Ptr<FieldTextData> fieldTextData;
  Toolkit::SharedString defaultText;
};

} // namespace Tesselor
