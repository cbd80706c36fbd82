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
} // namespace

void PropertyObserver::Observe(Observable* newSource) {
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
  if (!observers) return;
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
