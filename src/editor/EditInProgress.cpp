#include "editor/EditInProgress.h"

#include "editor/NodeSearchPanel.h"
#include "editor/NodesMenu.h"
#include "fields/FieldEnumFilterable.h"
#include "toolkit/controls/Slider.h"
#include "toolkit/controls/TextBox.h"

namespace Tesselor {

namespace {

/// What is typed there only finds things.
bool IsSearchBox(const Toolkit::UIElement& element) {
  for (const Toolkit::UIElement* e = &element; e; e = e->UIParent())
    if (Toolkit::DynamicCast<NodeSearchPanel>(e) || Toolkit::DynamicCast<NodesMenu>(e) ||
        Toolkit::DynamicCast<FieldEnumFilterable>(e))
      return true;
  return false;
}

const Toolkit::DependencyProperty* ValueOf(const Toolkit::UIElement& element) {
  if (Toolkit::DynamicCast<Toolkit::Slider>(&element)) return Toolkit::Slider::ValueProperty;
  if (Toolkit::DynamicCast<Toolkit::TextBox>(&element) && !IsSearchBox(element)) return Toolkit::TextBox::TextProperty;
  return nullptr;
}

} // namespace

EditInProgress::EditInProgress(Toolkit::UIElement& root, std::function<void()> changed)
    : root(root), changed(std::move(changed)) {
  root.AddHandler(Toolkit::UIElement::GotFocusEvent,
                  Toolkit::RoutedEventHandler::From<&EditInProgress::OnGotFocus>(this), true);
  root.AddHandler(Toolkit::UIElement::LostFocusEvent,
                  Toolkit::RoutedEventHandler::From<&EditInProgress::OnLostFocus>(this), true);
}

EditInProgress::~EditInProgress() {
  root.RemoveHandler(Toolkit::UIElement::GotFocusEvent,
                     Toolkit::RoutedEventHandler::From<&EditInProgress::OnGotFocus>(this));
  root.RemoveHandler(Toolkit::UIElement::LostFocusEvent,
                     Toolkit::RoutedEventHandler::From<&EditInProgress::OnLostFocus>(this));
}

bool EditInProgress::Differs() const {
  const auto* edited = static_cast<Toolkit::DependencyObject*>(ObservedObject());
  return edited && property && !(edited->GetValue(property) == before);
}

void EditInProgress::OnObservedGone() {
  property = nullptr;
  changed();
}

void EditInProgress::OnGotFocus(Toolkit::Object*, const Toolkit::RoutedEventArgs& args) {
  auto* element = Toolkit::DynamicCast<Toolkit::UIElement>(args.source);
  property = element ? ValueOf(*element) : nullptr;
  if (!property) return;
  before = element->GetValue(property);
  Observe(element, property->name);
}

void EditInProgress::OnLostFocus(Toolkit::Object*, const Toolkit::RoutedEventArgs&) {
  if (!property) return;
  property = nullptr;
  StopObserving();
  changed();
}

} // namespace Tesselor
