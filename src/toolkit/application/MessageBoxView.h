#pragma once

#include "toolkit/application/MessageBox.h"
#include "toolkit/controls/ButtonBase.h"
#include "toolkit/controls/Control.h"
#include "toolkit/controls/Panel.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace Toolkit {

struct KeyEventArgs;

/// What a box was answered with: the result of an ordinary one, or the choice of one that has buttons of its own.
struct MessageBoxAnswer {
  MessageBoxResult result = MessageBoxResult::None;
  std::optional<size_t> choice = {};
};

/// One message box as it is seen. Its looks are a template of the theme with the parts "Buttons" (the panel to which
/// choices are added), "OK" and "Cancel" (buttons), "ErrorSign" and "WarningSign".
class MessageBoxView : public Control {
  TOOLKIT_TYPE(MessageBoxView)
public:
  static inline const DependencyProperty* CaptionProperty = nullptr;
  static inline const DependencyProperty* TextProperty = nullptr;

  MessageBoxView() = default;
  /// `answered` is called by each button; the caller takes the box down then.
  MessageBoxView(const MessageBox::Request& request, std::function<void(MessageBoxAnswer)> answered);

  /// Gives the focus to the button that Return is meant for.
  void FocusDefault();
  /// Escape refuses or chooses nothing, or agrees where that is all one can do; Return does what the focused button
  /// says, or agrees. True if the key was one of these.
  bool OnKey(const KeyEventArgs& args);

protected:
  void OnApplyTemplate() override;

private:
  void OnOK(Object* sender, const RoutedEventArgs& args) { answered({MessageBoxResult::OK}); }
  void OnCancel(Object* sender, const RoutedEventArgs& args) { answered({MessageBoxResult::Cancel}); }
  void OnChoice(Object* sender, const RoutedEventArgs& args);
  void AddChoices(Panel& panel);

  MessageBoxButton buttons = MessageBoxButton::OK;
  MessageBoxImage image = MessageBoxImage::None;
  std::vector<std::string> choices;
  size_t defaultChoice = 0;
  /// One for each of them, which the template's panel owns.
  std::vector<Button*> choiceButtons;
  std::function<void(MessageBoxAnswer)> answered;
};

} // namespace Toolkit
