#pragma once

#include <cstddef>
#include <utility>

#include "phone/objc/runtime.h"
#include "phone/objc/strong.h"

namespace tessel::objc {

// A reference that does not keep its object alive and reads nil once the
// object is deallocated. The runtime knows the reference by the address of
// its slot, so the slot lives on the heap and a moved Weak keeps it.
class Weak {
 public:
  Weak() = default;
  Weak(std::nullptr_t) {}                             // NOLINT(google-explicit-constructor)
  Weak(id object) { assign(object); }                 // NOLINT(google-explicit-constructor)
  Weak(const Strong& object) : Weak(object.get()) {}  // NOLINT(google-explicit-constructor)

  Weak(const Weak& other) {
    if (other.slot_ != nullptr) {
      slot_ = new id(nullptr);
      objc_copyWeak(slot_, other.slot_);
    }
  }
  Weak(Weak&& other) noexcept : slot_(std::exchange(other.slot_, nullptr)) {}
  Weak& operator=(Weak other) noexcept {
    std::swap(slot_, other.slot_);
    return *this;
  }
  ~Weak() {
    if (slot_ == nullptr) return;
    objc_destroyWeak(slot_);
    delete slot_;
  }

  // The object, held for as long as the caller keeps the result; empty once
  // the object is gone.
  Strong lock() const { return slot_ == nullptr ? Strong() : Strong::adopt(objc_loadWeakRetained(slot_)); }

  // Identity, read now: two references to freed objects both read nil.
  friend bool operator==(const Weak& a, const Weak& b) { return a.lock() == b.lock(); }
  friend bool operator==(const Weak& a, const Strong& b) { return a.lock() == b; }

 private:
  void assign(id object) {
    if (object == nullptr) return;
    slot_ = new id(nullptr);
    objc_initWeak(slot_, object);
  }

  id* slot_ = nullptr;
};

}  // namespace tessel::objc
