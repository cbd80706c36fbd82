#pragma once

#include "toolkit/base/Dispatcher.h"
#include "toolkit/controls/UserControl.h"

#include <string_view>

namespace Tesselor {

/// One line at the edge of the canvas that says what the last command did, or why it did nothing. What was told a while
/// ago is dimmed. It never takes the mouse or the focus.
class StatusLine : public Toolkit::UserControl {
  TOOLKIT_TYPE(StatusLine)
public:
  /// Milliseconds until a text is dimmed.
  static constexpr double FreshFor = 6000;
  /// Milliseconds until a text that stays a short while is gone.
  static constexpr double ShortWhile = 3000;

  static inline const Toolkit::DependencyProperty* TextProperty = nullptr;
  static inline const Toolkit::DependencyProperty* LineVisibilityProperty = nullptr;
  static inline const Toolkit::DependencyProperty* IsFreshProperty = nullptr;

  StatusLine();
  ~StatusLine() override;

  std::string_view Text() const { return GetString(TextProperty); }
  bool IsFresh() const { return Get<bool>(IsFreshProperty); }
  /// How long a text stays.
  enum class Stays { UntilTheNext, AShortWhile };
  /// Replaces what was told before.
  void Tell(std::string_view text, Stays stays = Stays::UntilTheNext);

private:
  Toolkit::Dispatcher::TimerId timer = 0;
};

} // namespace Tesselor
