#include "editor/gestures/FrameResizeGesture.h"

#include "commands/ResizeGroupNodeActionCommand.h"
#include "values/ActionHistory.h"

namespace Tesselor {

using Toolkit::Point;

FrameResizeGesture::FrameResizeGesture(FrameNode& frame, ResizeEdge edge, Point mouse)
    : frame(&frame), edge(edge), start(mouse), startBounds(frame.Bounds()) {}

void FrameResizeGesture::Move(Point mouse) { frame->Resize(startBounds, edge, mouse - start); }

void FrameResizeGesture::End(Point) {
  const Toolkit::Rect bounds = frame->Bounds();
  if (bounds == startBounds) return;
  ActionHistory::Instance().Push(std::make_unique<ResizeGroupNodeActionCommand>(*frame, startBounds, bounds));
}

void FrameResizeGesture::Cancel() { frame->SetBounds(startBounds); }

} // namespace Tesselor
