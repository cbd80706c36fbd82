#pragma once

#include "toolkit/base/Object.h"

#include <string>

namespace Tesselor {

class ContentNode;
class NodeDictionary;

/// Makes the node of an entry of the type `id`, with its defaults. If there is no such type, or a field of its schema
/// can't be made, the user is told and a generic node stands in for it, which writes the entry as it came, with
/// `identity`, its "$NodeId", unless that is empty: a slip in a schema must cost no asset its content.
Toolkit::Ptr<ContentNode> MakeNodeOrStandIn(const NodeDictionary& dictionary, const std::string& id,
                                            const std::string& identity);

/// Lets a node that was made for the type `id`, and became a generic one since there is no such type, stand in for it.
void MarkStandIn(ContentNode& node, const std::string& id, const std::string& identity);

} // namespace Tesselor
