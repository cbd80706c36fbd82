#pragma once

#include "editor/gestures/Gesture.h"

namespace Tesselor {

class NodeEditorCanvas;

/// Moves the view with the mouse. A press and release without a move is a click, which asks for the nodes menu.
class PanGesture : public Gesture {
public:
  /// What a click does.
  enum class Click { OpensMenu, DoesNothing };
  PanGesture(NodeEditorCanvas& canvas, Toolkit::Point mouse, Click click);
  void Move(Toolkit::Point mouse) override;
  void End(Toolkit::Point mouse) override;
  void Cancel() override {}
  const char* Cursor() const override { return click == Click::OpensMenu && !hasMoved ? "Arrow" : "SizeAll"; }
  bool ScrollsAtEdge() const override { return false; }

private:
  NodeEditorCanvas& canvas;
  Click click;
  /// The point of the panel that stays under the mouse.
  Toolkit::Point held;
  bool hasMoved = false;
  /// A move along one axis only is still a click.
  bool hasPanned = false;
};

} // namespace Tesselor
