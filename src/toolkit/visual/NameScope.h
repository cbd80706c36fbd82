#pragma once

#include "toolkit/base/Object.h"
#include "toolkit/base/Symbol.h"

#include <vector>

namespace Toolkit {

/// The named objects of one loaded document. Owned by the document's root element, which outlives them.
class NameScope {
public:
  void Register(Symbol name, Object* object) { names.push_back({name, object}); }
  Object* Find(Symbol name) const {
    for (const auto& entry : names)
      if (entry.name == name) return entry.object;
    return nullptr;
  }

private:
  struct Entry {
    Symbol name;
    Object* object;
  };
  std::vector<Entry> names;
};

} // namespace Toolkit
