#pragma once

#include "toolkit/visual/InputEvents.h"
#include "toolkit/visual/UIElement.h"

#include <functional>

namespace Tesselor {

/// A layer over the whole window that wants an answer. While it is shown nothing behind it takes the mouse, which its
/// backdrop does, or keys: the focus goes into it, Tab stays there, Escape answers with no, and the focus goes back
/// where it was afterwards.
class Overlay {
public:
  /// `layer` outlives this. `cancel` hides it.
  Overlay(Toolkit::UIElement& layer, std::function<void()> cancel);
  /// `hidingKey` hides it as well.
  Overlay(Toolkit::UIElement& layer, Toolkit::Key hidingKey, std::function<void()> cancel);
  ~Overlay();
  Overlay(const Overlay&) = delete;
  Overlay& operator=(const Overlay&) = delete;

  bool IsShown() const { return isShown; }
  void Show();
  /// `otherwise` takes the focus if what had it is gone.
  void Hide(Toolkit::UIElement& otherwise);
  /// A key on its way down, before anything else hears of it.
  void OnPreviewKey(const Toolkit::KeyEventArgs& args);

private:
  void OnKeyLeft(Toolkit::Object* sender, const Toolkit::KeyEventArgs& args);

  Toolkit::UIElement& layer;
  Toolkit::Key hidingKey = Toolkit::Key::Escape;
  std::function<void()> cancel;
  Toolkit::WeakPtr<Toolkit::UIElement> formerFocus;
  bool isShown = false;
};

} // namespace Tesselor
