#pragma once

#include "toolkit/base/Dispatcher.h"
#include "toolkit/base/Geometry.h"

namespace Tesselor {

class NodeEditorCanvas;

/// Moves the view to what keys have led to, so that the eye can follow. Whatever else moves the view meanwhile ends it.
class ViewGlide {
public:
  /// The canvas outlives this.
  explicit ViewGlide(NodeEditorCanvas& canvas) : canvas(canvas) {}
  ~ViewGlide() { Stop(); }
  ViewGlide(const ViewGlide&) = delete;
  ViewGlide& operator=(const ViewGlide&) = delete;

  /// Brings an area of the panel into the view, if it isn't wholly there.
  void ToShow(const Toolkit::Rect& area);

private:
  void Step();
  void Stop();

  NodeEditorCanvas& canvas;
  Toolkit::Dispatcher::TimerId timer = 0;
  double began = 0;
  Toolkit::Point start, end, last;
};

} // namespace Tesselor
