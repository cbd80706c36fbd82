#pragma once

#include "fields/BaseField.h"

namespace Tesselor {

/// A line of text between the fields. It holds no value: nothing is read from an asset and nothing written.
class FieldLabel : public BaseField {
  TOOLKIT_TYPE(FieldLabel)
public:
  static inline const Toolkit::DependencyProperty* FontSizeProperty = nullptr;

  FieldLabel();

  void Serialize(cJSON* object, const std::string& key) override {}
  void Deserialize(const cJSON* object, const std::string& key) override {}
  /// The options common to all fields have no meaning here; the caption is an option of its own.
  void DeserializeOptions(const cJSON* options, bool applyDefaults) override;

private:
  void InitializeComponent() override;
  bool HasSizeOfItsOptions() const override { return true; }
};

} // namespace Tesselor
