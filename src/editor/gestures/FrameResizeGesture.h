#pragma once

#include "editor/gestures/Gesture.h"
#include "nodes/FrameNode.h"

namespace Tesselor {

/// Drags an edge or a corner of a group or a comment, as one undo step.
class FrameResizeGesture : public Gesture {
public:
  FrameResizeGesture(FrameNode& frame, ResizeEdge edge, Toolkit::Point mouse);
  void Move(Toolkit::Point mouse) override;
  void End(Toolkit::Point mouse) override;
  void Cancel() override;
  const char* Cursor() const override { return CursorOf(edge); }

private:
  Toolkit::Ptr<FrameNode> frame;
  ResizeEdge edge;
  Toolkit::Point start;
  Toolkit::Rect startBounds;
};

} // namespace Tesselor
