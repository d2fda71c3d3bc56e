#include <cstdint>

#include "phone/gnu/runtime/object_lifetime.h"
#include "phone/gnu/standins/class_definitions.h"
#include "phone/objc/class_builder.h"
#include "phone/objc/instance_variable.h"
#include "phone/objc/message.h"
#include "phone/objc/runtime.h"
#include "phone/objc/selector.h"

namespace tessel::objc::gnu {
namespace {

using namespace tessel::objc::literals;

const InstanceVariable<uintptr_t>& retainCount() {
  static const InstanceVariable<uintptr_t> count(objc_getClass("NSObject"), "_retainCount");
  return count;
}

BOOL isKindOf(Class cls, Class kind) {
  for (; cls != nullptr; cls = class_getSuperclass(cls)) {
    if (cls == kind) return true;
  }
  return false;
}

void addClassMethods(ClassBuilder& builder) {
  builder.addClassMethod("alloc"_sel, [](Class self) {
    id object = class_createInstance(self, 0);
    retainCount().of(object) = 1;
    return object;
  });
  builder.addClassMethod("new"_sel,
                         [](Class self) { return send<id>(sendToClass<id>(self, "alloc"_sel), "init"_sel); });
  builder.addClassMethod("class"_sel, [](Class self) { return self; });
  // Classes live as long as the process: counting their references is moot.
  builder.addClassMethod("retain"_sel, [](Class self) { return asObject(self); });
  builder.addClassMethod("release"_sel, [](Class) {});
  builder.addClassMethod("autorelease"_sel, [](Class self) { return asObject(self); });
}

void addLifetimeMethods(ClassBuilder& builder) {
  builder.addMethod("init"_sel, [](id self) { return self; });
  builder.addMethod("retain"_sel, [](id self) {
    ++retainCount().of(self);
    return self;
  });
  builder.addMethod("release"_sel, [](id self) {
    if (--retainCount().of(self) > 0) return;
    // Weak references read nil from the moment deallocation begins.
    clearWeakReferencesTo(self);
    send<void>(self, "dealloc"_sel);
  });
  builder.addMethod("autorelease"_sel, [](id self) {
    autoreleaseLater(self);
    return self;
  });
  builder.addMethod("retainCount"_sel, [](id self) -> unsigned long { return retainCount().of(self); });
  builder.addMethod("dealloc"_sel, [](id self) {
    clearWeakReferencesTo(self);
    objc_removeAssociatedObjects(self);
    object_dispose(self);
  });
}

void addIdentityMethods(ClassBuilder& builder) {
  builder.addMethod("class"_sel, [](id self) { return object_getClass(self); });
  builder.addMethod("isKindOfClass:"_sel, [](id self, Class kind) { return isKindOf(object_getClass(self), kind); });
  builder.addMethod("respondsToSelector:"_sel,
                    [](id self, SEL selector) { return class_respondsToSelector(object_getClass(self), selector); });
  builder.addMethod("isEqual:"_sel, [](id self, id other) -> BOOL { return self == other; });
  builder.addMethod("hash"_sel, [](id self) -> unsigned long { return reinterpret_cast<uintptr_t>(self); });
}

}  // namespace

Class defineNSObject() {
  ClassBuilder builder("NSObject", nullptr);
  builder.addInstanceVariable<Class>("isa");
  builder.addInstanceVariable<uintptr_t>("_retainCount");
  addClassMethods(builder);
  addLifetimeMethods(builder);
  addIdentityMethods(builder);
  return builder.registerClass();
}

}  // namespace tessel::objc::gnu
