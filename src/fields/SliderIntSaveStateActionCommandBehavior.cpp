#include "fields/SliderIntSaveStateActionCommandBehavior.h"

#include "fields/FieldName.h"
#include "fields/SliderIntValueActionCommand.h"
#include "toolkit/controls/Slider.h"
#include "values/ActionHistory.h"

namespace Tesselor {

using Toolkit::RoutedEventHandler;

TOOLKIT_TYPE_IMPL(SliderIntSaveStateActionCommandBehavior, Toolkit::Behavior,
                  "Tesselor.SliderIntSaveStateActionCommandBehavior")
void SliderIntSaveStateActionCommandBehavior::Describe(
    Toolkit::TypeBuilder<SliderIntSaveStateActionCommandBehavior>& type) {
  FieldIntDataProperty = type.Property<FieldIntData*>("FieldIntData", nullptr);
}

void SliderIntSaveStateActionCommandBehavior::OnAttached() {
  BehaviorT::OnAttached();
  if (auto* slider = Toolkit::DynamicCast<Toolkit::Slider>(GetAssociatedObject())) {
    slider->AddHandler(Toolkit::UIElement::LostFocusEvent,
                       RoutedEventHandler::From<&SliderIntSaveStateActionCommandBehavior::OnLostFocus>(this));
    slider->AddHandler(Toolkit::UIElement::GotFocusEvent,
                       RoutedEventHandler::From<&SliderIntSaveStateActionCommandBehavior::OnGotFocus>(this));
  }
  Remember();
}

void SliderIntSaveStateActionCommandBehavior::OnDetaching() {
  BehaviorT::OnDetaching();
  if (auto* slider = Toolkit::DynamicCast<Toolkit::Slider>(GetAssociatedObject())) {
    slider->RemoveHandler(Toolkit::UIElement::LostFocusEvent,
                          RoutedEventHandler::From<&SliderIntSaveStateActionCommandBehavior::OnLostFocus>(this));
    slider->RemoveHandler(Toolkit::UIElement::GotFocusEvent,
                          RoutedEventHandler::From<&SliderIntSaveStateActionCommandBehavior::OnGotFocus>(this));
  }
}

void SliderIntSaveStateActionCommandBehavior::Remember() {
  if (const FieldIntData* carrier = Carrier()) remembered = carrier->GetValue();
}

void SliderIntSaveStateActionCommandBehavior::OnGotFocus(Toolkit::Object*, const Toolkit::RoutedEventArgs&) {
  Remember();
}

void SliderIntSaveStateActionCommandBehavior::OnLostFocus(Toolkit::Object*, const Toolkit::RoutedEventArgs&) {
  FieldIntData* carrier = Carrier();
  if (!carrier || carrier->GetValue() == remembered) return;
  ActionHistory::Instance().Push(std::make_unique<SliderIntValueActionCommand>(
      Toolkit::Ptr<FieldIntData>(carrier), remembered, carrier->GetValue(),
      NameOfFieldOf(GetAssociatedObject(), "number")));
  Remember();
}

} // namespace Tesselor
