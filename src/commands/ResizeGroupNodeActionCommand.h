#pragma once

#include "nodes/FrameNode.h"
#include "nodes/NodeNames.h"
#include "values/IActionCommand.h"

namespace Tesselor {

/// Resizes a group or a comment, which also moves it if its left or top edge was dragged. Made after the frame was
/// resized, so it is pushed without being run.
class ResizeGroupNodeActionCommand : public IActionCommand {
public:
  ResizeGroupNodeActionCommand(FrameNode& frame, const Toolkit::Rect& oldBounds, const Toolkit::Rect& newBounds)
      : frame(&frame), oldBounds(oldBounds), newBounds(newBounds) {}
  const FrameNode& Frame() const { return *frame; }
  /// The resize went on, up to the bounds that the frame has now.
  void Settle() { newBounds = frame->Bounds(); }
  void Do() override { frame->SetBounds(newBounds); }
  void Undo() override { frame->SetBounds(oldBounds); }
  StepDescription Description() const override { return {"Resized", "resizing of", NameOf(*frame)}; }

private:
  Toolkit::Ptr<FrameNode> frame;
  Toolkit::Rect oldBounds, newBounds;
};

} // namespace Tesselor
