#pragma once

#include "values/StepDescription.h"

#include <cstddef>

namespace Tesselor {

/// One undoable step. It holds all that it needs, with strong references to what it touches, so that it stays valid
/// when a node or field has left the canvas. Owned by the `ActionHistory` once pushed.
class IActionCommand {
public:
  virtual ~IActionCommand() = default;
  /// Applies the step, or applies it again after an `Undo`.
  virtual void Do() = 0;
  /// Reverts what `Do` did.
  virtual void Undo() = 0;
  /// Told to the user. Of the step as it stands after the last `Do` or `Undo`.
  virtual StepDescription Description() const { return {"Made", "edit:", "a change"}; }
  /// Roughly how much memory goes with the step as it stands now, because nothing else holds it. In bytes; what is less
  /// than some kilobytes need not be told. Takes no time.
  virtual size_t HeldBytes() const { return 0; }
};

} // namespace Tesselor
