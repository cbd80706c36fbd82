#pragma once

#include "toolkit/base/DependencyProperty.h"
#include "toolkit/base/RoutedEvent.h"
#include "toolkit/base/Symbol.h"
#include "toolkit/base/Value.h"

#include <initializer_list>
#include <string_view>
#include <utility>
#include <vector>

namespace Toolkit {

class DependencyObject;

/// A plain member of a class that bindings and documents reach by name.
struct ReflectedMember {
  Symbol name;
  ValueKind kind = ValueKind::None;
  Value (*get)(Object& object) = nullptr;
  /// Null for a read-only member.
  void (*set)(Object& object, const Value& value) = nullptr;
};

/// A member that takes any number of children in a document, such as `Children`.
struct ListMember {
  Symbol name;
  const Type& (*itemType)() = nullptr;
  void (*add)(Object& owner, Object* item) = nullptr;
};

/// A member function that the class's document may name as what answers an event.
struct HandlerMember {
  Symbol name;
  const RoutedEvent* event = nullptr;
  /// The handler that calls the function of `target`, an object of the class that must outlive it.
  RoutedEventHandler (*bind)(Object& target) = nullptr;
};

/// What the toolkit knows about a class: its name, base, properties, reflected members, events, handlers and content
/// member.
/// One description per class, made on first use by the class's `Describe`, alive until the process ends.
class Type {
public:
  using Factory = Object* (*)();
  Type(Symbol name, const Type* base, Factory factory) : name(name), base(base), factory(factory) {}

  /// The name that documents use. Classes outside the toolkit carry their namespace in front: "Namespace.Class".
  const std::string& Name() const { return name.Text(); }
  const Type* Base() const { return base; }
  bool IsA(const Type& other) const {
    for (const Type* t = this; t; t = t->base)
      if (t == &other) return true;
    return false;
  }
  bool CanCreate() const { return factory != nullptr; }
  /// A new object with one reference, which the caller owns; null for an abstract class.
  Object* Create() const { return factory ? factory() : nullptr; }

  /// The nearest declaration of that name, in this class or a base; null if there is none.
  const DependencyProperty* FindProperty(Symbol name) const;
  const ReflectedMember* FindMember(Symbol name) const;
  const ListMember* FindList(Symbol name) const;
  const RoutedEvent* FindEvent(Symbol name) const;
  const HandlerMember* FindHandler(Symbol name, const RoutedEvent& event) const;
  /// Name of the property or member that takes the children of an element in a document; empty if there is none.
  Symbol ContentMember() const;
  /// Objects of the class never change after loading, so that all instances of a document share one.
  bool IsShareable() const {
    for (const Type* t = this; t; t = t->base)
      if (t->shareable) return true;
    return false;
  }

private:
  friend class TypeRegistry;
  template <class C> friend class TypeBuilder;
  Symbol name;
  const Type* base;
  Factory factory;
  Symbol content;
  bool shareable = false;
  std::vector<const DependencyProperty*> properties;
  std::vector<ReflectedMember> members;
  std::vector<ListMember> lists;
  std::vector<const RoutedEvent*> events;
  std::vector<HandlerMember> handlers;
};

/// All described types by name.
class TypeRegistry {
public:
  static Type* Add(std::string_view name, const Type* base, Type::Factory factory);
  static const Type* Find(Symbol name);
};

namespace Reflection {
template <class T> struct Accessor;
template <class C, class R> struct Accessor<R (C::*)() const> {
  using Class = C;
  using Result = std::remove_cvref_t<R>;
};
template <class C, class R> struct Accessor<R (C::*)()> : Accessor<R (C::*)() const> {};
template <class C, class A> struct Accessor<void (C::*)(A)> {
  using Class = C;
  using Result = std::remove_cvref_t<A>;
};
template <class T> struct Pointee { using Type = void; };
template <class T> struct Pointee<T*> { using Type = T; };
template <class T> struct Pointee<Ptr<T>> { using Type = T; };
template <class T> Value ToValue(const T& value) {
  if constexpr (std::is_same_v<T, std::string_view>)
    return Value(SharedString(value));
  else
    return Value(value);
}
template <class T> T FromValue(const Value& value) {
  if constexpr (!std::is_void_v<typename Pointee<T>::Type> && !std::is_same_v<T, const Type*>) {
    return T(DynamicCast<typename Pointee<T>::Type>(value.AsObject()));
  } else if constexpr (std::is_same_v<T, std::string_view>) {
    return value.AsStringView();
  } else {
    return value.As<T>();
  }
}
} // namespace Reflection

/// Fills a type's description; handed to `Describe`.
template <class C> class TypeBuilder {
public:
  explicit TypeBuilder(Type& type) : type(type) {}

  /// Declares a dependency property. `T` is a value type, an enum, `Value` for any, or a pointer to an object class.
  template <class T>
  const DependencyProperty* Property(std::string_view name, T defaultValue = T(), uint32_t flags = 0,
                                     DependencyProperty::Changed changed = nullptr) {
    DependencyProperty property;
    property.name = Symbol(name);
    property.kind = KindOf<T>();
    property.owner = &type;
    property.flags = flags;
    property.changed = changed;
    if constexpr (std::is_same_v<T, Value>)
      property.defaultValue = defaultValue;
    else
      property.defaultValue = Value(defaultValue);
    if constexpr (std::is_enum_v<T>) property.enumeration = &DescribeEnum(T{});
    if constexpr (KindOf<T>() == ValueKind::Object) property.objectType = &std::remove_pointer_t<T>::StaticType;
    const DependencyProperty* added = DependencyProperty::Register(std::move(property));
    type.properties.push_back(added);
    return added;
  }

  template <auto Getter> void Member(std::string_view name) { AddMember<Getter>(name, nullptr); }
  template <auto Getter, auto Setter> void Member(std::string_view name) {
    using Traits = Reflection::Accessor<decltype(Setter)>;
    AddMember<Getter>(name, [](Object& object, const Value& value) {
      (static_cast<typename Traits::Class&>(object).*Setter)(Reflection::FromValue<typename Traits::Result>(value));
    });
  }

  /// Makes a property that is registered elsewhere one of this class.
  const DependencyProperty* Declare(const DependencyProperty* property) {
    type.properties.push_back(property);
    return property;
  }
  const RoutedEvent* Event(const RoutedEvent* event) {
    type.events.push_back(event);
    return event;
  }
  /// Lets the class's document name `Method` as what answers the event; described once for each event that it
  /// answers. A virtual function is described by the base alone.
  template <auto Method> void Handler(std::string_view name, const RoutedEvent& event) {
    type.handlers.push_back({Symbol(name), &event, [](Object& target) {
                               return RoutedEventHandler::From<Method>(&static_cast<C&>(target));
                             }});
  }
  /// `Add` is a member function that takes a pointer to the item.
  template <auto Add> void List(std::string_view name) {
    using Traits = Reflection::Accessor<decltype(Add)>;
    using Item = typename Reflection::Pointee<typename Traits::Result>::Type;
    type.lists.push_back({Symbol(name), &Item::StaticType, [](Object& owner, Object* item) {
                            (static_cast<typename Traits::Class&>(owner).*Add)(static_cast<Item*>(item));
                          }});
  }
  void Content(std::string_view name) { type.content = Symbol(name); }
  void Shareable() { type.shareable = true; }

private:
  template <auto Getter> void AddMember(std::string_view name, void (*set)(Object&, const Value&)) {
    using Traits = Reflection::Accessor<decltype(Getter)>;
    ReflectedMember member;
    member.name = Symbol(name);
    if constexpr (std::is_same_v<typename Traits::Result, std::string_view>)
      member.kind = ValueKind::String;
    else
      member.kind = KindOf<typename Traits::Result>();
    member.get = [](Object& object) -> Value {
      return Reflection::ToValue<typename Traits::Result>((static_cast<typename Traits::Class&>(object).*Getter)());
    };
    member.set = set;
    type.members.push_back(member);
  }
  Type& type;
};

template <class T> T* DynamicCast(Object* object) {
  return object && object->GetType().IsA(T::StaticType()) ? static_cast<T*>(object) : nullptr;
}
template <class T> const T* DynamicCast(const Object* object) {
  return object && object->GetType().IsA(T::StaticType()) ? static_cast<const T*>(object) : nullptr;
}

namespace Reflection {
template <class C, class B> const Type& MakeType(std::string_view name, void (*describe)(TypeBuilder<C>&)) {
  Type::Factory factory = nullptr;
  if constexpr (!std::is_abstract_v<C> && std::is_default_constructible_v<C>) {
    factory = []() -> Object* { return new C(); };
  }
  Type* type = TypeRegistry::Add(name, &B::StaticType(), factory);
  TypeBuilder<C> builder(*type);
  describe(builder);
  return *type;
}
} // namespace Reflection

} // namespace Toolkit

/// In the class: declares its description.
#define TOOLKIT_TYPE(Class)                                                                                            \
public:                                                                                                                \
  static const ::Toolkit::Type& StaticType();                                                                          \
  const ::Toolkit::Type& GetType() const override { return StaticType(); }                                             \
                                                                                                                       \
private:                                                                                                               \
  static void Describe(::Toolkit::TypeBuilder<Class>& type);

/// In the source: defines it. `Describe` follows as an ordinary member function.
#define TOOLKIT_TYPE_IMPL(Class, BaseClass, name)                                                                      \
  const ::Toolkit::Type& Class::StaticType() {                                                                         \
    static const ::Toolkit::Type& type = ::Toolkit::Reflection::MakeType<Class, BaseClass>(name, &Class::Describe);    \
    return type;                                                                                                       \
  }
