#pragma once

#include <any>
#include <functional>
#include <string>
#include <string_view>

#include "host/object.h"

namespace tessel::host {

// The object runtime: classes by name, method replacement, instance variables.
class Runtime : public virtual Object {
 public:
  // `objc_getClass`: the class of that name, or nothing.
  virtual Ref<Class> getClass(std::string_view /*name*/) { return {}; }
  // Makes one of the library's own classes known by name.
  virtual Ref<Class> registerClass(std::string_view /*name*/, const Ref<Class>& /*superclass*/) { return {}; }
  // `MSHookMessageEx`: installs `replacement` (a std::function of the
  // method's signature, see method_signatures.h) for `selector` on `cls` and
  // hands back the previous implementation. A null class installs nothing.
  virtual std::any hookMessage(const Ref<Class>& /*cls*/, std::string_view /*selector*/, std::any /*replacement*/) {
    return {};
  }
  // The object stored in the instance variable of that name.
  virtual Ref<Object> instanceVariable(const Ref<Object>& /*object*/, std::string_view /*name*/) { return {}; }
};

// The previous implementation of a replaced method. Calling an empty slot
// behaves as a message to nothing: it does nothing and yields zero.
template <class Signature>
class Previous;

template <class R, class... Args>
class Previous<R(Args...)> {
 public:
  Previous() = default;
  explicit Previous(std::function<R(Args...)> fn) : fn_(std::move(fn)) {}
  R operator()(Args... args) const {
    if (!fn_) return R();
    return fn_(std::forward<Args>(args)...);
  }
  explicit operator bool() const { return static_cast<bool>(fn_); }

 private:
  std::function<R(Args...)> fn_;
};

// Installs a typed replacement and returns the typed previous slot.
template <class Signature>
Previous<Signature> hookMessage(Runtime& runtime, const Ref<Class>& cls, std::string_view selector,
                                std::function<Signature> replacement) {
  std::any previous = runtime.hookMessage(cls, selector, std::any(std::move(replacement)));
  if (auto* fn = std::any_cast<std::function<Signature>>(&previous)) return Previous<Signature>(*fn);
  return {};
}

}  // namespace tessel::host
