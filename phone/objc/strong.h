#pragma once

#include <cstddef>
#include <functional>
#include <utility>

#include "phone/objc/runtime.h"

namespace tessel::objc {

// An owning reference to a runtime object: one retain while it holds the
// object, released when it lets go. Identity is the object pointer.
class Strong {
 public:
  Strong() = default;
  Strong(std::nullptr_t) {}  // NOLINT(google-explicit-constructor)

  // Takes a new reference to `object`.
  static Strong retain(id object) { return Strong(objc_retain(object)); }
  // Takes over a reference the caller already owns (from alloc/init, copy,
  // new or objc_loadWeakRetained).
  static Strong adopt(id object) { return Strong(object); }

  Strong(const Strong& other) : object_(objc_retain(other.object_)) {}
  Strong(Strong&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
  Strong& operator=(Strong other) noexcept {
    std::swap(object_, other.object_);
    return *this;
  }
  ~Strong() { objc_release(object_); }

  id get() const { return object_; }
  explicit operator bool() const { return object_ != nullptr; }

  // Gives the reference back to the caller, who must release it.
  [[nodiscard]] id release() { return std::exchange(object_, nullptr); }

  friend bool operator==(const Strong& a, const Strong& b) { return a.object_ == b.object_; }
  friend bool operator==(const Strong& a, id b) { return a.object_ == b; }

 private:
  explicit Strong(id object) : object_(object) {}

  id object_ = nullptr;
};

}  // namespace tessel::objc

template <>
struct std::hash<tessel::objc::Strong> {
  std::size_t operator()(const tessel::objc::Strong& strong) const noexcept { return std::hash<id>()(strong.get()); }
};
