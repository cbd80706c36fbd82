#include "nodes/GenericContentNode.h"

#include "fields/FieldRawJson.h"
#include "nodes/NodeKeys.h"

namespace Tesselor {

TOOLKIT_TYPE_IMPL(GenericContentNode, ContentNode, "Tesselor.GenericContentNode")
void GenericContentNode::Describe(Toolkit::TypeBuilder<GenericContentNode>&) {}

GenericContentNode::GenericContentNode(const NodeBlueprint& blueprint) : ContentNode(BuiltIn::Generic, blueprint) {}

FieldRawJson* GenericContentNode::RawField() const {
  const auto found = contentFields.find(std::string_view(BuiltIn::Generic));
  return found == contentFields.end() ? nullptr : Toolkit::DynamicCast<FieldRawJson>(found->second.Get());
}

} // namespace Tesselor
