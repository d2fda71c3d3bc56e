#include <cstdint>
#include <vector>

#include "phone/binding/exported_state.h"
#include "phone/objc/class_builder.h"
#include "phone/objc/message.h"
#include "phone/objc/owned_object.h"
#include "phone/objc/runtime.h"
#include "phone/objc/selector.h"

// CoreFoundation's arrays on Linux: runtime objects that answer `count` and
// `objectAtIndex:` as the phone's do, retaining their elements only through
// the callbacks they were made with.
namespace {

using namespace tessel::objc::literals;

constexpr const char* kArrayClassName = "StandInCFArray";

struct ArrayContent {
  CFArrayCallBacks callBacks{};
  std::vector<const void*> values;

  ArrayContent() = default;
  ArrayContent(const ArrayContent&) = delete;
  ArrayContent& operator=(const ArrayContent&) = delete;
  ~ArrayContent() { removeAll(); }

  void append(const void* value) {
    values.push_back(callBacks.retain != nullptr ? callBacks.retain(nullptr, value) : value);
  }
  void removeAll() {
    auto removed = std::move(values);
    values.clear();
    if (callBacks.release == nullptr) return;
    for (const void* value : removed) callBacks.release(nullptr, value);
  }
};

const void* retainObject(CFAllocatorRef, const void* value) {
  return objc_retain(static_cast<id>(const_cast<void*>(value)));
}
void releaseObject(CFAllocatorRef, const void* value) { objc_release(static_cast<id>(const_cast<void*>(value))); }
Boolean sameObject(const void* a, const void* b) { return a == b; }

Class arrayClass() {
  static const Class cls = [] {
    if (Class existing = objc_getClass(kArrayClassName)) return existing;
    tessel::objc::ClassBuilder builder(kArrayClassName, objc_getClass("NSObject"));
    builder.addMethod("count"_sel, [](id self) -> unsigned long {
      return static_cast<unsigned long>(CFArrayGetCount(reinterpret_cast<CFArrayRef>(self)));
    });
    builder.addMethod("objectAtIndex:"_sel, [](id self, unsigned long index) {
      return static_cast<id>(
          const_cast<void*>(CFArrayGetValueAtIndex(reinterpret_cast<CFArrayRef>(self), static_cast<CFIndex>(index))));
    });
    return builder.registerClass();
  }();
  return cls;
}

ArrayContent* contentOf(CFArrayRef array) {
  return tessel::objc::findOwned<ArrayContent>(reinterpret_cast<id>(const_cast<__CFArray*>(array)));
}

CFMutableArrayRef makeArray(const CFArrayCallBacks* callBacks) {
  id array = tessel::objc::sendToClass<id>(arrayClass(), "new"_sel);
  auto* content = tessel::objc::attachOwned<ArrayContent>(array);
  if (content == nullptr) return nullptr;
  if (callBacks != nullptr) content->callBacks = *callBacks;
  return reinterpret_cast<CFMutableArrayRef>(array);
}

}  // namespace

extern "C" {

const CFArrayCallBacks kCFTypeArrayCallBacks{0, retainObject, releaseObject, nullptr, sameObject};

CFArrayRef CFArrayCreate(CFAllocatorRef, const void** values, CFIndex count, const CFArrayCallBacks* callBacks) {
  CFMutableArrayRef array = makeArray(callBacks);
  for (CFIndex i = 0; array != nullptr && i < count; ++i) CFArrayAppendValue(array, values[i]);
  return array;
}

CFMutableArrayRef CFArrayCreateMutable(CFAllocatorRef, CFIndex, const CFArrayCallBacks* callBacks) {
  return makeArray(callBacks);
}

void CFArrayAppendValue(CFMutableArrayRef array, const void* value) {
  if (auto* content = contentOf(array)) content->append(value);
}

void CFArrayRemoveAllValues(CFMutableArrayRef array) {
  if (auto* content = contentOf(array)) content->removeAll();
}

CFIndex CFArrayGetCount(CFArrayRef array) {
  auto* content = contentOf(array);
  return content == nullptr ? 0 : static_cast<CFIndex>(content->values.size());
}

const void* CFArrayGetValueAtIndex(CFArrayRef array, CFIndex index) {
  auto* content = contentOf(array);
  if (content == nullptr || index < 0 || static_cast<std::size_t>(index) >= content->values.size()) return nullptr;
  return content->values[static_cast<std::size_t>(index)];
}

}  // extern "C"
