#pragma once

#include <memory>
#include <type_traits>
#include <utility>

#include "phone/objc/runtime.h"

namespace tessel::objc {

namespace detail {

class OwnedBase {
 public:
  virtual ~OwnedBase() = default;
};

// Aggregates take their members in braces; classes their constructor's arguments.
template <typename T, typename... Args>
T construct(Args&&... args) {
  if constexpr (std::is_aggregate_v<T>) {
    return T{std::forward<Args>(args)...};
  } else {
    return T(std::forward<Args>(args)...);
  }
}

template <typename T>
class OwnedHolder final : public OwnedBase {
 public:
  template <typename... Args>
  explicit OwnedHolder(Args&&... args) : value(construct<T>(std::forward<Args>(args)...)) {}
  T value;
};

// One association key per C++ type.
template <typename T>
inline const char kOwnedKey = 0;

// Hands `owned` to `owner`, replacing any earlier object under `key`; false
// (and `owned` destroyed) if that cannot be done.
bool attach(id owner, const void* key, std::unique_ptr<OwnedBase> owned);
OwnedBase* attached(id owner, const void* key);

}  // namespace detail

// Makes a T that `owner` owns: it is destroyed when `owner` is deallocated
// (or when another T is attached). One T per owner. Nullptr if `owner` is nil.
template <typename T, typename... Args>
T* attachOwned(id owner, Args&&... args) {
  if (owner == nullptr) return nullptr;
  auto holder = std::make_unique<detail::OwnedHolder<T>>(std::forward<Args>(args)...);
  T* value = &holder->value;
  return detail::attach(owner, &detail::kOwnedKey<T>, std::move(holder)) ? value : nullptr;
}

// The T that `owner` owns, or nullptr.
template <typename T>
T* findOwned(id owner) {
  detail::OwnedBase* base = detail::attached(owner, &detail::kOwnedKey<T>);
  return base == nullptr ? nullptr : &static_cast<detail::OwnedHolder<T>*>(base)->value;
}

}  // namespace tessel::objc
