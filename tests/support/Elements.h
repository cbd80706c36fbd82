#pragma once

#include "toolkit/visual/FrameworkElement.h"

#include <stdexcept>
#include <vector>

namespace TestSupport {

/// The elements of a class at and below `root`, in tree order.
template <class T> void Collect(Toolkit::UIElement& root, std::vector<T*>& found) {
  if (T* element = Toolkit::DynamicCast<T>(&root)) found.push_back(element);
  for (size_t i = 0; i < root.VisualChildCount(); ++i)
    if (Toolkit::UIElement* child = root.VisualChild(i)) Collect(*child, found);
}
template <class T> std::vector<T*> All(Toolkit::UIElement& root) {
  std::vector<T*> found;
  Collect(root, found);
  return found;
}
template <class T> std::vector<T*> All(Toolkit::UIElement* root) { return All<T>(*root); }

/// The first of them that fits; null if there is none.
template <class T, class Fits> T* Find(Toolkit::UIElement& root, const Fits& fits) {
  for (T* element : All<T>(root))
    if (fits(*element)) return element;
  return nullptr;
}

/// The first of them that can be seen.
template <class T> T& First(Toolkit::UIElement& root) {
  T* found = Find<T>(root, [](const T& element) { return element.IsVisible() && element.ActualWidth() > 0; });
  if (!found) throw std::runtime_error("there is no " + T::StaticType().Name());
  return *found;
}

/// The element of that name in the document of `root`.
template <class T = Toolkit::FrameworkElement> T& Named(Toolkit::FrameworkElement& root, const char* name) {
  T* found = root.FindName<T>(name);
  if (!found) throw std::runtime_error(std::string("there is no ") + name);
  return *found;
}

} // namespace TestSupport
