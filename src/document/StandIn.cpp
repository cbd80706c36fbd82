#include "document/StandIn.h"

#include "nodes/GenericContentNode.h"
#include "nodes/NodeKeys.h"
#include "workspace/NodeDictionary.h"

namespace Tesselor {

Toolkit::Ptr<ContentNode> MakeNodeOrStandIn(const NodeDictionary& dictionary, const std::string& id,
                                            const std::string& identity) {
  if (Toolkit::Ptr<ContentNode> node = dictionary.CreateNode(id, true)) {
    MarkStandIn(dictionary, *node, id, identity);
    return node;
  }
  Toolkit::Ptr<ContentNode> node = dictionary.CreateNode(BuiltIn::Generic, false);
  static_cast<GenericContentNode&>(*node).StandFor(identity);
  return node;
}

void MarkStandIn(const NodeDictionary& dictionary, ContentNode& node, const std::string& id,
                 const std::string& identity) {
  auto* generic = Toolkit::DynamicCast<GenericContentNode>(&node);
  if (generic && dictionary.lacksSchemas && id != BuiltIn::Generic) generic->StandFor(identity);
}

bool IsStandIn(const ContentNode& node) {
  const auto* generic = Toolkit::DynamicCast<GenericContentNode>(&node);
  return generic && generic->IsStandIn();
}

} // namespace Tesselor
