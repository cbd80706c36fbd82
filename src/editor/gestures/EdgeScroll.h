#pragma once

#include "toolkit/base/Dispatcher.h"
#include "toolkit/base/Geometry.h"

#include <functional>

namespace Tesselor {

class NodeEditorCanvas;

/// Scrolls the view while a gesture holds the mouse near the view's edge or beyond it, the faster the nearer, also
/// while the mouse rests. A press near the edge is no wish to scroll: what counts is how much nearer the mouse has come
/// since.
class EdgeScroll {
public:
  /// The canvas outlives this. `onScrolled` is called after each step, when another point of the panel is under the
  /// mouse.
  EdgeScroll(NodeEditorCanvas& canvas, std::function<void()> onScrolled)
      : canvas(canvas), onScrolled(std::move(onScrolled)) {}
  ~EdgeScroll() { End(); }
  EdgeScroll(const EdgeScroll&) = delete;
  EdgeScroll& operator=(const EdgeScroll&) = delete;

  /// A gesture begins where the mouse is.
  void Begin();
  /// The mouse has moved while the gesture lasts.
  void MouseMoved();
  void End();

private:
  /// How far the mouse is within the strip at each edge of the view, and beyond it, in view pixels; 0 for edges that it
  /// is not near.
  struct Depths {
    float left = 0, top = 0, right = 0, bottom = 0;
  };
  Depths DepthsNow() const;
  /// In view pixels per second, as the view's content moves.
  Toolkit::Point Speed() const;
  void StartTimer();
  void Turn();

  NodeEditorCanvas& canvas;
  std::function<void()> onScrolled;
  /// The least depths since the gesture began.
  Depths least;
  Toolkit::Dispatcher::TimerId timer = 0;
  /// The clock at the last step.
  double lastTurn = 0;
  /// What the steps so far have left: the view moves by whole pixels, in which its text stays sharp.
  Toolkit::Point due;
};

} // namespace Tesselor
