#pragma once

#include "editor/gestures/Gesture.h"

namespace Tesselor {

class NodeEditorCanvas;

/// Draws a line across connections, which are selected when the button is released, or cut if Ctrl is held then.
class CutLineGesture : public Gesture {
public:
  CutLineGesture(NodeEditorCanvas& canvas, Toolkit::Point mouse);
  void Move(Toolkit::Point mouse) override;
  void End(Toolkit::Point mouse) override;
  void Cancel() override;
  const char* Cursor() const override { return "Cross"; }

private:
  NodeEditorCanvas& canvas;
  Toolkit::Point start, end;
};

} // namespace Tesselor
