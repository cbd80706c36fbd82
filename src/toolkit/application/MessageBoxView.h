#pragma once

#include "toolkit/application/MessageBox.h"
#include "toolkit/controls/Control.h"

#include <functional>

namespace Toolkit {

struct KeyEventArgs;

/// One message box as it is seen. Its looks are a template of the theme with the parts "OK" and "Cancel" (buttons),
/// "ErrorSign" and "WarningSign".
class MessageBoxView : public Control {
  TOOLKIT_TYPE(MessageBoxView)
public:
  static inline const DependencyProperty* CaptionProperty = nullptr;
  static inline const DependencyProperty* TextProperty = nullptr;

  MessageBoxView() = default;
  /// `answered` is called by each button; the caller takes the box down then.
  MessageBoxView(const MessageBox::Request& request, std::function<void(MessageBoxResult)> answered);

  /// Gives the focus to the button that Return is meant for.
  void FocusDefault();
  /// Escape refuses, or agrees where that is all one can do; Return does what the focused button says, or agrees.
  /// True if the key was one of these.
  bool OnKey(const KeyEventArgs& args);

protected:
  void OnApplyTemplate() override;

private:
  void OnOK(Object* sender, const RoutedEventArgs& args) { answered(MessageBoxResult::OK); }
  void OnCancel(Object* sender, const RoutedEventArgs& args) { answered(MessageBoxResult::Cancel); }

  MessageBoxButton buttons = MessageBoxButton::OK;
  MessageBoxImage image = MessageBoxImage::None;
  std::function<void(MessageBoxResult)> answered;
};

} // namespace Toolkit
