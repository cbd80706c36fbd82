#include "nodes/NodeNames.h"

#include "nodes/ContentNode.h"
#include "nodes/GroupNode.h"

namespace Tesselor {

std::string NameOf(const BaseNode& node) {
  if (const auto* content = Toolkit::DynamicCast<ContentNode>(&node)) {
    const std::string name = content->DisplayName();
    return name.starts_with(RootTitlePrefix) ? name.substr(RootTitlePrefix.size()) : name;
  }
  const std::string kind = Toolkit::DynamicCast<GroupNode>(&node) ? "group" : "comment";
  return node.Title().empty() ? kind : kind + " " + std::string(node.Title());
}

std::string NameOf(const std::vector<Toolkit::Ptr<BaseNode>>& nodes) {
  return nodes.size() == 1 ? NameOf(*nodes.front()) : Counted(nodes.size(), "node", "nodes");
}

std::string Counted(size_t count, const char* one, const char* many) {
  return std::to_string(count) + " " + (count == 1 ? one : many);
}

} // namespace Tesselor
