#pragma once

#include <any>
#include <string_view>

#include "host/object.h"

namespace tessel::host {

struct MethodName;

// The object runtime: classes by name, method replacement, instance variables.
class Runtime : public virtual Object {
 public:
  // `objc_getClass`: the class of that name, or nothing.
  virtual Ref<Class> getClass(std::string_view /*name*/) { return {}; }
  // `MSHookMessageEx`: installs `replacement` for `method` on `cls` and hands
  // back the implementation that instances used before. Both are the
  // method's `MethodHook<…>::Implementation` in a std::any (see
  // method_hook.h, which is the only caller). A null class installs nothing.
  virtual std::any replace(const Ref<Class>& /*cls*/, const MethodName& /*method*/, std::any /*replacement*/) {
    return {};
  }
  // The object stored in the instance variable of that name.
  virtual Ref<Object> instanceVariable(const Ref<Object>& /*object*/, std::string_view /*name*/) { return {}; }
};

}  // namespace tessel::host
