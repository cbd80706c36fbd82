#include "editor/NodesMenu.h"

#include "editor/CreateNodeButton.h"
#include "nodes/NodeKeys.h"
#include "platform/AsciiCase.h"
#include "toolkit/base/Diagnostics.h"
#include "toolkit/controls/ButtonBase.h"
#include "toolkit/markup/GUI.h"
#include "toolkit/visual/Input.h"

#include <algorithm>
#include <cstdlib>
#include <unordered_map>

namespace Tesselor {

using Toolkit::Color;
using Toolkit::Visibility;

namespace {

/// The colour of a category while none of its types was seen.
constexpr Color NoColor{0, 0, 0, 1};
/// The colour of a category whose types disagree.
constexpr Color MixedColor = Color::FromBytes(128, 128, 128);
constexpr const char* UncategorizedName = "Uncategorized";

bool HasPinOfType(const std::vector<std::unique_ptr<NodePinBlueprint>>& pins, const std::string& pinType) {
  return std::any_of(pins.begin(), pins.end(), [&](const auto& pin) { return pin->Type == pinType; });
}

/// The ids that no category names. An id that stands in `ids` twice and in a category once remains once.
std::vector<std::string> UncategorizedIds(const std::vector<std::string>& ids,
                                          const NodesMenu::Categories& categories) {
  std::unordered_map<std::string_view, size_t> taken;
  for (const auto& [category, members] : categories)
    for (const std::string& id : members) ++taken[id];
  std::vector<std::string> remaining;
  for (const std::string& id : ids) {
    const auto found = taken.find(id);
    if (found != taken.end() && found->second > 0)
      --found->second;
    else
      remaining.push_back(id);
  }
  return remaining;
}

} // namespace

const Toolkit::RoutedEvent NodesMenu::CreateGroupEvent("CreateGroup", Toolkit::RoutingStrategy::Bubble);
const Toolkit::RoutedEvent NodesMenu::CreateLinkEvent("CreateLink", Toolkit::RoutingStrategy::Bubble);
const Toolkit::RoutedEvent NodesMenu::CreateCommentEvent("CreateComment", Toolkit::RoutingStrategy::Bubble);
const Toolkit::RoutedEvent NodesMenu::ClosedEvent("Closed", Toolkit::RoutingStrategy::Bubble);
const Toolkit::RoutedEvent NodesMenu::ResizedEvent("Resized", Toolkit::RoutingStrategy::Direct);

TOOLKIT_TYPE_IMPL(NodesMenu, Toolkit::UserControl, "Tesselor.NodesMenu")
void NodesMenu::Describe(Toolkit::TypeBuilder<NodesMenu>& type) {
  NodesMenuVisibilityProperty =
      type.Property<Visibility>("NodesMenuVisibility", Visibility::Collapsed, 0, &NodesMenu::OnVisibilityChanged);
  SearchTextProperty =
      type.Property<Toolkit::SharedString>("SearchText", Toolkit::SharedString(), 0, &NodesMenu::OnSearchTextChanged);
  type.Event(&CreateGroupEvent);
  type.Event(&CreateLinkEvent);
  type.Event(&CreateCommentEvent);
  type.Event(&ClosedEvent);
  type.Event(&ResizedEvent);
  type.Handler<&NodesMenu::OnSearchKeyDown>("OnSearchKeyDown", KeyDownEvent);
  type.Handler<&NodesMenu::OnCreateGroup>("OnCreateGroup", Toolkit::ButtonBase::ClickEvent);
  type.Handler<&NodesMenu::OnCreateLink>("OnCreateLink", Toolkit::ButtonBase::ClickEvent);
  type.Handler<&NodesMenu::OnCreateComment>("OnCreateComment", Toolkit::ButtonBase::ClickEvent);
}

NodesMenu::NodesMenu() {
  SetDataContext(this);
  Toolkit::GUI::LoadComponent(*this, "NodesMenu.xaml");
  scale = Toolkit::Ptr(Get<Toolkit::ScaleTransform*>(RenderTransformProperty));
  list = FindName<Toolkit::Grid>("NodesMenuGridList");
  viewer = FindName<Toolkit::ScrollViewer>("NodesMenuViewer");
  body = FindName<Toolkit::FrameworkElement>("NodesMenuBody");
  noMatchText = FindName<Toolkit::FrameworkElement>("NoMatchText");
  TOOLKIT_ASSERT(scale && list && viewer && body && noMatchText);
  notesLayout = true;
}

Toolkit::TextBox* NodesMenu::GetSearchTextBox() const { return FindName<Toolkit::TextBox>("SearchTextBox"); }

Toolkit::Grid* NodesMenu::GetList() {
  MakeListIfDue();
  return list;
}

void NodesMenu::SetWorkspace(std::shared_ptr<Workspace> newWorkspace) {
  categories.Clear();
  marked.reset();
  rows.clear();
  list->ClearChildren();
  list->ClearRows();
  workspace = std::move(newWorkspace);
  if (workspace && workspace->nodeDictionary) {
    const NodeDictionary& dictionary = *workspace->nodeDictionary;
    for (const auto& [category, ids] : dictionary.categories) categories.Assign(category, ids);
    const std::vector<std::string> remaining = UncategorizedIds(dictionary.nodeIds, categories);
    if (!remaining.empty()) {
      std::vector<std::string>& uncategorized = categories[UncategorizedName];
      uncategorized.insert(uncategorized.end(), remaining.begin(), remaining.end());
    }
  }
  RequestList(NodeMenuFilter());
}

void NodesMenu::ApplyFilter(const NodeMenuFilter& newFilter) {
  filter = newFilter;
  RequestList(filter);
}

void NodesMenu::Open() {
  SetNodesMenuVisibility(Visibility::Visible);
  if (Toolkit::TextBox* box = GetSearchTextBox()) box->Focus();
}

void NodesMenu::FitInto(Toolkit::Size room) {
  body->SetValue(MaxWidthProperty, std::max(0.0f, room.width));
  body->SetValue(MaxHeightProperty, std::max(0.0f, room.height));
}

void NodesMenu::Hide() {
  filter = NodeMenuFilter();
  // Closed before the text goes, so that nobody waits for the rows of a menu that is about to vanish.
  SetNodesMenuVisibility(Visibility::Collapsed);
  SetSearchText({});
}

void NodesMenu::OnVisibilityChanged(Toolkit::DependencyObject& object, const Toolkit::PropertyChange&) {
  auto& menu = static_cast<NodesMenu&>(object);
  if (menu.IsOpen()) {
    menu.MakeListIfDue();
    return;
  }
  menu.Mark({});
  menu.HandFocusOn();
  menu.RaiseEvent(Toolkit::RoutedEventArgs(ClosedEvent, &menu));
}

void NodesMenu::OnSearchTextChanged(Toolkit::DependencyObject& object, const Toolkit::PropertyChange&) {
  auto& menu = static_cast<NodesMenu&>(object);
  NodeMenuFilter changed = menu.filter;
  changed.searchText = UpperCase(menu.GetSearchText());
  menu.ApplyFilter(changed);
}

void NodesMenu::OnCreateGroup(Toolkit::Object*, const Toolkit::RoutedEventArgs&) {
  RaiseEvent(CreateGroupEventArgs(CreateGroupEvent, this));
}

void NodesMenu::OnCreateLink(Toolkit::Object*, const Toolkit::RoutedEventArgs&) {
  RaiseEvent(CreateLinkEventArgs(CreateLinkEvent, this));
}

void NodesMenu::OnCreateComment(Toolkit::Object*, const Toolkit::RoutedEventArgs&) {
  RaiseEvent(CreateCommentEventArgs(CreateCommentEvent, this));
}

void NodesMenu::HandFocusOn() {
  Toolkit::UIElement* focused = Toolkit::Keyboard::GetFocused();
  if (!focused || !IsAncestorOf(focused)) return;
  for (Toolkit::UIElement* outer = UIParent(); outer; outer = outer->UIParent())
    if (outer->Focus()) return;
}

const NodeBlueprint* NodesMenu::FindBlueprint(const std::string& id) const {
  return workspace && workspace->nodeDictionary ? workspace->nodeDictionary->FindBlueprint(id) : nullptr;
}

bool NodesMenu::Passes(const NodeMenuFilter& wanted, const std::string& id, const NodeBlueprint& blueprint) {
  if (!ContainsUpperCase(blueprint.title, wanted.searchText)) return false;
  const bool nodeIsGeneric = wanted.pinSide == DroppedPinSide::Output && id == "Generic";
  const bool pendingIsGeneric = wanted.pinBlueprint && wanted.pinBlueprint->Type == "Generic";
  if (nodeIsGeneric || pendingIsGeneric || wanted.pinSide == DroppedPinSide::None) return true;
  if (!wanted.pinBlueprint) return false;
  return HasPinOfType(wanted.pinSide == DroppedPinSide::Output ? blueprint.inputs : blueprint.outputs,
                      wanted.pinBlueprint->Type);
}

void NodesMenu::RequestList(const NodeMenuFilter& wanted) {
  listFilter = wanted;
  listIsDue = true;
  if (IsOpen()) MakeListIfDue();
}

void NodesMenu::MakeListIfDue() {
  if (!listIsDue) return;
  listIsDue = false;
  Mark({});
  if (rows.empty()) MakeRows();
  for (const Row& row : rows) FillRow(row);
  ExpandRows();
  const bool isAnyListed = std::any_of(rows.begin(), rows.end(), [](const Row& row) { return row.IsListed(); });
  noMatchText->SetVisibility(isAnyListed ? Visibility::Collapsed : Visibility::Visible);
  viewer->ScrollTo({});
  // Whoever types goes for the first that fits.
  if (!listFilter.searchText.empty()) Mark(Next({}, 1));
}

void NodesMenu::MakeRows() {
  for (const auto& [category, ids] : categories) rows.push_back(MakeRow(category, ids));
}

NodesMenu::Row NodesMenu::MakeRow(const std::string& category, const std::vector<std::string>& ids) {
  std::vector<NodeTypeList::Entry> entries;
  for (const std::string& id : ids)
    if (const NodeBlueprint* blueprint = FindBlueprint(id)) entries.push_back({id, blueprint, nullptr});
  auto types = Toolkit::MakePtr<NodeTypeList>(std::move(entries), entryHeight);
  auto header = Toolkit::MakePtr<NodeCategoryHeader>(category);
  auto expander = Toolkit::MakePtr<Toolkit::Expander>();
  expander->SetValue(VerticalAlignmentProperty, Toolkit::VerticalAlignment::Center);
  expander->SetHeader(header);
  expander->SetContent(types);

  auto definition = Toolkit::MakePtr<Toolkit::RowDefinition>();
  // Rows of a shared height would tear the closed categories apart once one is open.
  definition->SetValue(Toolkit::RowDefinition::HeightProperty, Toolkit::GridLength{1, Toolkit::GridUnit::Auto});
  const auto row = static_cast<int32_t>(list->RowCount());
  list->AddRow(definition.Get());
  auto frame = Toolkit::MakePtr<Toolkit::Grid>();
  frame->AddChild(expander.Get());
  Toolkit::Grid::SetRow(frame.Get(), row);
  list->AddChild(frame.Get());
  return {frame.Get(), expander.Get(), header.Get(), types.Get()};
}

void NodesMenu::FillRow(const Row& row) {
  const std::vector<NodeTypeList::Entry>& entries = row.types->Entries();
  std::vector<size_t> passing;
  Color color = NoColor;
  for (size_t i = 0; i < entries.size(); ++i) {
    const NodeBlueprint& blueprint = *entries[i].blueprint;
    if (!Passes(listFilter, entries[i].id, blueprint)) continue;
    passing.push_back(i);
    if (color == NoColor)
      color = blueprint.color;
    else if (!(color == blueprint.color))
      color = MixedColor;
  }
  // Without a filter even a category whose types are all gone is there.
  const bool isListed = !passing.empty() || listFilter.IsDefault();
  row.frame->SetVisibility(isListed ? Visibility::Visible : Visibility::Collapsed);
  row.header->SetColor(color);
  row.types->Show(std::move(passing));
}

void NodesMenu::ExpandRows() {
  const auto count = std::count_if(rows.begin(), rows.end(), [](const Row& row) { return row.IsListed(); });
  bool isFirst = true;
  for (const Row& row : rows) {
    if (!row.IsListed()) continue;
    row.expander->SetIsExpanded(!listFilter.IsDefault() && (!listFilter.searchText.empty() || !isFirst || count == 1));
    isFirst = false;
  }
}

void NodesMenu::OnLayoutChanged(Toolkit::LayoutChange) {
  BringInEntries();
  if (!IsOpen() || ActualHeight() == toldHeight) return;
  toldHeight = ActualHeight();
  RaiseEvent(Toolkit::RoutedEventArgs(ResizedEvent, this));
}

Toolkit::Rect NodesMenu::Reveal(const Toolkit::Rect& area) {
  const float left = std::clamp(area.x, 0.0f, ActualWidth()), top = std::clamp(area.y, 0.0f, ActualHeight());
  return {left, top, std::clamp(area.Right(), left, ActualWidth()) - left,
          std::clamp(area.Bottom(), top, ActualHeight()) - top};
}

void NodesMenu::BringInEntries() {
  if (!IsOpen()) return;
  for (const Row& row : rows) {
    if (!row.IsListed() || !row.expander->IsExpanded()) continue;
    const float top = row.types->TransformToAncestor(viewer).Map({}).y;
    if (top > viewer->ActualHeight()) break;
    row.types->BringIn(-top, viewer->ActualHeight() - top);
  }
}

const NodeTypeList::Entry* NodesMenu::Marked() const {
  return marked ? &rows[marked->row].types->ShownAt(marked->position) : nullptr;
}

std::optional<NodesMenu::Place> NodesMenu::Next(std::optional<Place> from, int direction) const {
  if (from && direction > 0 && from->position + 1 < rows[from->row].types->Shown().size())
    return Place{from->row, from->position + 1};
  if (from && direction < 0 && from->position > 0) return Place{from->row, from->position - 1};
  const auto count = static_cast<int>(rows.size());
  int at = from ? static_cast<int>(from->row) + direction : direction > 0 ? 0 : count - 1;
  for (; at >= 0 && at < count; at += direction) {
    const Row& row = rows[static_cast<size_t>(at)];
    const size_t entries = row.IsListed() ? row.types->Shown().size() : 0;
    if (entries > 0) return Place{static_cast<size_t>(at), direction > 0 ? 0 : entries - 1};
  }
  return {};
}

void NodesMenu::MoveMark(int distance) {
  std::optional<Place> place = marked;
  for (int i = 0; i < std::abs(distance); ++i)
    if (const std::optional<Place> next = Next(place, distance > 0 ? 1 : -1)) place = next;
  Mark(place);
}

void NodesMenu::Mark(std::optional<Place> place) {
  if (marked) rows[marked->row].types->Mark({});
  marked = place;
  if (!place) return;
  const Row& row = rows[place->row];
  row.expander->SetIsExpanded(true);
  row.types->Mark(place->position);
  UpdateLayout();
  row.types->BringIntoView(row.types->PlaceOf(place->position));
}

std::optional<NodesMenu::Place> NodesMenu::FirstToTake() const {
  const std::optional<Place> first = Next({}, 1);
  // A type of the schema fits a dropped pin better than the node that takes anything.
  if (filter.pinSide != DroppedPinSide::None)
    for (std::optional<Place> place = first; place; place = Next(place, 1))
      if (rows[place->row].types->ShownAt(place->position).id != BuiltIn::Generic) return place;
  return first;
}

void NodesMenu::TakeMarked() {
  if (!marked) Mark(FirstToTake());
  const NodeTypeList::Entry* entry = Marked();
  if (!entry) return;
  CreateNodeEventArgs create(CreateNodeButton::CreateNodeEvent, this);
  create.nodeId = entry->id;
  RaiseEvent(create);
}

void NodesMenu::OnSearchKeyDown(Toolkit::Object*, const Toolkit::KeyEventArgs& args) {
  constexpr int Page = 10;
  switch (args.key) {
  case Toolkit::Key::Down: MoveMark(1); break;
  case Toolkit::Key::Up: MoveMark(-1); break;
  case Toolkit::Key::PageDown: MoveMark(Page); break;
  case Toolkit::Key::PageUp: MoveMark(-Page); break;
  case Toolkit::Key::Return:
    // The menu may have opened under the finger.
    if (!args.isRepeat) TakeMarked();
    break;
  default: return;
  }
  args.handled = true;
}

} // namespace Tesselor
