#pragma once

#include "toolkit/base/Observable.h"
#include "toolkit/base/ObservableCollection.h"
#include "toolkit/base/SharedString.h"
#include "toolkit/controls/UserControl.h"
#include "toolkit/visual/InputEvents.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace Tesselor {

/// Something that the user should know and may act on, but that nothing waits for.
struct Notice {
  struct Action {
    std::string caption;
    /// Runs on a click. The notice stays, unless the action dismisses it.
    std::function<void()> run;
  };

  /// Names the notice for `Dismiss`, and tells which former notice this one replaces.
  std::string id;
  std::string text;
  std::vector<Action> actions;
  /// Of the button that takes the notice away.
  std::string dismiss = "Dismiss";
};

/// One button of a notice.
class NoticeAction : public Toolkit::NotifyPropertyChangedBase {
  TOOLKIT_TYPE(NoticeAction)
public:
  NoticeAction() = default;
  explicit NoticeAction(Notice::Action action) : caption(action.caption), run(std::move(action.run)) {}
  Toolkit::SharedString GetCaption() const { return caption; }
  void Run() const;

private:
  Toolkit::SharedString caption;
  std::function<void()> run;
};

/// One line of the bar.
class NoticeLine : public Toolkit::NotifyPropertyChangedBase {
  TOOLKIT_TYPE(NoticeLine)
public:
  NoticeLine() = default;
  explicit NoticeLine(Notice notice);
  const std::string& Id() const { return id; }
  Toolkit::SharedString GetText() const { return text; }
  Toolkit::SharedString GetDismiss() const { return dismiss; }
  const Toolkit::ObservableCollection<NoticeAction>* Actions() const { return actions.Get(); }

private:
  Toolkit::ObservableCollectionBase* ReflectedActions() const { return actions.Get(); }

  std::string id;
  Toolkit::SharedString text, dismiss;
  Toolkit::Ptr<Toolkit::ObservableCollection<NoticeAction>> actions;
};

/// The lines under the menu bar that tell what a box would be too loud for. The bar takes no room while there is
/// nothing to tell, and never takes keys or the focus by itself.
class NoticeBar : public Toolkit::UserControl {
  TOOLKIT_TYPE(NoticeBar)
public:
  static constexpr size_t MostLines = 3;

  NoticeBar();
  /// Puts the notice on top, in place of the one of the same id. The oldest beyond `MostLines` goes.
  void Show(Notice notice);
  /// Does nothing if there is no such notice.
  void Dismiss(std::string_view id);
  /// Newest first.
  const Toolkit::ObservableCollection<NoticeLine>& Lines() const { return *lines; }

private:
  Toolkit::ObservableCollectionBase* ReflectedLines() const { return lines.Get(); }
  void OnPreviewMouseDown(Toolkit::Object* sender, const Toolkit::MouseButtonEventArgs& args);
  void OnActionClicked(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);
  void OnDismissClicked(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);

  Toolkit::Ptr<Toolkit::ObservableCollection<NoticeLine>> lines;
};

} // namespace Tesselor
