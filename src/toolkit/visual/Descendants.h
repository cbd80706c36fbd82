#pragma once

#include "toolkit/visual/UIElement.h"

#include <vector>

namespace Toolkit {

/// The first element of a class below `root`, in tree order, whatever templates it comes from; null if there is none.
template <class T> T* FirstDescendant(const UIElement& root) {
  std::vector<UIElement*> waiting;
  const auto push = [&waiting](const UIElement& parent) {
    for (size_t i = parent.VisualChildCount(); i-- > 0;)
      if (UIElement* child = parent.VisualChild(i)) waiting.push_back(child);
  };
  push(root);
  while (!waiting.empty()) {
    UIElement* element = waiting.back();
    waiting.pop_back();
    if (T* found = DynamicCast<T>(element)) return found;
    push(*element);
  }
  return nullptr;
}

} // namespace Toolkit
