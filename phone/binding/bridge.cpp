#include "phone/binding/bridge.h"

#include <utility>

#include "phone/binding/phone_object.h"
#include "phone/objc/message.h"
#include "phone/objc/selector.h"

namespace tessel::phone {

using namespace objc::literals;

host::Ref<host::Object> referenceTo(id object) { return referenceTo(objc::Strong::retain(object)); }

host::Ref<host::Object> referenceTo(objc::Strong owned) {
  if (!owned) return {};
  return host::make<PhoneObject>(std::move(owned));
}

host::Ref<host::Class> referenceToClass(Class cls) {
  if (cls == nullptr) return {};
  return host::make<PhoneClass>(cls);
}

id objectOf(const host::Object* object) {
  if (const auto* runtimeObject = dynamic_cast<const PhoneObject*>(object)) return runtimeObject->runtimeObject();
  if (const auto* runtimeClass = dynamic_cast<const PhoneClass*>(object)) {
    return objc::asObject(runtimeClass->runtimeClass());
  }
  return nullptr;
}

objc::Strong makeString(const host::String& text) {
  if (!text) return {};
  id allocated = objc::sendToClass<id>(objc_getClass("NSString"), "alloc"_sel);
  return objc::Strong::adopt(objc::send<id>(allocated, "initWithUTF8String:"_sel, text->c_str()));
}

host::String stringOf(id string) {
  const char* text = objc::send<const char*>(string, "UTF8String"_sel);
  if (text == nullptr) return std::nullopt;
  return std::string(text);
}

objc::Strong makeIndexPath(const host::IndexPath& path) {
  Class indexPathClass = objc_getClass("NSIndexPath");
  if (path.indexes.empty()) return {};
  if (path.indexes.size() == 2) {
    return objc::Strong::retain(objc::sendToClass<id>(indexPathClass, "indexPathForRow:inSection:"_sel,
                                                      static_cast<NSInteger>(path.row()),
                                                      static_cast<NSInteger>(path.section())));
  }
  std::vector<NSUInteger> indexes(path.indexes.begin(), path.indexes.end());
  id allocated = objc::sendToClass<id>(indexPathClass, "alloc"_sel);
  return objc::Strong::adopt(objc::send<id>(allocated, "initWithIndexes:length:"_sel,
                                            static_cast<const NSUInteger*>(indexes.data()),
                                            static_cast<NSUInteger>(indexes.size())));
}

host::IndexPath indexPathOf(id indexPath) {
  host::IndexPath path;
  const auto length = objc::send<NSUInteger>(indexPath, "length"_sel);
  for (NSUInteger position = 0; position < length; ++position) {
    path.indexes.push_back(
        static_cast<std::int64_t>(objc::send<NSUInteger>(indexPath, "indexAtPosition:"_sel, position)));
  }
  return path;
}

}  // namespace tessel::phone
