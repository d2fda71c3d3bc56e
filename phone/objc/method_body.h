#pragma once

#include <memory>
#include <type_traits>
#include <utility>

#include "phone/objc/implementation.h"
#include "phone/objc/method_trampolines.h"
#include "phone/objc/runtime.h"

namespace tessel::objc {

// A C++ callable as the body of a method. Its parameters say the method's C
// signature: `(Self self, Args...)`, or `(const Implementation<R(Args...)>&
// previous, Self self, Args...)` to reach the implementation it replaces or
// overrides; Self is `id`, or `Class` for a class method.
template <typename... T>
struct TypeList {};

template <typename F>
struct CallableSignature : CallableSignature<decltype(&std::remove_cvref_t<F>::operator())> {};

template <typename R, typename... P>
struct CallableSignature<R (*)(P...)> {
  using Result = R;
  using Parameters = TypeList<P...>;
};
template <typename R, typename... P>
struct CallableSignature<R (*)(P...) noexcept> : CallableSignature<R (*)(P...)> {};
template <typename C, typename R, typename... P>
struct CallableSignature<R (C::*)(P...)> : CallableSignature<R (*)(P...)> {};
template <typename C, typename R, typename... P>
struct CallableSignature<R (C::*)(P...) const> : CallableSignature<R (*)(P...)> {};
template <typename C, typename R, typename... P>
struct CallableSignature<R (C::*)(P...) noexcept> : CallableSignature<R (*)(P...)> {};
template <typename C, typename R, typename... P>
struct CallableSignature<R (C::*)(P...) const noexcept> : CallableSignature<R (*)(P...)> {};

template <typename T>
struct IsImplementation : std::false_type {};
template <typename Signature>
struct IsImplementation<Implementation<Signature>> : std::true_type {};

template <typename T>
concept Previous = IsImplementation<std::remove_cvref_t<T>>::value;

template <typename T>
concept MethodSelf = std::is_same_v<T, id> || std::is_same_v<T, Class>;

template <typename R, typename Parameters>
struct MethodShape;

template <typename R, MethodSelf Self, typename... Args>
struct MethodShape<R, TypeList<Self, Args...>> {
  using SelfType = Self;
  using Signature = R(Args...);
  static constexpr bool kTakesPrevious = false;
};

template <typename R, Previous PreviousType, MethodSelf Self, typename... Args>
struct MethodShape<R, TypeList<PreviousType, Self, Args...>> {
  static_assert(std::is_same_v<std::remove_cvref_t<PreviousType>, Implementation<R(Args...)>>,
                "the previous implementation has the method's own signature");
  using SelfType = Self;
  using Signature = R(Args...);
  static constexpr bool kTakesPrevious = true;
};

template <typename F>
using MethodShapeOf = MethodShape<typename CallableSignature<F>::Result, typename CallableSignature<F>::Parameters>;

template <typename F>
using MethodSignatureOf = typename MethodShapeOf<F>::Signature;

template <typename Signature>
struct MethodBody;

template <typename R, typename... Args>
struct MethodBody<R(Args...)> {
  // The IMP that runs `body`; `previous` is filled in once it is known.
  template <typename F>
  static IMP install(F body, std::shared_ptr<const Implementation<R(Args...)>> previous) {
    using Shape = MethodShapeOf<F>;
    using Self = typename Shape::SelfType;
    return MethodTrampolines<R(Args...)>::install(
        [body = std::move(body), previous = std::move(previous)](id self, Args... args) mutable -> R {
          Self typedSelf = reinterpret_cast<Self>(self);
          if constexpr (Shape::kTakesPrevious) {
            return body(*previous, typedSelf, args...);
          } else {
            return body(typedSelf, args...);
          }
        });
  }
};

}  // namespace tessel::objc
