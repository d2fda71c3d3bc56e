#pragma once

#include <any>
#include <functional>
#include <memory>
#include <string_view>
#include <type_traits>

#include "host/object.h"
#include "host/runtime.h"
#include "host/shield.h"

namespace tessel::host {

// A host method that can be replaced: its class, its selector and, in the
// type, its function type (receiver first). The same descriptor types the
// library's replacement, the host's own implementation and, on the phone,
// the trampoline that the runtime calls, so the three cannot disagree.
struct MethodName {
  std::string_view className;
  std::string_view selector;
};

template <class Signature>
struct MethodHook;

namespace detail {
template <class R, class... Params>
struct WorkOf {
  using type = std::function<void(Params..., R)>;
};
template <class... Params>
struct WorkOf<void, Params...> {
  using type = std::function<void(Params...)>;
};
}  // namespace detail

template <class R, class Self, class... Args>
struct MethodHook<R(Self, Args...)> : MethodName {
  using Result = R;
  using Implementation = std::function<R(Self, Args...)>;
  // The library's own work. When the host's implementation runs first and
  // answers something, the work sees that answer last.
  using Work = typename detail::WorkOf<R, Self, Args...>::type;
};

// Whether a replacement calls the host's previous implementation before or
// after its own work.
enum class PreviousRuns { first, last };

// The previous implementation of a replaced method. Calling an empty slot
// behaves as a message to nothing: it does nothing and yields zero.
template <class Signature>
class Previous;

template <class R, class... Args>
class Previous<R(Args...)> {
 public:
  Previous() = default;
  explicit Previous(std::function<R(Args...)> fn) : fn_(std::move(fn)) {}
  R operator()(Args... args) const {
    if (!fn_) return R();
    return fn_(std::forward<Args>(args)...);
  }
  explicit operator bool() const { return static_cast<bool>(fn_); }

 private:
  std::function<R(Args...)> fn_;
};

// Replaces `hook` on `cls`: the host then runs the previous implementation
// and the library's `work` in the order asked for, each shielded, and always
// gets its own answer back.
template <class R, class Self, class... Args>
void replaceMethod(Runtime& runtime, const Ref<Class>& cls, const MethodHook<R(Self, Args...)>& hook,
                   PreviousRuns order, typename MethodHook<R(Self, Args...)>::Work work) {
  using Hook = MethodHook<R(Self, Args...)>;
  auto previous = std::make_shared<Previous<R(Self, Args...)>>();
  typename Hook::Implementation replacement = [order, previous, work = std::move(work)](Self self,
                                                                                        Args... args) -> R {
    if constexpr (std::is_void_v<R>) {
      if (order == PreviousRuns::last) shield([&] { work(self, args...); });
      shield([&] { (*previous)(self, args...); });
      if (order == PreviousRuns::first) shield([&] { work(self, args...); });
    } else {
      (void)order;  // an answer always comes first
      R result{};
      shield([&] { result = (*previous)(self, args...); });
      shield([&] { work(self, args..., result); });
      return result;
    }
  };
  std::any before = runtime.replace(cls, hook, std::any(std::move(replacement)));
  if (auto* implementation = std::any_cast<typename Hook::Implementation>(&before)) {
    *previous = Previous<R(Self, Args...)>(*implementation);
  }
}

}  // namespace tessel::host
