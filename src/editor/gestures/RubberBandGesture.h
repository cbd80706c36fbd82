#pragma once

#include "editor/gestures/Gesture.h"

namespace Tesselor {

class NodeEditorCanvas;

/// Draws a rectangle that selects what it meets when the button is released. A click is a rectangle of one unit.
class RubberBandGesture : public Gesture {
public:
  RubberBandGesture(NodeEditorCanvas& canvas, Toolkit::Point mouse);
  void Move(Toolkit::Point mouse) override;
  void End(Toolkit::Point mouse) override;
  void Cancel() override;
  const char* Cursor() const override { return "Arrow"; }

private:
  NodeEditorCanvas& canvas;
  Toolkit::Point start;
};

} // namespace Tesselor
