#include "toolkit/application/MessageBoxView.h"

#include "toolkit/visual/Input.h"

#include <algorithm>

namespace Toolkit {

TOOLKIT_TYPE_IMPL(MessageBoxView, Control, "MessageBoxView")
void MessageBoxView::Describe(TypeBuilder<MessageBoxView>& type) {
  CaptionProperty = type.Property<SharedString>("Caption");
  TextProperty = type.Property<SharedString>("Text");
}

MessageBoxView::MessageBoxView(const MessageBox::Request& request, std::function<void(MessageBoxAnswer)> answered)
    : buttons(request.buttons), image(request.image), choices(request.choices), defaultChoice(request.defaultChoice),
      answered(std::move(answered)) {
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
  auto* panel = DynamicCast<Panel>(GetTemplateChild("Buttons"));
  if (panel && !choices.empty()) AddChoices(*panel);
  show(ok, choices.empty());
  show(cancel, choices.empty() && buttons == MessageBoxButton::OKCancel);
  show(GetTemplateChild("ErrorSign"), image == MessageBoxImage::Error);
  show(GetTemplateChild("WarningSign"), image == MessageBoxImage::Warning);
}

void MessageBoxView::AddChoices(Panel& panel) {
  for (const std::string& caption : choices) {
    auto button = MakePtr<Button>();
    button->SetContent(Value(caption));
    button->SetValue(FrameworkElement::MinWidthProperty, 80.0f);
    button->SetValue(FrameworkElement::MarginProperty, Thickness{8, 0, 0, 0});
    button->AddHandler(ButtonBase::ClickEvent, RoutedEventHandler::From<&MessageBoxView::OnChoice>(this));
    // A button takes the focus only once its style says so, and the first one gets it before any layout.
    button->ApplyThemeStyle();
    choiceButtons.push_back(button.Get());
    panel.AddChild(button.Get());
  }
}

void MessageBoxView::OnChoice(Object* sender, const RoutedEventArgs&) {
  const auto chosen = std::find(choiceButtons.begin(), choiceButtons.end(), sender);
  if (chosen == choiceButtons.end()) return;
  answered({MessageBoxResult::None, static_cast<size_t>(chosen - choiceButtons.begin())});
}

void MessageBoxView::FocusDefault() {
  ApplyThemeStyle();
  ApplyTemplate();
  auto* ok = choiceButtons.empty() ? DynamicCast<Button>(GetTemplateChild("OK")) : choiceButtons.at(defaultChoice);
  // The box waits for a key as well as for a click, so it shows what Return would press.
  if (ok && ok->Focus()) ok->SetValue(IsFocusVisibleProperty, true);
}

bool MessageBoxView::OnKey(const KeyEventArgs& args) {
  if (args.isRepeat) return args.key == Key::Return || args.key == Key::Escape;
  if (args.key == Key::Escape) {
    if (!choices.empty())
      answered({});
    else
      answered({buttons == MessageBoxButton::OKCancel ? MessageBoxResult::Cancel : MessageBoxResult::OK});
  } else if (args.key == Key::Return && !choices.empty()) {
    const auto focused = std::find_if(choiceButtons.begin(), choiceButtons.end(),
                                      [](const Button* button) { return button->IsFocused(); });
    answered({MessageBoxResult::None,
              focused == choiceButtons.end() ? defaultChoice : static_cast<size_t>(focused - choiceButtons.begin())});
  } else if (args.key == Key::Return) {
    const auto* cancel = DynamicCast<Button>(GetTemplateChild("Cancel"));
    answered({cancel && cancel->IsFocused() ? MessageBoxResult::Cancel : MessageBoxResult::OK});
  } else {
    return false;
  }
  return true;
}

} // namespace Toolkit
