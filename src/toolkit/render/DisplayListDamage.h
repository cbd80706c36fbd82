#pragma once

#include "toolkit/render/DisplayList.h"
#include "toolkit/render/PixelBuffer.h"

#include <vector>

namespace Toolkit {

/// The pixels that may differ between two drawings of one frame: the boxes of what came, went or changed, grown to
/// whole pixels and cut to `target`. Few boxes, and none twice; empty if the drawings are alike. `toPixels` maps the
/// lists' coordinates to pixels. Lists that share their nested lists cost no more than their own entries.
std::vector<PixelRect> FindDamage(const DisplayList& before, const DisplayList& after, const Matrix& toPixels,
                                  const PixelRect& target);

} // namespace Toolkit
