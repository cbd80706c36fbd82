#include "toolkit/controls/LongList.h"

#include "toolkit/controls/ScrollViewer.h"

#include <algorithm>

namespace Toolkit {

namespace {

constexpr size_t LinesAtOnce = 60;
/// More lines are made when the end of the list comes as near as this to what is in sight, in pixels.
constexpr float NearTheEnd = 600;

ScrollViewer* ViewerAround(const UIElement& element) {
  for (UIElement* e = element.UIParent(); e; e = e->UIParent())
    if (auto* viewer = DynamicCast<ScrollViewer>(e)) return viewer;
  return nullptr;
}

} // namespace

TOOLKIT_TYPE_IMPL(ListLine, NotifyPropertyChangedBase, "ListLine")
void ListLine::Describe(TypeBuilder<ListLine>& type) { type.Member<&ListLine::IsSelected>("IsSelected"); }

void ListLine::SetIsSelected(bool value) {
  if (isSelected == value) return;
  isSelected = value;
  OnPropertyChanged("IsSelected");
}

const RoutedEvent LongList::LineChosenEvent("LineChosen", RoutingStrategy::Bubble);
const RoutedEvent LongList::ListLeftEvent("ListLeft", RoutingStrategy::Bubble);

TOOLKIT_TYPE_IMPL(LongList, Selector, "LongList")
void LongList::Describe(TypeBuilder<LongList>& type) {
  LinesOfPageProperty = type.Property<int32_t>("LinesOfPage", 10);
  type.Event(&LineChosenEvent);
  type.Event(&ListLeftEvent);
}

LongList::LongList() : madeLines(LinesAtOnce) { notesLayout = true; }

void LongList::OnPropertyChanged(const PropertyChange& change) {
  Selector::OnPropertyChanged(change);
  if (&change.property != SelectedItemProperty) return;
  if (auto* former = DynamicCast<ListLine>(change.oldValue.AsObject())) former->SetIsSelected(false);
  if (ListLine* marked = Marked()) marked->SetIsSelected(true);
}

void LongList::OnItemsChanged(const CollectionChange& change) {
  Selector::OnItemsChanged(change);
  if (change.action != CollectionChange::Action::Reset) return;
  madeLines = LinesAtOnce;
  if (ScrollViewer* viewer = ViewerAround(*this)) viewer->ScrollTo({});
}

size_t LongList::ContainerCount() const { return std::min(madeLines, ItemCount()); }

void LongList::MakeLines(size_t count) {
  if (count <= madeLines) return;
  madeLines = count;
  InvalidateContainers();
}

void LongList::OnLayoutChanged(LayoutChange) {
  const ScrollViewer* viewer = ViewerAround(*this);
  if (!viewer || madeLines >= ItemCount()) return;
  const float end = TransformToAncestor(viewer).Map({0, ActualHeight()}).y;
  if (end < viewer->ActualHeight() + NearTheEnd) MakeLines(madeLines + LinesAtOnce);
}

void LongList::OnRoutedEvent(const RoutedEventArgs& args) {
  Selector::OnRoutedEvent(args);
  if (args.event == &KeyDownEvent) {
    // Before the viewer, which would scroll by them.
    if (Work(static_cast<const KeyEventArgs&>(args).key)) args.handled = true;
  } else if (args.event == &MouseLeftButtonUpEvent) {
    const auto* source = DynamicCast<FrameworkElement>(args.source);
    const Ptr<ListLine> line(source ? DynamicCast<ListLine>(source->GetDataContext()) : nullptr);
    if (!line) return;
    Choose(*line);
    args.handled = true;
  }
}

bool LongList::IsWorkedBy(Key key) {
  switch (key) {
  case Key::Down:
  case Key::Up:
  case Key::PageDown:
  case Key::PageUp:
  case Key::Return:
  case Key::Escape: return true;
  default: return false;
  }
}

bool LongList::Work(Key key) {
  const int page = Get<int32_t>(LinesOfPageProperty);
  switch (key) {
  case Key::Down: Step(1); break;
  case Key::Up: Step(-1); break;
  case Key::PageDown: Step(page); break;
  case Key::PageUp: Step(-page); break;
  case Key::Return:
    if (!Marked()) Step(1);
    if (const Ptr<ListLine> marked{Marked()}) Choose(*marked);
    break;
  case Key::Escape: RaiseEvent(RoutedEventArgs(ListLeftEvent, this)); break;
  default: return false;
  }
  return true;
}

void LongList::Step(int distance) {
  const auto count = static_cast<int>(ItemCount());
  if (count == 0) return;
  const int from = Marked() ? GetSelectedIndex() : distance > 0 ? -1 : count;
  const auto index = static_cast<size_t>(std::clamp(from + distance, 0, count - 1));
  if (index >= madeLines) MakeLines(index + LinesAtOnce);
  SetSelectedIndex(static_cast<int32_t>(index));
  UpdateLayout();
  if (auto* line = GetItemContainerGenerator().ContainerFromIndex(index)) line->BringIntoView();
}

void LongList::Choose(ListLine& line) {
  Mark(&line);
  LineChosenEventArgs chosen(LineChosenEvent, this);
  chosen.line = Ptr<ListLine>(&line);
  RaiseEvent(chosen);
}

} // namespace Toolkit
