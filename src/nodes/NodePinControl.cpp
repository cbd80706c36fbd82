#include "nodes/NodePinControl.h"

#include "nodes/DocumentView.h"
#include "toolkit/controls/ContentControl.h"
#include "toolkit/controls/ContextMenu.h"
#include "toolkit/controls/MenuItem.h"
#include "toolkit/markup/GUI.h"

#include <functional>
#include <string_view>

namespace Tesselor {

namespace {

DocumentView* ViewAbove(Toolkit::UIElement* element) {
  for (; element; element = element->UIParent())
    if (auto* view = dynamic_cast<DocumentView*>(element)) return view;
  return nullptr;
}

void AddMenuItem(Toolkit::ContextMenu& menu, const char* header, std::function<void()> action) {
  auto item = Toolkit::MakePtr<Toolkit::MenuItem>();
  item->SetHeader(header);
  item->AddHandler(Toolkit::MenuItem::ClickEvent,
                   Toolkit::RoutedEventHandler::From(
                       [action = std::move(action)](Toolkit::Object*, const Toolkit::RoutedEventArgs&) { action(); }));
  menu.AddItem(item.Get());
}

} // namespace

const Toolkit::RoutedEvent NodePinControl::NodePinMouseDownEvent("NodePinMouseDown", Toolkit::RoutingStrategy::Bubble);
const Toolkit::RoutedEvent NodePinControl::NodePinMouseUpEvent("NodePinMouseUp", Toolkit::RoutingStrategy::Bubble);

TOOLKIT_TYPE_IMPL(NodePinControl, Toolkit::UserControl, "Tesselor.NodePin")
void NodePinControl::Describe(Toolkit::TypeBuilder<NodePinControl>& type) {
  AnchorProperty = type.Property<Toolkit::Point>("Anchor");
  IsInputProperty = type.Property<bool>("IsInput");
  IsPendingConnectionProperty = type.Property<bool>("IsPendingConnection");
  type.Event(&NodePinMouseDownEvent);
  type.Event(&NodePinMouseUpEvent);
  type.Handler<&NodePinControl::Pin_MouseDown>("Pin_MouseDown", PreviewMouseDownEvent);
  type.Handler<&NodePinControl::Pin_MouseUp>("Pin_MouseUp", PreviewMouseUpEvent);
}

NodePinControl::NodePinControl() { InitializeComponent(); }

void NodePinControl::InitializeComponent() { Toolkit::GUI::LoadComponent(*this, "NodePin.xaml"); }

NodePinData* NodePinControl::PinData() const { return Toolkit::DynamicCast<NodePinData>(GetDataContext()); }

Toolkit::FrameworkElement* NodePinControl::PinElement() const {
  if (Toolkit::FrameworkElement* known = pinElement.Get()) return known;
  const auto* holder = FindName<Toolkit::ContentControl>("NodePinContentControl");
  const auto* row =
      holder ? Toolkit::DynamicCast<FrameworkElement>(static_cast<const Toolkit::Object*>(holder->ContentElement()))
             : nullptr;
  FrameworkElement* found = row ? row->FindName<FrameworkElement>("Pin") : nullptr;
  if (found) pinElement = Toolkit::WeakPtr<FrameworkElement>(found);
  return found;
}

Toolkit::Point NodePinControl::PinCentre(const Toolkit::UIElement* panel) const {
  const FrameworkElement* pin = PinElement();
  if (!pin) return {};
  const Toolkit::Point corner = pin->TransformToAncestor(panel).Map({0, 0});
  return {corner.x + pin->ActualWidth() / 2, corner.y + pin->ActualHeight() / 2};
}

void NodePinControl::Pin_MouseDown(Toolkit::Object*, const Toolkit::MouseButtonEventArgs& args) {
  args.handled = true;
  if (args.rightButton == Toolkit::MouseButtonState::Pressed)
    ShowPinContextMenu();
  else
    RaiseEvent(Toolkit::RoutedEventArgs(NodePinMouseDownEvent, this));
}

void NodePinControl::Pin_MouseUp(Toolkit::Object*, const Toolkit::MouseButtonEventArgs& args) {
  args.handled = true;
  RaiseEvent(Toolkit::RoutedEventArgs(NodePinMouseUpEvent, this));
}

void NodePinControl::ShowPinContextMenu() {
  DocumentView* view = ViewAbove(this);
  const NodePinData* own = PinData();
  if (!view || !own) return;
  auto menu = Toolkit::MakePtr<Toolkit::ContextMenu>();
  const NodePinControl* pending = view->PendingPin();
  if (!pending) {
    AddMenuItem(*menu, "Start Connection", [this, view] { view->SetPendingPin(this); });
  } else {
    const NodePinData* other = pending->PinData();
    if (other && NodePinData::CanConnect(*own, *other)) {
      // The pin stays pending, so that it can be connected to several others in a row.
      AddMenuItem(*menu, "Complete Connection", [this, view] {
        if (NodePinControl* source = view->PendingPin()) view->TryCreateConnection(*this, *source);
      });
    }
    AddMenuItem(*menu, "Cancel Connection", [view] { view->SetPendingPin(nullptr); });
  }
  // The menu belongs to this pin, so it can't outlive what its items refer to.
  SetValue(ContextMenuProperty, Toolkit::Value(menu));
  menu->SetValue(Toolkit::ContextMenu::IsOpenProperty, true);
}

} // namespace Tesselor
