#include "fields/TextBoxSaveStateActionCommandBehavior.h"

#include "fields/FieldName.h"
#include "fields/TextBoxValueActionCommand.h"
#include "toolkit/controls/TextBox.h"
#include "values/ActionHistory.h"

namespace Tesselor {

using Toolkit::RoutedEventHandler;

TOOLKIT_TYPE_IMPL(TextBoxSaveStateActionCommandBehavior, Toolkit::Behavior,
                  "Tesselor.TextBoxSaveStateActionCommandBehavior")
void TextBoxSaveStateActionCommandBehavior::Describe(
    Toolkit::TypeBuilder<TextBoxSaveStateActionCommandBehavior>& type) {
  FieldTextDataProperty = type.Property<FieldTextData*>("FieldTextData", nullptr);
  KeepsUndoneProperty = type.Property<bool>("KeepsUndone", true);
  CaptionProperty = type.Property<Toolkit::SharedString>("Caption", "text");
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
  if (!carrier) return;
  ActionHistory& history = ActionHistory::Instance();
  const Toolkit::Ptr<FieldTextData> target(carrier);
  const Toolkit::SharedString text = carrier->GetText();
  const auto name = [this](std::string_view value) {
    return NameOfFieldOf(GetAssociatedObject(), GetString(CaptionProperty), value);
  };
  if (!(text == remembered))
    history.Push(std::make_unique<TextBoxValueActionCommand>(target, remembered, text, name(text)));
  Remember();
  if (!Get<bool>(KeepsUndoneProperty)) return;
  const auto* box = Toolkit::DynamicCast<Toolkit::TextBox>(GetAssociatedObject());
  const std::optional<std::string> undone = box ? box->UndoneText() : std::nullopt;
  if (undone && undone != text.View())
    history.PushUndone(
        std::make_unique<TextBoxValueActionCommand>(target, text, Toolkit::SharedString(*undone), name(*undone)));
}

} // namespace Tesselor
