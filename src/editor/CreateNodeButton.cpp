#include "editor/CreateNodeButton.h"

#include "toolkit/base/Diagnostics.h"
#include "toolkit/controls/ButtonBase.h"
#include "toolkit/controls/Shapes.h"
#include "toolkit/controls/TextBlock.h"
#include "toolkit/markup/GUI.h"
#include "toolkit/render/Brush.h"

namespace Tesselor {

namespace {
constexpr float ToolTipWidth = 400;
}

const Toolkit::RoutedEvent CreateNodeButton::CreateNodeEvent("CreateNode", Toolkit::RoutingStrategy::Bubble);

TOOLKIT_TYPE_IMPL(CreateNodeButton, Toolkit::UserControl, "Tesselor.CreateNodeButton")
void CreateNodeButton::Describe(Toolkit::TypeBuilder<CreateNodeButton>& type) {
  IsMarkedProperty = type.Property<bool>("IsMarked");
  type.Event(&CreateNodeEvent);
}

CreateNodeButton::CreateNodeButton(std::string nodeId, std::string label, const Toolkit::Color& color,
                                   const std::string& description)
    : nodeId(std::move(nodeId)), label(std::move(label)) {
  SetDataContext(this);
  Toolkit::GUI::LoadComponent(*this, "CreateNodeButton.xaml");
  auto* button = FindName<Toolkit::Button>("CreateNode");
  auto* marker = FindName<Toolkit::Rectangle>("NodeCategoryColorMarker");
  auto* text = FindName<Toolkit::TextBlock>("ButtonLabel");
  TOOLKIT_ASSERT(button && marker && text);
  button->AddHandler(Toolkit::ButtonBase::ClickEvent,
                     Toolkit::RoutedEventHandler::From<&CreateNodeButton::OnClick>(this));
  marker->SetValue(Toolkit::Shape::FillProperty, Toolkit::Brushes::Of(color));
  text->SetText(this->label);
  if (description.empty()) return;
  auto tip = Toolkit::MakePtr<Toolkit::TextBlock>();
  tip->SetText(description);
  tip->SetValue(Toolkit::TextBlock::TextWrappingProperty, Toolkit::TextWrapping::Wrap);
  tip->SetValue(MaxWidthProperty, ToolTipWidth);
  button->SetValue(ToolTipProperty, tip);
}

void CreateNodeButton::OnClick(Toolkit::Object*, const Toolkit::RoutedEventArgs&) {
  CreateNodeEventArgs create(CreateNodeEvent, this);
  create.nodeId = nodeId;
  RaiseEvent(create);
}

} // namespace Tesselor
