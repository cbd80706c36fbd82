#include "toolkit/render/DisplayList.h"

namespace Toolkit {

namespace {
template <class T> size_t Held(const std::vector<T>& items) { return items.capacity() * sizeof(T); }
} // namespace

size_t DisplayList::ByteSize() const {
  size_t size = sizeof(*this) + Held(entries) + Held(paints) + Held(boxes) + Held(paths) + Held(texts) + Held(shadows) +
                Held(lists) + Held(matrices) + Held(opacities);
  for (const PathShape& path : paths) size += Held(path.outline.verbs) + Held(path.outline.points) + Held(path.dashes);
  return size;
}

} // namespace Toolkit
