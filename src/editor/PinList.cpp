#include "editor/PinList.h"

#include "editor/ConnectionRefusal.h"
#include "editor/PendingPin.h"
#include "nodes/ContentNode.h"
#include "nodes/NodeNames.h"

namespace Tesselor {

namespace {

std::vector<NodePinData*> PinsOf(const ContentNode& node) {
  std::vector<NodePinData*> pins;
  for (const ContentNode::Pins* side : {&node.Output(), &node.Input()})
    for (size_t i = 0; i < side->Count(); ++i)
      if (!side->Get(i)->IsBlank()) pins.push_back(side->Get(i));
  return pins;
}

std::string Side(const NodePinData& pin) { return pin.IsInput() ? "input " : "output "; }

} // namespace

std::vector<NodePinData*> FreeOutputsOf(const ContentNode& node) {
  std::vector<NodePinData*> pins = PinsOf(node);
  std::erase_if(pins, [](const NodePinData* pin) {
    return pin->IsInput() || (!pin->blueprint->Multiple && !pin->connections.empty());
  });
  return pins;
}

std::vector<KeyMenu::Entry> PinList::EntriesFor(ContentNode& node, PendingPin& pending) const {
  std::vector<KeyMenu::Entry> entries;
  const Toolkit::Ptr<ContentNode> alive(&node);
  NodePinData* begun = pending.Get() ? pending.Get()->PinData() : nullptr;
  for (NodePinData* pin : PinsOf(node)) {
    const std::string name = Side(*pin) + NameOf(*pin);
    if (begun && ConnectionRefusal(*pin, *begun).empty()) {
      entries.push_back(
          {"Complete Connection: " + name, [alive, pin, begun, connect = connect] { connect(*pin, *begun); }});
    } else if (NodePinControl* control = begun ? nullptr : node.FindPinControl(*pin)) {
      entries.push_back({"Start Connection: " + name, [alive, control, &pending, pin, tell = tell] {
                           pending.Set(*control);
                           tell("Began a connection at " + NameOf(*pin) + " of " + alive->DisplayName() +
                                ". Ctrl+P at another node completes it");
                         }});
    }
  }
  if (begun) {
    if (entries.empty())
      entries.push_back({"No pin fits " + NameOf(*begun) + " of " + begun->owner->DisplayName(), nullptr});
    entries.push_back({"Cancel Connection", [&pending] { pending.Clear(); }});
  }
  for (NodePinData* pin : PinsOf(node))
    if (!pin->connections.empty())
      entries.push_back(
          {"Cut " + Counted(pin->connections.size(), "Connection", "Connections") + ": " + Side(*pin) + NameOf(*pin),
           [alive, pin, cut = cut] { cut(*pin); }});
  return entries;
}

} // namespace Tesselor
