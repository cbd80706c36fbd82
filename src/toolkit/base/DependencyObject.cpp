#include "toolkit/base/DependencyObject.h"

#include "toolkit/base/DataContext.h"
#include "toolkit/base/Diagnostics.h"
#include "toolkit/base/FailedAllocation.h"

#include <cstdlib>
#include <cstring>

namespace Toolkit {

TOOLKIT_TYPE_IMPL(DependencyObject, Observable, "DependencyObject")
void DependencyObject::Describe(TypeBuilder<DependencyObject>&) {}

DependencyObject::~DependencyObject() {
  expressions.reset();
  for (uint16_t i = 0; i < entryCount; ++i) entries[i].~Entry();
  std::free(entries);
}

const DependencyObject::Entry* DependencyObject::FindEntry(const DependencyProperty& property) const {
  if (!(entryMask & property.MaskBit())) return nullptr;
  const Entry* best = nullptr;
  for (uint16_t i = 0; i < entryCount; ++i) {
    const Entry& entry = entries[i];
    if (entry.propertyIndex == property.index && (!best || entry.level > best->level)) best = &entry;
  }
  return best;
}

DependencyObject::Entry* DependencyObject::FindEntryAt(ValueLevel level, const DependencyProperty& property) {
  if (!(entryMask & property.MaskBit())) return nullptr;
  for (uint16_t i = 0; i < entryCount; ++i)
    if (entries[i].propertyIndex == property.index && entries[i].level == level) return &entries[i];
  return nullptr;
}

const Value& DependencyObject::FindValue(const DependencyProperty& requested) const {
  const DependencyProperty* property = &requested;
  const Entry* own = FindEntry(*property);
  if (own && own->level >= ValueLevel::Local) return own->value;
  if (constants) {
    if (const Value* value = constants->Find(*property)) {
      if (constantsFromTemplate && own && own->level == ValueLevel::TemplateTrigger) return own->value;
      return *value;
    }
  }
  if (own) return own->value;
  if (styleValues)
    if (const Value* value = styleValues->Find(*property)) return *value;
  if (themeValues)
    if (const Value* value = themeValues->Find(*property)) return *value;
  if (property->IsInherited() && (inheritedMask & property->InheritedBit())) {
    if (const DependencyObject* parent = InheritanceParent()) return parent->GetValue(property);
  }
  return property->defaultValue;
}

bool DependencyObject::HasOwnValue(const DependencyProperty* property) const {
  return FindEntry(*property) || (constants && constants->Find(*property)) ||
         (styleValues && styleValues->Find(*property)) || (themeValues && themeValues->Find(*property));
}

void DependencyObject::InsertEntry(Entry entry) {
  if (entryCount != 1 && (entryCount & (entryCount - 1)) == 0) {
    const size_t capacity = entryCount ? size_t(entryCount) * 2 : 2;
    // Entries may be moved bytewise: a value's reference moves with its bytes.
    void* grown = std::realloc(static_cast<void*>(entries), capacity * sizeof(Entry));
    if (!grown) FailAllocation();
    entries = static_cast<Entry*>(grown);
  }
  const DependencyProperty& property = DependencyProperty::At(entry.propertyIndex);
  entryMask |= property.MaskBit();
  anyMask |= property.MaskBit();
  entryInheritedBits |= property.InheritedBit();
  new (&entries[entryCount++]) Entry(std::move(entry));
}

void DependencyObject::Store(ValueLevel level, const DependencyProperty* property, Value value) {
  const Value& present = GetValue(property);
  Entry* entry = FindEntryAt(level, *property);
  if (entry && entry->value == value) return;
  if (present == value && !entry) {
    InsertEntry({property->index, level, std::move(value)});
    if (property->IsInherited()) inheritedMask |= property->InheritedBit();
    return;
  }
  // Observers get both values, and what they do may replace the new one.
  const Value oldValue = present;
  if (entry) {
    entry->value = std::move(value);
  } else {
    InsertEntry({property->index, level, std::move(value)});
  }
  const Value newValue = GetValue(property);
  if (!(oldValue == newValue)) {
    RaiseChange(*property, oldValue, newValue);
  } else if (property->IsInherited()) {
    inheritedMask |= property->InheritedBit();
  }
}

void DependencyObject::SetValueAt(ValueLevel level, const DependencyProperty* property, Value value) {
  Store(level, property, std::move(value));
}

void DependencyObject::SetValue(const DependencyProperty* property, Value value) {
  ValueExpression* expression = expressions ? FindExpression(property) : nullptr;
  if (!expression) {
    Store(ValueLevel::Local, property, std::move(value));
    return;
  }
  if (GetValue(property) == value) return;
  Ptr<DependencyObject> alive(this);
  Store(ValueLevel::Local, property, std::move(value));
  // A change handler may have replaced the expression.
  expression = FindExpression(property);
  if (!expression || expression->OnTargetSet()) return;
  for (std::unique_ptr<ValueExpression>* link = &expressions; *link; link = &(*link)->next) {
    if (link->get() == expression) {
      std::unique_ptr<ValueExpression> ended = std::move(*link);
      *link = std::move(ended->next);
      break;
    }
  }
}

void DependencyObject::SetFromExpression(const DependencyProperty* property, Value value) {
  Store(ValueLevel::Local, property, std::move(value));
}

void DependencyObject::ClearValueAt(ValueLevel level, const DependencyProperty* property) {
  Entry* entry = FindEntryAt(level, *property);
  if (!entry) return;
  const Value oldValue = GetValue(property);
  entry->~Entry();
  const size_t behind = static_cast<size_t>(entries + entryCount - (entry + 1));
  std::memmove(static_cast<void*>(entry), static_cast<const void*>(entry + 1), behind * sizeof(Entry));
  --entryCount;
  entryInheritedBits = 0;
  entryMask = 0;
  for (uint16_t i = 0; i < entryCount; ++i) {
    const DependencyProperty& p = DependencyProperty::At(entries[i].propertyIndex);
    entryMask |= p.MaskBit();
    entryInheritedBits |= p.InheritedBit();
  }
  UpdateMasks();
  const Value newValue = GetValue(property);
  if (!(oldValue == newValue)) RaiseChange(*property, oldValue, newValue);
}

void DependencyObject::UpdateMasks() {
  anyMask = entryMask;
  for (const PropertySet* set : {constants, styleValues, themeValues})
    if (set) anyMask |= set->Mask();
}

void DependencyObject::SetConstants(const PropertySet* set, bool fromTemplate) {
  constants = set;
  UpdateMasks();
  constantsFromTemplate = fromTemplate;
  inheritedMask |= set->InheritedBits();
}

void DependencyObject::SetStyleValues(const PropertySet* style, const PropertySet* theme, StyleChange change) {
  if (style == styleValues && theme == themeValues) return;
  std::vector<std::pair<const DependencyProperty*, Value>> before;
  if (change == StyleChange::Notify) {
    // Style tables are small; each property of the old and new ones may have changed.
    for (const PropertySet* set : {styleValues, style, themeValues, theme}) {
      if (!set) continue;
      for (const PropertySet::Entry& entry : set->Entries())
        before.emplace_back(entry.property, GetValue(entry.property));
    }
  }
  styleValues = style;
  themeValues = theme;
  UpdateMasks();
  inheritedMask |= OwnInheritedBits();
  for (size_t i = 0; i < before.size(); ++i) {
    bool known = false;
    for (size_t k = 0; k < i; ++k) known = known || before[k].first == before[i].first;
    const Value newValue = GetValue(before[i].first);
    if (!known && !(before[i].second == newValue)) RaiseChange(*before[i].first, before[i].second, newValue);
  }
}

uint16_t DependencyObject::OwnInheritedBits() const {
  uint16_t bits = entryInheritedBits;
  if (constants) bits |= constants->InheritedBits();
  if (styleValues) bits |= styleValues->InheritedBits();
  if (themeValues) bits |= themeValues->InheritedBits();
  return bits;
}

void DependencyObject::RaiseChange(const DependencyProperty& property, const Value& oldValue, const Value& newValue) {
  if (property.IsInherited()) {
    const DependencyObject* parent = InheritanceParent();
    inheritedMask = static_cast<uint16_t>(OwnInheritedBits() | (parent ? parent->inheritedMask : 0));
  }
  OnPropertyChanged({property, oldValue, newValue});
  if (property.IsInherited()) RefreshInheritanceOfChildren(property.InheritedBit());
}

void DependencyObject::OnPropertyChanged(const PropertyChange& change) {
  if (&change.property == DataContext::Property()) {
    // An expression may replace others while it runs; restarting is not needed since it never removes itself here.
    for (ValueExpression* e = expressions.get(); e; e = e->next.get()) e->OnDataContextChanged();
  }
  if (change.property.changed) change.property.changed(*this, change);
  NotifyObservers(change.property.name);
}

void DependencyObject::OnInheritedChanged(uint16_t bits) {
  if (expressions && (bits & DataContext::Property()->InheritedBit()))
    for (ValueExpression* e = expressions.get(); e; e = e->next.get()) e->OnDataContextChanged();
  if (!HasObservers()) return;
  for (int i = 0; i < 16; ++i)
    if (bits & (1u << i)) NotifyObservers(DependencyProperty::Inherited(i)->name);
}

void DependencyObject::RefreshInheritance(uint16_t changedBits) {
  const DependencyObject* parent = InheritanceParent();
  const uint16_t own = OwnInheritedBits();
  const uint16_t oldMask = inheritedMask;
  inheritedMask = static_cast<uint16_t>(own | (parent ? parent->inheritedMask : 0));
  const uint16_t affected = static_cast<uint16_t>((changedBits | (oldMask ^ inheritedMask)) & ~own);
  if (!affected) return;
  OnInheritedChanged(affected);
  RefreshInheritanceOfChildren(affected);
}

void DependencyObject::SetExpression(std::unique_ptr<ValueExpression> expression) {
  expression->target = this;
  for (std::unique_ptr<ValueExpression>* link = &expressions; *link; link = &(*link)->next) {
    if ((*link)->property == expression->property) {
      expression->next = std::move((*link)->next);
      *link = std::move(expression);
      return;
    }
  }
  expression->next = std::move(expressions);
  expressions = std::move(expression);
}

ValueExpression* DependencyObject::FindExpression(const DependencyProperty* property) const {
  for (ValueExpression* e = expressions.get(); e; e = e->next.get())
    if (e->property == property) return e;
  return nullptr;
}

void DependencyObject::ActivateExpressions() {
  for (ValueExpression* e = expressions.get(); e; e = e->next.get()) e->Activate();
}

} // namespace Toolkit
