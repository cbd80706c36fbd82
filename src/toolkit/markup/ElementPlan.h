#pragma once

#include "toolkit/base/PropertySet.h"
#include "toolkit/base/Type.h"
#include "toolkit/visual/NameScope.h"
#include "toolkit/visual/ResourceDictionary.h"
#include "toolkit/visual/Style.h"

#include <functional>
#include <memory>
#include <vector>

namespace Toolkit {

class NameScope;

/// One element of a compiled document: everything about it that is known before an instance exists. Immutable after
/// compilation and alive until the process ends.
struct ElementPlan {
  struct BindingAssignment {
    const DependencyProperty* property;
    Ptr<BindingBase> binding;
  };
  /// A child or property element that every instance makes for itself.
  struct Child {
    // One of the three says where the object goes.
    const ListMember* list = nullptr;
    const DependencyProperty* property = nullptr;
    const ReflectedMember* member = nullptr;
    std::unique_ptr<ElementPlan> plan;
    /// Takes the place of the plan if all instances share one object.
    Ptr<Object> shared;
  };
  struct Event {
    const RoutedEvent* event;
    /// Of the class whose document this is.
    const HandlerMember* handler;
  };

  const Type* type = nullptr;
  /// Line of the element in its document.
  int line = 0;
  Symbol name;
  PropertySet constants;
  std::vector<BindingAssignment> bindings;
  std::vector<std::pair<const ReflectedMember*, Value>> members;
  std::vector<Event> events;
  std::vector<Child> children;
  std::vector<std::unique_ptr<ElementPlan>> behaviors;
  Ptr<ResourceDictionary> resources;
  /// True if the element or one below it has a name.
  bool hasNames = false;

  /// True if all instances may share one object.
  bool IsShareable() const;
};

/// Makes objects from plans.
class Instantiation {
public:
  /// `component` is the object of the document's class, whose handlers answer the events; may be null. `fromTemplate`
  /// tells that constants belong to a template.
  Instantiation(FrameworkElement* component, FrameworkElement* templatedParent, bool fromTemplate)
      : component(component), templatedParent(templatedParent), fromTemplate(fromTemplate) {}

  using Join = std::function<void(FrameworkElement&)>;
  /// A new object as the plan describes it; it owns the name scope if the plan has names. `join` puts it into its tree
  /// while it is still empty, so that what looks for its ancestors finds them.
  Ptr<Object> Create(const ElementPlan& plan, const Join& join = {});
  /// Applies the plan of a document's root to an object that exists already.
  void Apply(const ElementPlan& plan, DependencyObject& root);

private:
  void Fill(const ElementPlan& plan, Object& object);
  Ptr<Object> Make(const ElementPlan& plan);
  void AddChild(const ElementPlan::Child& child, Object& owner);
  void Finish();

  FrameworkElement* component;
  FrameworkElement* templatedParent;
  bool fromTemplate;
  std::unique_ptr<NameScope> ownScope;
  NameScope* scope = nullptr;
  std::vector<DependencyObject*> bound;
  std::vector<Behavior*> behaviors;
};

/// Makes an element when it is first needed: what a document gives for a tool tip or a context menu.
class ElementFactory : public Object {
  TOOLKIT_TYPE(ElementFactory)
public:
  explicit ElementFactory(std::unique_ptr<ElementPlan> plan) : plan(std::move(plan)) {}
  /// `owner` is where the new element inherits from. Null, with a diagnostic, if the plan makes no element.
  Ptr<FrameworkElement> Create(FrameworkElement& owner) const;

private:
  std::unique_ptr<ElementPlan> plan;
};

} // namespace Toolkit
