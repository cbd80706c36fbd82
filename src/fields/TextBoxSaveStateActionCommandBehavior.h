#pragma once

#include "toolkit/base/RoutedEvent.h"
#include "toolkit/visual/Behavior.h"
#include "values/FieldTextData.h"

namespace Tesselor {

/// Makes one undo step of what is typed into an element while it has the focus. The element's text is bound to the
/// same carrier; this behaviour never changes it.
class TextBoxSaveStateActionCommandBehavior : public Toolkit::BehaviorT<Toolkit::FrameworkElement> {
  TOOLKIT_TYPE(TextBoxSaveStateActionCommandBehavior)
public:
  static inline const Toolkit::DependencyProperty* FieldTextDataProperty = nullptr;
  /// What was typed and undone can be redone after the focus has left. Not where a text may stand while it is typed
  /// only.
  static inline const Toolkit::DependencyProperty* KeepsUndoneProperty = nullptr;
  /// What the user is told of that was changed, where the element belongs to no field.
  static inline const Toolkit::DependencyProperty* CaptionProperty = nullptr;

protected:
  void OnAttached() override;
  void OnDetaching() override;

private:
  FieldTextData* Carrier() const { return Get<FieldTextData*>(FieldTextDataProperty); }
  void Remember();
  void OnGotFocus(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);
  void OnLostFocus(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);

  Toolkit::SharedString remembered;
};

} // namespace Tesselor
