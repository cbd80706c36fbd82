#pragma once

#include "document/DocumentLosses.h"
#include "nodes/ContentNode.h"
#include "toolkit/base/Observable.h"
#include "toolkit/base/ObservableCollection.h"
#include "toolkit/base/SharedString.h"
#include "toolkit/controls/UserControl.h"
#include "toolkit/visual/InputEvents.h"

#include <cstddef>
#include <vector>

namespace Tesselor {

/// One line of the list: a value, what it is and what it becomes.
class LossLine : public Toolkit::NotifyPropertyChangedBase {
  TOOLKIT_TYPE(LossLine)
public:
  LossLine() = default;
  LossLine(const DocumentLoss& loss, size_t index);

  size_t Index() const { return index; }
  Toolkit::SharedString GetPath() const { return path; }
  Toolkit::SharedString GetWas() const { return was; }
  Toolkit::SharedString GetBecomes() const { return becomes; }
  bool IsSelected() const { return isSelected; }
  void SetIsSelected(bool value);

private:
  Toolkit::SharedString path, was, becomes;
  size_t index = 0;
  bool isSelected = false;
};

struct LossChosenEventArgs : Toolkit::RoutedEventArgs {
  using RoutedEventArgs::RoutedEventArgs;
  Toolkit::Ptr<ContentNode> node;
};

/// Lists what a save changes, over the canvas, which it doesn't block. A click on a line, or Return, tells which node
/// the user wants to see.
class LossPanel : public Toolkit::UserControl {
  TOOLKIT_TYPE(LossPanel)
public:
  static inline const Toolkit::DependencyProperty* PanelVisibilityProperty = nullptr;
  static inline const Toolkit::DependencyProperty* CaptionProperty = nullptr;
  static const Toolkit::RoutedEvent LossChosenEvent;

  LossPanel();
  bool IsOpen() const { return Get<Toolkit::Visibility>(PanelVisibilityProperty) == Toolkit::Visibility::Visible; }
  /// Takes the focus, so that the keys are the list's.
  void Open(std::vector<DocumentLoss> newLosses);
  /// Forgets what it lists as well.
  void Close();

private:
  using Lines = Toolkit::ObservableCollection<LossLine>;
  Toolkit::ObservableCollectionBase* ReflectedLines() const { return lines.Get(); }
  void OnPanelKeyDown(Toolkit::Object* sender, const Toolkit::KeyEventArgs& args);
  void OnLineClicked(Toolkit::Object* sender, const Toolkit::MouseButtonEventArgs& args);
  void OnCloseClicked(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);
  void OnListScrolled(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);
  void ShowMore(size_t count);
  void Step(int distance);
  void Mark(LossLine* line);
  void Choose(LossLine& line);

  std::vector<DocumentLoss> losses;
  /// Of the first of them, as far as the list was scrolled.
  Toolkit::Ptr<Lines> lines;
  Toolkit::Ptr<LossLine> selected;
};

} // namespace Tesselor
