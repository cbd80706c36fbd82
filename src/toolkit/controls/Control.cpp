#include "toolkit/controls/Control.h"

#include "toolkit/base/Diagnostics.h"
#include "toolkit/controls/TextElement.h"
#include "toolkit/markup/Template.h"
#include "toolkit/render/Brush.h"
#include "toolkit/render/Painter.h"
#include "toolkit/visual/NameScope.h"

#include <algorithm>

namespace Toolkit {

TOOLKIT_TYPE_IMPL(Control, FrameworkElement, "Control")
void Control::Describe(TypeBuilder<Control>& type) {
  using P = DependencyProperty;
  BackgroundProperty = type.Property<Brush*>("Background", nullptr, P::AffectsRender);
  BorderBrushProperty = type.Property<Brush*>("BorderBrush", nullptr, P::AffectsRender);
  BorderThicknessProperty = type.Property<Thickness>("BorderThickness", Thickness(), P::AffectsMeasure);
  CornerRadiusProperty = type.Property<CornerRadius>("CornerRadius", CornerRadius(), P::AffectsRender);
  PaddingProperty = type.Property<Thickness>("Padding", Thickness(), P::AffectsMeasure);
  HorizontalContentAlignmentProperty =
      type.Property<HorizontalAlignment>("HorizontalContentAlignment", HorizontalAlignment::Left, P::AffectsArrange);
  VerticalContentAlignmentProperty =
      type.Property<VerticalAlignment>("VerticalContentAlignment", VerticalAlignment::Top, P::AffectsArrange);
  TemplateProperty = type.Property<ControlTemplate*>("Template", nullptr, P::AffectsMeasure);
  IsTabStopProperty = type.Property<bool>("IsTabStop", true);
  TabIndexProperty = type.Property<int32_t>("TabIndex", INT32_MAX);
  FocusBrushProperty = type.Property<Brush*>("FocusBrush", nullptr, P::AffectsRender);
  TextElement::DeclareOn(type);
}

Control::~Control() {
  if (templateRoot) ReleaseVisualChild(templateRoot.Get());
}

void Control::ApplyTemplate() {
  if (!templateDue) return;
  templateDue = false;
  if (templateRoot) {
    RemoveVisualChild(templateRoot.Get());
    templateRoot.Reset();
  }
  const auto* controlTemplate = static_cast<const ControlTemplate*>(GetValue(TemplateProperty).AsObject());
  if (!controlTemplate) return;
  if (controlTemplate->targetType && !GetType().IsA(*controlTemplate->targetType)) {
    TOOLKIT_WARN("Markup",
                 "the template of " + controlTemplate->targetType->Name() + " is set on a " + GetType().Name());
    return;
  }
  controlTemplate->Instantiate(this, [this](FrameworkElement& root) {
    templateRoot = Ptr<UIElement>(&root);
    AddVisualChild(&root);
  });
  if (templateRoot) OnApplyTemplate();
}

Object* Control::GetTemplateChild(std::string_view name) const {
  const auto* root = DynamicCast<FrameworkElement>(templateRoot);
  const NameScope* scope = root ? root->GetNameScope() : nullptr;
  return scope ? scope->Find(Symbol(name)) : nullptr;
}

void Control::OnPropertyChanged(const PropertyChange& change) {
  FrameworkElement::OnPropertyChanged(change);
  if (&change.property == TemplateProperty) templateDue = true;
}

Thickness Control::Chrome() const {
  const Thickness border = Get<Thickness>(BorderThicknessProperty), padding = Get<Thickness>(PaddingProperty);
  return {border.left + padding.left, border.top + padding.top, border.right + padding.right,
          border.bottom + padding.bottom};
}

Size Control::MeasureOverride(Size available) {
  if (!templateRoot) return {};
  templateRoot->Measure(available);
  return templateRoot->DesiredSize();
}

Size Control::ArrangeOverride(Size finalSize) {
  if (templateRoot) templateRoot->Arrange({0, 0, finalSize.width, finalSize.height});
  return finalSize;
}

void Control::DrawChrome(Painter& painter, const Rect& box) const {
  painter.DrawRectangle(box, Get<CornerRadius>(CornerRadiusProperty), Get<Brush*>(BackgroundProperty),
                        Get<Brush*>(BorderBrushProperty), Get<Thickness>(BorderThicknessProperty));
}

void Control::DrawFocus(Painter& painter, const Rect& box, const CornerRadius& radii) const {
  constexpr float Ring = 2;
  if (!Get<bool>(IsFocusVisibleProperty)) return;
  painter.DrawRectangle(box, radii, nullptr, Get<Brush*>(FocusBrushProperty), {Ring, Ring, Ring, Ring});
}

void Control::OnRender(Painter& painter) {
  if (templateRoot) return;
  const Rect box{0, 0, ActualWidth(), ActualHeight()};
  DrawChrome(painter, box);
  DrawFocus(painter, box, Get<CornerRadius>(CornerRadiusProperty));
}

bool Control::HitTestSelf(Point point) const {
  return !GetValue(BackgroundProperty).IsNone() && Rect{0, 0, ActualWidth(), ActualHeight()}.Contains(point);
}

} // namespace Toolkit
