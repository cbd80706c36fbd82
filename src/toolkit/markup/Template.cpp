#include "toolkit/markup/Template.h"

namespace Toolkit {

TOOLKIT_TYPE_IMPL(FrameworkTemplate, Object, "FrameworkTemplate")
void FrameworkTemplate::Describe(TypeBuilder<FrameworkTemplate>&) {}

TOOLKIT_TYPE_IMPL(ControlTemplate, FrameworkTemplate, "ControlTemplate")
void ControlTemplate::Describe(TypeBuilder<ControlTemplate>&) {}

TOOLKIT_TYPE_IMPL(DataTemplate, FrameworkTemplate, "DataTemplate")
void DataTemplate::Describe(TypeBuilder<DataTemplate>&) {}

TOOLKIT_TYPE_IMPL(ItemsPanelTemplate, FrameworkTemplate, "ItemsPanelTemplate")
void ItemsPanelTemplate::Describe(TypeBuilder<ItemsPanelTemplate>&) {}

namespace {
FrameworkElement* ComponentFor(const Type* componentType, FrameworkElement* from) {
  if (!componentType) return nullptr;
  for (UIElement* e = from; e; e = e->UIParent())
    if (e->GetType().IsA(*componentType)) return static_cast<FrameworkElement*>(e);
  return nullptr;
}
} // namespace

Ptr<FrameworkElement> FrameworkTemplate::Instantiate(FrameworkElement* templatedParent,
                                                     const Instantiation::Join& join) const {
  if (!plan) return nullptr;
  Instantiation instantiation(ComponentFor(componentType, templatedParent), templatedParent, true);
  Ptr<Object> made = instantiation.Create(*plan, join);
  return Ptr<FrameworkElement>(DynamicCast<FrameworkElement>(made));
}

} // namespace Toolkit
