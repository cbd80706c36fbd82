#include "editor/NodeSearchPanel.h"

#include "platform/AsciiCase.h"
#include "toolkit/controls/ButtonBase.h"
#include "toolkit/controls/TextBox.h"
#include "toolkit/markup/GUI.h"

namespace Tesselor {

using Toolkit::Ptr;
using Toolkit::Visibility;

namespace {

constexpr size_t LongestContext = 50;
constexpr size_t KeptOfLongContext = 47;

/// The byte at which character number `index` of a UTF-8 text begins; the text's size if it is shorter.
size_t CharacterOffset(std::string_view text, size_t index) {
  size_t offset = 0;
  for (; offset < text.size(); ++offset) {
    const bool beginsCharacter = (static_cast<unsigned char>(text[offset]) & 0xC0) != 0x80;
    if (beginsCharacter && index-- == 0) break;
  }
  return offset;
}

std::string CutContext(std::string_view text) {
  if (CharacterOffset(text, LongestContext) == text.size()) return std::string(text);
  return std::string(text.substr(0, CharacterOffset(text, KeptOfLongContext))) + "...";
}

} // namespace

const Toolkit::RoutedEvent NodeSearchPanel::SearchResultSelectedEvent("SearchResultSelected",
                                                                      Toolkit::RoutingStrategy::Bubble);

TOOLKIT_TYPE_IMPL(NodeSearchPanel, Toolkit::UserControl, "Tesselor.NodeSearchPanel")
void NodeSearchPanel::Describe(Toolkit::TypeBuilder<NodeSearchPanel>& type) {
  PanelVisibilityProperty = type.Property<Visibility>("PanelVisibility", Visibility::Collapsed);
  SearchTextProperty = type.Property<Toolkit::SharedString>("SearchText", Toolkit::SharedString(), 0,
                                                            &NodeSearchPanel::OnSearchTextChanged);
  type.Member<&NodeSearchPanel::ReflectedResults>("SearchResults");
  type.Event(&SearchResultSelectedEvent);
  type.Handler<&NodeSearchPanel::OnClearButtonClicked>("OnClearButtonClicked", Toolkit::ButtonBase::ClickEvent);
  type.Handler<&NodeSearchPanel::OnResultClicked>("OnResultClicked", MouseLeftButtonUpEvent);
}

NodeSearchPanel::NodeSearchPanel() : results(Toolkit::MakePtr<Results>()) {
  SetDataContext(this);
  Toolkit::GUI::LoadComponent(*this, "NodeSearchPanel.xaml");
}

void NodeSearchPanel::Open(Snapshot newSnapshot) {
  snapshot = std::move(newSnapshot);
  Search(GetSearchText());
  SetValue(PanelVisibilityProperty, Visibility::Visible);
  if (auto* box = FindName<Toolkit::TextBox>("SearchTextBox")) {
    box->Focus();
    box->SelectAll();
  }
}

void NodeSearchPanel::Reset() {
  if (selectedResult) selectedResult->SetIsSelected(false);
  selectedResult.Reset();
  SetValue(PanelVisibilityProperty, Visibility::Collapsed);
}

void NodeSearchPanel::Forget() {
  selectedResult.Reset();
  results->Clear();
  snapshot = Snapshot();
}

void NodeSearchPanel::Search(std::string_view text) {
  selectedResult.Reset();
  results->Clear();
  const std::string upperText = UpperCase(text);
  for (const Ptr<ContentNode>& node : snapshot.contentNodes) {
    if (!node) continue;
    if (ContainsUpperCase(node->Title(), upperText))
      AddResult(node.Get(), "Content");
    else
      SearchFields(*node, upperText);
  }
  for (const Ptr<GroupNode>& node : snapshot.groupNodes)
    if (node && ContainsUpperCase(node->Title(), upperText)) AddResult(node.Get(), "Group");
  for (const Ptr<CommentNode>& node : snapshot.commentNodes)
    if (node && ContainsUpperCase(node->Title(), upperText)) AddResult(node.Get(), "Comment");
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
  if (selectedResult) selectedResult->SetIsSelected(false);
  selectedResult = result;
  result->SetIsSelected(true);
  SearchResultSelectedEventArgs selected(SearchResultSelectedEvent, this);
  selected.node = Ptr<BaseNode>(result->GetNode());
  RaiseEvent(selected);
  args.handled = true;
}

void NodeSearchPanel::AddResult(BaseNode* node, const char* nodeType, std::string_view context) {
  results->Add(Toolkit::MakePtr<NodeSearchResult>(node, nodeType, context));
}

void NodeSearchPanel::SearchFields(ContentNode& node, std::string_view upperText) {
  for (const auto& [id, field] : node.contentFields) {
    const std::string text = field->GetValueAsString();
    if (text.empty() || !ContainsUpperCase(text, upperText)) continue;
    AddResult(&node, "Content", CutContext(text));
    return;
  }
}

} // namespace Tesselor
