#include "nodes/NodeRegistration.h"

#include "nodes/CommentNode.h"
#include "nodes/GenericContentNode.h"
#include "nodes/GroupNode.h"
#include "nodes/NodePinControl.h"
#include "nodes/ReferenceNode.h"

namespace Tesselor {

void RegisterNodeTypes() {
  NodePinData::StaticType();
  NodePinControl::StaticType();
  BaseNode::StaticType();
  ContentNode::StaticType();
  GenericContentNode::StaticType();
  ReferenceNode::StaticType();
  GroupNode::StaticType();
  CommentNode::StaticType();
}

} // namespace Tesselor
