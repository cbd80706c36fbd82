#include "editor/LossPanel.h"

#include "nodes/NodeNames.h"
#include "toolkit/base/Diagnostics.h"
#include "toolkit/controls/ButtonBase.h"
#include "toolkit/markup/GUI.h"

#include <string>
#include <utility>

namespace Tesselor {

using Toolkit::LongList;
using Toolkit::Ptr;
using Toolkit::Visibility;

TOOLKIT_TYPE_IMPL(LossLine, Toolkit::ListLine, "Tesselor.LossLine")
void LossLine::Describe(Toolkit::TypeBuilder<LossLine>& type) {
  type.Member<&LossLine::GetPath>("Path");
  type.Member<&LossLine::GetWas>("Was");
  type.Member<&LossLine::GetBecomes>("Becomes");
}

const Toolkit::RoutedEvent LossPanel::LossChosenEvent("LossChosen", Toolkit::RoutingStrategy::Bubble);

TOOLKIT_TYPE_IMPL(LossPanel, Toolkit::UserControl, "Tesselor.LossPanel")
void LossPanel::Describe(Toolkit::TypeBuilder<LossPanel>& type) {
  PanelVisibilityProperty = type.Property<Visibility>("PanelVisibility", Visibility::Collapsed);
  CaptionProperty = type.Property<Toolkit::SharedString>("Caption");
  type.Member<&LossPanel::ReflectedLines>("Lines");
  type.Event(&LossChosenEvent);
  type.Handler<&LossPanel::OnPanelKeyDown>("OnPanelKeyDown", KeyDownEvent);
  type.Handler<&LossPanel::OnLineChosen>("OnLineChosen", LongList::LineChosenEvent);
  type.Handler<&LossPanel::OnCloseClicked>("OnListLeft", LongList::ListLeftEvent);
  type.Handler<&LossPanel::OnCloseClicked>("OnCloseClicked", Toolkit::ButtonBase::ClickEvent);
}

LossPanel::LossPanel() : lines(Toolkit::MakePtr<Lines>()) {
  SetDataContext(this);
  Toolkit::GUI::LoadComponent(*this, "LossPanel.xaml");
  list = FindName<LongList>("LineList");
  TOOLKIT_ASSERT(list);
}

void LossPanel::Open(std::vector<DocumentLoss> losses) {
  Close();
  SetValue(CaptionProperty, "Saving changes " + Counted(losses.size(), "value", "values"));
  SetValue(PanelVisibilityProperty, Visibility::Visible);
  for (DocumentLoss& loss : losses) lines->Add(Toolkit::MakePtr<LossLine>(std::move(loss)));
  list->Focus();
}

void LossPanel::Close() {
  SetValue(PanelVisibilityProperty, Visibility::Collapsed);
  lines->Clear();
}

void LossPanel::OnPanelKeyDown(Toolkit::Object*, const Toolkit::KeyEventArgs& args) {
  if (list->Work(args.key)) args.handled = true;
}

void LossPanel::OnLineChosen(Toolkit::Object*, const Toolkit::LineChosenEventArgs& args) {
  LossChosenEventArgs chosen(LossChosenEvent, this);
  chosen.node = Ptr<ContentNode>(static_cast<const LossLine&>(*args.line).Node());
  RaiseEvent(chosen);
}

} // namespace Tesselor
