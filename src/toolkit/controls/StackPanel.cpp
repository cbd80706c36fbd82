#include "toolkit/controls/StackPanel.h"

#include "toolkit/render/Painter.h"

#include <algorithm>

namespace Toolkit {

const EnumDescription& DescribeEnum(Orientation) {
  static const EnumDescription description{{{"Horizontal", 0}, {"Vertical", 1}}};
  return description;
}

TOOLKIT_TYPE_IMPL(StackPanel, Panel, "StackPanel")
void StackPanel::Describe(TypeBuilder<StackPanel>& type) {
  OrientationProperty =
      type.Property<Orientation>("Orientation", Orientation::Vertical, DependencyProperty::AffectsMeasure);
}

Size StackPanel::MeasureOverride(Size available) {
  const bool vertical = GetOrientation() == Orientation::Vertical;
  Size total;
  for (size_t i = 0; i < ChildCount(); ++i) {
    UIElement* child = Child(i);
    child->Measure(vertical ? Size{available.width, Infinity} : Size{Infinity, available.height});
    const Size wanted = child->DesiredSize();
    if (vertical) {
      total.width = std::max(total.width, wanted.width);
      total.height += wanted.height;
    } else {
      total.width += wanted.width;
      total.height = std::max(total.height, wanted.height);
    }
  }
  return total;
}

Size StackPanel::ArrangeOverride(Size finalSize) {
  const bool vertical = GetOrientation() == Orientation::Vertical;
  float position = 0;
  for (size_t i = 0; i < ChildCount(); ++i) {
    UIElement* child = Child(i);
    const Size wanted = child->DesiredSize();
    if (vertical) {
      child->Arrange({0, position, std::max(finalSize.width, wanted.width), wanted.height});
      position += wanted.height;
    } else {
      child->Arrange({position, 0, wanted.width, std::max(finalSize.height, wanted.height)});
      position += wanted.width;
    }
  }
  return finalSize;
}

void StackPanel::RenderChildren(Painter& painter) {
  // Long lists are mostly out of sight. Shadows reach a little beyond their elements.
  constexpr float Reach = 32;
  Rect visible = painter.VisibleArea();
  visible = {visible.x - Reach, visible.y - Reach, visible.width + 2 * Reach, visible.height + 2 * Reach};
  for (UIElement* child : ZOrderedChildren())
    if (visible.Intersects(child->TransformToParent().MapBounds(child->DrawnBounds()))) child->Render(painter);
}

} // namespace Toolkit
