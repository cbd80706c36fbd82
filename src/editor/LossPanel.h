#pragma once

#include "document/DocumentLosses.h"
#include "nodes/ContentNode.h"
#include "toolkit/base/ObservableCollection.h"
#include "toolkit/base/SharedString.h"
#include "toolkit/controls/LongList.h"
#include "toolkit/controls/UserControl.h"

#include <vector>

namespace Tesselor {

/// One line of the list: a value, what it is and what it becomes.
class LossLine : public Toolkit::ListLine {
  TOOLKIT_TYPE(LossLine)
public:
  LossLine() = default;
  explicit LossLine(DocumentLoss told) : told(std::move(told)) {}

  Toolkit::SharedString GetPath() const { return told.loss.path; }
  Toolkit::SharedString GetWas() const { return told.loss.was; }
  Toolkit::SharedString GetBecomes() const { return told.loss.becomes; }
  /// Null once it is gone.
  ContentNode* Node() const { return told.node.Get(); }

private:
  DocumentLoss told;
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
  void Open(std::vector<DocumentLoss> losses);
  /// Forgets what it lists as well.
  void Close();

private:
  using Lines = Toolkit::ObservableCollection<LossLine>;
  Toolkit::ObservableCollectionBase* ReflectedLines() const { return lines.Get(); }
  void OnPanelKeyDown(Toolkit::Object* sender, const Toolkit::KeyEventArgs& args);
  void OnLineChosen(Toolkit::Object* sender, const Toolkit::LineChosenEventArgs& args);
  void OnCloseClicked(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args) { Close(); }

  Toolkit::Ptr<Lines> lines;
  /// Held by the tree that the document describes.
  Toolkit::LongList* list = nullptr;
};

} // namespace Tesselor
