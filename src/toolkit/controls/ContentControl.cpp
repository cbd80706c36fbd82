#include "toolkit/controls/ContentControl.h"

#include "toolkit/controls/ContentPresenter.h"
#include "toolkit/controls/TextBlock.h"
#include "toolkit/controls/UserControl.h"
#include "toolkit/markup/Template.h"

#include <algorithm>

namespace Toolkit {

TOOLKIT_TYPE_IMPL(ContentControl, Control, "ContentControl")
void ContentControl::Describe(TypeBuilder<ContentControl>& type) {
  using P = DependencyProperty;
  ContentProperty = type.Property<Value>("Content", Value(), P::AffectsMeasure);
  ContentTemplateProperty = type.Property<DataTemplate*>("ContentTemplate", nullptr, P::AffectsMeasure);
  type.Content("Content");
}

TOOLKIT_TYPE_IMPL(UserControl, ContentControl, "UserControl")
void UserControl::Describe(TypeBuilder<UserControl>&) {}

ContentControl::~ContentControl() {
  if (!contentElement || contentElement->VisualParent() != this) return;
  ReleaseVisualChild(contentElement.Get(), GetContent().AsObject() == contentElement.Get() ? 2 : 1);
}

void ContentControl::ReleaseContent() {
  if (!contentElement) return;
  if (contentElement->VisualParent() == this) RemoveVisualChild(contentElement.Get());
  if (auto* element = DynamicCast<FrameworkElement>(contentElement)) element->SetLogicalParent(nullptr);
  contentElement.Reset();
}

void ContentControl::OnPropertyChanged(const PropertyChange& change) {
  Control::OnPropertyChanged(change);
  if (&change.property == ContentProperty || &change.property == ContentTemplateProperty) {
    // An element joins the tree at once, so that names, inheritance and events reach it before the first layout.
    ReleaseContent();
    contentDue = true;
    if (auto* element = DynamicCast<FrameworkElement>(GetContent().AsObject())) {
      if (!GetValue(TemplateProperty).IsNone()) {
        element->SetLogicalParent(this);
      } else if (!element->VisualParent()) {
        contentElement = Ptr<UIElement>(element);
        contentDue = false;
        AddVisualChild(element);
      }
    }
  }
}

void ContentControl::PrepareForMeasure() {
  Control::PrepareForMeasure();
  if (!contentDue || TemplateRoot()) return;
  contentDue = false;
  ReleaseContent();
  ContentPresenter::MakeElement(GetContent(), GetValue(ContentTemplateProperty).AsObject(), this,
                                [this](UIElement& made) {
                                  contentElement = Ptr<UIElement>(&made);
                                  AddVisualChild(&made);
                                });
}

size_t ContentControl::VisualChildCount() const { return TemplateRoot() || contentElement ? 1 : 0; }

UIElement* ContentControl::VisualChild(size_t) const { return TemplateRoot() ? TemplateRoot() : contentElement.Get(); }

Size ContentControl::MeasureOverride(Size available) {
  if (TemplateRoot()) return Control::MeasureOverride(available);
  const Thickness chrome = Chrome();
  if (!contentElement) return {chrome.Horizontal(), chrome.Vertical()};
  contentElement->Measure(
      {std::max(0.0f, available.width - chrome.Horizontal()), std::max(0.0f, available.height - chrome.Vertical())});
  return {contentElement->DesiredSize().width + chrome.Horizontal(),
          contentElement->DesiredSize().height + chrome.Vertical()};
}

Rect AlignedContent(const Control& control, const Rect& slot, Size wanted) {
  Rect rect = slot;
  const auto horizontal = control.Get<HorizontalAlignment>(Control::HorizontalContentAlignmentProperty);
  const auto vertical = control.Get<VerticalAlignment>(Control::VerticalContentAlignmentProperty);
  if (horizontal != HorizontalAlignment::Stretch) {
    rect.width = std::min(wanted.width, slot.width);
    if (horizontal == HorizontalAlignment::Center) rect.x += (slot.width - rect.width) * 0.5f;
    if (horizontal == HorizontalAlignment::Right) rect.x += slot.width - rect.width;
  }
  if (vertical != VerticalAlignment::Stretch) {
    rect.height = std::min(wanted.height, slot.height);
    if (vertical == VerticalAlignment::Center) rect.y += (slot.height - rect.height) * 0.5f;
    if (vertical == VerticalAlignment::Bottom) rect.y += slot.height - rect.height;
  }
  return rect;
}

Size ContentControl::ArrangeOverride(Size finalSize) {
  if (TemplateRoot()) return Control::ArrangeOverride(finalSize);
  if (contentElement) {
    const Thickness chrome = Chrome();
    const Rect slot{chrome.left, chrome.top, std::max(0.0f, finalSize.width - chrome.Horizontal()),
                    std::max(0.0f, finalSize.height - chrome.Vertical())};
    contentElement->Arrange(AlignedContent(*this, slot, contentElement->DesiredSize()));
  }
  return finalSize;
}

} // namespace Toolkit
