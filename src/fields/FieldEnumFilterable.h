#pragma once

#include "fields/FieldEnum.h"
#include "toolkit/visual/InputEvents.h"

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
  void OnSearchTyped(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);
  void OnSearchKeyDown(Toolkit::Object* sender, const Toolkit::KeyEventArgs& args);

  /// Every option, in the schema's order.
  Toolkit::Ptr<Options> allOptions;
  /// The control, this one or a second one, whose list opens when the pause in typing is over.
  Toolkit::WeakPtr<FieldEnumFilterable> typedInto;
};

} // namespace Tesselor
