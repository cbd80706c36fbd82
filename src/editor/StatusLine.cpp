#include "editor/StatusLine.h"

#include "toolkit/markup/GUI.h"

namespace Tesselor {

using Toolkit::Dispatcher;
using Toolkit::Visibility;

TOOLKIT_TYPE_IMPL(StatusLine, Toolkit::UserControl, "Tesselor.StatusLine")
void StatusLine::Describe(Toolkit::TypeBuilder<StatusLine>& type) {
  TextProperty = type.Property<Toolkit::SharedString>("Text");
  LineVisibilityProperty = type.Property<Visibility>("LineVisibility", Visibility::Collapsed);
  IsFreshProperty = type.Property<bool>("IsFresh");
}

StatusLine::StatusLine() {
  SetDataContext(this);
  Toolkit::GUI::LoadComponent(*this, "StatusLine.xaml");
  // An attribute of its document would give way to those of the place where it stands.
  SetValue(IsHitTestVisibleProperty, false);
}

StatusLine::~StatusLine() {
  if (timer) Dispatcher::Current().Cancel(timer);
}

void StatusLine::Tell(std::string_view text, Stays stays) {
  const bool passes = stays == Stays::AShortWhile;
  SetValue(TextProperty, text);
  SetValue(LineVisibilityProperty, text.empty() ? Visibility::Collapsed : Visibility::Visible);
  SetValue(IsFreshProperty, true);
  if (timer) Dispatcher::Current().Cancel(timer);
  timer = Dispatcher::Current().StartTimer(passes ? ShortWhile : FreshFor, [this, passes] {
    timer = 0;
    if (passes) {
      SetValue(TextProperty, std::string_view());
      SetValue(LineVisibilityProperty, Visibility::Collapsed);
    }
    SetValue(IsFreshProperty, false);
  });
}

} // namespace Tesselor
