#include "toolkit/application/MessageBox.h"

#include "toolkit/base/Diagnostics.h"

#include <utility>

namespace Toolkit {

namespace {
MessageBox::Presenter& CurrentPresenter() {
  static MessageBox::Presenter presenter;
  return presenter;
}
} // namespace

void MessageBox::Show(std::string text, std::string caption, MessageBoxButton buttons, MessageBoxImage image,
                      Callback callback) {
  if (CurrentPresenter()) {
    CurrentPresenter()({std::move(text), std::move(caption), buttons, image, std::move(callback), {}, {}});
    return;
  }
  TOOLKIT_WARN("MessageBox", caption + ": " + text);
  if (callback) callback(MessageBoxResult::None);
}

void MessageBox::Ask(std::string text, std::string caption, std::vector<std::string> choices, ChoiceCallback chosen,
                     size_t defaultChoice) {
  if (CurrentPresenter()) {
    CurrentPresenter()({std::move(text),
                        std::move(caption),
                        MessageBoxButton::OKCancel,
                        MessageBoxImage::None,
                        {},
                        std::move(choices),
                        std::move(chosen),
                        defaultChoice});
    return;
  }
  TOOLKIT_WARN("MessageBox", caption + ": " + text);
  if (chosen) chosen(std::nullopt);
}

bool MessageBox::HasPresenter() { return CurrentPresenter() != nullptr; }

MessageBox::Presenter MessageBox::SetPresenter(Presenter presenter) {
  return std::exchange(CurrentPresenter(), std::move(presenter));
}

} // namespace Toolkit
