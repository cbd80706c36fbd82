#pragma once

#include "toolkit/base/Observable.h"

#include <functional>
#include <vector>

namespace Toolkit {

struct CollectionChange {
  enum class Action { Add, Remove, Move, Reset };
  Action action;
  /// Add: index of the new item; Remove: of the old one; Move: the new index.
  size_t index = 0;
  /// Move: the old index.
  size_t oldIndex = 0;
};

class ObservableCollectionBase;

/// Watches one collection; detaches itself when either side goes.
class CollectionObserver {
public:
  virtual ~CollectionObserver() { StopObservingCollection(); }
  void ObserveCollection(ObservableCollectionBase* collection);
  void StopObservingCollection();
  virtual void OnCollectionChanged(const CollectionChange& change) = 0;

private:
  friend class ObservableCollectionBase;
  ObservableCollectionBase* observedCollection = nullptr;
};

/// A list of objects, in order, that tells observers of every change. Owns its items.
class ObservableCollectionBase : public Observable {
  TOOLKIT_TYPE(ObservableCollectionBase)
public:
  ~ObservableCollectionBase() override;
  size_t Count() const { return items.size(); }
  int32_t CountValue() const { return static_cast<int32_t>(items.size()); }
  Object* ItemAt(size_t index) const { return items[index].Get(); }
  /// The index of the item, or -1.
  int IndexOfItem(const Object* item) const;
  void RemoveAt(size_t index);
  void Move(size_t oldIndex, size_t newIndex);
  void Clear();

protected:
  ObservableCollectionBase() = default;
  void InsertItem(size_t index, Ptr<Object> item);

private:
  friend class CollectionObserver;
  void Notify(const CollectionChange& change);
  std::vector<Ptr<Object>> items;
  std::vector<CollectionObserver*> observers;
};

template <class T> class ObservableCollection : public ObservableCollectionBase {
public:
  void Add(Ptr<T> item) { InsertItem(Count(), std::move(item)); }
  void Insert(size_t index, Ptr<T> item) { InsertItem(index, std::move(item)); }
  /// Removes the first occurrence; false if there is none.
  bool Remove(const T* item) {
    const int index = IndexOfItem(item);
    if (index >= 0) RemoveAt(static_cast<size_t>(index));
    return index >= 0;
  }
  T* Get(size_t index) const { return static_cast<T*>(ItemAt(index)); }
};

} // namespace Toolkit
