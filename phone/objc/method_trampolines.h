#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <stdexcept>
#include <type_traits>
#include <utility>

#include "phone/objc/message.h"
#include "phone/objc/runtime.h"

namespace tessel::objc {

// How many methods of one signature may be backed by C++ callables.
inline constexpr std::size_t kMethodsPerSignature = 64;

// IMPs of the exact C type `R (*)(id, SEL, Args...)` that run C++ callables.
// The runtime gives an IMP no context, so each signature has a fixed set of
// generated entry points, each reading its own slot. An entry point lets no
// C++ exception out: the runtime and the host above it cannot unwind one, so
// a throwing method yields emptyResult<R>() instead.
template <typename Signature>
class MethodTrampolines;

template <typename R, typename... Args>
class MethodTrampolines<R(Args...)> {
  static_assert(std::is_void_v<R> || std::is_trivially_copyable_v<R>, "a method returns a C value");
  static_assert((std::is_trivially_copyable_v<Args> && ...), "a method takes C values");

 public:
  using Body = std::function<R(id self, Args...)>;

  // Takes a free slot for `body` and returns the IMP that runs it; throws
  // std::length_error when every slot of this signature is taken.
  static IMP install(Body body) {
    if (!body) throw std::invalid_argument("a method needs a body");
    auto& bodies = slots();
    for (std::size_t i = 0; i < kMethodsPerSignature; ++i) {
      if (!bodies[i]) {
        bodies[i] = std::move(body);
        return entryPoints()[i];
      }
    }
    throw std::length_error("every method slot of this signature is taken");
  }

 private:
  // Kept for the life of the process: the runtime holds the IMPs that read them.
  static std::array<Body, kMethodsPerSignature>& slots() {
    static auto& bodies = *new std::array<Body, kMethodsPerSignature>();
    return bodies;
  }

  template <std::size_t Index>
  static R enter(id self, SEL /*selector*/, Args... args) {
    try {
      return slots()[Index](self, args...);
    } catch (...) {
      return emptyResult<R>();
    }
  }

  template <std::size_t... Index>
  static std::array<IMP, kMethodsPerSignature> makeEntryPoints(std::index_sequence<Index...>) {
    return {reinterpret_cast<IMP>(&enter<Index>)...};
  }

  static const std::array<IMP, kMethodsPerSignature>& entryPoints() {
    static const std::array<IMP, kMethodsPerSignature> entries =
        makeEntryPoints(std::make_index_sequence<kMethodsPerSignature>());
    return entries;
  }
};

}  // namespace tessel::objc
