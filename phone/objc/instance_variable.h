#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <type_traits>

#include "phone/objc/runtime.h"
#include "phone/objc/type_encoding.h"

namespace tessel::objc {

// Declares an instance variable of type T on a class still being built.
// The runtime neither constructs nor destroys it: a new object's variables
// start as zero bytes, so T must be a plain C value.
template <typename T>
bool addInstanceVariable(Class cls, const char* name) {
  static_assert(std::is_trivially_copyable_v<T> && std::is_trivially_destructible_v<T>, "a C value");
  if (cls == nullptr) return false;
  constexpr auto log2Alignment = static_cast<uint8_t>(std::countr_zero(alignof(T)));
  return class_addIvar(cls, name, sizeof(T), log2Alignment, ivarTypeEncoding<T>());
}

// A registered class's instance variable of type T, found by name once.
template <typename T>
class InstanceVariable {
 public:
  InstanceVariable() = default;
  InstanceVariable(Class cls, const char* name) {
    Ivar ivar = cls == nullptr ? nullptr : class_getInstanceVariable(cls, name);
    if (ivar != nullptr) offset_ = ivar_getOffset(ivar);
  }

  explicit operator bool() const { return offset_ >= 0; }

  // The variable inside `object`, which must be of the class (or a subclass).
  T& of(id object) const { return *reinterpret_cast<T*>(reinterpret_cast<std::byte*>(object) + offset_); }

 private:
  std::ptrdiff_t offset_ = -1;
};

}  // namespace tessel::objc
