#include "toolkit/base/ObservableCollection.h"

#include <algorithm>

namespace Toolkit {

TOOLKIT_TYPE_IMPL(ObservableCollectionBase, Observable, "ObservableCollection")
void ObservableCollectionBase::Describe(TypeBuilder<ObservableCollectionBase>& type) {
  type.Member<&ObservableCollectionBase::CountValue>("Count");
}

void CollectionObserver::ObserveCollection(ObservableCollectionBase* collection) {
  if (collection == observedCollection) return;
  StopObservingCollection();
  observedCollection = collection;
  if (collection) collection->observers.push_back(this);
}

void CollectionObserver::StopObservingCollection() {
  if (!observedCollection) return;
  std::erase(observedCollection->observers, this);
  observedCollection = nullptr;
}

ObservableCollectionBase::~ObservableCollectionBase() {
  for (CollectionObserver* observer : observers) observer->observedCollection = nullptr;
}

int ObservableCollectionBase::IndexOfItem(const Object* item) const {
  for (size_t i = 0; i < items.size(); ++i)
    if (items[i] == item) return static_cast<int>(i);
  return -1;
}

void ObservableCollectionBase::Notify(const CollectionChange& change) {
  if (!observers.empty()) {
    Ptr<Object> alive(this);
    // A copy, since an observer may come or go; one that has gone is not called.
    const std::vector<CollectionObserver*> current = observers;
    for (CollectionObserver* observer : current)
      if (std::find(observers.begin(), observers.end(), observer) != observers.end())
        observer->OnCollectionChanged(change);
  }
  if (HasObservers() && change.action != CollectionChange::Action::Move) NotifyObservers(Symbol("Count"));
}

void ObservableCollectionBase::InsertItem(size_t index, Ptr<Object> item) {
  items.insert(items.begin() + static_cast<std::ptrdiff_t>(index), std::move(item));
  Notify({CollectionChange::Action::Add, index, 0});
}

void ObservableCollectionBase::RemoveAt(size_t index) {
  Ptr<Object> removed = std::move(items[index]);
  items.erase(items.begin() + static_cast<std::ptrdiff_t>(index));
  Notify({CollectionChange::Action::Remove, index, 0});
}

void ObservableCollectionBase::Move(size_t oldIndex, size_t newIndex) {
  if (oldIndex == newIndex) return;
  Ptr<Object> item = std::move(items[oldIndex]);
  items.erase(items.begin() + static_cast<std::ptrdiff_t>(oldIndex));
  items.insert(items.begin() + static_cast<std::ptrdiff_t>(newIndex), std::move(item));
  Notify({CollectionChange::Action::Move, newIndex, oldIndex});
}

void ObservableCollectionBase::Clear() {
  if (items.empty()) return;
  std::vector<Ptr<Object>> removed = std::move(items);
  items.clear();
  Notify({CollectionChange::Action::Reset, 0, 0});
}

} // namespace Toolkit
