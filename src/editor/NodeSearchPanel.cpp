#include "editor/NodeSearchPanel.h"

#include "nodes/NodeNames.h"
#include "platform/AsciiCase.h"
#include "toolkit/base/Diagnostics.h"
#include "toolkit/base/Dispatcher.h"
#include "toolkit/controls/ButtonBase.h"
#include "toolkit/controls/TextBox.h"
#include "toolkit/markup/GUI.h"
#include "values/ActionHistory.h"

namespace Tesselor {

using Toolkit::LongList;
using Toolkit::Ptr;
using Toolkit::Visibility;

const Toolkit::RoutedEvent NodeSearchPanel::SearchResultSelectedEvent("SearchResultSelected",
                                                                      Toolkit::RoutingStrategy::Bubble);

TOOLKIT_TYPE_IMPL(NodeSearchPanel, Toolkit::UserControl, "Tesselor.NodeSearchPanel")
void NodeSearchPanel::Describe(Toolkit::TypeBuilder<NodeSearchPanel>& type) {
  PanelVisibilityProperty = type.Property<Visibility>("PanelVisibility", Visibility::Collapsed);
  SearchTextProperty = type.Property<Toolkit::SharedString>("SearchText", Toolkit::SharedString(), 0,
                                                            &NodeSearchPanel::OnSearchTextChanged);
  CountTextProperty = type.Property<Toolkit::SharedString>("CountText");
  type.Member<&NodeSearchPanel::ReflectedResults>("SearchResults");
  type.Handler<&NodeSearchPanel::OnSearchKeyDown>("OnSearchKeyDown", KeyDownEvent);
  type.Event(&SearchResultSelectedEvent);
  type.Handler<&NodeSearchPanel::OnClearButtonClicked>("OnClearButtonClicked", Toolkit::ButtonBase::ClickEvent);
  type.Handler<&NodeSearchPanel::OnResultClicked>("OnResultClicked", LongList::LineChosenEvent);
  type.Handler<&NodeSearchPanel::OnResultsLeft>("OnResultsLeft", LongList::ListLeftEvent);
}

NodeSearchPanel::NodeSearchPanel() : results(Toolkit::MakePtr<Results>()) {
  SetDataContext(this);
  Toolkit::GUI::LoadComponent(*this, "NodeSearchPanel.xaml");
  list = FindName<LongList>("ResultList");
  TOOLKIT_ASSERT(list);
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
  list->Mark(nullptr);
  SetValue(PanelVisibilityProperty, Visibility::Collapsed);
}

void NodeSearchPanel::Forget() {
  results->Clear();
  snapshot = Snapshot();
  index = NodeSearchIndex();
  ShowCount();
}

void NodeSearchPanel::Search(std::string_view text) {
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
  ShowCount();
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

void NodeSearchPanel::ShowCount() {
  const size_t count = results->Count();
  SetValue(CountTextProperty, count == 0 ? std::string("No node matches") : Counted(count, "match", "matches"));
}

void NodeSearchPanel::SearchNow() {
  const auto* box = FindName<Toolkit::TextBox>("SearchTextBox");
  if (!box || box->GetText() == searchedText) return;
  // The change of the property searches, unless it holds the text already.
  SetSearchText(box->GetText());
  if (box->GetText() != searchedText) Search(box->GetText());
}

void NodeSearchPanel::OnSearchKeyDown(Toolkit::Object*, const Toolkit::KeyEventArgs& args) {
  if (!LongList::IsWorkedBy(args.key)) return;
  SearchNow();
  list->Work(args.key);
  args.handled = true;
}

void NodeSearchPanel::OnSearchTextChanged(Toolkit::DependencyObject& object, const Toolkit::PropertyChange&) {
  auto& panel = static_cast<NodeSearchPanel&>(object);
  panel.Search(panel.GetSearchText());
}

void NodeSearchPanel::OnClearButtonClicked(Toolkit::Object*, const Toolkit::RoutedEventArgs&) { SetSearchText({}); }

void NodeSearchPanel::OnResultClicked(Toolkit::Object*, const Toolkit::LineChosenEventArgs& args) {
  SearchResultSelectedEventArgs selected(SearchResultSelectedEvent, this);
  selected.node = Ptr<BaseNode>(static_cast<const NodeSearchResult&>(*args.line).GetNode());
  RaiseEvent(selected);
}

} // namespace Tesselor
