#pragma once

#include "toolkit/base/Color.h"
#include "toolkit/render/Brush.h"

namespace Tesselor {

/// The brushes of a node's title bar and frame. All nodes of one colour share them.
struct TitleBrushes {
  /// From the colour to the dark blue in which all frames end.
  Toolkit::Ptr<Toolkit::LinearGradientBrush> gradient;
  Toolkit::Ptr<Toolkit::SolidColorBrush> solid;

  static const TitleBrushes& Of(const Toolkit::Color& color);
};

} // namespace Tesselor
