#include <any>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>

#include "host/hooked_methods.h"
#include "phone/binding/bridge.h"
#include "phone/binding/loaded_library.h"
#include "phone/binding/phone_runtime.h"
#include "phone/objc/implementation.h"
#include "phone/objc/method_trampolines.h"
#include "phone/objc/methods.h"
#include "phone/objc/strong.h"

#if TESSEL_OBJC_APPLE_RUNTIME
extern "C" void* dlopen(const char* path, int mode);
extern "C" void* dlsym(void* handle, const char* symbol);
namespace {
constexpr int kBindLazily = 0x1;  // RTLD_LAZY
}  // namespace
#else
#include <dlfcn.h>
namespace {
constexpr int kBindLazily = RTLD_LAZY;
}  // namespace
#endif

namespace tessel::phone {
namespace {

// How a parameter of a replaced method travels: as the runtime passes it,
// and as the library takes it.
template <class T>
struct Parameter;

template <class T>
struct Parameter<const host::Ref<T>&> {
  using Runtime = id;
  static host::Ref<T> toHost(id object) { return referenceTo<T>(object); }
  static id toRuntime(const host::Ref<T>& object) { return objectOf(object); }
};

template <>
struct Parameter<const host::String&> {
  using Runtime = id;
  static host::String toHost(id string) { return stringOf(string); }
  // Kept by the caller until the call it is made for returns.
  static objc::Strong toRuntime(const host::String& text) { return makeString(text); }
};

// Source and location codes: NSInteger.
template <>
struct Parameter<std::int64_t> {
  using Runtime = NSInteger;
  static std::int64_t toHost(NSInteger value) { return value; }
  static NSInteger toRuntime(std::int64_t value) { return static_cast<NSInteger>(value); }
};

// Counts: NSUInteger.
template <>
struct Parameter<std::uint64_t> {
  using Runtime = NSUInteger;
  static std::uint64_t toHost(NSUInteger value) { return value; }
  static NSUInteger toRuntime(std::uint64_t value) { return static_cast<NSUInteger>(value); }
};

id passed(const objc::Strong& object) { return object.get(); }
template <class T>
T passed(T value) {
  return value;
}

// How a replaced method's answer travels. An initialiser's answer belongs to
// whoever receives it; any other object answer does not.
template <class R>
struct Answer;

template <>
struct Answer<void> {
  using Runtime = void;
};

template <>
struct Answer<bool> {
  using Runtime = BOOL;
  static bool toHost(BOOL value, bool /*owned*/) { return value; }
  static BOOL toRuntime(bool value, bool /*owned*/) { return value; }
};

template <class T>
struct Answer<host::Ref<T>> {
  using Runtime = id;
  static host::Ref<T> toHost(id object, bool owned) {
    return owned ? referenceTo<T>(objc::Strong::adopt(object)) : referenceTo<T>(object);
  }
  static id toRuntime(const host::Ref<T>& object, bool owned) {
    id answer = objc_retain(objectOf(object));
    return owned ? answer : objc_autorelease(answer);
  }
};

// The runtime's naming rule: `init` followed by nothing or by a capital.
constexpr bool isInitialiser(std::string_view selector) {
  constexpr std::string_view kFamily = "init";
  if (selector.size() < kFamily.size() || std::string_view(selector.data(), kFamily.size()) != kFamily) return false;
  return selector.size() == kFamily.size() || selector[kFamily.size()] < 'a' || selector[kFamily.size()] > 'z';
}
static_assert(isInitialiser("initWithNibName:bundle:") && isInitialiser("init") && !isInitialiser("initialize") &&
              !isInitialiser("layoutSubviews"));

// One replaced method, typed by its descriptor: the IMP the runtime calls
// has the method's exact C signature.
template <class Hook>
struct Trampoline;

template <class R, class Self, class... Args>
struct Trampoline<host::MethodHook<R(Self, Args...)>> {
  using Replacement = typename host::MethodHook<R(Self, Args...)>::Implementation;
  using RuntimeResult = typename Answer<R>::Runtime;
  using Signature = RuntimeResult(typename Parameter<Args>::Runtime...);
  static_assert(std::is_same_v<typename Parameter<Self>::Runtime, id>, "the receiver is an object");

  // What the runtime runs in place of the method.
  static auto body(Replacement replacement, bool owned) {
    return [replacement = std::move(replacement), owned](id self,
                                                         typename Parameter<Args>::Runtime... args) -> RuntimeResult {
      return callIntoLibrary([&]() -> RuntimeResult {
        if constexpr (std::is_void_v<R>) {
          (void)owned;
          replacement(Parameter<Self>::toHost(self), Parameter<Args>::toHost(args)...);
        } else {
          return Answer<R>::toRuntime(replacement(Parameter<Self>::toHost(self), Parameter<Args>::toHost(args)...),
                                      owned);
        }
      });
    };
  }

  // The method as it was, for the library's replacement to call.
  static Replacement previous(objc::Implementation<Signature> implementation, bool owned) {
    return [implementation, owned](Self self, Args... args) -> R {
      if constexpr (std::is_void_v<R>) {
        (void)owned;
        implementation(Parameter<Self>::toRuntime(self), passed(Parameter<Args>::toRuntime(args))...);
      } else {
        return Answer<R>::toHost(
            implementation(Parameter<Self>::toRuntime(self), passed(Parameter<Args>::toRuntime(args))...), owned);
      }
    };
  }

  static std::any install(MessageHook installer, Class cls, SEL selector, const std::any& replacement, bool owned) {
    const auto* stored = std::any_cast<Replacement>(&replacement);
    if (cls == nullptr || stored == nullptr || !*stored) return {};
    auto run = body(*stored, owned);
    objc::Implementation<Signature> before;
    if (installer != nullptr) {
      IMP imp = objc::MethodTrampolines<Signature>::install(std::move(run));
      IMP old = nullptr;
      installer(cls, selector, imp, &old);
      before = objc::Implementation<Signature>(old, selector);
    } else {
      before = objc::replaceMethod(cls, selector, std::move(run));
    }
    return std::any(previous(before, owned));
  }
};

bool sameMethod(const host::MethodName& a, const host::MethodName& b) {
  return a.className == b.className && a.selector == b.selector;
}

// A method is found by its name; two descriptors of one name would make
// that ambiguous.
constexpr bool eachMethodNamedOnce() {
  return std::apply(
      [](const auto&... hooks) {
        const host::MethodName names[] = {hooks...};
        for (std::size_t i = 0; i < sizeof...(hooks); ++i) {
          for (std::size_t j = i + 1; j < sizeof...(hooks); ++j) {
            if (names[i].className == names[j].className && names[i].selector == names[j].selector) return false;
          }
        }
        return true;
      },
      host::hooked::all);
}
static_assert(eachMethodNamedOnce(), "two replaceable methods share a class and selector");

// The loader that loaded this library, when it is there; its library stays
// loaded for the life of the process.
constexpr const char* kLoaderLibrary = "/Library/Frameworks/CydiaSubstrate.framework/CydiaSubstrate";

MessageHook loaderMessageHook() {
  static const MessageHook found = [] {
    void* library = dlopen(kLoaderLibrary, kBindLazily);
    return library == nullptr ? nullptr : reinterpret_cast<MessageHook>(dlsym(library, "MSHookMessageEx"));
  }();
  return found;
}

}  // namespace

// The trampolines are made from host::hooked::all, one per descriptor and
// typed by it, so each replaceable method has exactly one and its C
// signature is the descriptor's. A name that is not in that list installs
// nothing and hands back nothing, as a missing class does.
std::any replaceWith(MessageHook installer, Class cls, const host::MethodName& method, std::any replacement) {
  const SEL selector = sel_registerName(std::string(method.selector).c_str());
  std::any previous;
  auto installIfNamed = [&](const auto& hook) {
    if (!sameMethod(hook, method)) return false;
    using Hook = std::remove_cvref_t<decltype(hook)>;
    previous = Trampoline<Hook>::install(installer, cls, selector, replacement, isInitialiser(method.selector));
    return true;
  };
  std::apply([&](const auto&... hooks) { (installIfNamed(hooks) || ...); }, host::hooked::all);
  return previous;
}

std::any PhoneRuntime::replace(const host::Ref<host::Class>& cls, const host::MethodName& method,
                               std::any replacement) {
  return replaceWith(loaderMessageHook(), reinterpret_cast<Class>(objectOf(cls)), method, std::move(replacement));
}

}  // namespace tessel::phone
