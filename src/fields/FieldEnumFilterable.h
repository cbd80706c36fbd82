#pragma once

#include "fields/FieldEnum.h"

namespace Tesselor {

/// An enum with a search box that narrows the list. The selected option always stays in it, in the first place.
class FieldEnumFilterable : public FieldEnum {
  TOOLKIT_TYPE(FieldEnumFilterable)
public:
  static inline const Toolkit::DependencyProperty* SearchTextProperty = nullptr;

  FieldEnumFilterable();

  void DeserializeOptions(const cJSON* options, bool applyDefaults) override;

private:
  void InitializeComponent() override;
  void Filter(std::string_view searchText);

  /// Every option, in the schema's order.
  Toolkit::Ptr<Options> allOptions;
};

} // namespace Tesselor
