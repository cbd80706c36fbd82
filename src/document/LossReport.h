#pragma once

#include "document/LongNumbers.h"

#include <string>
#include <vector>

struct cJSON;

namespace Tesselor {

class NodeShapes;

/// One value of a file that a save would not write as it is.
struct Loss {
  /// The value's place in the file, such as `$.Stages[3].Name`.
  std::string path;
  /// The value as the file has it, and what would stand there, cut to a length that can be read.
  std::string was;
  std::string becomes;
  /// The UUID, in the exported tree, of the nearest node around the value; empty if there is none.
  std::string nodeId;

  /// "<path>: was <value> becomes <value>".
  std::string Line() const;
};

/// What stands in `becomes` of a value that goes.
inline constexpr char BecomesNothing[] = "nothing";
inline constexpr char MovesToFloatingNodes[] = "moves to $FloatingNodes";

/// Holds a file's tree against that which the untouched document exports, parsed again from its text, so that what the
/// printer changes shows as well. In the order of the file, in time linear in its size.
///
/// No loss are: objects without members that go, what the export adds, the order and letter case of keys, another way
/// to write an equal number, a place or title in a node that arrives in the metadata, fractions of places, and the
/// places of nodes that aren't there.
std::vector<Loss> FindLosses(const cJSON& file, const cJSON& exported, const NodeShapes& shapes,
                             const std::vector<LongNumber>& longNumbers = {});

} // namespace Tesselor
