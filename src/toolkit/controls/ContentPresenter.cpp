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

void ContentPresenter::MakeElement(const Value& content, Object* dataTemplate, FrameworkElement* owner,
                                   const std::function<void(UIElement&)>& join) {
  if (dataTemplate) {
    static_cast<DataTemplate*>(dataTemplate)->Instantiate(owner, [&](FrameworkElement& root) {
      if (!content.IsNone()) root.SetValue(FrameworkElement::DataContextProperty, content);
      join(root);
    });
  } else if (auto* element = DynamicCast<UIElement>(content.AsObject())) {
    if (!element->VisualParent()) join(*element);
  } else if (!content.IsNone() && content.Kind() != ValueKind::Object) {
    const auto text = MakePtr<TextBlock>();
    text->SetValue(TextBlock::TextProperty, Value(ValueConversion::ToText(content)));
    join(*text);
  }
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
  MakeElement(content, dataTemplate, this, [this](UIElement& made) {
    element = Ptr<UIElement>(&made);
    AddVisualChild(&made);
  });
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
