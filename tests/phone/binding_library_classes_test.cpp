#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "host/host.h"
#include "phone/binding/bridge.h"
#include "phone/binding/library_objects.h"
#include "phone/binding/phone_host.h"
#include "phone/gnu/standins/library_stand_ins.h"
#include "phone/objc/autorelease_pool.h"
#include "phone/objc/class_builder.h"
#include "phone/objc/implementation.h"
#include "phone/objc/methods.h"
#include "phone/objc/owned_object.h"
#include "phone/objc/selector.h"
#include "phone/objc/weak.h"
#include "tests/phone/objc_test_support.h"

namespace tessel::phone {
namespace {

using namespace objc::literals;
using objc::Strong;

// What a controller object delivered, each sender by its runtime object.
struct ControllerCalls {
  std::vector<std::string> actions;
  std::vector<id> senders;
};

class RecordingControllerDelegate : public host::ControllerDelegate {
 public:
  explicit RecordingControllerDelegate(ControllerCalls& calls) : calls_(calls) {}

 protected:
  void iconHeld(const host::Ref<host::GestureRecognizer>& sender) override { record("iconHeld", objectOf(sender)); }
  void removeViews(const host::Ref<host::View>& view) override { record("removeViews", objectOf(view)); }
  void keyboardChanged(const host::Ref<host::Notification>& notification) override {
    record("keyboardChanged", objectOf(notification));
  }

 private:
  void record(const char* action, id sender) {
    calls_.actions.push_back(action);
    calls_.senders.push_back(sender);
  }
  ControllerCalls& calls_;
};

// Answers the table's questions from fixed data and writes down what it was asked.
struct ViewCalls {
  int layouts = 0;
  std::vector<id> tables;
  std::vector<std::int64_t> sections;
  std::vector<host::IndexPath> selected;
  std::vector<host::IndexPath> cellsAskedFor;
};

class RecordingViewDelegate : public host::ViewDelegate {
 public:
  explicit RecordingViewDelegate(ViewCalls& calls) : calls_(calls) {}

 protected:
  void layout() override { ++calls_.layouts; }
  std::int64_t numberOfRows(const host::Ref<host::TableView>& table, std::int64_t section) override {
    calls_.tables.push_back(objectOf(table));
    calls_.sections.push_back(section);
    return 7;
  }
  // A new cell that only this call's reference owns.
  host::Ref<host::TableViewCell> cellForRow(const host::Ref<host::TableView>&,
                                            const host::IndexPath& indexPath) override {
    calls_.cellsAskedFor.push_back(indexPath);
    return referenceTo<host::TableViewCell>(objc::makeObject("UIView"));
  }
  void didSelectRow(const host::Ref<host::TableView>& table, const host::IndexPath& indexPath) override {
    calls_.tables.push_back(objectOf(table));
    calls_.selected.push_back(indexPath);
  }

 private:
  ViewCalls& calls_;
};

// The two classes as the first load step registers them, on a host of their own.
void registerClasses() {
  objc::gnu::fillInLibraryStandIns();
  registerLibraryClasses();
}

TEST(PhoneBinding, LibraryClassesHaveTheirSuperclassesAndAnswerTheirMessages) {
  registerClasses();
  Class controller = objc_getClass("TesselNotificationController");
  Class view = objc_getClass("TesselGenericNotificationView");
  ASSERT_NE(controller, nullptr);
  ASSERT_NE(view, nullptr);
  EXPECT_EQ(class_getSuperclass(controller), objc_getClass("NSObject"));
  EXPECT_EQ(class_getSuperclass(view), objc_getClass("UIView"));

  for (const char* selector :
       {"handleIconHeldFromSender:", "removeTesselViewsFromView:", "keyboardWillShowOrHide:", "dismissTessel",
        "bulletins", "setBulletins:", "heldIconIdentifier", "setHeldIconIdentifier:", "iconsToMoveUp",
        "setIconsToMoveUp:", "dismissButton", "setDismissButton:", "genericView", "specializedView",
        "setSpecializedView:", "specializedFullBackBlur", "setSpecializedFullBackBlur:", "isLightMode",
        "setIsLightMode:"}) {
    EXPECT_TRUE(class_respondsToSelector(controller, sel_registerName(selector))) << selector;
  }
  EXPECT_TRUE(class_respondsToSelector(objc::metaclassOf(controller), "sharedController"_sel));

  for (const char* selector : {"layoutSubviews",
                               "tableView:numberOfRowsInSection:",
                               "tableView:cellForRowAtIndexPath:",
                               "tableView:didSelectRowAtIndexPath:",
                               "initWithFrame:bundleIdentifier:",
                               "bundleIdentifier",
                               "setBundleIdentifier:",
                               "folderBlurBackSettings",
                               "setFolderBlurBackSettings:",
                               "folderBlurBack",
                               "setFolderBlurBack:",
                               "folderBlurArrowBackground",
                               "setFolderBlurArrowBackground:",
                               "folderBlurArrowView",
                               "setFolderBlurArrowView:",
                               "fullBackBlurSettings",
                               "setFullBackBlurSettings:",
                               "fullBackBlur",
                               "setFullBackBlur:",
                               "notificationTable",
                               "setNotificationTable:",
                               "backBezierPath",
                               "setBackBezierPath:",
                               "whitenUpBackBlurImage",
                               "setWhitenUpBackBlurImage:",
                               "whitenUpBackBlurImageView",
                               "setWhitenUpBackBlurImageView:",
                               "bulletins",
                               "setBulletins:",
                               "verticalOffset",
                               "setVerticalOffset:",
                               "arrowOffset",
                               "setArrowOffset:"}) {
    EXPECT_TRUE(class_respondsToSelector(view, sel_registerName(selector))) << selector;
  }
  // A view still: frames and subviews are UIView's own.
  EXPECT_TRUE(class_respondsToSelector(view, "addSubview:"_sel));
}

TEST(PhoneBinding, ControllerObjectDeliversEachActionWithItsSenderAndFreesItsDelegateWithIt) {
  registerClasses();
  PhoneHost host;
  ControllerCalls calls;
  auto delegate = std::make_shared<RecordingControllerDelegate>(calls);
  std::weak_ptr<RecordingControllerDelegate> watched = delegate;
  Strong recognizer = objc::makeObject("UISwipeGestureRecognizer");
  Strong button = objc::makeObject("UIView");
  Strong notification = objc::makeObject("NSObject");
  {
    auto controller =
        host.makeController(referenceToClass(objc_getClass("TesselNotificationController")), std::move(delegate));
    id object = objectOf(controller);
    ASSERT_NE(object, nullptr);
    EXPECT_EQ(object_getClass(object), objc_getClass("TesselNotificationController"));
    objc::send<void>(object, "handleIconHeldFromSender:"_sel, recognizer.get());
    objc::send<void>(object, "removeTesselViewsFromView:"_sel, button.get());
    objc::send<void>(object, "keyboardWillShowOrHide:"_sel, notification.get());
    // Not the library's controller: there is nothing to dismiss.
    objc::send<void>(object, "dismissTessel"_sel);
    EXPECT_FALSE(watched.expired());
  }
  EXPECT_EQ(calls.actions, (std::vector<std::string>{"iconHeld", "removeViews", "keyboardChanged"}));
  EXPECT_EQ(calls.senders, (std::vector<id>{recognizer.get(), button.get(), notification.get()}));
  EXPECT_TRUE(watched.expired());
}

TEST(PhoneBinding, WithoutItsClassNoControllerIsMade) {
  PhoneHost host;
  ControllerCalls calls;
  EXPECT_FALSE(host.makeController({}, std::make_shared<RecordingControllerDelegate>(calls)));
}

// An NSIndexPath as a table sends it.
Strong indexPath(long row, long section) {
  return Strong::retain(
      objc::sendToClass<id>(objc_getClass("NSIndexPath"), "indexPathForRow:inSection:"_sel, row, section));
}

TEST(PhoneBinding, CustomViewAnswersItsTableFromItsDelegate) {
  registerClasses();
  PhoneHost host;
  ViewCalls calls;
  auto delegate = std::make_shared<RecordingViewDelegate>(calls);
  std::weak_ptr<RecordingViewDelegate> watched = delegate;
  Strong table = objc::makeObject("UIView");
  objc::Weak cell;
  {
    auto view = host.makeCustomView(referenceToClass(objc_getClass("TesselGenericNotificationView")), {1, 2, 300, 150},
                                    std::move(delegate));
    id object = objectOf(view);
    ASSERT_NE(object, nullptr);
    EXPECT_EQ(objc::send<objc::Rect>(object, "frame"_sel), (objc::Rect{{1, 2}, {300, 150}}));

    EXPECT_EQ(objc::send<NSInteger>(object, "tableView:numberOfRowsInSection:"_sel, table.get(), NSInteger{2}), 7);
    {
      objc::AutoreleasePool pool;
      Strong row = indexPath(4, 1);
      id answer = objc::send<id>(object, "tableView:cellForRowAtIndexPath:"_sel, table.get(), row.get());
      // The delegate's reference is gone; the table still gets a live cell.
      ASSERT_NE(answer, nullptr);
      cell = objc::Weak(answer);
      EXPECT_EQ(objc::retainCountOf(answer), 1u);
    }
    EXPECT_FALSE(cell.lock()) << "the cell is the pool's, not leaked";

    objc::send<void>(object, "tableView:didSelectRowAtIndexPath:"_sel, table.get(), indexPath(3, 0).get());
    EXPECT_FALSE(watched.expired());
  }
  EXPECT_EQ(calls.sections, std::vector<std::int64_t>{2});
  EXPECT_EQ(calls.tables, (std::vector<id>{table.get(), table.get()}));
  EXPECT_EQ(calls.cellsAskedFor, std::vector<host::IndexPath>{host::IndexPath::forRowInSection(4, 1)});
  EXPECT_EQ(calls.selected, std::vector<host::IndexPath>{host::IndexPath::forRowInSection(3, 0)});
  EXPECT_TRUE(watched.expired());
}

// How many times UIView's own layoutSubviews has run, in any view.
long& viewLayouts() {
  static long count = 0;
  return count;
}

void countedLayout(const objc::Implementation<void()>& own, id self) {
  ++viewLayouts();
  own(self);
}

void countViewLayouts() {
  static bool counting = false;
  if (counting) return;
  objc::replaceMethod(objc_getClass("UIView"), "layoutSubviews"_sel, &countedLayout);
  counting = true;
}

TEST(PhoneBinding, CustomViewLayoutIsItsDelegatesAlone) {
  registerClasses();
  PhoneHost host;
  countViewLayouts();
  ViewCalls calls;
  auto view = host.makeCustomView(referenceToClass(objc_getClass("TesselGenericNotificationView")), {0, 0, 10, 10},
                                  std::make_shared<RecordingViewDelegate>(calls));
  const long before = viewLayouts();
  objc::send<void>(objectOf(view), "layoutSubviews"_sel);
  EXPECT_EQ(calls.layouts, 1);
  EXPECT_EQ(viewLayouts(), before) << "UIView's own layout ran too";

  Strong plain = objc::makeObject("UIView");
  objc::send<void>(plain.get(), "layoutSubviews"_sel);
  EXPECT_EQ(viewLayouts(), before + 1) << "the count sees UIView's own layout";
}

}  // namespace
}  // namespace tessel::phone
