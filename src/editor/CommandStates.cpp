#include "editor/CommandStates.h"

namespace Tesselor {

void CommandStates::Add(Toolkit::UIElement& item, std::function<bool()> canRun) {
  commands.emplace_back(&item, std::move(canRun));
  Refresh();
}

void CommandStates::AfterLayout() {
  for (const auto& [item, canRun] : commands) item->SetValue(Toolkit::UIElement::IsEnabledProperty, canRun());
}

} // namespace Tesselor
