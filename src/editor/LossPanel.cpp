#include "editor/LossPanel.h"

#include "toolkit/controls/ButtonBase.h"
#include "toolkit/controls/ItemsControl.h"
#include "toolkit/controls/ScrollViewer.h"
#include "toolkit/markup/GUI.h"

#include <algorithm>
#include <string>
#include <utility>

namespace Tesselor {

using Toolkit::Ptr;
using Toolkit::SharedString;
using Toolkit::Visibility;

namespace {

/// Lines that are made at once.
constexpr size_t LinesAtOnce = 60;
/// More lines are made when the end of the list comes as near as this, in pixels.
constexpr float NearTheEnd = 600;

} // namespace

TOOLKIT_TYPE_IMPL(LossLine, Toolkit::NotifyPropertyChangedBase, "Tesselor.LossLine")
void LossLine::Describe(Toolkit::TypeBuilder<LossLine>& type) {
  type.Member<&LossLine::GetPath>("Path");
  type.Member<&LossLine::GetWas>("Was");
  type.Member<&LossLine::GetBecomes>("Becomes");
  type.Member<&LossLine::IsSelected>("IsSelected");
}

LossLine::LossLine(const DocumentLoss& loss, size_t index)
    : path(loss.loss.path), was(loss.loss.was), becomes(loss.loss.becomes), index(index) {}

void LossLine::SetIsSelected(bool value) {
  if (isSelected == value) return;
  isSelected = value;
  OnPropertyChanged("IsSelected");
}

const Toolkit::RoutedEvent LossPanel::LossChosenEvent("LossChosen", Toolkit::RoutingStrategy::Bubble);

TOOLKIT_TYPE_IMPL(LossPanel, Toolkit::UserControl, "Tesselor.LossPanel")
void LossPanel::Describe(Toolkit::TypeBuilder<LossPanel>& type) {
  PanelVisibilityProperty = type.Property<Visibility>("PanelVisibility", Visibility::Collapsed);
  CaptionProperty = type.Property<SharedString>("Caption");
  type.Member<&LossPanel::ReflectedLines>("Lines");
  type.Event(&LossChosenEvent);
  type.Handler<&LossPanel::OnPanelKeyDown>("OnPanelKeyDown", KeyDownEvent);
  // The viewer would scroll by the keys of the list.
  type.Handler<&LossPanel::OnPanelKeyDown>("OnListKeyDown", PreviewKeyDownEvent);
  type.Handler<&LossPanel::OnLineClicked>("OnLineClicked", MouseLeftButtonUpEvent);
  type.Handler<&LossPanel::OnCloseClicked>("OnCloseClicked", Toolkit::ButtonBase::ClickEvent);
}

LossPanel::LossPanel() : lines(Toolkit::MakePtr<Lines>()) {
  SetDataContext(this);
  Toolkit::GUI::LoadComponent(*this, "LossPanel.xaml");
  // The viewer keeps what it scrolls by to itself.
  if (auto* viewer = FindName<Toolkit::UIElement>("LineViewer"))
    for (const Toolkit::RoutedEvent* event : {&MouseWheelEvent, &MouseMoveEvent})
      viewer->AddHandler(*event, Toolkit::RoutedEventHandler::From<&LossPanel::OnListScrolled>(this), true);
}

void LossPanel::Open(std::vector<DocumentLoss> newLosses) {
  Close();
  losses = std::move(newLosses);
  SetValue(CaptionProperty, losses.size() == 1 ? std::string("Saving changes 1 value")
                                               : "Saving changes " + std::to_string(losses.size()) + " values");
  SetValue(PanelVisibilityProperty, Visibility::Visible);
  ShowMore(LinesAtOnce);
  if (auto* viewer = FindName<Toolkit::ScrollViewer>("LineViewer")) viewer->ScrollTo({});
  if (auto* list = FindName<Toolkit::UIElement>("LineList")) list->Focus();
}

void LossPanel::Close() {
  SetValue(PanelVisibilityProperty, Visibility::Collapsed);
  selected.Reset();
  lines->Clear();
  losses.clear();
}

void LossPanel::ShowMore(size_t count) {
  const size_t end = std::min(losses.size(), lines->Count() + count);
  for (size_t i = lines->Count(); i < end; ++i) lines->Add(Toolkit::MakePtr<LossLine>(losses[i], i));
}

void LossPanel::OnPanelKeyDown(Toolkit::Object*, const Toolkit::KeyEventArgs& args) {
  switch (args.key) {
  case Toolkit::Key::Down: Step(1); break;
  case Toolkit::Key::Up: Step(-1); break;
  case Toolkit::Key::PageDown: Step(10); break;
  case Toolkit::Key::PageUp: Step(-10); break;
  case Toolkit::Key::Return:
    if (!selected) Step(1);
    if (const Ptr<LossLine> chosen = selected) Choose(*chosen);
    break;
  case Toolkit::Key::Escape: Close(); break;
  default: return;
  }
  args.handled = true;
}

void LossPanel::Step(int distance) {
  const int count = static_cast<int>(losses.size());
  if (count == 0) return;
  const int from = selected ? static_cast<int>(selected->Index()) : distance > 0 ? -1 : count;
  const auto index = static_cast<size_t>(std::clamp(from + distance, 0, count - 1));
  if (index >= lines->Count()) ShowMore(index + LinesAtOnce - lines->Count());
  Mark(lines->Get(index));
  UpdateLayout();
  if (const auto* list = FindName<Toolkit::ItemsControl>("LineList"))
    if (auto* line = list->GetItemContainerGenerator().ContainerFromIndex(index)) line->BringIntoView();
}

void LossPanel::Mark(LossLine* line) {
  if (selected) selected->SetIsSelected(false);
  selected = Ptr<LossLine>(line);
  if (line) line->SetIsSelected(true);
}

void LossPanel::Choose(LossLine& line) {
  Mark(&line);
  LossChosenEventArgs chosen(LossChosenEvent, this);
  chosen.node = Ptr<ContentNode>(losses[line.Index()].node.Get());
  RaiseEvent(chosen);
}

void LossPanel::OnLineClicked(Toolkit::Object*, const Toolkit::MouseButtonEventArgs& args) {
  const auto* source = Toolkit::DynamicCast<Toolkit::FrameworkElement>(args.source);
  const Ptr<LossLine> line(source ? Toolkit::DynamicCast<LossLine>(source->GetDataContext()) : nullptr);
  if (!line) return;
  Choose(*line);
  args.handled = true;
}

void LossPanel::OnCloseClicked(Toolkit::Object*, const Toolkit::RoutedEventArgs&) { Close(); }

void LossPanel::OnListScrolled(Toolkit::Object*, const Toolkit::RoutedEventArgs&) {
  const auto* viewer = FindName<Toolkit::ScrollViewer>("LineViewer");
  if (viewer && viewer->ScrollOffset().y + viewer->Viewport().height + NearTheEnd > viewer->Extent().height)
    ShowMore(LinesAtOnce);
}

} // namespace Tesselor
