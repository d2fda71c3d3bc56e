#pragma once

// Our own declarations of the Objective-C runtime's C API. On the phone they
// bind to libobjc.A; on Linux to the GNU runtime (libobjc from gcc), where
// phone/gnu/runtime/ supplies what that runtime lacks: object_getClass as a
// function, retain/release, the autorelease pool, weak references and
// associated objects.

#include <cstddef>
#include <cstdint>

#if defined(__APPLE__)
#define TESSEL_OBJC_APPLE_RUNTIME 1
#else
#define TESSEL_OBJC_APPLE_RUNTIME 0
#endif

extern "C" {

typedef struct objc_object* id;
typedef struct objc_class* Class;
typedef struct objc_selector* SEL;
typedef struct objc_method* Method;
typedef struct objc_ivar* Ivar;
// Never called as it stands: always cast to the method's exact type first.
typedef void (*IMP)(void);

#if TESSEL_OBJC_APPLE_RUNTIME && (defined(__arm64__) || defined(__aarch64__))
typedef bool BOOL;
#elif TESSEL_OBJC_APPLE_RUNTIME
typedef signed char BOOL;
#else
typedef unsigned char BOOL;
#endif

// The receiver of a message to super and the class where the lookup starts.
struct objc_super {
  id receiver;
  Class super_class;
};

typedef uintptr_t objc_AssociationPolicy;
enum : objc_AssociationPolicy {
  OBJC_ASSOCIATION_ASSIGN = 0,
  OBJC_ASSOCIATION_RETAIN_NONATOMIC = 1,
  OBJC_ASSOCIATION_COPY_NONATOMIC = 3,
  OBJC_ASSOCIATION_RETAIN = 01401,
  OBJC_ASSOCIATION_COPY = 01403,
};

// Classes.
Class objc_getClass(const char* name);
Class objc_allocateClassPair(Class superclass, const char* name, size_t extraBytes);
void objc_registerClassPair(Class cls);
void objc_disposeClassPair(Class cls);
const char* class_getName(Class cls);
Class class_getSuperclass(Class cls);
BOOL class_respondsToSelector(Class cls, SEL selector);
id class_createInstance(Class cls, size_t extraBytes);

// Methods.
BOOL class_addMethod(Class cls, SEL selector, IMP imp, const char* types);
IMP class_replaceMethod(Class cls, SEL selector, IMP imp, const char* types);
Method class_getInstanceMethod(Class cls, SEL selector);
Method class_getClassMethod(Class cls, SEL selector);
IMP class_getMethodImplementation(Class cls, SEL selector);
IMP method_getImplementation(Method method);
IMP method_setImplementation(Method method, IMP imp);
const char* method_getTypeEncoding(Method method);

// Instance variables (alignment is given as its base-2 logarithm).
BOOL class_addIvar(Class cls, const char* name, size_t size, uint8_t log2Alignment, const char* types);
Ivar class_getInstanceVariable(Class cls, const char* name);
ptrdiff_t ivar_getOffset(Ivar ivar);

// Objects and selectors.
Class object_getClass(id object);
id object_dispose(id object);
SEL sel_registerName(const char* name);
const char* sel_getName(SEL selector);

// Reference counting.
id objc_retain(id object);
void objc_release(id object);
id objc_autorelease(id object);
void* objc_autoreleasePoolPush(void);
void objc_autoreleasePoolPop(void* pool);

// Weak references: the runtime writes nil into every registered slot when
// the object is deallocated, so a slot must stay at one address.
id objc_initWeak(id* slot, id object);
id objc_storeWeak(id* slot, id object);
id objc_loadWeakRetained(id* slot);
void objc_copyWeak(id* to, id* from);
void objc_destroyWeak(id* slot);

// Associated objects.
void objc_setAssociatedObject(id object, const void* key, id value, objc_AssociationPolicy policy);
id objc_getAssociatedObject(id object, const void* key);
void objc_removeAssociatedObjects(id object);

#if TESSEL_OBJC_APPLE_RUNTIME
// Cast to the exact function type of each message; on arm64 one entry point
// serves every return type, structs included.
void objc_msgSend(void);
void objc_msgSendSuper(void);
#else
// The GNU runtime has no objc_msgSend: look the implementation up, then call it.
IMP objc_msg_lookup(id receiver, SEL selector);
IMP objc_msg_lookup_super(struct objc_super* super, SEL selector);
#endif

}  // extern "C"
