#include "toolkit/base/Observable.h"

namespace Toolkit {

TOOLKIT_TYPE_IMPL(Observable, Object, "Observable")
void Observable::Describe(TypeBuilder<Observable>&) {}

TOOLKIT_TYPE_IMPL(NotifyPropertyChangedBase, Observable, "NotifyPropertyChangedBase")
void NotifyPropertyChangedBase::Describe(TypeBuilder<NotifyPropertyChangedBase>&) {}

namespace {
// A notification in progress. Observers may come and go meanwhile: a removed one is stepped over.
struct Cursor {
  PropertyObserver* next;
  Cursor* outer;
};
Cursor* innermost = nullptr;

/// All bits for no name.
uint16_t BitOf(Symbol name) {
  if (name.IsEmpty()) return 0xffff;
  return static_cast<uint16_t>(1u << (name.Hash() / 32 * 0x9E3779B97F4A7C15ull >> 60));
}
} // namespace

void PropertyObserver::Observe(Observable* newSource, Symbol name) {
  if (newSource) newSource->observedNames |= BitOf(name);
  if (source == newSource) return;
  StopObserving();
  if (!newSource) return;
  source = newSource;
  next = newSource->observers;
  if (next) next->link = &next;
  link = &newSource->observers;
  newSource->observers = this;
}

void PropertyObserver::StopObserving() {
  if (!source) return;
  for (Cursor* cursor = innermost; cursor; cursor = cursor->outer)
    if (cursor->next == this) cursor->next = next;
  *link = next;
  if (next) next->link = link;
  source = nullptr;
  next = nullptr;
  link = nullptr;
}

Observable::~Observable() {
  while (observers) {
    PropertyObserver* observer = observers;
    observer->StopObserving();
    observer->OnObservedGone();
  }
}

void Observable::NotifyObservers(Symbol name) {
  if (!observers || !(observedNames & BitOf(name))) return;
  Ptr<Observable> alive(this);
  Cursor cursor{observers, innermost};
  innermost = &cursor;
  while (cursor.next) {
    PropertyObserver* observer = cursor.next;
    cursor.next = observer->next;
    observer->OnObservedChange(*this, name);
  }
  innermost = cursor.outer;
}

} // namespace Toolkit
