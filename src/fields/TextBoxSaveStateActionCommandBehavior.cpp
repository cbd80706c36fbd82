#include "fields/TextBoxSaveStateActionCommandBehavior.h"

#include "fields/TextBoxValueActionCommand.h"
#include "values/ActionHistory.h"

namespace Tesselor {

using Toolkit::RoutedEventHandler;

TOOLKIT_TYPE_IMPL(TextBoxSaveStateActionCommandBehavior, Toolkit::Behavior,
                  "Tesselor.TextBoxSaveStateActionCommandBehavior")
void TextBoxSaveStateActionCommandBehavior::Describe(
    Toolkit::TypeBuilder<TextBoxSaveStateActionCommandBehavior>& type) {
  FieldTextDataProperty = type.Property<FieldTextData*>("FieldTextData", nullptr);
}

void TextBoxSaveStateActionCommandBehavior::OnAttached() {
  BehaviorT::OnAttached();
  if (Toolkit::FrameworkElement* element = GetAssociatedObject()) {
    element->AddHandler(Toolkit::UIElement::LostFocusEvent,
                        RoutedEventHandler::From<&TextBoxSaveStateActionCommandBehavior::OnLostFocus>(this));
    element->AddHandler(Toolkit::UIElement::GotFocusEvent,
                        RoutedEventHandler::From<&TextBoxSaveStateActionCommandBehavior::OnGotFocus>(this));
  }
  Remember();
}

void TextBoxSaveStateActionCommandBehavior::OnDetaching() {
  BehaviorT::OnDetaching();
  if (Toolkit::FrameworkElement* element = GetAssociatedObject()) {
    element->RemoveHandler(Toolkit::UIElement::LostFocusEvent,
                           RoutedEventHandler::From<&TextBoxSaveStateActionCommandBehavior::OnLostFocus>(this));
    element->RemoveHandler(Toolkit::UIElement::GotFocusEvent,
                           RoutedEventHandler::From<&TextBoxSaveStateActionCommandBehavior::OnGotFocus>(this));
  }
}

void TextBoxSaveStateActionCommandBehavior::Remember() {
  if (const FieldTextData* carrier = Carrier()) remembered = carrier->GetText();
}

void TextBoxSaveStateActionCommandBehavior::OnGotFocus(Toolkit::Object*, const Toolkit::RoutedEventArgs&) {
  Remember();
}

void TextBoxSaveStateActionCommandBehavior::OnLostFocus(Toolkit::Object*, const Toolkit::RoutedEventArgs&) {
  FieldTextData* carrier = Carrier();
  if (!carrier || carrier->GetText() == remembered) return;
  ActionHistory::Instance().Push(std::make_unique<TextBoxValueActionCommand>(Toolkit::Ptr<FieldTextData>(carrier),
                                                                             remembered, carrier->GetText()));
  Remember();
}

} // namespace Tesselor
