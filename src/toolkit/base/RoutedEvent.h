#pragma once

#include "toolkit/base/Object.h"
#include "toolkit/base/Symbol.h"

#include <functional>
#include <memory>

namespace Toolkit {

enum class RoutingStrategy : uint8_t { Direct, Tunnel, Bubble };

/// Names an event that travels through the tree. One static object per event; its address is its identity.
class RoutedEvent {
public:
  RoutedEvent(std::string_view name, RoutingStrategy strategy) : name(name), strategy(strategy) {}
  RoutedEvent(const RoutedEvent&) = delete;
  Symbol name;
  RoutingStrategy strategy;
};

struct RoutedEventArgs {
  explicit RoutedEventArgs(const RoutedEvent& event, Object* source = nullptr) : event(&event), source(source) {}
  virtual ~RoutedEventArgs() = default;
  const RoutedEvent* event;
  /// Where the event began. Not owned: the route keeps it alive.
  Object* source;
  /// A handled event reaches only handlers that ask for handled events too.
  mutable bool handled = false;
};

/// A handler: a member function on an object that outlives the registration, or a function object.
class RoutedEventHandler {
public:
  using Function = void (*)(void* target, Object* sender, const RoutedEventArgs& args);
  RoutedEventHandler() = default;

  template <auto Method, class C> static RoutedEventHandler From(C* target) {
    RoutedEventHandler handler;
    handler.target = target;
    handler.function = [](void* object, Object* sender, const RoutedEventArgs& args) {
      Invoke<Method, C>(static_cast<C*>(object), sender, args, Method);
    };
    return handler;
  }
  static RoutedEventHandler From(std::function<void(Object*, const RoutedEventArgs&)> closure) {
    RoutedEventHandler handler;
    handler.closure = std::make_shared<std::function<void(Object*, const RoutedEventArgs&)>>(std::move(closure));
    handler.target = handler.closure.get();
    handler.function = [](void* object, Object* sender, const RoutedEventArgs& args) {
      (*static_cast<std::function<void(Object*, const RoutedEventArgs&)>*>(object))(sender, args);
    };
    return handler;
  }
  void operator()(Object* sender, const RoutedEventArgs& args) const { function(target, sender, args); }
  explicit operator bool() const { return function != nullptr; }
  friend bool operator==(const RoutedEventHandler& a, const RoutedEventHandler& b) {
    return a.target == b.target && a.function == b.function;
  }

private:
  // Handlers may take the event's own argument class; the event guarantees the type.
  template <auto Method, class C, class B, class Args>
  static void Invoke(C* object, Object* sender, const RoutedEventArgs& args, void (B::*)(Object*, const Args&)) {
    (object->*Method)(sender, static_cast<const Args&>(args));
  }
  void* target = nullptr;
  Function function = nullptr;
  std::shared_ptr<std::function<void(Object*, const RoutedEventArgs&)>> closure;
};

} // namespace Toolkit
