#include "editor/NodesMenu.h"

#include "editor/CreateNodeButton.h"
#include "editor/NodeCategoryHeader.h"
#include "platform/AsciiCase.h"
#include "toolkit/base/Diagnostics.h"
#include "toolkit/controls/ButtonBase.h"
#include "toolkit/controls/HeaderedContentControl.h"
#include "toolkit/controls/StackPanel.h"
#include "toolkit/markup/GUI.h"
#include "toolkit/visual/Input.h"

#include <algorithm>
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
  type.Handler<&NodesMenu::OnCreateGroup>("OnCreateGroup", Toolkit::ButtonBase::ClickEvent);
  type.Handler<&NodesMenu::OnCreateLink>("OnCreateLink", Toolkit::ButtonBase::ClickEvent);
  type.Handler<&NodesMenu::OnCreateComment>("OnCreateComment", Toolkit::ButtonBase::ClickEvent);
}

NodesMenu::NodesMenu() {
  SetDataContext(this);
  Toolkit::GUI::LoadComponent(*this, "NodesMenu.xaml");
  scale = Toolkit::Ptr(Get<Toolkit::ScaleTransform*>(RenderTransformProperty));
  list = FindName<Toolkit::Grid>("NodesMenuGridList");
  TOOLKIT_ASSERT(scale && list);
}

Toolkit::TextBox* NodesMenu::GetSearchTextBox() const { return FindName<Toolkit::TextBox>("SearchTextBox"); }

Toolkit::Grid* NodesMenu::GetList() {
  MakeListIfDue();
  return list;
}

void NodesMenu::SetWorkspace(std::shared_ptr<Workspace> newWorkspace) {
  categories.Clear();
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
  if (listFilter.IsDefault()) {
    MakeRows(categories);
    return;
  }
  Categories passing;
  for (const auto& [category, ids] : categories) {
    for (const std::string& id : ids) {
      const NodeBlueprint* blueprint = FindBlueprint(id);
      if (blueprint && Passes(listFilter, id, *blueprint)) passing[category].push_back(id);
    }
  }
  MakeRows(passing);
  ExpandRows();
}

void NodesMenu::MakeRows(const Categories& table) {
  list->ClearChildren();
  list->ClearRows();
  for (const auto& [category, ids] : table) MakeRow(category, ids);
}

void NodesMenu::MakeRow(const std::string& category, const std::vector<std::string>& ids) {
  auto buttons = Toolkit::MakePtr<Toolkit::StackPanel>();
  Color color = NoColor;
  for (const std::string& id : ids) {
    const NodeBlueprint* blueprint = FindBlueprint(id);
    if (!blueprint) continue;
    if (color == NoColor)
      color = blueprint->color;
    else if (!(color == blueprint->color))
      color = MixedColor;
    buttons->AddChild(
        Toolkit::MakePtr<CreateNodeButton>(id, blueprint->title, blueprint->color, blueprint->Description).Get());
  }
  auto expander = Toolkit::MakePtr<Toolkit::Expander>();
  expander->SetValue(VerticalAlignmentProperty, Toolkit::VerticalAlignment::Center);
  expander->SetHeader(Toolkit::MakePtr<NodeCategoryHeader>(category, color));
  expander->SetContent(buttons);

  auto definition = Toolkit::MakePtr<Toolkit::RowDefinition>();
  // Rows of a shared height would tear the closed categories apart once one is open.
  definition->SetValue(Toolkit::RowDefinition::HeightProperty, Toolkit::GridLength{1, Toolkit::GridUnit::Auto});
  const auto row = static_cast<int32_t>(list->RowCount());
  list->AddRow(definition.Get());
  auto frame = Toolkit::MakePtr<Toolkit::Grid>();
  frame->AddChild(expander.Get());
  Toolkit::Grid::SetRow(frame.Get(), row);
  list->AddChild(frame.Get());
}

void NodesMenu::ExpandRows() {
  const size_t count = list->ChildCount();
  for (size_t i = 0; i < count; ++i) {
    const auto* frame = static_cast<Toolkit::Grid*>(list->Child(i));
    auto* expander = static_cast<Toolkit::Expander*>(frame->Child(0));
    expander->SetIsExpanded(!listFilter.searchText.empty() || i != 0 || count == 1);
  }
}

} // namespace Tesselor
