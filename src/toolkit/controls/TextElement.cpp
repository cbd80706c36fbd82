#include "toolkit/controls/TextElement.h"

#include "toolkit/render/Brush.h"

namespace Toolkit {

const EnumDescription& DescribeEnum(FontWeight) {
  static const EnumDescription description{{{"Normal", 400}, {"SemiBold", 600}, {"Bold", 700}}};
  return description;
}
const EnumDescription& DescribeEnum(FontStyle) {
  static const EnumDescription description{{{"Normal", 0}, {"Italic", 1}}};
  return description;
}
const EnumDescription& DescribeEnum(TextWrapping) {
  static const EnumDescription description{{{"NoWrap", 0}, {"Wrap", 1}}};
  return description;
}
const EnumDescription& DescribeEnum(TextTrimming) {
  static const EnumDescription description{{{"None", 0}, {"CharacterEllipsis", 1}}};
  return description;
}
const EnumDescription& DescribeEnum(TextAlignment) {
  static const EnumDescription description{{{"Left", 0}, {"Center", 1}, {"Right", 2}}};
  return description;
}

TOOLKIT_TYPE_IMPL(TextElement, DependencyObject, "TextElement")
void TextElement::Describe(TypeBuilder<TextElement>& type) {
  using P = DependencyProperty;
  FontFamilyProperty = type.Property<SharedString>("FontFamily", SharedString(), P::Inherits | P::AffectsMeasure);
  FontSizeProperty = type.Property<float>("FontSize", 12.0f, P::Inherits | P::AffectsMeasure);
  FontWeightProperty = type.Property<FontWeight>("FontWeight", FontWeight::Normal, P::Inherits | P::AffectsMeasure);
  FontStyleProperty = type.Property<FontStyle>("FontStyle", FontStyle::Normal, P::Inherits | P::AffectsMeasure);
  ForegroundProperty = type.Property<Brush*>("Foreground", nullptr, P::Inherits | P::AffectsRender);
}

TextStyle TextElement::StyleOf(const DependencyObject& object) {
  TextStyle style;
  style.size = object.Get<float>(FontSizeProperty);
  style.weight = object.Get<FontWeight>(FontWeightProperty);
  style.style = object.Get<FontStyle>(FontStyleProperty);
  const std::string_view family = object.GetString(FontFamilyProperty);
  if (!family.empty()) style.family = FontCollection::Instance().FindFamily(family);
  return style;
}

} // namespace Toolkit
