#include "toolkit/base/Object.h"

#include "toolkit/base/Type.h"

#include <unordered_map>

namespace Toolkit {

namespace {
size_t liveObjects = 0;
}

struct WeakReference::Block {
  const Object* object;
  uint32_t references;
};

namespace {
// Outlives every static object that may still hold a weak reference at exit.
std::unordered_map<const Object*, WeakReference::Block*>& Blocks() {
  static auto* blocks = new std::unordered_map<const Object*, WeakReference::Block*>();
  return *blocks;
}
} // namespace

Object::Object() { ++liveObjects; }

Object::~Object() {
  --liveObjects;
  if (hasWeakReferences) WeakReference::ObjectGone(this);
}

size_t Object::LiveCount() { return liveObjects; }

const Type& Object::StaticType() {
  static const Type& type = *TypeRegistry::Add("Object", nullptr, nullptr);
  return type;
}

WeakReference::WeakReference(const Object* object) {
  if (!object) return;
  Block*& entry = Blocks()[object];
  if (!entry) {
    entry = new Block{object, 0};
    object->hasWeakReferences = true;
  }
  block = entry;
  ++block->references;
}

WeakReference::WeakReference(const WeakReference& other) : block(other.block) {
  if (block) ++block->references;
}

WeakReference::~WeakReference() {
  if (!block || --block->references > 0) return;
  if (block->object) {
    block->object->hasWeakReferences = false;
    Blocks().erase(block->object);
  }
  delete block;
}

Object* WeakReference::Lock() const { return block ? const_cast<Object*>(block->object) : nullptr; }

void WeakReference::ObjectGone(const Object* object) {
  auto found = Blocks().find(object);
  if (found == Blocks().end()) return;
  found->second->object = nullptr;
  Blocks().erase(found);
}

} // namespace Toolkit
