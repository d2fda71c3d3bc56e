#pragma once

#include "phone/objc/message.h"
#include "phone/objc/runtime.h"

namespace tessel::objc {

// A method's implementation, typed: what a replacement calls to run the
// method it replaced. Calling an empty one behaves as a message to nil.
template <typename Signature>
class Implementation;

template <typename R, typename... Args>
class Implementation<R(Args...)> {
 public:
  Implementation() = default;
  Implementation(IMP imp, SEL selector) : imp_(imp), selector_(selector) {}

  // The implementation that `superclass` provides when asked at call time.
  static Implementation inheritedFrom(Class superclass, SEL selector) {
    Implementation inherited;
    inherited.superclass_ = superclass;
    inherited.selector_ = selector;
    return inherited;
  }

  R operator()(id self, Args... args) const {
    if (self == nullptr) return emptyResult<R>();
    if (imp_ != nullptr) return reinterpret_cast<MethodFunction<R, Args...>>(imp_)(self, selector_, args...);
    if (superclass_ != nullptr) return sendSuper<R>(self, superclass_, selector_, args...);
    return emptyResult<R>();
  }

  explicit operator bool() const { return imp_ != nullptr || superclass_ != nullptr; }
  IMP imp() const { return imp_; }

 private:
  IMP imp_ = nullptr;
  Class superclass_ = nullptr;
  SEL selector_ = nullptr;
};

}  // namespace tessel::objc
