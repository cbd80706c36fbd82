#pragma once

#include "toolkit/render/FramePlan.h"

namespace Toolkit {

/// The pixels of a gradient or an image from (x, y) to the right.
void MakePaintRow(const PlanPaint& paint, int x, int y, int count, Pixel* row);

/// Of a paint with a cell: which line of the cell a row shows. Rows with the same line are alike.
int CellLineAt(const PlanPaint& paint, int y);

} // namespace Toolkit
