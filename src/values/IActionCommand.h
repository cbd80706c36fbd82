#pragma once

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
};

} // namespace Tesselor
