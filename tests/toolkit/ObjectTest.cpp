#include "toolkit/base/Observable.h"
#include "toolkit/base/ObservableCollection.h"
#include "toolkit/base/Value.h"

#include <gtest/gtest.h>

namespace Toolkit {
namespace {

class Plain : public Object {};

TEST(Object, LivesAsLongAsAStrongReferenceAndClearsWeakOnes) {
  const size_t before = Object::LiveCount();
  WeakPtr<Plain> weak;
  {
    Ptr<Plain> first = MakePtr<Plain>();
    Ptr<Plain> second = first;
    weak = WeakPtr<Plain>(first);
    first.Reset();
    EXPECT_EQ(weak.Get(), second.Get());
  }
  EXPECT_EQ(weak.Get(), nullptr);
  EXPECT_EQ(Object::LiveCount(), before);
}

TEST(Object, SurvivesReferencesTakenWhileItIsDestroyed) {
  struct Referring : Object {
    ~Referring() override { Ptr<Object> again(this); }
  };
  const size_t before = Object::LiveCount();
  MakePtr<Referring>();
  EXPECT_EQ(Object::LiveCount(), before);
}

TEST(Value, ConvertsNumbersAndSaturatesAtTheLimitsOf32Bits) {
  EXPECT_EQ(Value(2.9).AsInt(), 2);
  EXPECT_EQ(Value(-2.9).AsInt(), -2);
  EXPECT_EQ(Value(1e12).AsInt(), INT32_MAX);
  EXPECT_EQ(Value(-1e12).AsInt(), INT32_MIN);
  EXPECT_EQ(Value(std::nan("")).AsInt(), 0);
  EXPECT_EQ(Value("7").AsInt(), 0);
}

TEST(Value, ComparesTextsByBytesAndObjectsByIdentity) {
  EXPECT_EQ(Value("abc"), Value(std::string("abc")));
  EXPECT_FALSE(Value("abc") == Value("abd"));
  EXPECT_EQ(Value(""), Value(SharedString()));
  auto a = MakePtr<Plain>(), b = MakePtr<Plain>();
  EXPECT_EQ(Value(a), Value(a.Get()));
  EXPECT_FALSE(Value(a) == Value(b));
  EXPECT_FALSE(Value(1) == Value(1.0f));
}

class Source : public NotifyPropertyChangedBase {
public:
  void Raise(const char* name) { OnPropertyChanged(name); }
};

struct Watcher : PropertyObserver {
  std::vector<std::string> seen;
  std::function<void()> action;
  void OnObservedChange(Observable&, Symbol name) override {
    seen.push_back(name.Text());
    if (action) action();
  }
};

TEST(Observable, SkipsObserversThatLeaveDuringANotification) {
  auto source = MakePtr<Source>();
  Watcher first, second, third;
  for (Watcher* watcher : {&first, &second, &third}) watcher->Observe(source.Get());
  // The newest is told first; it takes the next one out.
  third.action = [&] { second.StopObserving(); };
  source->Raise("A");
  EXPECT_EQ(third.seen.size(), 1u);
  EXPECT_EQ(second.seen.size(), 0u);
  EXPECT_EQ(first.seen.size(), 1u);
}

TEST(Observable, OutlivesAnObserverThatDropsTheLastReference) {
  auto source = MakePtr<Source>();
  Watcher watcher;
  watcher.Observe(source.Get());
  watcher.action = [&] { source.Reset(); };
  source->Raise("A");
  EXPECT_EQ(watcher.seen.size(), 1u);
  EXPECT_EQ(watcher.ObservedObject(), nullptr);
}

struct CollectionWatcher : CollectionObserver {
  std::vector<CollectionChange> changes;
  void OnCollectionChanged(const CollectionChange& change) override { changes.push_back(change); }
};

TEST(ObservableCollection, KeepsOrderAndTellsEachChange) {
  auto list = MakePtr<ObservableCollection<Plain>>();
  auto a = MakePtr<Plain>(), b = MakePtr<Plain>(), c = MakePtr<Plain>();
  CollectionWatcher watcher;
  watcher.ObserveCollection(list.Get());
  list->Add(a);
  list->Add(b);
  list->Insert(1, c);
  list->Move(2, 0);
  EXPECT_EQ(list->Get(0), b.Get());
  EXPECT_EQ(list->Get(1), a.Get());
  EXPECT_EQ(list->Get(2), c.Get());
  EXPECT_TRUE(list->Remove(a.Get()));
  EXPECT_FALSE(list->Remove(a.Get()));
  list->Clear();
  list->Clear();
  ASSERT_EQ(watcher.changes.size(), 6u);
  EXPECT_EQ(watcher.changes[3].action, CollectionChange::Action::Move);
  EXPECT_EQ(watcher.changes[3].oldIndex, 2u);
  EXPECT_EQ(watcher.changes[4].index, 1u);
  EXPECT_EQ(watcher.changes[5].action, CollectionChange::Action::Reset);
}

} // namespace
} // namespace Toolkit
