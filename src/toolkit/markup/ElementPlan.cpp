#include "toolkit/markup/ElementPlan.h"

#include "toolkit/base/Diagnostics.h"
#include "toolkit/visual/Behavior.h"
#include "toolkit/visual/NameScope.h"

namespace Toolkit {

TOOLKIT_TYPE_IMPL(ElementFactory, Object, "ElementFactory")
void ElementFactory::Describe(TypeBuilder<ElementFactory>&) {}

Ptr<FrameworkElement> ElementFactory::Create(FrameworkElement& owner) const {
  Instantiation instantiation(nullptr, nullptr, false);
  const Ptr<Object> made =
      instantiation.Create(*plan, [&owner](FrameworkElement& element) { element.SetLogicalParent(&owner); });
  Ptr<FrameworkElement> element(DynamicCast<FrameworkElement>(made));
  if (!element) TOOLKIT_WARN("Markup", "a " + plan->type->Name() + " cannot stand here");
  return element;
}

bool ElementPlan::IsShareable() const {
  if (!type->IsShareable() || !name.IsEmpty() || !bindings.empty() || !events.empty()) return false;
  for (const Child& child : children)
    if (child.plan && !child.plan->IsShareable()) return false;
  return true;
}

Ptr<Object> Instantiation::Make(const ElementPlan& plan) {
  Ptr<Object> object = Ptr<Object>::Adopt(plan.type->Create());
  TOOLKIT_ASSERT(object);
  return object;
}

Ptr<Object> Instantiation::Create(const ElementPlan& plan, const Join& join) {
  if (plan.hasNames) {
    ownScope = std::make_unique<NameScope>();
    scope = ownScope.get();
  }
  Ptr<Object> object = Make(plan);
  auto* element = DynamicCast<FrameworkElement>(object);
  if (element && ownScope) element->SetNameScope(std::move(ownScope));
  if (element) element->SetTemplatedParent(templatedParent);
  if (element && join) join(*element);
  Fill(plan, *object);
  Finish();
  return object;
}

void Instantiation::Apply(const ElementPlan& plan, DependencyObject& root) {
  if (plan.hasNames) {
    ownScope = std::make_unique<NameScope>();
    scope = ownScope.get();
    if (auto* element = DynamicCast<FrameworkElement>(&root)) element->SetNameScope(std::move(ownScope));
  }
  Fill(plan, root);
  Finish();
}

void Instantiation::Fill(const ElementPlan& plan, Object& object) {
  auto* dependencyObject = DynamicCast<DependencyObject>(&object);
  auto* element = DynamicCast<FrameworkElement>(&object);
  if (!plan.name.IsEmpty()) {
    if (scope) scope->Register(plan.name, &object);
    if (element) element->SetName(plan.name.Text());
  }
  if (plan.resources) {
    // An element's resources have served when the document was compiled; an application keeps its own for the others.
    static const Symbol resources("Resources");
    if (const ReflectedMember* member = plan.type->FindMember(resources)) member->set(object, Value(plan.resources));
  }
  if (dependencyObject && !plan.constants.IsEmpty()) {
    // An element that knows more about a value than its text is told of it; all others share the table.
    if (plan.type->IsShareable() || !dependencyObject->AcceptsConstants()) {
      for (const PropertySet::Entry& entry : plan.constants.Entries())
        dependencyObject->SetValue(entry.property, entry.value);
    } else {
      dependencyObject->SetConstants(&plan.constants, fromTemplate);
    }
  }
  // The constants may name the element's style.
  if (element) element->ApplyThemeStyle();
  for (const auto& [member, value] : plan.members) member->set(object, value);
  for (const ElementPlan::Event& event : plan.events) {
    if (component)
      static_cast<UIElement&>(object).AddHandler(*event.event, event.handler->bind(*component));
    else
      TOOLKIT_WARN("Markup", "nobody is there to answer '" + event.event->name.Text() + "' of " + plan.type->Name());
  }
  for (const ElementPlan::BindingAssignment& assignment : plan.bindings)
    dependencyObject->SetExpression(assignment.binding->CreateExpression(assignment.property, scope));
  if (!plan.bindings.empty()) bound.push_back(dependencyObject);
  for (const ElementPlan::Child& child : plan.children) AddChild(child, object);
  for (const std::unique_ptr<ElementPlan>& behaviorPlan : plan.behaviors) {
    Ptr<Object> made = Make(*behaviorPlan);
    Ptr<Behavior> behavior(static_cast<Behavior*>(made.Get()));
    element->AddBehavior(behavior);
    Fill(*behaviorPlan, *behavior);
    behaviors.push_back(behavior.Get());
  }
}

void Instantiation::AddChild(const ElementPlan::Child& child, Object& owner) {
  // A child joins the tree before it is filled, so that whole subtrees never have to be told of a new ancestor.
  if (child.shared) {
    child.list->add(owner, child.shared.Get());
    return;
  }
  Ptr<Object> made = Make(*child.plan);
  if (auto* element = DynamicCast<FrameworkElement>(made)) element->SetTemplatedParent(templatedParent);
  if (child.list) {
    child.list->add(owner, made.Get());
  } else if (child.property) {
    static_cast<DependencyObject&>(owner).SetValue(child.property, Value(made));
  } else {
    child.member->set(owner, Value(made));
  }
  Fill(*child.plan, *made);
}

void Instantiation::Finish() {
  for (DependencyObject* object : bound) object->ActivateExpressions();
  for (Behavior* behavior : behaviors) behavior->Start();
}

} // namespace Toolkit
