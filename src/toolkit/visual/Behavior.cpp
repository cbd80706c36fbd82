#include "toolkit/visual/Behavior.h"

namespace Toolkit {

TOOLKIT_TYPE_IMPL(Behavior, DependencyObject, "Behavior")
void Behavior::Describe(TypeBuilder<Behavior>&) {}

void Behavior::Attach(FrameworkElement* element) {
  associated = element;
  RefreshInheritance(0);
}

void Behavior::Start() {
  if (started || !associated) return;
  started = true;
  OnAttached();
}

void Behavior::Detach() {
  if (!associated) return;
  if (started) OnDetaching();
  started = false;
  associated = nullptr;
}

} // namespace Toolkit
