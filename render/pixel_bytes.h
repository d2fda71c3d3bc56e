#pragma once

#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

namespace tessel::render {

// An allocator whose elements start unset rather than zero: a picture is
// written whole right after it is sized, and zeroing a 3x screen's 12 MB
// first costs as much as a quarter of drawing it.
template <class T>
struct UnsetAllocator : std::allocator<T> {
  template <class U>
  struct rebind {
    using other = UnsetAllocator<U>;
  };
  UnsetAllocator() = default;
  template <class U>
  UnsetAllocator(const UnsetAllocator<U>&) noexcept {}

  template <class U, class... Args>
  void construct(U* place, Args&&... args) {
    if constexpr (sizeof...(Args) == 0)
      ::new (static_cast<void*>(place)) U;
    else
      ::new (static_cast<void*>(place)) U(std::forward<Args>(args)...);
  }
};

// The bytes of a picture's rows.
using PixelBytes = std::vector<std::uint8_t, UnsetAllocator<std::uint8_t>>;

}  // namespace tessel::render
