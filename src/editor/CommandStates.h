#pragma once

#include "toolkit/visual/LayoutQueue.h"
#include "toolkit/visual/UIElement.h"

#include <functional>
#include <utility>
#include <vector>

namespace Tesselor {

/// Greys the commands of the menu bar that can't run now.
class CommandStates : private Toolkit::LayoutTask {
public:
  CommandStates() = default;
  ~CommandStates() { Toolkit::LayoutQueue::Current().Remove(*this); }
  CommandStates(const CommandStates&) = delete;
  CommandStates& operator=(const CommandStates&) = delete;

  /// The item outlives this.
  void Add(Toolkit::UIElement& item, std::function<bool()> canRun);
  /// What the tests look at has changed. They are asked before the next frame, when a change of many parts is over.
  void Refresh() { Toolkit::LayoutQueue::Current().Add(*this); }

private:
  void AfterLayout() override;

  std::vector<std::pair<Toolkit::UIElement*, std::function<bool()>>> commands;
};

} // namespace Tesselor
