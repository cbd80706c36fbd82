#include "editor/gestures/PanGesture.h"

#include "editor/NodeEditorCanvas.h"

namespace Tesselor {

using Toolkit::Point;

PanGesture::PanGesture(NodeEditorCanvas& canvas, Point mouse, Click click)
    : canvas(canvas), click(click), held(mouse) {}

void PanGesture::Move(Point mouse) {
  hasMoved = true;
  canvas.GetNodesMenu()->Hide();
  const Point moved = mouse - held;
  if (moved.x != 0 && moved.y != 0) hasPanned = true;
  const Point before = canvas.GetTranslation();
  canvas.SetTranslationClamped(before.x + canvas.GetZoom() * moved.x, before.y + canvas.GetZoom() * moved.y);
  // Where the panel's edge stops it, the mouse goes on over it.
  held = canvas.MousePosition();
}

void PanGesture::End(Point mouse) {
  if (click != Click::OpensMenu || hasPanned) return;
  // A menu that is open already is closed with what belongs to it, such as a connection that was dropped there.
  canvas.GetNodesMenu()->Hide();
  canvas.RaiseShowNodesMenu(mouse);
}

} // namespace Tesselor
