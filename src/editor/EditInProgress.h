#pragma once

#include "toolkit/base/Observable.h"
#include "toolkit/base/Value.h"
#include "toolkit/visual/UIElement.h"

#include <functional>

namespace Tesselor {

/// Knows whether the control that has the focus shows another value of the document than when it got the focus: a field
/// makes its step only when it loses the focus.
class EditInProgress : private Toolkit::PropertyObserver {
public:
  /// `root` outlives this. `changed` is told when what was typed becomes an edit of the document, goes on or ends.
  EditInProgress(Toolkit::UIElement& root, std::function<void()> changed);
  ~EditInProgress() override;
  bool Differs() const;

private:
  void OnObservedChange(Toolkit::Observable& source, Toolkit::Symbol name) override { changed(); }
  void OnObservedGone() override;
  void OnGotFocus(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);
  void OnLostFocus(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);

  Toolkit::UIElement& root;
  std::function<void()> changed;
  /// The value of the observed control that is edited; null while none is.
  const Toolkit::DependencyProperty* property = nullptr;
  Toolkit::Value before;
};

} // namespace Tesselor
