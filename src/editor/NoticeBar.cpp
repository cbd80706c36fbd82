#include "editor/NoticeBar.h"

#include "toolkit/controls/ButtonBase.h"
#include "toolkit/markup/GUI.h"

#include <utility>

namespace Tesselor {

using Toolkit::Ptr;

TOOLKIT_TYPE_IMPL(NoticeAction, Toolkit::NotifyPropertyChangedBase, "Tesselor.NoticeAction")
void NoticeAction::Describe(Toolkit::TypeBuilder<NoticeAction>& type) {
  type.Member<&NoticeAction::GetCaption>("Caption");
}

void NoticeAction::Run() const {
  // What it does may take the notice away, and this with it.
  const std::function<void()> running = run;
  if (running) running();
}

TOOLKIT_TYPE_IMPL(NoticeLine, Toolkit::NotifyPropertyChangedBase, "Tesselor.NoticeLine")
void NoticeLine::Describe(Toolkit::TypeBuilder<NoticeLine>& type) {
  type.Member<&NoticeLine::GetText>("Text");
  type.Member<&NoticeLine::GetDismiss>("Dismiss");
  type.Member<&NoticeLine::ReflectedActions>("Actions");
}

NoticeLine::NoticeLine(Notice notice)
    : id(std::move(notice.id)), text(notice.text), dismiss(notice.dismiss),
      actions(Toolkit::MakePtr<Toolkit::ObservableCollection<NoticeAction>>()) {
  for (Notice::Action& action : notice.actions) actions->Add(Toolkit::MakePtr<NoticeAction>(std::move(action)));
}

TOOLKIT_TYPE_IMPL(NoticeBar, Toolkit::UserControl, "Tesselor.NoticeBar")
void NoticeBar::Describe(Toolkit::TypeBuilder<NoticeBar>& type) {
  type.Member<&NoticeBar::ReflectedLines>("Lines");
  type.Handler<&NoticeBar::OnActionClicked>("OnActionClicked", Toolkit::ButtonBase::ClickEvent);
  type.Handler<&NoticeBar::OnDismissClicked>("OnDismissClicked", Toolkit::ButtonBase::ClickEvent);
  type.Handler<&NoticeBar::OnPreviewMouseDown>("OnPreviewMouseDown", PreviewMouseDownEvent);
}

NoticeBar::NoticeBar() : lines(Toolkit::MakePtr<Toolkit::ObservableCollection<NoticeLine>>()) {
  SetDataContext(this);
  Toolkit::GUI::LoadComponent(*this, "NoticeBar.xaml");
}

void NoticeBar::Show(Notice notice) {
  Dismiss(notice.id);
  lines->Insert(0, Toolkit::MakePtr<NoticeLine>(std::move(notice)));
  if (lines->Count() > MostLines) lines->RemoveAt(MostLines);
}

void NoticeBar::Dismiss(std::string_view id) {
  for (size_t i = 0; i < lines->Count(); ++i)
    if (lines->Get(i)->Id() == id) return lines->RemoveAt(i);
}

void NoticeBar::OnPreviewMouseDown(Toolkit::Object*, const Toolkit::MouseButtonEventArgs& args) {
  // The first click of a double click may have brought another button under the mouse.
  if (args.clickCount > 1) args.handled = true;
}

void NoticeBar::OnActionClicked(Toolkit::Object*, const Toolkit::RoutedEventArgs& args) {
  const auto* button = Toolkit::DynamicCast<Toolkit::FrameworkElement>(args.source);
  const Ptr<NoticeAction> action(button ? Toolkit::DynamicCast<NoticeAction>(button->GetDataContext()) : nullptr);
  if (action) action->Run();
}

void NoticeBar::OnDismissClicked(Toolkit::Object*, const Toolkit::RoutedEventArgs& args) {
  const auto* button = Toolkit::DynamicCast<Toolkit::FrameworkElement>(args.source);
  const Ptr<NoticeLine> line(button ? Toolkit::DynamicCast<NoticeLine>(button->GetDataContext()) : nullptr);
  if (line) Dismiss(line->Id());
}

} // namespace Tesselor
