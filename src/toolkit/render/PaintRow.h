#pragma once

#include "toolkit/render/FramePlan.h"

namespace Toolkit {

/// The pixels of a gradient or an image from (x, y) to the right.
void MakePaintRow(const PlanPaint& paint, int x, int y, int count, Pixel* row);

} // namespace Toolkit
