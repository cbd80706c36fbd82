#pragma once

#include "toolkit/visual/FrameworkElement.h"

namespace Toolkit {

/// Attaches to one element from a document and adds behaviour to it. Its bindings see the element's data context.
class Behavior : public DependencyObject {
  TOOLKIT_TYPE(Behavior)
public:
  /// The element that this behaviour is attached to, or null.
  FrameworkElement* AssociatedElement() const { return associated; }
  DependencyObject* InheritanceParent() const override { return associated; }
  void Attach(FrameworkElement* element);
  void Detach();
  /// Called when the element's document is complete and bindings have their first value.
  void Start();

protected:
  /// Overrides call the base first.
  virtual void OnAttached() {}
  virtual void OnDetaching() {}

private:
  FrameworkElement* associated = nullptr;
  bool started = false;
};

/// As documents and derived classes know it: a behaviour for elements of class `T`.
template <class T> class BehaviorT : public Behavior {
protected:
  T* GetAssociatedObject() const { return DynamicCast<T>(AssociatedElement()); }
};

} // namespace Toolkit
