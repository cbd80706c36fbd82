#include "nodes/GenericContentNode.h"

#include "fields/FieldRawJson.h"
#include "nodes/NodeIdentity.h"
#include "nodes/NodeKeys.h"

namespace Tesselor {

TOOLKIT_TYPE_IMPL(GenericContentNode, ContentNode, "Tesselor.GenericContentNode")
void GenericContentNode::Describe(Toolkit::TypeBuilder<GenericContentNode>&) {}

GenericContentNode::GenericContentNode(const NodeBlueprint& blueprint) : ContentNode(BuiltIn::Generic, blueprint) {}

void GenericContentNode::StandFor(std::string type, std::string identity) {
  standsFor = std::make_unique<StandInRecord>();
  standsFor->identity = std::move(identity);
  // The entry may name another type than the one that it was read as.
  standsFor->type = standsFor->identity.empty() ? std::move(type) : NodeIdentity::Of(standsFor->identity).type;
}

std::string GenericContentNode::Identity() const {
  return standsFor ? NodeIdentity{standsFor->type, NodeId()}.Text() : ContentNode::Identity();
}

FieldRawJson* GenericContentNode::RawField() const {
  const auto found = contentFields.find(std::string_view(BuiltIn::Generic));
  return found == contentFields.end() ? nullptr : Toolkit::DynamicCast<FieldRawJson>(found->second.Get());
}

} // namespace Tesselor
