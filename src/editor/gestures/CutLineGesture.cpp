#include "editor/gestures/CutLineGesture.h"

#include "editor/NodeEditorCanvas.h"
#include "toolkit/visual/Input.h"

#include <cmath>

namespace Tesselor {

using Toolkit::Key;
using Toolkit::Keyboard;
using Toolkit::Point;

namespace {
/// A line up to this long, in panel units, is a slip of the hand.
constexpr double ShortestCut = 5;
} // namespace

CutLineGesture::CutLineGesture(NodeEditorCanvas& canvas, Point mouse) : canvas(canvas), start(mouse), end(mouse) {
  canvas.GetCutLine()->SetEnds(start, end);
}

void CutLineGesture::Move(Point mouse) {
  end = mouse;
  canvas.GetCutLine()->SetEnds(start, end);
}

void CutLineGesture::End(Point) {
  Cancel();
  if (std::hypot(static_cast<double>(end.x) - start.x, static_cast<double>(end.y) - start.y) <= ShortestCut) return;
  CutLineUpEventArgs cut(NodeEditorCanvas::CutLineUpEvent, &canvas);
  cut.x1 = start.x;
  cut.y1 = start.y;
  cut.x2 = end.x;
  cut.y2 = end.y;
  cut.ctrl = Keyboard::IsKeyDown(Key::LeftCtrl) || Keyboard::IsKeyDown(Key::RightCtrl);
  canvas.RaiseEvent(cut);
}

void CutLineGesture::Cancel() { canvas.GetCutLine()->SetEnds({}, {}); }

} // namespace Tesselor
