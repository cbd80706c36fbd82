#pragma once

#include <string>

namespace Tesselor {

class NodePinData;

/// Why two pins may not be joined, for the user. Empty if they may be and are not joined yet.
std::string ConnectionRefusal(const NodePinData& a, const NodePinData& b);

/// How the user is told of a pin: what stands beside it, else its id.
std::string NameOf(const NodePinData& pin);

} // namespace Tesselor
