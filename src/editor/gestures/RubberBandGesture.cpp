#include "editor/gestures/RubberBandGesture.h"

#include "editor/NodeEditorCanvas.h"

#include <algorithm>
#include <cmath>

namespace Tesselor {

using Toolkit::Point;

namespace {

/// One axis: an unmoved mouse leaves what is there.
void Stretch(float& origin, float& length, float start, float mouse) {
  if (mouse == start) return;
  origin = std::min(start, mouse);
  length = std::abs(mouse - start);
}

} // namespace

RubberBandGesture::RubberBandGesture(NodeEditorCanvas& canvas, Point mouse) : canvas(canvas), start(mouse) {
  canvas.GetSelectedArea()->Set({mouse.x, mouse.y, 1, 1});
}

void RubberBandGesture::Move(Point mouse) {
  Toolkit::Rect area = canvas.GetSelectedArea()->Get();
  Stretch(area.x, area.width, start.x, mouse.x);
  Stretch(area.y, area.height, start.y, mouse.y);
  canvas.GetSelectedArea()->Set(area);
}

void RubberBandGesture::End(Point) {
  const Toolkit::Rect area = canvas.GetSelectedArea()->Get();
  Cancel();
  SelectionUpEventArgs selection(NodeEditorCanvas::SelectionUpEvent, &canvas);
  selection.width = area.width;
  selection.height = area.height;
  selection.x = area.x;
  selection.y = area.y;
  canvas.RaiseEvent(selection);
}

void RubberBandGesture::Cancel() {
  const Toolkit::Rect area = canvas.GetSelectedArea()->Get();
  canvas.GetSelectedArea()->Set({area.x, area.y, 0, 0});
}

} // namespace Tesselor
