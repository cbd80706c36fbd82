#include "toolkit/controls/ContentPresenter.h"

#include "toolkit/controls/Control.h"
#include "toolkit/controls/TextBlock.h"
#include "toolkit/markup/Template.h"
#include "toolkit/markup/ValueConversion.h"

namespace Toolkit {

TOOLKIT_TYPE_IMPL(ContentPresenter, FrameworkElement, "ContentPresenter")
void ContentPresenter::Describe(TypeBuilder<ContentPresenter>& type) {
  using P = DependencyProperty;
  ContentProperty = type.Property<Value>("Content", Value(), P::AffectsMeasure);
  ContentTemplateProperty = type.Property<DataTemplate*>("ContentTemplate", nullptr, P::AffectsMeasure);
  ContentSourceProperty = type.Property<SharedString>("ContentSource", "Content");
}

ContentPresenter::~ContentPresenter() {
  if (element && element->VisualParent() == this) ReleaseVisualChild(element.Get());
}

Ptr<UIElement> ContentPresenter::MakeElement(const Value& content, Object* dataTemplate, FrameworkElement* owner) {
  if (dataTemplate) {
    Ptr<FrameworkElement> made = static_cast<DataTemplate*>(dataTemplate)->Instantiate(owner);
    if (made && !content.IsNone()) made->SetValue(FrameworkElement::DataContextProperty, content);
    return made;
  }
  if (auto* element = DynamicCast<UIElement>(content.AsObject())) return Ptr<UIElement>(element);
  if (content.IsNone() || content.Kind() == ValueKind::Object) return nullptr;
  auto text = MakePtr<TextBlock>();
  text->SetValue(TextBlock::TextProperty, Value(ValueConversion::ToText(content)));
  return text;
}

void ContentPresenter::OnPropertyChanged(const PropertyChange& change) {
  FrameworkElement::OnPropertyChanged(change);
  if (&change.property == ContentProperty || &change.property == ContentTemplateProperty) due = true;
}

void ContentPresenter::PrepareForMeasure() {
  if (!due) return;
  due = false;
  Value content = GetValue(ContentProperty);
  Object* dataTemplate = GetValue(ContentTemplateProperty).AsObject();
  if (FrameworkElement* owner = TemplatedParent(); owner && !HasOwnValue(ContentProperty)) {
    const Symbol source(GetString(ContentSourceProperty));
    if (const DependencyProperty* property = owner->GetType().FindProperty(source)) content = owner->GetValue(property);
    if (const DependencyProperty* property = owner->GetType().FindProperty(Symbol(source.Text() + "Template")))
      if (!dataTemplate) dataTemplate = owner->GetValue(property).AsObject();
  }
  if (element) {
    RemoveVisualChild(element.Get());
    element.Reset();
  }
  element = MakeElement(content, dataTemplate, this);
  if (element && !element->VisualParent())
    AddVisualChild(element.Get());
  else
    element.Reset();
}

Size ContentPresenter::MeasureOverride(Size available) {
  if (!element) return {};
  element->Measure(available);
  return element->DesiredSize();
}

Size ContentPresenter::ArrangeOverride(Size finalSize) {
  if (element) element->Arrange({0, 0, finalSize.width, finalSize.height});
  return finalSize;
}

} // namespace Toolkit
