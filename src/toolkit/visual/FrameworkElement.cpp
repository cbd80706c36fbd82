#include "toolkit/visual/FrameworkElement.h"

#include "toolkit/base/DataContext.h"
#include "toolkit/base/Diagnostics.h"
#include "toolkit/visual/Animation.h"
#include "toolkit/visual/Behavior.h"
#include "toolkit/visual/LayoutQueue.h"
#include "toolkit/visual/NameScope.h"
#include "toolkit/visual/Style.h"

#include <algorithm>
#include <utility>

namespace Toolkit {

const EnumDescription& DescribeEnum(HorizontalAlignment) {
  static const EnumDescription description{{{"Left", 0}, {"Center", 1}, {"Right", 2}, {"Stretch", 3}}};
  return description;
}

const EnumDescription& DescribeEnum(VerticalAlignment) {
  static const EnumDescription description{{{"Top", 0}, {"Center", 1}, {"Bottom", 2}, {"Stretch", 3}}};
  return description;
}

const RoutedEvent FrameworkElement::LoadedEvent("Loaded", RoutingStrategy::Direct);
const RoutedEvent FrameworkElement::UnloadedEvent("Unloaded", RoutingStrategy::Direct);

/// What few elements have.
struct FrameworkElement::Extras {
  std::unique_ptr<NameScope> nameScope;
  std::vector<Ptr<Behavior>> behaviors;
  std::vector<Ptr<ConditionProbe>> probes;
  std::vector<std::unique_ptr<RunningAnimation>> animations;
};

namespace {
/// A menu opens for the element that holds it, and inherits from there.
void HoldContextMenu(DependencyObject& object, const PropertyChange& change) {
  auto& owner = static_cast<FrameworkElement&>(object);
  auto* former = DynamicCast<FrameworkElement>(change.oldValue.AsObject());
  if (former && former->LogicalParent() == &owner) former->SetLogicalParent(nullptr);
  if (auto* menu = DynamicCast<FrameworkElement>(change.newValue.AsObject())) menu->SetLogicalParent(&owner);
}
} // namespace

TOOLKIT_TYPE_IMPL(FrameworkElement, UIElement, "FrameworkElement")
void FrameworkElement::Describe(TypeBuilder<FrameworkElement>& type) {
  using P = DependencyProperty;
  WidthProperty = type.Property<float>("Width", Auto, P::AffectsMeasure);
  HeightProperty = type.Property<float>("Height", Auto, P::AffectsMeasure);
  MinWidthProperty = type.Property<float>("MinWidth", 0, P::AffectsMeasure);
  MinHeightProperty = type.Property<float>("MinHeight", 0, P::AffectsMeasure);
  MaxWidthProperty = type.Property<float>("MaxWidth", Infinity, P::AffectsMeasure);
  MaxHeightProperty = type.Property<float>("MaxHeight", Infinity, P::AffectsMeasure);
  MarginProperty = type.Property<Thickness>("Margin", Thickness(), P::AffectsMeasure);
  HorizontalAlignmentProperty =
      type.Property<HorizontalAlignment>("HorizontalAlignment", HorizontalAlignment::Stretch, P::AffectsArrange);
  VerticalAlignmentProperty =
      type.Property<VerticalAlignment>("VerticalAlignment", VerticalAlignment::Stretch, P::AffectsArrange);
  StyleProperty = type.Property<Toolkit::Style*>("Style");
  NameProperty = type.Property<SharedString>("Name");
  TagProperty = type.Property<Value>("Tag");
  ToolTipProperty = type.Property<Value>("ToolTip", Value(), P::DefersContent);
  ContextMenuProperty = type.Property<Object*>("ContextMenu", nullptr, P::DefersContent, &HoldContextMenu);
  CursorProperty = type.Property<SharedString>("Cursor");
  DataContextProperty = type.Declare(DataContext::Property());
  type.Event(&LoadedEvent);
  type.Event(&UnloadedEvent);
  type.Member<&FrameworkElement::ActualWidth>("ActualWidth");
  type.Member<&FrameworkElement::ActualHeight>("ActualHeight");
}

FrameworkElement::FrameworkElement() = default;

FrameworkElement::~FrameworkElement() {
  if (auto* menu = DynamicCast<FrameworkElement>(GetValue(ContextMenuProperty).AsObject());
      menu && menu->LogicalParent() == this)
    menu->SetLogicalParent(nullptr);
  if (extras) {
    for (const Ptr<Behavior>& behavior : extras->behaviors) behavior->Detach();
    watchesTriggers = false;
    EndAnimations();
    ReleaseProbes();
  }
}

FrameworkElement::Extras& FrameworkElement::GetExtras() {
  if (!extras) extras = std::make_unique<Extras>();
  return *extras;
}

void FrameworkElement::SetDataContext(Object* value) {
  // An element that is its own context does not count the reference, or it would keep itself alive for ever.
  if (isOwnContext) {
    AddRef();
    isOwnContext = false;
  }
  SetValue(DataContextProperty, value);
  if (value == this) {
    isOwnContext = true;
    Release();
  }
}

Object* FrameworkElement::FindNamed(std::string_view name) const {
  const Symbol symbol(name);
  for (const UIElement* e = this; e; e = e->UIParent()) {
    const auto* element = DynamicCast<FrameworkElement>(e);
    if (!element || !element->extras || !element->extras->nameScope) continue;
    return element->extras->nameScope->Find(symbol);
  }
  return nullptr;
}

FrameworkElement* FrameworkElement::FindName(std::string_view name) const {
  return DynamicCast<FrameworkElement>(FindNamed(name));
}

void FrameworkElement::SetNameScope(std::unique_ptr<NameScope> scope) { GetExtras().nameScope = std::move(scope); }

const NameScope* FrameworkElement::GetNameScope() const { return extras ? extras->nameScope.get() : nullptr; }

void FrameworkElement::SetLogicalParent(UIElement* parent) {
  if (logicalParent == parent) return;
  logicalParent = parent;
  if (!VisualParent()) RefreshInheritance(0);
}

void FrameworkElement::AddBehavior(Ptr<Behavior> behavior) {
  behavior->Attach(this);
  GetExtras().behaviors.push_back(std::move(behavior));
}

void FrameworkElement::ApplyThemeStyle() {
  if (themeApplied) return;
  themeApplied = true;
  themeStyle = Theme::StyleFor(GetType());
  ApplyStyles();
}

void FrameworkElement::ApplyStyles() {
  auto* style = static_cast<Toolkit::Style*>(GetValue(StyleProperty).AsObject());
  const StyleChange change = WasMeasured() || HasObservers() ? StyleChange::Notify : StyleChange::Silent;
  SetStyleValues(style ? &style->setters : nullptr, themeStyle ? &themeStyle->setters : nullptr, change);
  watchesTriggers = (style && !style->triggers.empty()) || (themeStyle && !themeStyle->triggers.empty());
  if (!watchesTriggers) return;
  if ((style && style->HasAnimations()) || (themeStyle && themeStyle->HasAnimations())) wantsAttachment = true;
  bool mayHold = false;
  for (Toolkit::Style* source : {themeStyle, style}) {
    if (!source) continue;
    for (const Ptr<Trigger>& trigger : source->triggers) {
      for (const TriggerCondition& condition : trigger->conditions) {
        mayHold = mayHold || condition.binding || GetValue(condition.property) == condition.value;
        if (!condition.binding) continue;
        auto probe = MakePtr<ConditionProbe>(*this);
        probe->condition = &condition;
        probe->RefreshInheritance(0);
        GetExtras().probes.push_back(probe);
        probe->SetExpression(condition.binding->CreateExpression(ConditionProbe::ValueProperty, nullptr));
        probe->ActivateExpressions();
      }
    }
  }
  if (mayHold) UpdateTriggers();
}

void FrameworkElement::ReleaseProbes() {
  if (!extras) return;
  for (const Ptr<ConditionProbe>& probe : extras->probes) probe->ReleaseOwner();
  extras->probes.clear();
}

void FrameworkElement::UpdateTriggers() {
  auto* style = static_cast<Toolkit::Style*>(GetValue(StyleProperty).AsObject());
  std::vector<std::pair<const DependencyProperty*, const Value*>> outcome;
  for (Toolkit::Style* source : {themeStyle, style}) {
    if (!source) continue;
    for (const Ptr<Trigger>& trigger : source->triggers) {
      bool active = true;
      for (const TriggerCondition& condition : trigger->conditions) {
        if (condition.property) {
          active = active && GetValue(condition.property) == condition.value;
          continue;
        }
        bool holds = false;
        if (extras)
          for (const Ptr<ConditionProbe>& probe : extras->probes)
            if (probe->condition == &condition) holds = probe->Holds();
        active = active && holds;
      }
      for (const DoubleAnimation& animation : trigger->animations) SetRunning(animation, active);
      for (const PropertySet::Entry& setter : trigger->setters.Entries()) {
        auto found = std::find_if(outcome.begin(), outcome.end(),
                                  [&](const auto& pair) { return pair.first == setter.property; });
        if (found == outcome.end()) found = outcome.insert(outcome.end(), {setter.property, nullptr});
        if (active) found->second = &setter.value;
      }
    }
  }
  for (const auto& [property, value] : outcome) {
    if (value)
      SetValueAt(ValueLevel::StyleTrigger, property, *value);
    else
      ClearValueAt(ValueLevel::StyleTrigger, property);
  }
}

void FrameworkElement::SetRunning(const DoubleAnimation& animation, bool runs) {
  runs = runs && IsAttached();
  if (!runs && !extras) return;
  auto& running = GetExtras().animations;
  const auto found = std::find_if(running.begin(), running.end(),
                                  [&](const auto& candidate) { return &candidate->Animation() == &animation; });
  if (runs == (found != running.end())) return;
  if (runs) {
    running.push_back(std::make_unique<RunningAnimation>(*this, animation));
    return;
  }
  const std::unique_ptr<RunningAnimation> ended = std::move(*found);
  running.erase(found);
}

void FrameworkElement::EndAnimations() {
  if (!extras) return;
  // Apart from the element already, since each of them gives a property back as it ends.
  std::exchange(extras->animations, {}).clear();
}

void FrameworkElement::OnPropertyChanged(const PropertyChange& change) {
  UIElement::OnPropertyChanged(change);
  if (&change.property == StyleProperty) {
    ReleaseProbes();
    EndAnimations();
    for (const auto* former = static_cast<const Toolkit::Style*>(change.oldValue.AsObject()); former; former = nullptr)
      for (const Ptr<Trigger>& trigger : former->triggers)
        for (const PropertySet::Entry& setter : trigger->setters.Entries())
          ClearValueAt(ValueLevel::StyleTrigger, setter.property);
    ApplyStyles();
    return;
  }
  if (!watchesTriggers) return;
  const auto* style = static_cast<const Toolkit::Style*>(GetValue(StyleProperty).AsObject());
  if ((themeStyle && themeStyle->HasTriggerOn(change.property)) || (style && style->HasTriggerOn(change.property)))
    UpdateTriggers();
}

void FrameworkElement::RefreshInheritanceOfChildren(uint16_t changedBits) {
  if (extras) {
    for (const Ptr<ConditionProbe>& probe : extras->probes) probe->RefreshInheritance(changedBits);
    for (const Ptr<Behavior>& behavior : extras->behaviors) behavior->RefreshInheritance(changedBits);
  }
  UIElement::RefreshInheritanceOfChildren(changedBits);
}

void FrameworkElement::OnAttached() {
  if (HasHandler(LoadedEvent)) LayoutQueue::Current().AddLoaded(*this);
  // Animations run for elements in a window only.
  if (watchesTriggers) UpdateTriggers();
}

void FrameworkElement::OnDetached() {
  EndAnimations();
  if (HasHandler(UnloadedEvent)) RaiseEvent(RoutedEventArgs(UnloadedEvent, this));
}

namespace {
struct Limits {
  float minWidth, maxWidth, minHeight, maxHeight;
};

// `Width` fixes both limits, within `MinWidth` and `MaxWidth`, which win.
void Limit(float length, float minimum, float maximum, float& low, float& high) {
  low = minimum;
  high = std::max(minimum, maximum);
  if (!IsAuto(length)) low = high = std::clamp(length, low, high);
}
} // namespace

Size FrameworkElement::MeasureCore(Size available) {
  if (!themeApplied) ApplyThemeStyle();
  PrepareForMeasure();
  const Thickness margin = Get<Thickness>(MarginProperty);
  Limits limits;
  Limit(Get<float>(WidthProperty), Get<float>(MinWidthProperty), Get<float>(MaxWidthProperty), limits.minWidth,
        limits.maxWidth);
  Limit(Get<float>(HeightProperty), Get<float>(MinHeightProperty), Get<float>(MaxHeightProperty), limits.minHeight,
        limits.maxHeight);
  const Size inner{
      std::clamp(std::max(0.0f, available.width - margin.Horizontal()), limits.minWidth, limits.maxWidth),
      std::clamp(std::max(0.0f, available.height - margin.Vertical()), limits.minHeight, limits.maxHeight)};
  Size wanted = MeasureOverride(inner);
  wanted.width = std::clamp(wanted.width, limits.minWidth, limits.maxWidth);
  wanted.height = std::clamp(wanted.height, limits.minHeight, limits.maxHeight);
  return {std::max(0.0f, wanted.width + margin.Horizontal()), std::max(0.0f, wanted.height + margin.Vertical())};
}

void FrameworkElement::ArrangeCore(const Rect& rect) {
  const Thickness margin = Get<Thickness>(MarginProperty);
  Size slot{std::max(0.0f, rect.width - margin.Horizontal()), std::max(0.0f, rect.height - margin.Vertical())};
  const Size wanted{std::max(0.0f, DesiredSize().width - margin.Horizontal()),
                    std::max(0.0f, DesiredSize().height - margin.Vertical())};
  const auto horizontal = Get<HorizontalAlignment>(HorizontalAlignmentProperty);
  const auto vertical = Get<VerticalAlignment>(VerticalAlignmentProperty);
  Size size = slot;
  if (horizontal != HorizontalAlignment::Stretch) size.width = std::min(wanted.width, slot.width);
  if (vertical != VerticalAlignment::Stretch) size.height = std::min(wanted.height, slot.height);
  Limits limits;
  Limit(Get<float>(WidthProperty), Get<float>(MinWidthProperty), Get<float>(MaxWidthProperty), limits.minWidth,
        limits.maxWidth);
  Limit(Get<float>(HeightProperty), Get<float>(MinHeightProperty), Get<float>(MaxHeightProperty), limits.minHeight,
        limits.maxHeight);
  size.width = std::clamp(size.width, limits.minWidth, limits.maxWidth);
  size.height = std::clamp(size.height, limits.minHeight, limits.maxHeight);
  const Size before = RenderSize();
  const Size taken = ArrangeOverride(size);
  // What is smaller than a stretched slot is centred in it; what is larger begins at its start.
  auto place = [](int alignment, float slotLength, float length) {
    if (length >= slotLength || alignment == 0) return 0.0f;
    if (alignment == 2) return slotLength - length;
    return (slotLength - length) * 0.5f;
  };
  SetRenderSize(taken, {rect.x + margin.left + place(static_cast<int>(horizontal), slot.width, taken.width),
                        rect.y + margin.top + place(static_cast<int>(vertical), slot.height, taken.height)});
  if (HasObservers()) {
    static const Symbol width("ActualWidth"), height("ActualHeight");
    if (before.width != taken.width) NotifyObservers(width);
    if (before.height != taken.height) NotifyObservers(height);
  }
}

} // namespace Toolkit
