#pragma once

#include "toolkit/base/Object.h"
#include "toolkit/base/Symbol.h"
#include "toolkit/base/Type.h"

#include <cstdint>

namespace Toolkit {

class Observable;

/// Watches one observable object for property changes. Embedded in bindings and triggers; detaches itself when
/// either side goes.
class PropertyObserver {
public:
  PropertyObserver() = default;
  PropertyObserver(const PropertyObserver&) = delete;
  PropertyObserver& operator=(const PropertyObserver&) = delete;
  virtual ~PropertyObserver() { StopObserving(); }

  /// Called for the changes of that name at least; without one for all.
  void Observe(Observable* newSource, Symbol name = {});
  void StopObserving();
  Observable* ObservedObject() const { return source; }

  /// `name` of the source changed.
  virtual void OnObservedChange(Observable& source, Symbol name) = 0;
  /// The source is being destroyed; the observer is detached already.
  virtual void OnObservedGone() {}

private:
  friend class Observable;
  Observable* source = nullptr;
  PropertyObserver* next = nullptr;
  PropertyObserver** link = nullptr;
};

/// An object that tells observers when one of its properties changed.
class Observable : public Object {
  TOOLKIT_TYPE(Observable)
public:
  ~Observable() override;
  bool HasObservers() const { return observers != nullptr; }

protected:
  Observable() = default;
  void NotifyObservers(Symbol name);

private:
  friend class PropertyObserver;
  /// A bit for each name that is observed, which different names may share: most changes, such as a move, concern none
  /// of the many bindings of an object, and then these need not be fetched.
  uint16_t observedNames = 0;
  PropertyObserver* observers = nullptr;
};

/// Base of plain data objects that bindings follow.
class NotifyPropertyChangedBase : public Observable {
  TOOLKIT_TYPE(NotifyPropertyChangedBase)
protected:
  /// Tells that the reflected member `name` changed. Call it after the change, and only for a real one.
  void OnPropertyChanged(Symbol name) { NotifyObservers(name); }
  void OnPropertyChanged(const char* name) { NotifyObservers(Symbol(name)); }
};

} // namespace Toolkit
