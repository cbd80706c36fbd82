#pragma once

#include "nodes/ContentNode.h"

#include <unordered_set>
#include <vector>

namespace Tesselor {

/// What the connection lists of some pins hold, in their order, at one moment: an undone step gives them back as they
/// were, and a load as the file has them, since nodes at the same height may stand in either order and a list of
/// parents has no order of its own. Keeps the nodes of the pins alive.
class ChildOrder {
public:
  /// Notes the list of the pin as it is now, unless it is noted already.
  void Note(NodePinData& pin) {
    // Many children lead to the same list, which is long then.
    if (!noted.contains(&pin)) Note(pin, pin.connections);
  }
  /// Notes the order that the list of the pin is to have.
  void Note(NodePinData& pin, std::vector<NodePinData*> connections);
  /// Notes the lists of all output pins that the node hangs on.
  void NoteParentsOf(const ContentNode& node);
  bool IsEmpty() const { return lists.empty(); }
  /// Brings each noted list back into its noted order, and calls `visit` with its pin. What was not in the list then
  /// stays behind the others; what is not in it any more is left out. What depends on the order is the graph's work,
  /// see `Graph::RestoreOrder`.
  template <class Visit> void Restore(Visit visit) const {
    for (const List& list : lists) {
      Restore(list);
      visit(*list.pin);
    }
  }

private:
  struct List {
    Toolkit::Ptr<ContentNode> owner;
    NodePinData* pin;
    std::vector<NodePinData*> connections;
  };
  static void Restore(const List& list);

  std::vector<List> lists;
  std::unordered_set<const NodePinData*> noted;
};

} // namespace Tesselor
