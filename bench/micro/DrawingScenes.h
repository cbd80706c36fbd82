#pragma once

#include "toolkit/render/DisplayList.h"
#include "toolkit/text/FontCollection.h"

#include <memory>

/// Pictures like those of the editor's canvas, for measuring and looking at the drawing.
namespace DrawingScenes {

Toolkit::FontCollection& Fonts();

struct Scene {
  std::shared_ptr<const Toolkit::DisplayList> list;
  float zoom;
};

/// `nodes` full nodes in rows that fill 1920x1080 pixels at `zoom`, and `curves` connections between them, on the
/// tiled background.
Scene MakeCanvas(int nodes, int curves, float zoom);

/// One node with ten fields.
std::shared_ptr<const Toolkit::DisplayList> MakeNode(int number);

} // namespace DrawingScenes
