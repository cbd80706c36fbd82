#pragma once

#include "fields/BaseField.h"
#include "fields/EnumItemData.h"
#include "toolkit/base/ObservableCollection.h"

#include <string_view>

namespace Toolkit {
class ComboBox;
}

namespace Tesselor {

/// One string out of a list that the schema gives.
class FieldEnum : public BaseField {
  TOOLKIT_TYPE(FieldEnum)
public:
  using Options = Toolkit::ObservableCollection<EnumItemData>;
  static inline const Toolkit::DependencyProperty* WidthProperty = nullptr;

  FieldEnum();
  /// What the combo box offers, in its order.
  Options* GetEnumOptions() const { return enumOptions.Get(); }

  /// Writes nothing without a selection.
  void Serialize(cJSON* object, const std::string& key) override;
  void Deserialize(const cJSON* object, const std::string& key) override;
  void DeserializeOptions(const cJSON* options, bool applyDefaults) override;
  bool IsDefault() const override;
  std::string GetValueAsString() const override;

protected:
  /// Loads the class's document, whose combo box is named "FieldComboBox".
  void LoadEnumDocument(std::string_view name);

  /// Selects the first option of that text, or else the first option at all, with a box. Without any option there is
  /// a box and a log line, and no selection.
  void SetSelectedEnum(std::string_view value);
  /// Null without a selection.
  EnumItemData* SelectedOption() const { return selectedOption.Get(); }

  Toolkit::Ptr<Options> enumOptions;
  Toolkit::Ptr<Toolkit::ComboBox> comboBox;

private:
  friend class FieldEnumActionCommand;
  void InitializeComponent() override;
  bool HasSizeOfItsOptions() const override { return true; }
  void ShowValueOf(BaseField& field) override;
  void ShowSelectionOf(const FieldEnum& field);
  void Select(EnumItemData* option);
  /// By the user: an undo step. A list that is being filtered has nothing selected for a moment, which counts for
  /// nothing.
  void Choose(EnumItemData* option);
  Toolkit::Object* ReflectedSelection() const { return selectedOption.Get(); }
  void ReflectedChoice(Toolkit::Object* option) { Choose(Toolkit::DynamicCast<EnumItemData>(option)); }
  Toolkit::ObservableCollectionBase* ReflectedOptions() const { return enumOptions.Get(); }

  Toolkit::Ptr<EnumItemData> selectedOption;
  Toolkit::SharedString defaultText;
};

} // namespace Tesselor
