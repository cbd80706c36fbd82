#include "toolkit/application/MessageBoxView.h"

#include "toolkit/controls/ButtonBase.h"
#include "toolkit/visual/Input.h"

namespace Toolkit {

TOOLKIT_TYPE_IMPL(MessageBoxView, Control, "MessageBoxView")
void MessageBoxView::Describe(TypeBuilder<MessageBoxView>& type) {
  CaptionProperty = type.Property<SharedString>("Caption");
  TextProperty = type.Property<SharedString>("Text");
}

MessageBoxView::MessageBoxView(const MessageBox::Request& request, std::function<void(MessageBoxResult)> answered)
    : buttons(request.buttons), image(request.image), answered(std::move(answered)) {
  SetValue(CaptionProperty, request.caption);
  SetValue(TextProperty, request.text);
}

void MessageBoxView::OnApplyTemplate() {
  auto* ok = DynamicCast<Button>(GetTemplateChild("OK"));
  auto* cancel = DynamicCast<Button>(GetTemplateChild("Cancel"));
  if (ok) ok->AddHandler(ButtonBase::ClickEvent, RoutedEventHandler::From<&MessageBoxView::OnOK>(this));
  if (cancel) cancel->AddHandler(ButtonBase::ClickEvent, RoutedEventHandler::From<&MessageBoxView::OnCancel>(this));
  const auto show = [](Object* part, bool shown) {
    if (auto* element = DynamicCast<UIElement>(part))
      element->SetVisibility(shown ? Visibility::Visible : Visibility::Collapsed);
  };
  show(cancel, buttons == MessageBoxButton::OKCancel);
  show(GetTemplateChild("ErrorSign"), image == MessageBoxImage::Error);
  show(GetTemplateChild("WarningSign"), image == MessageBoxImage::Warning);
}

void MessageBoxView::FocusDefault() {
  ApplyThemeStyle();
  ApplyTemplate();
  auto* ok = DynamicCast<Button>(GetTemplateChild("OK"));
  // The box waits for a key as well as for a click, so it shows what Return would press.
  if (ok && ok->Focus()) ok->SetValue(IsFocusVisibleProperty, true);
}

bool MessageBoxView::OnKey(const KeyEventArgs& args) {
  if (args.isRepeat) return args.key == Key::Return || args.key == Key::Escape;
  if (args.key == Key::Escape) {
    answered(buttons == MessageBoxButton::OKCancel ? MessageBoxResult::Cancel : MessageBoxResult::OK);
  } else if (args.key == Key::Return) {
    const auto* cancel = DynamicCast<Button>(GetTemplateChild("Cancel"));
    answered(cancel && cancel->IsFocused() ? MessageBoxResult::Cancel : MessageBoxResult::OK);
  } else {
    return false;
  }
  return true;
}

} // namespace Toolkit
