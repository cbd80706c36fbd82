#pragma once

#include "toolkit/base/Object.h"

#include <string>

namespace Tesselor {

class ContentNode;
class NodeDictionary;
struct NodeBlueprint;
struct StandInRecord;

/// Whether all fields on the pins of a type can be made. A node is made without the others, and would write the ids of
/// its fields in place of their values.
bool HasPinFields(const NodeBlueprint& blueprint);

/// Makes the node of an entry of the type `id`, with its defaults. If its schema is broken - a field of it can't be
/// made, or there is no such type while some schema file could not be read - the user is told and a generic node stands
/// in for it, which hangs on its parent as generic nodes do and writes the entry as it came, with `identity`, its
/// "$NodeId", unless that is empty: a slip in a schema must cost no asset its content.
Toolkit::Ptr<ContentNode> MakeNodeOrStandIn(const NodeDictionary& dictionary, const std::string& id,
                                            const std::string& identity);

/// Lets a node that the dictionary made for the type `id`, and that became a generic one since there is no such type,
/// stand in for it, if the type's schema may be one that could not be read.
void MarkStandIn(const NodeDictionary& dictionary, ContentNode& node, const std::string& id,
                 const std::string& identity);

bool IsStandIn(const ContentNode& node);
/// Null unless the node stands in for something.
StandInRecord* StandInOf(const ContentNode& node);

} // namespace Tesselor
