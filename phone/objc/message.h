#pragma once

#include <cstddef>
#include <type_traits>

#include "phone/objc/runtime.h"

namespace tessel::objc {

// What a message to nil yields: nothing, zero, false, a zero struct or nil.
template <typename R>
R emptyResult() {
  if constexpr (std::is_void_v<R>) {
    return;
  } else {
    return R{};
  }
}

// An argument travels as the type the method declares. A literal nullptr is
// sent as a nil object: a std::nullptr_t parameter need not be zeroed.
template <typename T>
using MessageArgument = std::conditional_t<std::is_null_pointer_v<std::decay_t<T>>, id, std::decay_t<T>>;

template <typename R, typename... Args>
using MethodFunction = R (*)(id, SEL, Args...);

// Sends `selector` to `receiver` as a method `R (Args...)`: the arguments'
// static types must be exactly the method's (1.0, not 1, for a double).
// A nil receiver yields emptyResult<R>() and calls nothing.
template <typename R = void, typename... Args>
R send(id receiver, SEL selector, Args... args) {
  if (receiver == nullptr) return emptyResult<R>();
  using Function = MethodFunction<R, MessageArgument<Args>...>;
#if TESSEL_OBJC_APPLE_RUNTIME
  auto function = reinterpret_cast<Function>(&objc_msgSend);
#else
  auto function = reinterpret_cast<Function>(objc_msg_lookup(receiver, selector));
#endif
  return function(receiver, selector, static_cast<MessageArgument<Args>>(args)...);
}

inline id asObject(Class cls) { return reinterpret_cast<id>(cls); }

// A class method: the class object is the receiver.
template <typename R = void, typename... Args>
R sendToClass(Class receiver, SEL selector, Args... args) {
  return send<R>(asObject(receiver), selector, args...);
}

// Sends `selector` to `receiver`, looking the method up from `superclass`
// (for an instance method of class C: C's superclass; for a class method:
// the superclass of C's metaclass).
template <typename R = void, typename... Args>
R sendSuper(id receiver, Class superclass, SEL selector, Args... args) {
  if (receiver == nullptr || superclass == nullptr) return emptyResult<R>();
  objc_super super{receiver, superclass};
#if TESSEL_OBJC_APPLE_RUNTIME
  using Function = R (*)(objc_super*, SEL, MessageArgument<Args>...);
  auto function = reinterpret_cast<Function>(&objc_msgSendSuper);
  return function(&super, selector, static_cast<MessageArgument<Args>>(args)...);
#else
  using Function = MethodFunction<R, MessageArgument<Args>...>;
  auto function = reinterpret_cast<Function>(objc_msg_lookup_super(&super, selector));
  return function(receiver, selector, static_cast<MessageArgument<Args>>(args)...);
#endif
}

}  // namespace tessel::objc
