#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include "phone/binding/bridge.h"
#include "phone/binding/exported_state.h"
#include "phone/binding/library_objects.h"
#include "phone/binding/loaded_library.h"
#include "phone/gnu/standins/library_stand_ins.h"
#include "phone/gnu/standins/stand_ins.h"
#include "phone/objc/autorelease_pool.h"
#include "phone/objc/class_builder.h"
#include "phone/objc/owned_object.h"
#include "phone/objc/selector.h"
#include "phone/objc/weak.h"
#include "tests/phone/objc_test_support.h"
#include "views/tessel_generic_notification_view.h"

namespace tessel::phone {
namespace {

using namespace objc::literals;
using objc::Strong;

// The library as the loader leaves it: both load steps run (the first only
// once per process).
Library& loaded() {
  objc::gnu::fillInLibraryStandIns();
  runFirstLoadStep();
  runSecondLoadStep();
  Library* library = loadedLibrary();
  EXPECT_NE(library, nullptr);
  return *library;
}

bool exportedIconViewsHold(id view) {
  for (CFIndex i = 0; i < CFArrayGetCount(iconViews); ++i) {
    if (CFArrayGetValueAtIndex(iconViews, i) == view) return true;
  }
  return false;
}

TEST(PhoneBinding, LoadStepsMakeTheProcesssOneLibrary) {
  Library* library = &loaded();
  runFirstLoadStep();
  EXPECT_EQ(loadedLibrary(), library);
  EXPECT_NE(objc_getClass("TesselNotificationController"), nullptr);
  EXPECT_NE(objc_getClass("TesselGenericNotificationView"), nullptr);
  EXPECT_TRUE(library->enabledPreference()) << "no settings file: the defaults";
  EXPECT_EQ(::verticalOffset, library->shared().verticalOffset);
  EXPECT_NE(iconViews, nullptr);
  EXPECT_NE(folders, nullptr);
}

TEST(PhoneBinding, ReplacedLayoutCallsPreviousLast) {
  Library& library = loaded();
  Strong view = objc::makeObject("SBIconView");
  const long passesBefore = objc::gnu::layoutPassesOf(view.get());
  std::vector<bool> listedWhenOwnLayoutRan;
  long passesWhenOwnLayoutRan = -1;
  objc::gnu::setIconViewLayoutWitness([&](id seen) {
    if (seen != view.get()) return;
    listedWhenOwnLayoutRan.push_back(library.shared().iconViews.contains(referenceTo<host::IconView>(seen)));
    passesWhenOwnLayoutRan = objc::gnu::layoutPassesOf(seen);
  });
  objc::send<void>(view.get(), "layoutSubviews"_sel);
  objc::gnu::setIconViewLayoutWitness(nullptr);

  EXPECT_EQ(listedWhenOwnLayoutRan, std::vector<bool>{true}) << "the library's work ran first, once";
  EXPECT_EQ(passesWhenOwnLayoutRan, passesBefore) << "seen just before the view's own layout";
  EXPECT_EQ(objc::gnu::layoutPassesOf(view.get()), passesBefore + 1) << "the view's own layout ran";
  EXPECT_TRUE(exportedIconViewsHold(view.get()));
  EXPECT_EQ(objc::retainCountOf(view.get()), 1u) << "neither the library nor the export keeps the view";
}

TEST(PhoneBinding, ExportedIconViewsTakeInWhatTheLibraryAddsAndEmptyWithIt) {
  Library& library = loaded();
  Strong first = objc::makeObject("SBIconView");
  Strong second = objc::makeObject("SBIconView");
  objc::send<void>(first.get(), "layoutSubviews"_sel);
  const CFIndex before = CFArrayGetCount(iconViews);
  ASSERT_GE(before, 1);
  EXPECT_EQ(CFArrayGetValueAtIndex(iconViews, before - 1), first.get());

  objc::send<void>(second.get(), "layoutSubviews"_sel);
  objc::send<void>(first.get(), "layoutSubviews"_sel);
  ASSERT_EQ(CFArrayGetCount(iconViews), before + 1) << "each view once";
  EXPECT_EQ(CFArrayGetValueAtIndex(iconViews, before), second.get());

  library.context().state.iconViews.clear();
  objc::send<void>(second.get(), "layoutSubviews"_sel);
  ASSERT_EQ(CFArrayGetCount(iconViews), 1) << "emptied with the library's list, then the view laid out";
  EXPECT_EQ(CFArrayGetValueAtIndex(iconViews, 0), second.get());
}

TEST(PhoneBinding, ExportedStateFollowsTheLibraryWhenACallReturns) {
  Library& library = loaded();
  SharedState& state = library.context().state;
  const SharedState before = state;
  id controller = objectOf(library.sharedControllerObject());
  auto callIntoTheLibrary = [&] { objc::send<BOOL>(controller, "isLightMode"_sel); };
  Strong sender = objc::makeObject("SBIconView");
  callIntoTheLibrary();

  state.darkMode = !before.darkMode;
  state.activationMethod = 3;
  state.globalViewSender = referenceTo<host::IconView>(sender.get());
  state.arrowPosition = 1;
  state.checkIconOriginY = -7;
  state.originToStartFrom = 12.5;
  state.verticalOffset = 81;
  state.oldTesselFrame = {1, 2, 3, 4};
  state.intermediateArrowFrame = {5, 6, 7, 8};
  state.realKeyboardDisplacement = -216;
  EXPECT_NE(::activationMethod, 3) << "published only when a call returns";

  callIntoTheLibrary();
  EXPECT_EQ(::darkMode, !before.darkMode);
  EXPECT_EQ(::activationMethod, 3);
  EXPECT_EQ(::globalViewSender, sender.get());
  EXPECT_EQ(::arrowPosition, 1);
  EXPECT_EQ(::checkIconOriginY, -7);
  EXPECT_EQ(::originToStartFrom, 12.5);
  EXPECT_EQ(::verticalOffset, 81);
  EXPECT_EQ(::oldTesselFrame, (objc::Rect{{1, 2}, {3, 4}}));
  EXPECT_EQ(::intermediateArrowFrame, (objc::Rect{{5, 6}, {7, 8}}));
  EXPECT_EQ(::realKeyboardDisplacement, -216);
  EXPECT_EQ(objc::retainCountOf(sender.get()), 1u) << "the export names the sender without keeping it";

  sender = nullptr;
  callIntoTheLibrary();
  EXPECT_EQ(::globalViewSender, nullptr) << "a freed object is published as nil";

  state = before;
  callIntoTheLibrary();
}

// An icon view that keeps the recognizers added to it, as the toolkit's does.
using KeptRecognizers = std::vector<Strong>;

Class recognizerKeepingIconViewClass() {
  static const Class cls = [] {
    objc::ClassBuilder builder("TestRecognizerKeepingIconView", objc_getClass("SBIconView"));
    builder.addMethod("addGestureRecognizer:"_sel, [](id self, id recognizer) {
      auto* kept = objc::findOwned<KeptRecognizers>(self);
      if (kept == nullptr) kept = objc::attachOwned<KeptRecognizers>(self);
      kept->push_back(Strong::retain(recognizer));
    });
    return builder.registerClass();
  }();
  return cls;
}

TEST(PhoneBinding, RecognizerMadeByTheLibraryFiresIntoTheController) {
  Library& library = loaded();
  Strong icon = objc::makeObject("NSObject");
  Strong iconView = Strong::adopt(objc::sendToClass<id>(recognizerKeepingIconViewClass(), "new"_sel));
  objc::gnu::showOnlyIcon(icon.get(), iconView.get());
  // While icons are edited the controller opens nothing: it only asks.
  objc::gnu::setIconsBeingEdited(true);

  library.sharedController().registerLongHoldNotificationWithBundleIdentifier("com.example.mail");
  const auto* kept = objc::findOwned<KeptRecognizers>(iconView.get());
  ASSERT_NE(kept, nullptr);
  ASSERT_EQ(kept->size(), 1u);
  const long askedBefore = objc::gnu::editingQuestionsAsked();
  objc::gnu::fireGestureRecognizer(kept->front().get());
  EXPECT_EQ(objc::gnu::editingQuestionsAsked(), askedBefore + 1);

  objc::gnu::showOnlyIcon(nullptr, nullptr);
  objc::gnu::setIconsBeingEdited(false);
}

TEST(PhoneBinding, ControllerPropertiesAreTheLibrarysController) {
  Library& library = loaded();
  id shared = objc::sendToClass<id>(objc_getClass("TesselNotificationController"), "sharedController"_sel);
  ASSERT_NE(shared, nullptr);
  EXPECT_EQ(shared, objectOf(library.sharedControllerObject()));
  TesselNotificationController& controller = library.sharedController();
  objc::AutoreleasePool pool;

  objc::send<void>(shared, "setIsLightMode:"_sel, BOOL{true});
  EXPECT_TRUE(controller.isLightMode());
  EXPECT_TRUE(objc::send<BOOL>(shared, "isLightMode"_sel));
  objc::send<void>(shared, "setIsLightMode:"_sel, BOOL{false});
  EXPECT_FALSE(controller.isLightMode());

  Strong button = objc::makeObject("UIView");
  objc::send<void>(shared, "setDismissButton:"_sel, button.get());
  EXPECT_EQ(objectOf(controller.dismissButton()), button.get());
  EXPECT_EQ(objc::send<id>(shared, "dismissButton"_sel), button.get());
  EXPECT_EQ(objc::retainCountOf(button.get()), 2u) << "retained by the controller";
  objc::send<void>(shared, "setDismissButton:"_sel, static_cast<id>(nullptr));
  EXPECT_EQ(objc::retainCountOf(button.get()), 1u);

  Strong identifier = makeString("com.example.mail");
  objc::send<void>(shared, "setHeldIconIdentifier:"_sel, identifier.get());
  EXPECT_EQ(controller.heldIconIdentifier(), host::String("com.example.mail"));
  EXPECT_EQ(stringOf(objc::send<id>(shared, "heldIconIdentifier"_sel)), host::String("com.example.mail"));

  Strong first = objc::makeObject("SBIconView");
  Strong second = objc::makeObject("SBIconView");
  const void* views[] = {first.get(), second.get()};
  Strong array = Strong::adopt(
      reinterpret_cast<id>(const_cast<__CFArray*>(CFArrayCreate(nullptr, views, 2, &kCFTypeArrayCallBacks))));
  objc::send<void>(shared, "setIconsToMoveUp:"_sel, array.get());
  ASSERT_EQ(controller.iconsToMoveUp().size(), 2u);
  EXPECT_EQ(objectOf(controller.iconsToMoveUp()[1]), second.get());
  id answered = objc::send<id>(shared, "iconsToMoveUp"_sel);
  ASSERT_EQ(objc::send<NSUInteger>(answered, "count"_sel), 2u);
  EXPECT_EQ(objc::send<id>(answered, "objectAtIndex:"_sel, NSUInteger{0}), first.get());

  // Assigned: named, not kept.
  Strong bulletins = objc::makeObject("NSObject");
  objc::send<void>(shared, "setBulletins:"_sel, bulletins.get());
  EXPECT_EQ(objc::send<id>(shared, "bulletins"_sel), bulletins.get());
  EXPECT_EQ(objc::retainCountOf(bulletins.get()), 1u);
  objc::send<void>(shared, "setBulletins:"_sel, static_cast<id>(nullptr));

  EXPECT_EQ(objc::send<id>(shared, "genericView"_sel), objectOf(controller.genericView()));
  objc::send<void>(shared, "setIconsToMoveUp:"_sel, static_cast<id>(nullptr));
  EXPECT_TRUE(controller.iconsToMoveUp().empty());
}

TEST(PhoneBinding, PanelInitialiserBuildsThePanelThroughTheLibrary) {
  loaded();
  Class viewClass = objc_getClass("TesselGenericNotificationView");
  id allocated = objc::sendToClass<id>(viewClass, "alloc"_sel);
  objc::Weak receiver(allocated);
  Strong bundleIdentifier = makeString("com.example.mail");
  const objc::Rect frame{{0, 40}, {320, 142}};
  Strong view =
      Strong::adopt(objc::send<id>(allocated, "initWithFrame:bundleIdentifier:"_sel, frame, bundleIdentifier.get()));

  ASSERT_NE(view.get(), nullptr);
  EXPECT_EQ(object_getClass(view.get()), viewClass);
  EXPECT_FALSE(receiver.lock()) << "the object allocated for the message was let go";
  EXPECT_EQ(objc::retainCountOf(view.get()), 1u) << "the answer is the caller's alone";
  EXPECT_EQ(objc::send<objc::Rect>(view.get(), "frame"_sel), frame);

  auto* owned = objc::findOwned<OwnedViewDelegate>(view.get());
  ASSERT_NE(owned, nullptr);
  auto panel = std::dynamic_pointer_cast<TesselGenericNotificationView>(owned->delegate);
  ASSERT_NE(panel, nullptr);
  EXPECT_EQ(objectOf(panel->view()), view.get());
  objc::AutoreleasePool pool;
  EXPECT_EQ(stringOf(objc::send<id>(view.get(), "bundleIdentifier"_sel)), host::String("com.example.mail"));
  id body = objc::send<id>(view.get(), "folderBlurBack"_sel);
  EXPECT_NE(body, nullptr);
  EXPECT_EQ(body, objectOf(panel->folderBlurBack()));
  objc::send<void>(view.get(), "setVerticalOffset:"_sel, 300.0);
  EXPECT_EQ(panel->verticalOffset(), 300.0);
  EXPECT_EQ(objc::send<double>(view.get(), "verticalOffset"_sel), 300.0);
}

}  // namespace
}  // namespace tessel::phone
