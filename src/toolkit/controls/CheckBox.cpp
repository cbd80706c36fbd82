#include "toolkit/controls/CheckBox.h"

#include <algorithm>

namespace Toolkit {

namespace {
constexpr float BoxSize = 16;
constexpr float BoxGap = 6;
} // namespace

TOOLKIT_TYPE_IMPL(CheckBox, ButtonBase, "CheckBox")
void CheckBox::Describe(TypeBuilder<CheckBox>& type) {
  using P = DependencyProperty;
  IsCheckedProperty = type.Property<bool>("IsChecked", false, P::BindsTwoWay | P::AffectsRender);
}

void CheckBox::OnClick() {
  SetIsChecked(!IsChecked());
  ButtonBase::OnClick();
}

Size CheckBox::MeasureOverride(Size available) {
  Size content;
  if (UIElement* element = ContentElement()) {
    element->Measure({std::max(0.0f, available.width - BoxSize - BoxGap), available.height});
    content = element->DesiredSize();
    content.width += BoxGap;
  }
  return {BoxSize + content.width, std::max(BoxSize, content.height)};
}

Size CheckBox::ArrangeOverride(Size finalSize) {
  if (UIElement* element = ContentElement()) {
    const float height = std::min(finalSize.height, element->DesiredSize().height);
    element->Arrange({BoxSize + BoxGap, (finalSize.height - height) * 0.5f,
                      std::max(0.0f, finalSize.width - BoxSize - BoxGap), height});
  }
  return finalSize;
}

} // namespace Toolkit
