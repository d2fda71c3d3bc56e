#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "host/notification_center.h"
#include "host/platform_constants.h"
#include "phone/binding/bridge.h"
#include "phone/binding/phone_host.h"
#include "phone/gnu/standins/host_stand_ins.h"
#include "phone/objc/class_builder.h"
#include "phone/objc/message.h"
#include "phone/objc/owned_object.h"
#include "phone/objc/selector.h"
#include "phone/objc/strong.h"
#include "tests/phone/objc_test_support.h"

namespace tessel::phone {
namespace {

using namespace objc::literals;

struct Heard {
  std::vector<host::String> names;
};

// An observer as the library's controller is one.
Class observerClass() {
  static const Class cls = [] {
    objc::ClassBuilder builder("HostTestKeyboardObserver", objc_getClass("NSObject"));
    builder.addMethod("keyboardWillShowOrHide:"_sel, [](id self, id notification) {
      objc::findOwned<Heard>(self)->names.push_back(stringOf(objc::send<id>(notification, "name"_sel)));
    });
    return builder.registerClass();
  }();
  return cls;
}

objc::Strong makeObserver() {
  objc::Strong observer = objc::Strong::adopt(objc::sendToClass<id>(observerClass(), "new"_sel));
  objc::attachOwned<Heard>(observer.get());
  return observer;
}

void post(const host::Ref<host::NotificationCenter>& center, const char* name) {
  objc::send(objectOf(center), "postNotificationName:object:"_sel, makeString(name).get(), static_cast<id>(nullptr));
}

const std::vector<host::String>& heardBy(const objc::Strong& observer) {
  return objc::findOwned<Heard>(observer.get())->names;
}

TEST(PhoneBinding, NotificationObserversAreAddedAndRemovedByIdentity) {
  PhoneHost host;
  auto center = host.defaultCenter();
  ASSERT_TRUE(center);
  EXPECT_TRUE(center == host.defaultCenter());
  objc::Strong observer = makeObserver();
  objc::Strong other = makeObserver();
  const char* show = host::platform::kKeyboardWillShowNotification;
  const char* hide = host::platform::kKeyboardWillHideNotification;

  center->addObserverSelectorNameObject(referenceTo(observer.get()), host::action::keyboardWillShowOrHide, show,
                                        nullptr);
  center->addObserverSelectorNameObject(referenceTo(observer.get()), host::action::keyboardWillShowOrHide, hide,
                                        nullptr);
  center->addObserverSelectorNameObject(referenceTo(other.get()), host::action::keyboardWillShowOrHide, hide, nullptr);
  EXPECT_EQ(objc::retainCountOf(observer.get()), 1u);
  post(center, show);
  post(center, hide);
  EXPECT_EQ(heardBy(observer), (std::vector<host::String>{show, hide}));
  EXPECT_EQ(heardBy(other), std::vector<host::String>{hide});

  // Another reference to the same observer removes it; the other observer stays.
  center->removeObserverNameObject(referenceTo(observer.get()), show, nullptr);
  post(center, show);
  post(center, hide);
  EXPECT_EQ(heardBy(observer), (std::vector<host::String>{show, hide, hide}));
  center->removeObserverNameObject(referenceTo(observer.get()), hide, nullptr);
  post(center, hide);
  EXPECT_EQ(heardBy(observer).size(), 3u);
  EXPECT_EQ(heardBy(other).size(), 3u);
  center->removeObserverNameObject(referenceTo(other.get()), hide, nullptr);
}

// The centre keeps callbacks for the life of the process: each run of a test
// uses names of its own.
std::string uniqueName(const char* name) {
  static int runs = 0;
  return "com.example.tessel-test/" + std::to_string(++runs) + "/" + name;
}

TEST(PhoneBinding, CrossProcessNotificationRunsEveryCallbackOfItsName) {
  PhoneHost host;
  auto ran = std::make_shared<std::vector<std::string>>();
  const std::string changed = uniqueName("changed");
  const std::string other = uniqueName("other");
  auto center = host.darwinNotifyCenter();
  center->addObserver([ran] { ran->push_back("first"); }, changed, host::platform::kSuspensionBehaviorCoalesce);
  center->addObserver([] { throw std::runtime_error("the library's own failure"); }, changed,
                      host::platform::kSuspensionBehaviorCoalesce);
  host.darwinNotifyCenter()->addObserver([ran] { ran->push_back("second"); }, changed,
                                         host::platform::kSuspensionBehaviorCoalesce);
  center->addObserver([ran] { ran->push_back("elsewhere"); }, other, 4);
  EXPECT_EQ(objc::gnu::darwinSuspensionBehaviorOf(changed.c_str()), host::platform::kSuspensionBehaviorCoalesce);
  EXPECT_EQ(objc::gnu::darwinSuspensionBehaviorOf(other.c_str()), 4);

  objc::gnu::postDarwinNotification(changed.c_str());
  EXPECT_EQ(*ran, (std::vector<std::string>{"first", "second"}));
  objc::gnu::postDarwinNotification(uniqueName("unheard").c_str());
  EXPECT_EQ(ran->size(), 2u);
  objc::gnu::postDarwinNotification(other.c_str());
  EXPECT_EQ(ran->back(), "elsewhere");
}

TEST(PhoneBinding, MainQueueRunsBlocksLaterInTimeOrder) {
  PhoneHost host;
  auto queue = host.mainQueue();
  std::vector<std::string> ran;
  const long long start = objc::gnu::mainQueueClock();

  queue->async([&] { ran.push_back("first"); });
  queue->after(2'000'000, [&] { ran.push_back("after 2 ms"); });
  queue->after(1'000'000, [&] {
    ran.push_back("after 1 ms");
    queue->async([&] { ran.push_back("queued by a block"); });
  });
  queue->async([&] { throw std::runtime_error("the library's own failure"); });
  queue->async([&] { ran.push_back("second"); });
  EXPECT_TRUE(ran.empty());

  EXPECT_EQ(objc::gnu::runMainQueue(), 6);
  EXPECT_EQ(ran, (std::vector<std::string>{"first", "second", "after 1 ms", "queued by a block", "after 2 ms"}));
  EXPECT_EQ(objc::gnu::mainQueueClock() - start, 2'000'000);
}

}  // namespace
}  // namespace tessel::phone
