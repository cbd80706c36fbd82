#include "toolkit/base/PropertySet.h"

namespace Toolkit {

void PropertySet::Set(const DependencyProperty* property, Value value) {
  for (Entry& entry : entries) {
    if (entry.property == property) {
      entry.value = std::move(value);
      return;
    }
  }
  mask |= property->MaskBit();
  inheritedBits |= property->InheritedBit();
  entries.push_back({property, std::move(value)});
}

} // namespace Toolkit
