#pragma once

#include "Picture.h"
#include "toolkit/render/Brush.h"
#include "toolkit/render/Painter.h"

#include <functional>

namespace RenderTest {

using TestSupport::Picture;
using Drawing = std::function<void(Toolkit::Painter&)>;

std::shared_ptr<const Toolkit::DisplayList> Record(const Drawing& drawing);
Picture Draw(int width, int height, const Drawing& drawing, float scale = 1);
Toolkit::Ptr<Toolkit::SolidColorBrush> Solid(int rgb, int alpha = 255);

/// A canvas with a bit of everything, larger than several tiles.
std::shared_ptr<const Toolkit::DisplayList> Everything();
inline constexpr int EverythingWidth = 611, EverythingHeight = 203;

} // namespace RenderTest
