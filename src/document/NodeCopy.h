#pragma once

#include "toolkit/base/Geometry.h"

#include <optional>
#include <string>

namespace Tesselor {

class Graph;

/// What is selected, as text for the clipboard.
struct NodeCopy {
  /// A run of formatted JSON objects: one for each frame, and one for each node that hangs on nothing of the copy, with
  /// all that hangs on it inside. In the order of the document. Empty if nothing is selected.
  std::string text;
  /// The upper left corner of the places of these, in panel coordinates.
  Toolkit::Point corner;
};

/// The selected nodes and what lies in selected groups. Nothing if they stand below each other too deeply for a text
/// that can be read again.
std::optional<NodeCopy> CopySelection(const Graph& graph);

} // namespace Tesselor
