#include "editor/NodeSearchPanel.h"

#include "platform/AsciiCase.h"
#include "toolkit/base/Dispatcher.h"
#include "toolkit/controls/ButtonBase.h"
#include "toolkit/controls/ItemsControl.h"
#include "toolkit/controls/ScrollViewer.h"
#include "toolkit/controls/TextBox.h"
#include "toolkit/markup/GUI.h"
#include "values/ActionHistory.h"

#include <algorithm>

namespace Tesselor {

using Toolkit::Ptr;
using Toolkit::Visibility;

namespace {

/// Lines that are made at once.
constexpr size_t LinesAtOnce = 60;
/// More lines are made when the end of the list comes as near as this, in pixels.
constexpr float NearTheEnd = 600;

} // namespace

const Toolkit::RoutedEvent NodeSearchPanel::SearchResultSelectedEvent("SearchResultSelected",
                                                                      Toolkit::RoutingStrategy::Bubble);

TOOLKIT_TYPE_IMPL(NodeSearchPanel, Toolkit::UserControl, "Tesselor.NodeSearchPanel")
void NodeSearchPanel::Describe(Toolkit::TypeBuilder<NodeSearchPanel>& type) {
  PanelVisibilityProperty = type.Property<Visibility>("PanelVisibility", Visibility::Collapsed);
  SearchTextProperty = type.Property<Toolkit::SharedString>("SearchText", Toolkit::SharedString(), 0,
                                                            &NodeSearchPanel::OnSearchTextChanged);
  CountTextProperty = type.Property<Toolkit::SharedString>("CountText");
  type.Member<&NodeSearchPanel::ReflectedResults>("SearchResults");
  type.Member<&NodeSearchPanel::ReflectedShownResults>("ShownResults");
  type.Handler<&NodeSearchPanel::OnSearchKeyDown>("OnSearchKeyDown", KeyDownEvent);
  type.Event(&SearchResultSelectedEvent);
  type.Handler<&NodeSearchPanel::OnClearButtonClicked>("OnClearButtonClicked", Toolkit::ButtonBase::ClickEvent);
  type.Handler<&NodeSearchPanel::OnResultClicked>("OnResultClicked", MouseLeftButtonUpEvent);
}

NodeSearchPanel::NodeSearchPanel() : results(Toolkit::MakePtr<Results>()), shownResults(Toolkit::MakePtr<Results>()) {
  SetDataContext(this);
  Toolkit::GUI::LoadComponent(*this, "NodeSearchPanel.xaml");
  // The viewer keeps what it scrolls by to itself.
  if (auto* viewer = FindName<Toolkit::UIElement>("ResultViewer"))
    for (const Toolkit::RoutedEvent* event : {&MouseWheelEvent, &MouseMoveEvent})
      viewer->AddHandler(*event, Toolkit::RoutedEventHandler::From<&NodeSearchPanel::OnListScrolled>(this), true);
}

void NodeSearchPanel::Open(Snapshot newSnapshot) {
  snapshot = std::move(newSnapshot);
  index = NodeSearchIndex();
  Search(GetSearchText());
  SetValue(PanelVisibilityProperty, Visibility::Visible);
  ReadAhead();
  if (auto* box = FindName<Toolkit::TextBox>("SearchTextBox")) {
    box->Focus();
    box->SelectAll();
  }
}

void NodeSearchPanel::Reset() {
  Mark(nullptr);
  SetValue(PanelVisibilityProperty, Visibility::Collapsed);
}

void NodeSearchPanel::Forget() {
  selectedResult.Reset();
  shownResults->Clear();
  results->Clear();
  snapshot = Snapshot();
  index = NodeSearchIndex();
  ShowCount();
}

void NodeSearchPanel::Search(std::string_view text) {
  selectedResult.Reset();
  shownResults->Clear();
  results->Clear();
  RefreshIndex();
  const std::string upperText = UpperCase(text);
  const size_t contents = snapshot.contentNodes.size(), groups = snapshot.groupNodes.size();
  for (size_t i = 0; i < index.GetNodes().size(); ++i) {
    const char* type = i < contents ? "Content" : i < contents + groups ? "Group" : "Comment";
    // Without a text all nodes are listed, for which nothing of them needs to be read.
    if (auto match = upperText.empty() ? std::optional(SearchMatch()) : index.Find(i, upperText))
      results->Add(Toolkit::MakePtr<NodeSearchResult>(*index.GetNodes()[i], type, *std::move(match)));
  }
  searchedText = text;
  ShowMore(LinesAtOnce);
  ShowCount();
  if (auto* viewer = FindName<Toolkit::ScrollViewer>("ResultViewer")) viewer->ScrollTo({});
}

void NodeSearchPanel::RefreshIndex() {
  // What was edited since, such as a field beside the open panel, is a step by now.
  const uint64_t revision = ActionHistory::Instance().Revision();
  if (revision == indexedRevision && !index.GetNodes().empty()) return;
  indexedRevision = revision;
  const auto withoutEmpty = [](auto& nodes) { std::erase(nodes, nullptr); };
  withoutEmpty(snapshot.contentNodes);
  withoutEmpty(snapshot.groupNodes);
  withoutEmpty(snapshot.commentNodes);
  NodeSearchIndex::Nodes nodes;
  const auto add = [&nodes](const auto& more) { nodes.insert(nodes.end(), more.begin(), more.end()); };
  add(snapshot.contentNodes);
  add(snapshot.groupNodes);
  add(snapshot.commentNodes);
  index = NodeSearchIndex(std::move(nodes));
}

void NodeSearchPanel::ReadAhead() {
  // In pieces that no frame waits for, so that the first key finds all texts read.
  constexpr size_t NodesAtOnce = 500;
  if (!IsOpen() || !index.ReadSome(NodesAtOnce)) return;
  Toolkit::Dispatcher::Current().StartTimer(0, [weak = Toolkit::WeakPtr<NodeSearchPanel>(this)] {
    if (const Ptr<NodeSearchPanel> panel = weak.Get()) panel->ReadAhead();
  });
}

void NodeSearchPanel::ShowMore(size_t count) {
  const size_t end = std::min(results->Count(), shownResults->Count() + count);
  for (size_t i = shownResults->Count(); i < end; ++i) shownResults->Add(results->Get(i));
}

void NodeSearchPanel::ShowCount() {
  const size_t count = results->Count();
  SetValue(CountTextProperty, count == 0   ? std::string("No node matches")
                              : count == 1 ? std::string("1 match")
                                           : std::to_string(count) + " matches");
}

void NodeSearchPanel::SearchNow() {
  const auto* box = FindName<Toolkit::TextBox>("SearchTextBox");
  if (!box || box->GetText() == searchedText) return;
  // The change of the property searches, unless it holds the text already.
  SetSearchText(box->GetText());
  if (box->GetText() != searchedText) Search(box->GetText());
}

void NodeSearchPanel::OnSearchKeyDown(Toolkit::Object*, const Toolkit::KeyEventArgs& args) {
  switch (args.key) {
  case Toolkit::Key::Down: Step(1); break;
  case Toolkit::Key::Up: Step(-1); break;
  case Toolkit::Key::PageDown: Step(5); break;
  case Toolkit::Key::PageUp: Step(-5); break;
  case Toolkit::Key::Return:
    SearchNow();
    if (!selectedResult) Step(1);
    if (const Ptr<NodeSearchResult> chosen = selectedResult) Choose(*chosen);
    break;
  case Toolkit::Key::Escape: Reset(); break;
  default: return;
  }
  args.handled = true;
}

void NodeSearchPanel::Step(int distance) {
  SearchNow();
  const int count = static_cast<int>(results->Count());
  if (count == 0) return;
  const int from = selectedResult ? results->IndexOfItem(selectedResult.Get()) : distance > 0 ? -1 : count;
  const auto index = static_cast<size_t>(std::clamp(from + distance, 0, count - 1));
  if (index >= shownResults->Count()) ShowMore(index + LinesAtOnce - shownResults->Count());
  Mark(results->Get(index));
  UpdateLayout();
  if (const auto* list = FindName<Toolkit::ItemsControl>("ResultList"))
    if (auto* line = list->GetItemContainerGenerator().ContainerFromIndex(index)) line->BringIntoView();
}

void NodeSearchPanel::Mark(NodeSearchResult* result) {
  if (selectedResult) selectedResult->SetIsSelected(false);
  selectedResult = Ptr<NodeSearchResult>(result);
  if (result) result->SetIsSelected(true);
}

void NodeSearchPanel::Choose(NodeSearchResult& result) {
  Mark(&result);
  SearchResultSelectedEventArgs selected(SearchResultSelectedEvent, this);
  selected.node = Ptr<BaseNode>(result.GetNode());
  RaiseEvent(selected);
}

void NodeSearchPanel::OnListScrolled(Toolkit::Object*, const Toolkit::RoutedEventArgs&) {
  const auto* viewer = FindName<Toolkit::ScrollViewer>("ResultViewer");
  if (viewer && viewer->ScrollOffset().y + viewer->Viewport().height + NearTheEnd > viewer->Extent().height)
    ShowMore(LinesAtOnce);
}

void NodeSearchPanel::OnSearchTextChanged(Toolkit::DependencyObject& object, const Toolkit::PropertyChange&) {
  auto& panel = static_cast<NodeSearchPanel&>(object);
  panel.Search(panel.GetSearchText());
}

void NodeSearchPanel::OnClearButtonClicked(Toolkit::Object*, const Toolkit::RoutedEventArgs&) { SetSearchText({}); }

void NodeSearchPanel::OnResultClicked(Toolkit::Object*, const Toolkit::MouseButtonEventArgs& args) {
  const auto* source = Toolkit::DynamicCast<Toolkit::FrameworkElement>(args.source);
  const Ptr<NodeSearchResult> result(source ? Toolkit::DynamicCast<NodeSearchResult>(source->GetDataContext())
                                            : nullptr);
  if (!result || !result->GetNode()) return;
  Choose(*result);
  args.handled = true;
}

} // namespace Tesselor
