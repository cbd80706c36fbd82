#include "toolkit/controls/CheckBox.h"

#include "toolkit/controls/TextElement.h"
#include "toolkit/render/Brush.h"
#include "toolkit/render/Painter.h"

#include <algorithm>
#include <cmath>

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

void CheckBox::OnRender(Painter& painter) {
  const float top = std::round((ActualHeight() - BoxSize) * 0.5f);
  DrawChrome(painter, {0, top, BoxSize, BoxSize});
  DrawFocus(painter, {0, top, BoxSize, BoxSize}, Get<CornerRadius>(CornerRadiusProperty));
  if (!IsChecked()) return;
  PathOutline mark;
  mark.MoveTo({3.5f, top + 8.5f});
  mark.LineTo({6.5f, top + 11.5f});
  mark.LineTo({12.5f, top + 4.5f});
  painter.DrawPath(std::move(mark), nullptr, Get<Brush*>(TextElement::ForegroundProperty), 2);
}

} // namespace Toolkit
