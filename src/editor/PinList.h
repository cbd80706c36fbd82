#pragma once

#include "editor/KeyMenu.h"

namespace Tesselor {

class ContentNode;
class NodePinData;
class PendingPin;

/// What can be done with the pins of a node, for a menu: connections are begun, completed and cancelled there as by the
/// menus of the pins, and cut.
struct PinList {
  std::function<void(NodePinData& target, NodePinData& source)> connect;
  std::function<void(NodePinData& pin)> cut;
  /// Says what was begun.
  std::function<void(const std::string& text)> tell;

  /// All that it names outlives the menu.
  std::vector<KeyMenu::Entry> EntriesFor(ContentNode& node, PendingPin& pending) const;
};

/// The output pins of a node that take one more child.
std::vector<NodePinData*> FreeOutputsOf(const ContentNode& node);

} // namespace Tesselor
