#include <utility>

#include "phone/gnu/standins/class_definitions.h"
#include "phone/gnu/standins/notification.h"
#include "phone/objc/class_builder.h"
#include "phone/objc/message.h"
#include "phone/objc/owned_object.h"
#include "phone/objc/runtime.h"
#include "phone/objc/selector.h"
#include "phone/objc/strong.h"

namespace tessel::objc::gnu {
namespace {

using namespace tessel::objc::literals;

struct NotificationContent {
  Strong name;
  Strong object;
};

}  // namespace

Class defineNSNotification(Class nsObject) {
  ClassBuilder builder("NSNotification", nsObject);
  builder.addMethod("name"_sel, [](id self) {
    auto* content = findOwned<NotificationContent>(self);
    return content == nullptr ? nullptr : content->name.get();
  });
  builder.addMethod("object"_sel, [](id self) {
    auto* content = findOwned<NotificationContent>(self);
    return content == nullptr ? nullptr : content->object.get();
  });
  return builder.registerClass();
}

Strong makeNotification(id name, id object) {
  Strong notification = Strong::adopt(sendToClass<id>(objc_getClass("NSNotification"), "new"_sel));
  attachOwned<NotificationContent>(notification.get(), Strong::retain(name), Strong::retain(object));
  return notification;
}

}  // namespace tessel::objc::gnu
