#pragma once

#include "toolkit/base/Geometry.h"

struct cJSON;

namespace Tesselor {

class BaseNode;

/// How the fraction of a coordinate in a file counts.
enum class PositionPrecision {
  /// It is cut off before the canvas offset is added.
  Whole,
  /// It is kept.
  Fraction,
};

/// Half the size of the canvas that the node stands on: what is added to file coordinates, whose 0 is the canvas's
/// middle, to get canvas coordinates. (0, 0) for a node that is on no canvas.
Toolkit::Point CanvasOffset(const BaseNode& node);

/// Rounds to the grid of 0.2 on which loaded nodes stand.
float SnapToGrid(double value);

/// Places the node where its own object in a file says: "$RootNodePosition", else "$Position"; with neither, nothing
/// changes. A coordinate that is no number counts as 0. The node must be on the canvas already.
void LoadPosition(BaseNode& node, const cJSON* json, PositionPrecision precision = PositionPrecision::Whole);
/// The same from the position object itself; null changes nothing.
void ApplyPosition(BaseNode& node, const cJSON* position, PositionPrecision precision = PositionPrecision::Whole);

/// Adds "$Position" with whole file coordinates, truncated toward zero.
void SavePosition(const BaseNode& node, cJSON* json);
/// Adds "$Position" with the fractions kept, as groups and comments have it.
void SaveExactPosition(const BaseNode& node, cJSON* json);

} // namespace Tesselor
