#pragma once

#include <cstddef>
#include <memory>
#include <type_traits>
#include <utility>

namespace tessel::host {

// The shared "nothing" of an interface: every operation on it does nothing
// and yields zero, false, an empty rectangle or an empty reference. Host
// interfaces hold no state, so one instance serves every empty reference.
template <class T>
T& nullObject() {
  static T instance;
  return instance;
}

// A strong reference to a host object, through one of the host's
// interfaces. What stands behind it is the host's: on the substitute host
// the object itself, on the phone a wrapper that retains the platform
// object for as long as it lives. An empty reference behaves as a message to
// nothing: `->` reaches the null object.
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

// The platform object a reference names, as the host identifies it; nothing
// for an empty reference.
template <class T>
const void* identityOf(const Ref<T>& object) {
  return object ? object.get()->identity() : nullptr;
}

// Identity, as the platform compares object pointers: two references to one
// object are equal whichever interfaces and wrappers they go through.
template <class T, class U>
bool operator==(const Ref<T>& a, const Ref<U>& b) {
  return identityOf(a) == identityOf(b);
}
template <class T>
bool operator==(const Ref<T>& a, std::nullptr_t) {
  return !a;
}

// The same object through another of the host's interfaces, or nothing when
// the host's object does not offer that interface. This is not the
// platform's kind test (that is `isKindOfClass:`): a phone object answers
// every interface, as any message can be sent to it.
template <class T, class U>
Ref<T> cast(const Ref<U>& object) {
  return Ref<T>(std::dynamic_pointer_cast<T>(object.shared()));
}

template <class T, class... Args>
Ref<T> make(Args&&... args) {
  return Ref<T>(std::make_shared<T>(std::forward<Args>(args)...));
}

}  // namespace tessel::host
