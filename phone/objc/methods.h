#pragma once

#include <memory>
#include <utility>

#include "phone/objc/implementation.h"
#include "phone/objc/message.h"
#include "phone/objc/method_body.h"
#include "phone/objc/runtime.h"
#include "phone/objc/type_encoding.h"

namespace tessel::objc {

inline Class metaclassOf(Class cls) { return cls == nullptr ? nullptr : object_getClass(asObject(cls)); }

namespace detail {

template <typename Signature>
struct MethodInstaller;

template <typename R, typename... Args>
struct MethodInstaller<R(Args...)> {
  using Previous = Implementation<R(Args...)>;

  static Previous inheritedFrom(Class superclass, SEL selector) {
    if (superclass == nullptr || !class_respondsToSelector(superclass, selector)) return {};
    return Previous::inheritedFrom(superclass, selector);
  }

  // `superclass` is passed in: a class still being built has none yet for
  // the runtime to report.
  template <typename F>
  static bool add(Class target, Class superclass, SEL selector, F body) {
    if (target == nullptr) return false;
    auto previous = std::make_shared<const Previous>(inheritedFrom(superclass, selector));
    IMP imp = MethodBody<R(Args...)>::install(std::move(body), std::move(previous));
    return class_addMethod(target, selector, imp, methodTypeEncoding<R, Args...>());
  }

  template <typename F>
  static Previous replace(Class target, SEL selector, F body) {
    if (target == nullptr) return {};
    Class superclass = class_getSuperclass(target);
    Method own = ownMethod(target, superclass, selector);
    auto previous = std::make_shared<Previous>();
    IMP imp = MethodBody<R(Args...)>::install(std::move(body), previous);
    if (own != nullptr) {
      prepareDispatch(target, selector);
      *previous = Previous(method_setImplementation(own, imp), selector);
    } else {
      // Added to `target` alone: class_replaceMethod would change the
      // superclass's own method on the GNU runtime.
      *previous = inheritedFrom(superclass, selector);
      class_addMethod(target, selector, imp, methodTypeEncoding<R, Args...>());
    }
    return *previous;
  }

  // On the GNU runtime, changing a method of a class that has not been sent
  // a message yet can write into a dispatch table other classes share: an
  // unrelated class then answers with the new implementation, and an
  // override added later to a subclass goes unseen. A lookup first gives the
  // class a dispatch table of its own.
  static void prepareDispatch([[maybe_unused]] Class cls, [[maybe_unused]] SEL selector) {
#if !TESSEL_OBJC_APPLE_RUNTIME
    class_getMethodImplementation(cls, selector);
#endif
  }

  // The class's own method of that name, not one it inherits.
  static Method ownMethod(Class cls, Class superclass, SEL selector) {
    Method found = class_getInstanceMethod(cls, selector);
    if (found == nullptr || superclass == nullptr) return found;
    return found == class_getInstanceMethod(superclass, selector) ? nullptr : found;
  }
};

template <typename F>
using InstallerFor = MethodInstaller<MethodSignatureOf<F>>;

}  // namespace detail

// Adds an instance method whose body is the C++ callable `body` (see
// method_body.h for the shapes it may take). False if `cls` already has its
// own method of that name; the slot taken for `body` stays taken.
template <typename F>
bool addMethod(Class cls, SEL selector, F body) {
  if (cls == nullptr) return false;
  return detail::InstallerFor<F>::add(cls, class_getSuperclass(cls), selector, std::move(body));
}

template <typename F>
bool addClassMethod(Class cls, SEL selector, F body) {
  if (cls == nullptr) return false;
  return detail::InstallerFor<F>::add(metaclassOf(cls), metaclassOf(class_getSuperclass(cls)), selector,
                                      std::move(body));
}

// Installs `body` as `cls`'s implementation of `selector` and returns the
// one it replaces: the class's own, or else what its superclass provides,
// or else an empty one.
template <typename F>
Implementation<MethodSignatureOf<F>> replaceMethod(Class cls, SEL selector, F body) {
  return detail::InstallerFor<F>::replace(cls, selector, std::move(body));
}

template <typename F>
Implementation<MethodSignatureOf<F>> replaceClassMethod(Class cls, SEL selector, F body) {
  return detail::InstallerFor<F>::replace(metaclassOf(cls), selector, std::move(body));
}

}  // namespace tessel::objc
