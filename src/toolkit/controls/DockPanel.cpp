#include "toolkit/controls/DockPanel.h"

#include <algorithm>

namespace Toolkit {

const EnumDescription& DescribeEnum(Dock) {
  static const EnumDescription description{{{"Left", 0}, {"Top", 1}, {"Right", 2}, {"Bottom", 3}}};
  return description;
}

TOOLKIT_TYPE_IMPL(DockPanel, Panel, "DockPanel")
void DockPanel::Describe(TypeBuilder<DockPanel>& type) {
  DockProperty = type.Property<Dock>("Dock", Dock::Left, DependencyProperty::AffectsParentMeasure);
  LastChildFillProperty = type.Property<bool>("LastChildFill", true, DependencyProperty::AffectsArrange);
}

Size DockPanel::MeasureOverride(Size available) {
  // What the docked children have used so far, and the greatest extent that any of them wants.
  Size used, total;
  for (size_t i = 0; i < ChildCount(); ++i) {
    UIElement* child = Child(i);
    child->Measure({std::max(0.0f, available.width - used.width), std::max(0.0f, available.height - used.height)});
    const Size wanted = child->DesiredSize();
    const Dock dock = child->Get<Dock>(DockProperty);
    if (dock == Dock::Left || dock == Dock::Right) {
      total.height = std::max(total.height, used.height + wanted.height);
      used.width += wanted.width;
    } else {
      total.width = std::max(total.width, used.width + wanted.width);
      used.height += wanted.height;
    }
  }
  return {std::max(total.width, used.width), std::max(total.height, used.height)};
}

Size DockPanel::ArrangeOverride(Size finalSize) {
  Rect rest{0, 0, finalSize.width, finalSize.height};
  const bool fill = Get<bool>(LastChildFillProperty);
  for (size_t i = 0; i < ChildCount(); ++i) {
    UIElement* child = Child(i);
    if (fill && i + 1 == ChildCount()) {
      child->Arrange(rest);
      break;
    }
    const Size wanted = child->DesiredSize();
    const float width = std::min(wanted.width, rest.width), height = std::min(wanted.height, rest.height);
    switch (child->Get<Dock>(DockProperty)) {
    case Dock::Left:
      child->Arrange({rest.x, rest.y, width, rest.height});
      rest.x += width;
      rest.width -= width;
      break;
    case Dock::Right:
      child->Arrange({rest.Right() - width, rest.y, width, rest.height});
      rest.width -= width;
      break;
    case Dock::Top:
      child->Arrange({rest.x, rest.y, rest.width, height});
      rest.y += height;
      rest.height -= height;
      break;
    case Dock::Bottom:
      child->Arrange({rest.x, rest.Bottom() - height, rest.width, height});
      rest.height -= height;
      break;
    }
  }
  return finalSize;
}

} // namespace Toolkit
