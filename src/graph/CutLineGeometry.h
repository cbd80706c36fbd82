#pragma once

#include "toolkit/base/Geometry.h"

#include <array>

namespace Tesselor {

/// Whether the segments from `a` to `b` and from `p` to `q` cross or touch.
bool SegmentsMeet(Toolkit::Point a, Toolkit::Point b, Toolkit::Point p, Toolkit::Point q);

/// Whether the line from `a` to `b` meets a cubic curve, given by its four points and taken as 20 segments.
bool CutLineMeetsCurve(Toolkit::Point a, Toolkit::Point b, const std::array<Toolkit::Point, 4>& curve);

/// Whether a point lies within `reach` of the curve, taken as 20 segments.
bool IsNearCurve(Toolkit::Point point, const std::array<Toolkit::Point, 4>& curve, float reach);

} // namespace Tesselor
