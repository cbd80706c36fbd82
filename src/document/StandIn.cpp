#include "document/StandIn.h"

#include "nodes/GenericContentNode.h"
#include "nodes/NodeKeys.h"
#include "workspace/NodeDictionary.h"

namespace Tesselor {

Toolkit::Ptr<ContentNode> MakeNodeOrStandIn(const NodeDictionary& dictionary, const std::string& id,
                                            const std::string& identity) {
  Toolkit::Ptr<ContentNode> node = dictionary.CreateNode(id, true);
  if (!node) node = dictionary.CreateNode(BuiltIn::Generic, false);
  MarkStandIn(*node, id, identity);
  return node;
}

void MarkStandIn(ContentNode& node, const std::string& id, const std::string& identity) {
  auto* generic = Toolkit::DynamicCast<GenericContentNode>(&node);
  if (generic && id != BuiltIn::Generic) generic->StandFor(identity);
}

} // namespace Tesselor
