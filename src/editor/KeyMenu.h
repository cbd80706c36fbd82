#pragma once

#include "toolkit/controls/ContextMenu.h"

#include <functional>
#include <string>
#include <vector>

namespace Tesselor {

/// A menu that a key opens beside what it is about, with its first entry lit.
class KeyMenu {
public:
  struct Entry {
    std::string text;
    std::function<void()> run;
    /// The keys that do the same, to be learnt.
    std::string keys = {};
  };
  KeyMenu() = default;
  ~KeyMenu() { Forget(); }
  KeyMenu(const KeyMenu&) = delete;
  KeyMenu& operator=(const KeyMenu&) = delete;

  /// In place of the one that was opened before. `owner` outlives this; the entries may outlive nothing that they name.
  void Open(Toolkit::UIElement& owner, const Toolkit::Rect& besideInWindow, const std::vector<Entry>& entries);

private:
  void Forget();
  Toolkit::Ptr<Toolkit::ContextMenu> menu;
};

} // namespace Tesselor
