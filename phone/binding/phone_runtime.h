#pragma once

#include "host/runtime.h"
#include "phone/objc/runtime.h"

namespace tessel::phone {

// The runtime as the library's host sees it: classes by name (`objc_getClass`),
// method replacement (the loader's `MSHookMessageEx` when its library is
// there, the runtime's own replacement otherwise; hook_trampolines.cpp) and
// instance variables by name.
class PhoneRuntime : public host::Runtime {
 public:
  // |host::Runtime|
  host::Ref<host::Class> getClass(std::string_view name) override;
  std::any replace(const host::Ref<host::Class>& cls, const host::MethodName& method, std::any replacement) override;
  host::Ref<host::Object> instanceVariable(const host::Ref<host::Object>& object, std::string_view name) override;
};

// A function that installs `replacement` as `cls`'s `selector` and hands
// back the implementation it replaces: `MSHookMessageEx`'s shape.
using MessageHook = void (*)(Class cls, SEL selector, IMP replacement, IMP* previous);

// PhoneRuntime::replace with the installer given, or with the runtime's own
// method replacement when `installer` is null.
std::any replaceWith(MessageHook installer, Class cls, const host::MethodName& method, std::any replacement);

}  // namespace tessel::phone
