#include <climits>
#include <string>
#include <vector>

#include "phone/gnu/standins/host_stand_ins.h"
#include "phone/objc/class_builder.h"
#include "phone/objc/message.h"
#include "phone/objc/methods.h"
#include "phone/objc/owned_object.h"
#include "phone/objc/runtime.h"
#include "phone/objc/selector.h"
#include "phone/objc/strong.h"

namespace tessel::objc::gnu {
namespace {

using namespace tessel::objc::literals;

struct Text {
  std::string utf8;
};

struct Elements {
  std::vector<Strong> objects;
};

struct Indexes {
  std::vector<unsigned long> values;
};

struct Number {
  int value = 0;
};

const std::string* textOf(id string) {
  const auto* text = findOwned<Text>(string);
  return text == nullptr ? nullptr : &text->utf8;
}

void defineNSString(Class nsObject) {
  ClassBuilder builder("NSString", nsObject);
  builder.addMethod("initWithUTF8String:"_sel, [](id self, const char* utf8) -> id {
    if (utf8 == nullptr) {
      objc_release(self);
      return nullptr;
    }
    attachOwned<Text>(self, std::string(utf8));
    return self;
  });
  builder.addMethod("UTF8String"_sel, [](id self) -> const char* {
    const std::string* text = textOf(self);
    return text == nullptr ? nullptr : text->c_str();
  });
  builder.addMethod("length"_sel, [](id self) -> unsigned long {
    const std::string* text = textOf(self);
    return text == nullptr ? 0 : text->size();
  });
  builder.addMethod("isEqual:"_sel, [](id self, id other) -> BOOL {
    const std::string* text = textOf(self);
    const std::string* otherText = other == nullptr ? nullptr : textOf(other);
    return text != nullptr && otherText != nullptr && *text == *otherText;
  });
  builder.registerClass();
}

void defineNSArray(Class nsObject) {
  ClassBuilder builder("NSArray", nsObject);
  builder.addMethod("count"_sel, [](id self) -> unsigned long {
    const auto* elements = findOwned<Elements>(self);
    return elements == nullptr ? 0 : elements->objects.size();
  });
  builder.addMethod("objectAtIndex:"_sel, [](id self, unsigned long index) -> id {
    const auto* elements = findOwned<Elements>(self);
    if (elements == nullptr || index >= elements->objects.size()) return nullptr;
    return elements->objects[index].get();
  });
  builder.registerClass();
}

Strong makeIndexPathWith(std::vector<unsigned long> values) {
  Strong indexPath = Strong::adopt(sendToClass<id>(objc_getClass("NSIndexPath"), "new"_sel));
  attachOwned<Indexes>(indexPath.get(), std::move(values));
  return indexPath;
}

void defineNSIndexPath(Class nsObject) {
  ClassBuilder builder("NSIndexPath", nsObject);
  builder.addClassMethod("indexPathForRow:inSection:"_sel, [](Class, long row, long section) {
    return objc_autorelease(
        makeIndexPathWith({static_cast<unsigned long>(section), static_cast<unsigned long>(row)}).release());
  });
  builder.addMethod("initWithIndexes:length:"_sel, [](id self, const unsigned long* indexes, unsigned long length) {
    attachOwned<Indexes>(self, std::vector<unsigned long>(indexes, indexes + length));
    return self;
  });
  builder.addMethod("length"_sel, [](id self) -> unsigned long {
    const auto* indexes = findOwned<Indexes>(self);
    return indexes == nullptr ? 0 : indexes->values.size();
  });
  builder.addMethod("indexAtPosition:"_sel, [](id self, unsigned long position) -> unsigned long {
    const auto* indexes = findOwned<Indexes>(self);
    // The platform answers NSNotFound past the end.
    if (indexes == nullptr || position >= indexes->values.size()) return static_cast<unsigned long>(LONG_MAX);
    return indexes->values[position];
  });
  builder.registerClass();
}

void defineNSNumber(Class nsObject) {
  ClassBuilder builder("NSNumber", nsObject);
  builder.addClassMethod("numberWithInt:"_sel, [](Class self, int value) {
    id number = sendToClass<id>(self, "new"_sel);
    attachOwned<Number>(number, value);
    return objc_autorelease(number);
  });
  builder.addMethod("intValue"_sel, [](id self) { return findOwned<Number>(self)->value; });
  builder.addMethod("boolValue"_sel, [](id self) -> BOOL { return findOwned<Number>(self)->value != 0; });
  builder.registerClass();
}

BOOL inherits(Class cls, Class ancestor) {
  for (; cls != nullptr; cls = class_getSuperclass(cls)) {
    if (cls == ancestor) return true;
  }
  return false;
}

}  // namespace

void defineHostFoundation(Class nsObject) {
  addClassMethod(nsObject, "isSubclassOfClass:"_sel,
                 [](Class self, Class ancestor) { return inherits(self, ancestor); });
  defineNSString(nsObject);
  defineNSArray(nsObject);
  defineNSIndexPath(nsObject);
  defineNSNumber(nsObject);
}

Strong makeArray(const std::vector<id>& elements) {
  Strong array = Strong::adopt(sendToClass<id>(objc_getClass("NSArray"), "new"_sel));
  auto* held = attachOwned<Elements>(array.get());
  for (id element : elements) held->objects.push_back(Strong::retain(element));
  return array;
}

}  // namespace tessel::objc::gnu
