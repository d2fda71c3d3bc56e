#pragma once

#include <cstddef>
#include <memory>
#include <type_traits>
#include <utility>

namespace tessel::host {

// The shared "nothing" of a kind: every operation on it does nothing and
// yields zero, false, an empty rectangle or an empty reference. It is reset
// on every use so that a setter sent to nothing leaves no trace behind.
template <class T>
T& nullObject() {
  static T instance;
  instance = T();
  return instance;
}

// A reference to a host object (or one of the library's own). An empty
// reference behaves as a message to nothing: `->` reaches the null object.
template <class T>
class Ref {
 public:
  Ref() = default;
  Ref(std::nullptr_t) {}                                          // NOLINT(google-explicit-constructor)
  Ref(std::shared_ptr<T> object) : object_(std::move(object)) {}  // NOLINT
  template <class U, class = std::enable_if_t<std::is_convertible_v<U*, T*>>>
  Ref(const Ref<U>& other) : object_(other.shared()) {}  // NOLINT

  T* operator->() const { return object_ ? object_.get() : &nullObject<T>(); }
  T& operator*() const { return *operator->(); }
  explicit operator bool() const { return object_ != nullptr; }

  T* get() const { return object_.get(); }
  const std::shared_ptr<T>& shared() const { return object_; }

 private:
  std::shared_ptr<T> object_;
};

// The address of the whole object, whichever of its interfaces `object`
// points at (interfaces are virtual bases, so those addresses differ).
template <class T>
const void* identityOf(const T* object) {
  if constexpr (std::is_polymorphic_v<T>) {
    return dynamic_cast<const void*>(object);
  } else {
    return object;
  }
}

// Identity, as the platform compares object pointers.
template <class T, class U>
bool operator==(const Ref<T>& a, const Ref<U>& b) {
  return identityOf(a.get()) == identityOf(b.get());
}
template <class T>
bool operator==(const Ref<T>& a, std::nullptr_t) {
  return !a;
}

// A reference that does not keep its object alive: once the host lets the
// object go, it reads as nothing, never as a dangling pointer.
template <class T>
class Weak {
 public:
  Weak() = default;
  Weak(const Ref<T>& object) : object_(object.shared()) {}  // NOLINT
  template <class U, class = std::enable_if_t<std::is_convertible_v<U*, T*>>>
  Weak(const Ref<U>& object) : object_(std::shared_ptr<T>(object.shared())) {}  // NOLINT

  Ref<T> lock() const { return Ref<T>(object_.lock()); }
  // Chains through a temporary Ref that lives to the end of the expression.
  Ref<T> operator->() const { return lock(); }
  explicit operator bool() const { return !object_.expired(); }

 private:
  std::weak_ptr<T> object_;
};

// The platform's dynamic kind test on a reference: the object as a T, or
// nothing when it is not one.
template <class T, class U>
Ref<T> cast(const Ref<U>& object) {
  return Ref<T>(std::dynamic_pointer_cast<T>(object.shared()));
}

template <class T, class... Args>
Ref<T> make(Args&&... args) {
  return Ref<T>(std::make_shared<T>(std::forward<Args>(args)...));
}

}  // namespace tessel::host
