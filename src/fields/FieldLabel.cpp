#include "fields/FieldLabel.h"

#include "fields/FieldOptions.h"

namespace Tesselor {

TOOLKIT_TYPE_IMPL(FieldLabel, BaseField, "Tesselor.FieldLabel")
void FieldLabel::Describe(Toolkit::TypeBuilder<FieldLabel>& type) {
  FontSizeProperty = type.Property<double>("FontSize", 16.0);
}

FieldLabel::FieldLabel() {}

void FieldLabel::InitializeComponent() {
  BindToSelf();
  LoadDocument("FieldLabel.xaml");
}

void FieldLabel::DeserializeOptions(const cJSON* options, bool) {
  if (!options) return;
  const FieldOptions own(options);
  SetValue(LabelProperty, own.SharedText(FieldOption::Text).value_or("Label"));
  if (const auto size = own.Number(FieldOption::FontSize)) SetValue(FontSizeProperty, *size);
}

} // namespace Tesselor
