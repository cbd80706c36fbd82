#include "toolkit/visual/ResourceDictionary.h"

namespace Toolkit {

TOOLKIT_TYPE_IMPL(ResourceDictionary, Object, "ResourceDictionary")
void ResourceDictionary::Describe(TypeBuilder<ResourceDictionary>&) {}

namespace {
Ptr<ResourceDictionary>& ApplicationResources() {
  static auto* resources = new Ptr<ResourceDictionary>();
  return *resources;
}
} // namespace

void ResourceDictionary::Add(Value key, Value value) {
  for (Entry& entry : entries) {
    if (entry.key == key) {
      entry.value = std::move(value);
      return;
    }
  }
  entries.push_back({std::move(key), std::move(value)});
}

const Value* ResourceDictionary::Find(const Value& key) const {
  for (const Entry& entry : entries)
    if (entry.key == key) return &entry.value;
  for (size_t i = merged.size(); i-- > 0;)
    if (const Value* found = merged[i]->Find(key)) return found;
  return nullptr;
}

ResourceDictionary* ResourceDictionary::Application() { return ApplicationResources().Get(); }

void ResourceDictionary::SetApplication(Ptr<ResourceDictionary> resources) {
  ApplicationResources() = std::move(resources);
}

} // namespace Toolkit
