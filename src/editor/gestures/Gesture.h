#pragma once

#include "toolkit/base/Geometry.h"

namespace Tesselor {

/// What the mouse does on the canvas between the press of a button, which makes the object, and its release. Exactly
/// one of `End` and `Cancel` is called, once and last. Points are in panel coordinates.
class Gesture {
public:
  virtual ~Gesture() = default;
  /// The mouse is over another point of the panel: it has moved, or the view has scrolled below it.
  virtual void Move(Toolkit::Point mouse) = 0;
  /// The button was released.
  virtual void End(Toolkit::Point mouse) = 0;
  /// The user gave up, or the mouse was lost: the document is as it was before the press.
  virtual void Cancel() = 0;

  /// The cursor that shows while it lasts.
  virtual const char* Cursor() const = 0;
  /// Whether the view scrolls while the mouse is near its edge.
  virtual bool ScrollsAtEdge() const { return true; }

protected:
  Gesture() = default;
};

} // namespace Tesselor
