#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "host/ref.h"

namespace tessel::host {

class Class;
class Object;

// A reference that does not keep its object alive, made by the host for one
// object: it reads as nothing once the host has freed the object.
class WeakReference {
 public:
  virtual ~WeakReference() = default;
  virtual Ref<Object> load() const = 0;
};

// Every host object: identity, weak references and the runtime's kind
// questions. Identity and weak references are the host's to supply; the
// defaults serve hosts whose objects are C++ objects owned through `Ref`.
class Object {
 public:
  virtual ~Object() = default;
  Object() = default;
  Object(const Object&) = default;
  Object& operator=(const Object&) = default;

  // The platform object behind this reference; equal for every reference to it.
  virtual const void* identity() const { return dynamic_cast<const void*>(this); }
  // A weak reference to this object; `self` is the reference it is made from.
  virtual std::shared_ptr<const WeakReference> weakReference(const std::shared_ptr<const Object>& self) const;

  // `class`: the object's exact class.
  virtual Ref<Class> objectClass() const { return {}; }
  virtual bool isKindOfClass(const Ref<Class>& /*cls*/) const { return false; }
  virtual bool respondsToSelector(std::string_view /*selector*/) const { return false; }
};

// A class found by name. Class operations are messages to the class itself.
class Class : public virtual Object {
 public:
  virtual std::string name() const { return {}; }
  virtual Ref<Class> superclass() const { return {}; }
  // True when this class is `cls` or inherits from it.
  virtual bool isSubclassOfClass(const Ref<Class>& /*cls*/) const { return false; }

  virtual Ref<Object> sharedInstance() { return {}; }
  virtual Ref<Object> sharedInstanceIfExists() { return {}; }
  virtual Ref<Object> homescreenMap() { return {}; }
  // `alloc`: an uninitialised instance, to be sent its initialiser.
  virtual Ref<Object> alloc() { return {}; }
};

namespace detail {
// The default weak reference: the C++ object's own lifetime.
class OwnedObjectWeakReference : public WeakReference {
 public:
  explicit OwnedObjectWeakReference(const std::shared_ptr<const Object>& self) : self_(self) {}
  Ref<Object> load() const override { return Ref<Object>(std::const_pointer_cast<Object>(self_.lock())); }

 private:
  std::weak_ptr<const Object> self_;
};
}  // namespace detail

inline std::shared_ptr<const WeakReference> Object::weakReference(const std::shared_ptr<const Object>& self) const {
  return std::make_shared<detail::OwnedObjectWeakReference>(self);
}

// A weak reference to a host object through one of its interfaces.
template <class T>
class Weak {
 public:
  Weak() = default;
  template <class U, class = std::enable_if_t<std::is_convertible_v<U*, T*>>>
  Weak(const Ref<U>& object)  // NOLINT(google-explicit-constructor)
      : reference_(object ? object->weakReference(std::static_pointer_cast<const Object>(object.shared())) : nullptr) {}

  Ref<T> lock() const { return reference_ ? cast<T>(reference_->load()) : Ref<T>(); }
  // Chains through a temporary Ref that lives to the end of the expression.
  Ref<T> operator->() const { return lock(); }
  explicit operator bool() const { return static_cast<bool>(lock()); }

 private:
  std::shared_ptr<const WeakReference> reference_;
};

}  // namespace tessel::host
