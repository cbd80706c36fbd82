#pragma once

#include "toolkit/base/DependencyProperty.h"

#include <vector>

namespace Toolkit {

/// An immutable table of property values that many objects share: the constant attributes of an element in a
/// compiled document, or the setters of a style.
class PropertySet {
public:
  struct Entry {
    const DependencyProperty* property;
    Value value;
  };

  /// Replaces a former value of the same property. Only while the set is being built.
  void Set(const DependencyProperty* property, Value value);
  const Value* Find(const DependencyProperty& property) const {
    if (!(mask & property.MaskBit())) return nullptr;
    for (const Entry& entry : entries)
      if (entry.property == &property) return &entry.value;
    return nullptr;
  }
  const std::vector<Entry>& Entries() const { return entries; }
  uint64_t Mask() const { return mask; }
  bool IsEmpty() const { return entries.empty(); }
  uint16_t InheritedBits() const { return inheritedBits; }

private:
  uint64_t mask = 0;
  uint16_t inheritedBits = 0;
  std::vector<Entry> entries;
};

} // namespace Toolkit
