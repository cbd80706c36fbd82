#pragma once

#include <cstddef>
#include <cstdint>
#include <type_traits>
#include <utility>

namespace Toolkit {

class Type;

/// Base of everything that is shared by reference: elements, resources, value carriers, collections. The count is
/// intrusive and not atomic, since all toolkit objects live on the UI thread. A new object starts with one reference,
/// which `MakePtr` hands to the first `Ptr`, so that a constructor may pass `this` around.
class Object {
public:
  Object();
  Object(const Object&) = delete;
  Object& operator=(const Object&) = delete;
  virtual ~Object();

  static const Type& StaticType();
  virtual const Type& GetType() const { return StaticType(); }

  void AddRef() const { ++referenceCount; }
  void Release() const {
    if (--referenceCount == 0) {
      // References taken and dropped while the object is being destroyed must not destroy it again.
      referenceCount = 1u << 30;
      delete this;
    }
  }
  uint32_t ReferenceCount() const { return referenceCount; }

  /// How many objects are alive. Tests compare it before and after.
  static size_t LiveCount();

private:
  friend class WeakReference;
  mutable uint32_t referenceCount = 1;
  mutable bool hasWeakReferences = false;
};

/// A strong reference.
template <class T> class Ptr {
public:
  Ptr() = default;
  Ptr(std::nullptr_t) {}
  Ptr(T* object) : object(object) {
    if (object) object->AddRef();
  }
  Ptr(const Ptr& other) : Ptr(other.object) {}
  Ptr(Ptr&& other) noexcept : object(std::exchange(other.object, nullptr)) {}
  template <class U, class = std::enable_if_t<std::is_convertible_v<U*, T*>>>
  Ptr(const Ptr<U>& other) : Ptr(other.Get()) {}
  template <class U, class = std::enable_if_t<std::is_convertible_v<U*, T*>>>
  Ptr(Ptr<U>&& other) noexcept : object(other.Detach()) {}
  ~Ptr() {
    if (object) object->Release();
  }
  Ptr& operator=(Ptr other) noexcept {
    std::swap(object, other.object);
    return *this;
  }

  /// Takes over a reference that the caller owns.
  static Ptr Adopt(T* object) {
    Ptr result;
    result.object = object;
    return result;
  }
  /// Gives the reference to the caller.
  T* Detach() { return std::exchange(object, nullptr); }
  void Reset() { Ptr().Swap(*this); }
  void Swap(Ptr& other) { std::swap(object, other.object); }

  T* Get() const { return object; }
  T* operator->() const { return object; }
  T& operator*() const { return *object; }
  explicit operator bool() const { return object != nullptr; }
  friend bool operator==(const Ptr& a, const Ptr& b) { return a.object == b.object; }
  friend bool operator==(const Ptr& a, const T* b) { return a.object == b; }
  friend bool operator==(const Ptr& a, std::nullptr_t) { return a.object == nullptr; }

private:
  T* object = nullptr;
};

template <class T, class... Args> Ptr<T> MakePtr(Args&&... args) {
  return Ptr<T>::Adopt(new T(std::forward<Args>(args)...));
}

/// The type-free part of `WeakPtr`. One shared block per observed object, found through a table, so that objects
/// without weak references pay nothing.
class WeakReference {
public:
  WeakReference() = default;
  explicit WeakReference(const Object* object);
  WeakReference(const WeakReference& other);
  WeakReference& operator=(WeakReference other) noexcept {
    std::swap(block, other.block);
    return *this;
  }
  ~WeakReference();
  /// The object, or null if it has gone.
  Object* Lock() const;

  struct Block;

private:
  friend class Object;
  static void ObjectGone(const Object* object);
  Block* block = nullptr;
};

/// Observes an object without keeping it alive.
template <class T> class WeakPtr {
public:
  WeakPtr() = default;
  WeakPtr(T* object) : reference(object) {}
  WeakPtr(const Ptr<T>& object) : reference(object.Get()) {}
  T* Get() const { return static_cast<T*>(reference.Lock()); }
  T* operator->() const { return Get(); }
  explicit operator bool() const { return Get() != nullptr; }
  void Reset() { reference = WeakReference(); }

private:
  WeakReference reference;
};

/// `object` as a `T` by the described types, or null.
template <class T> T* DynamicCast(Object* object);
template <class T> const T* DynamicCast(const Object* object);
template <class T, class U> T* DynamicCast(const Ptr<U>& object) { return DynamicCast<T>(object.Get()); }
/// The result would not outlive the only reference.
template <class T, class U> T* DynamicCast(Ptr<U>&& object) = delete;

} // namespace Toolkit
