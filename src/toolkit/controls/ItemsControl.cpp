#include "toolkit/controls/ItemsControl.h"

#include "toolkit/base/Diagnostics.h"
#include "toolkit/controls/ContentPresenter.h"
#include "toolkit/controls/StackPanel.h"
#include "toolkit/controls/TextBlock.h"
#include "toolkit/markup/Binding.h"
#include "toolkit/markup/Template.h"

#include <algorithm>
#include <unordered_map>

namespace Toolkit {

TOOLKIT_TYPE_IMPL(ItemsControl, Control, "ItemsControl")
void ItemsControl::Describe(TypeBuilder<ItemsControl>& type) {
  using P = DependencyProperty;
  ItemsSourceProperty = type.Property<ObservableCollectionBase*>("ItemsSource", nullptr, P::AffectsMeasure);
  ItemTemplateProperty = type.Property<DataTemplate*>("ItemTemplate", nullptr, P::AffectsMeasure);
  ItemsPanelProperty = type.Property<ItemsPanelTemplate*>("ItemsPanel", nullptr, P::AffectsMeasure);
  DisplayMemberPathProperty = type.Property<SharedString>("DisplayMemberPath", SharedString(), P::AffectsMeasure);
  ItemContainerStyleProperty = type.Property<Toolkit::Style*>("ItemContainerStyle", nullptr, P::AffectsMeasure);
  type.List<&ItemsControl::AddItem>("Items");
  type.Content("Items");
}

ItemsControl::ItemsControl() : generator(*this) {}

ItemsControl::~ItemsControl() {
  // Whoever still holds an item, such as the event that led to this end, must not reach this control through it.
  const auto release = [this](Object* item) {
    auto* element = DynamicCast<FrameworkElement>(item);
    if (element && element->LogicalParent() == this) element->SetLogicalParent(nullptr);
  };
  for (size_t i = 0; ownItems && i < ownItems->Count(); ++i) release(ownItems->ItemAt(i));
  for (size_t i = 0; host && i < host->ChildCount(); ++i) release(host->Child(i));
  if (host && host->VisualParent() == this) ReleaseVisualChild(host.Get());
}

FrameworkElement* ItemContainerGenerator::ContainerFromItem(const Object* item) const {
  for (size_t i = 0; i < owner.containerItems.size(); ++i)
    if (owner.containerItems[i] == item) return ContainerFromIndex(i);
  return nullptr;
}

FrameworkElement* ItemContainerGenerator::ContainerFromIndex(size_t index) const {
  const Panel* host = owner.ItemsHost();
  if (!host || index >= host->ChildCount()) return nullptr;
  return static_cast<FrameworkElement*>(host->Child(index));
}

const ObservableCollectionBase* ItemsControl::Source() const {
  if (const auto* source = static_cast<const ObservableCollectionBase*>(GetValue(ItemsSourceProperty).AsObject()))
    return source;
  return ownItems.Get();
}

size_t ItemsControl::ItemCount() const { return Source() ? Source()->Count() : 0; }
Object* ItemsControl::ItemAt(size_t index) const { return Source()->ItemAt(index); }

ObservableCollection<Object>& ItemsControl::Items() {
  if (!ownItems) {
    ownItems = MakePtr<ObservableCollection<Object>>();
    if (GetValue(ItemsSourceProperty).IsNone()) ObserveCollection(ownItems.Get());
  }
  return *ownItems;
}

void ItemsControl::AddItem(Object* item) {
  // An element belongs to this control from now on, before a container shows it.
  if (auto* element = DynamicCast<FrameworkElement>(item)) element->SetLogicalParent(this);
  Items().Add(Ptr<Object>(item));
}

void ItemsControl::OnPropertyChanged(const PropertyChange& change) {
  Control::OnPropertyChanged(change);
  if (&change.property == ItemsSourceProperty) {
    ObserveCollection(const_cast<ObservableCollectionBase*>(Source()));
    containersDue = true;
    OnItemsChanged({CollectionChange::Action::Reset, 0, 0});
  } else if (&change.property == ItemTemplateProperty || &change.property == ItemsPanelProperty ||
             &change.property == DisplayMemberPathProperty || &change.property == ItemContainerStyleProperty) {
    containerItems.clear();
    if (host) host->ClearChildren();
    containersDue = true;
  }
}

void ItemsControl::OnCollectionChanged(const CollectionChange& change) {
  containersDue = true;
  OnItemsChanged(change);
  InvalidateMeasure();
}

void ItemsControl::InvalidateContainers() {
  containersDue = true;
  InvalidateMeasure();
}

Ptr<Panel> ItemsControl::CreateHost() {
  if (const auto* panelTemplate = static_cast<const ItemsPanelTemplate*>(GetValue(ItemsPanelProperty).AsObject())) {
    Ptr<FrameworkElement> made = panelTemplate->Instantiate(this, {});
    if (auto* panel = DynamicCast<Panel>(made)) return Ptr<Panel>(panel);
    TOOLKIT_WARN("Markup", "an items panel template must make a panel");
  }
  return MakePtr<StackPanel>();
}

Ptr<FrameworkElement> ItemsControl::CreateContainer(Object* item) {
  if (auto* element = DynamicCast<FrameworkElement>(item)) return Ptr<FrameworkElement>(element);
  if (auto* dataTemplate = static_cast<DataTemplate*>(GetValue(ItemTemplateProperty).AsObject())) {
    // The presenter stands in the tree first, so that the template finds its component's handlers above it.
    auto presenter = MakePtr<ContentPresenter>();
    presenter->SetValue(ContentPresenter::ContentTemplateProperty, dataTemplate);
    presenter->SetValue(ContentPresenter::ContentProperty, item);
    presenter->SetLogicalParent(this);
    presenter->SetDataContext(item);
    return presenter;
  }
  auto text = MakePtr<TextBlock>();
  text->SetDataContext(item);
  auto binding = MakePtr<Binding>();
  binding->SetPath(GetString(DisplayMemberPathProperty));
  memberBindings.push_back(binding);
  text->SetExpression(binding->CreateExpression(TextBlock::TextProperty, nullptr));
  text->ActivateExpressions();
  return text;
}

void ItemsControl::GenerateContainers() {
  containersDue = false;
  if (!host) {
    host = CreateHost();
    if (!host->VisualParent()) AddVisualChild(host.Get());
  }
  const size_t count = ContainerCount();
  // Containers of items that stayed are kept: equal ones at both ends do not move.
  const size_t before = containerItems.size();
  size_t front = 0, back = 0;
  while (front < count && front < before && containerItems[front] == ItemAt(front)) ++front;
  while (front + back < std::min(count, before) && containerItems[before - 1 - back] == ItemAt(count - 1 - back))
    ++back;
  std::unordered_multimap<const Object*, Ptr<UIElement>> spare;
  std::vector<Ptr<UIElement>> leaving;
  for (size_t i = front; i < before - back; ++i) {
    leaving.emplace_back(host->Child(i));
    spare.emplace(containerItems[i].Get(), leaving.back());
  }
  host->RemoveChildren(leaving);
  const std::vector<Ptr<Object>> behind(containerItems.end() - static_cast<std::ptrdiff_t>(back), containerItems.end());
  containerItems.resize(front);
  for (size_t i = front; i < count - back; ++i) {
    Object* item = ItemAt(i);
    const auto kept = spare.find(item);
    Ptr<UIElement> container;
    if (kept != spare.end()) {
      container = kept->second;
      spare.erase(kept);
    } else {
      Ptr<FrameworkElement> made = CreateContainer(item);
      if (const Value& style = GetValue(ItemContainerStyleProperty); !style.IsNone())
        made->SetValue(FrameworkElement::StyleProperty, style);
      container = made;
    }
    containerItems.emplace_back(item);
    host->InsertChild(i, container.Get());
  }
  containerItems.insert(containerItems.end(), behind.begin(), behind.end());
}

void ItemsControl::PrepareForMeasure() {
  Control::PrepareForMeasure();
  if (containersDue) GenerateContainers();
}

size_t ItemsControl::VisualChildCount() const {
  if (TemplateRoot()) return 1;
  return host && host->VisualParent() == this ? 1 : 0;
}

UIElement* ItemsControl::VisualChild(size_t) const { return TemplateRoot() ? TemplateRoot() : host.Get(); }

Size ItemsControl::MeasureOverride(Size available) {
  if (TemplateRoot()) return Control::MeasureOverride(available);
  const Thickness chrome = Chrome();
  if (!host) return {chrome.Horizontal(), chrome.Vertical()};
  host->Measure(
      {std::max(0.0f, available.width - chrome.Horizontal()), std::max(0.0f, available.height - chrome.Vertical())});
  return {host->DesiredSize().width + chrome.Horizontal(), host->DesiredSize().height + chrome.Vertical()};
}

Size ItemsControl::ArrangeOverride(Size finalSize) {
  if (TemplateRoot()) return Control::ArrangeOverride(finalSize);
  if (host) {
    const Thickness chrome = Chrome();
    const Rect slot{chrome.left, chrome.top, std::max(0.0f, finalSize.width - chrome.Horizontal()),
                    std::max(0.0f, finalSize.height - chrome.Vertical())};
    host->Arrange(slot);
  }
  return finalSize;
}

} // namespace Toolkit
