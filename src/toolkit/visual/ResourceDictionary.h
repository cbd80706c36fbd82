#pragma once

#include "toolkit/base/Type.h"

#include <vector>

namespace Toolkit {

/// Objects by key: a text, or a type for what applies to a class. A dictionary may merge others; its own entries win,
/// then the merged ones, the last first.
class ResourceDictionary : public Object {
  TOOLKIT_TYPE(ResourceDictionary)
public:
  ResourceDictionary() = default;
  /// Replaces a former entry of an equal key.
  void Add(Value key, Value value);
  void Merge(Ptr<ResourceDictionary> other) { merged.push_back(std::move(other)); }
  /// Null if there is no such entry.
  const Value* Find(const Value& key) const;

  /// The application's resources, the last place of every lookup. May be null.
  static ResourceDictionary* Application();
  static void SetApplication(Ptr<ResourceDictionary> resources);

private:
  struct Entry {
    Value key, value;
  };
  std::vector<Entry> entries;
  std::vector<Ptr<ResourceDictionary>> merged;
};

} // namespace Toolkit
