#include "document/WrittenNodes.h"

#include "document/ChildWalk.h"
#include "nodes/GenericContentNode.h"
#include "nodes/NodeKeys.h"

#include <algorithm>
#include <utility>

namespace Tesselor {

namespace {

void AppendOwners(const NodePinData& pin, std::vector<ContentNode*>& nodes) {
  for (const NodePinData* other : pin.connections) nodes.push_back(other->owner);
}

/// The first generic node of each dynamic pin.
void AppendGenericChildren(const ContentNode& node, std::vector<ContentNode*>& nodes) {
  for (const auto& [key, pin] : node.pins) {
    if (pin->IsInput() || pin->connections.empty() || !key.starts_with(BuiltIn::Generic)) continue;
    if (GenericContentNode* child = FirstGenericChildOf(*pin)) nodes.push_back(child);
  }
}

} // namespace

std::vector<ContentNode*> WrittenNodes::Below(const ContentNode& node) {
  std::vector<ContentNode*> nodes;
  if (node.IsPassthrough()) {
    for (size_t i = 0; i < node.Output().Count(); ++i) AppendOwners(*node.Output().Get(i), nodes);
    return nodes;
  }
  for (const std::string& key : node.Blueprint().schemaKeys) {
    const NodePinTarget* target = node.Blueprint().pinSchema.Find(key);
    const NodePinData* pin = target ? node.FindPin(target->pin) : nullptr;
    if (!pin) continue;
    if (pin->blueprint->Multiple)
      AppendOwners(*pin, nodes);
    else if (ContentNode* child = FirstChildOf(*pin))
      nodes.push_back(child);
  }
  AppendGenericChildren(node, nodes);
  return nodes;
}

void WrittenNodes::Collect(const ContentNode& start, NodeSet& written) {
  std::vector<const ContentNode*> waiting;
  if (written.insert(&start).second) waiting.push_back(&start);
  while (!waiting.empty()) {
    const ContentNode& node = *waiting.back();
    waiting.pop_back();
    for (const ContentNode* child : Below(node))
      if (written.insert(child).second) waiting.push_back(child);
  }
}

const WrittenSize::Size& WrittenSize::Of(const ContentNode& start) {
  struct Open {
    const ContentNode* node;
    std::vector<ContentNode*> children;
    size_t next;
    Size size;
  };
  const auto open = [](const ContentNode& node) {
    return Open{&node, WrittenNodes::Below(node), 0, node.IsPassthrough() ? Size{} : Size{1, 1}};
  };
  if (const auto found = known.find(&start); found != known.end()) return found->second;
  // A node that stands here already without being done ends a ring, with its identity alone.
  known.emplace(&start, Size{1, 1});
  std::vector<Open> stack{open(start)};
  for (;;) {
    Open& top = stack.back();
    if (top.next < top.children.size()) {
      const ContentNode& child = *top.children[top.next];
      if (const auto found = known.find(&child); found != known.end()) {
        ++top.next;
        top.size.nodes += found->second.nodes;
        const size_t own = top.node->IsPassthrough() ? 0 : 1;
        top.size.nesting = std::max(top.size.nesting, found->second.nesting + own);
      } else {
        known.emplace(&child, Size{1, 1});
        stack.push_back(open(child));
      }
      continue;
    }
    Size& size = known[top.node];
    size = top.size;
    stack.pop_back();
    if (stack.empty()) return size;
  }
}

} // namespace Tesselor
