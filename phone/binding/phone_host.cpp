#include "phone/binding/phone_host.h"

#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "phone/binding/bridge.h"
#include "phone/binding/dispatch.h"
#include "phone/binding/phone_object.h"
#include "phone/binding/phone_runtime.h"
#include "phone/binding/platform_functions.h"
#include "phone/objc/geometry.h"
#include "phone/objc/message.h"
#include "phone/objc/selector.h"

namespace tessel::phone {
namespace {

using namespace objc::literals;

id classObject(const char* name) { return objc::asObject(objc_getClass(name)); }

// `[[cls alloc] init…]`: the new object is the caller's.
template <typename... Args>
objc::Strong allocInit(const char* className, SEL initialiser, Args... args) {
  id allocated = objc::sendToClass<id>(objc_getClass(className), "alloc"_sel);
  return objc::Strong::adopt(objc::send<id>(allocated, initialiser, args...));
}

host::Ref<host::GestureRecognizer> makeRecognizer(const char* className, const host::Ref<host::Object>& target,
                                                  const host::ControllerAction& action) {
  return referenceTo<host::GestureRecognizer>(allocInit(className, "initWithTarget:action:"_sel, objectOf(target),
                                                        sel_registerName(std::string(action.selector).c_str())));
}

// `initWithTitle:message:delegate:cancelButtonTitle:otherButtonTitles:` takes
// a nil-terminated list of further titles: the method is variadic, and on
// arm64 a variadic method reads its list from the stack, so it is sent
// through a variadic function type. No further titles: the first is nil.
id initAlert(id allocated, id title, id message, id cancelButtonTitle) {
  using Initialiser = id (*)(id, SEL, id, id, id, id, id, ...);
  if (allocated == nullptr) return nullptr;
  SEL selector = "initWithTitle:message:delegate:cancelButtonTitle:otherButtonTitles:"_sel;
#if TESSEL_OBJC_APPLE_RUNTIME
  auto initialiser = reinterpret_cast<Initialiser>(&objc_msgSend);
#else
  auto initialiser = reinterpret_cast<Initialiser>(objc_msg_lookup(allocated, selector));
#endif
  return initialiser(allocated, selector, title, message, /* delegate */ nullptr, cancelButtonTitle,
                     /* otherButtonTitles */ nullptr);
}

// Cross-process notifications carry only their name: the callbacks are kept
// here by name, for the life of the process, and the centre is asked once
// per name.
using DarwinCallbacks = std::unordered_map<std::string, std::vector<host::Block>>;

DarwinCallbacks& darwinCallbacks() {
  static auto& callbacks = *new DarwinCallbacks();
  return callbacks;
}

void darwinNotificationPosted(CFNotificationCenterRef /*center*/, void* /*observer*/, CFStringRef name,
                              const void* /*object*/, CFDictionaryRef /*userInfo*/) noexcept {
  try {
    const host::String text = stringOf(reinterpret_cast<id>(const_cast<__CFString*>(name)));
    if (!text) return;
    auto found = darwinCallbacks().find(*text);
    if (found == darwinCallbacks().end()) return;
    // A callback may subscribe again while the list is being run.
    const std::vector<host::Block> due = found->second;
    for (const host::Block& callback : due) {
      callback();
      libraryReturned();
    }
  } catch (...) {
  }
}

class PhoneDarwinNotifyCenter final : public host::DarwinNotifyCenter {
 public:
  explicit PhoneDarwinNotifyCenter(CFNotificationCenterRef center) : center_(center) {}

  // |host::DarwinNotifyCenter|: no observer and no object.
  void addObserver(host::Block callback, const host::String& name, std::int64_t suspensionBehavior) override {
    if (center_ == nullptr || !callback || !name) return;
    auto& callbacks = darwinCallbacks()[*name];
    callbacks.push_back(std::move(callback));
    if (callbacks.size() > 1) return;
    objc::Strong centreName = makeString(name);
    CFNotificationCenterAddObserver(center_, /* observer */ nullptr, &darwinNotificationPosted,
                                    reinterpret_cast<CFStringRef>(centreName.get()), /* object */ nullptr,
                                    static_cast<CFIndex>(suspensionBehavior));
  }

 private:
  CFNotificationCenterRef center_;
};

}  // namespace

PhoneHost::PhoneHost() : runtime_(host::make<PhoneRuntime>()) {}

host::Ref<host::Runtime> PhoneHost::runtime() { return runtime_; }

double PhoneHost::coreFoundationVersionNumber() const { return kCFCoreFoundationVersionNumber; }

host::Ref<host::Dictionary> PhoneHost::dictionaryWithContentsOfFile(const std::string& path) {
  return referenceTo<host::Dictionary>(objc::sendToClass<id>(
      objc_getClass("NSDictionary"), "dictionaryWithContentsOfFile:"_sel, makeString(path).get()));
}

host::Ref<host::Bundle> PhoneHost::bundleWithPath(const std::string& path) {
  return referenceTo<host::Bundle>(
      objc::sendToClass<id>(objc_getClass("NSBundle"), "bundleWithPath:"_sel, makeString(path).get()));
}

host::Ref<host::DarwinNotifyCenter> PhoneHost::darwinNotifyCenter() {
  return host::make<PhoneDarwinNotifyCenter>(CFNotificationCenterGetDarwinNotifyCenter());
}

host::Ref<host::NotificationCenter> PhoneHost::defaultCenter() {
  return referenceTo<host::NotificationCenter>(
      objc::sendToClass<id>(objc_getClass("NSNotificationCenter"), "defaultCenter"_sel));
}

host::Ref<host::MainQueue> PhoneHost::mainQueue() { return makeMainQueue(); }

double PhoneHost::now() const {
  id date = objc::sendToClass<id>(objc_getClass("NSDate"), "date"_sel);
  return objc::send<double>(date, "timeIntervalSinceReferenceDate"_sel);
}

host::Ref<host::UIApplication> PhoneHost::sharedApplication() {
  return referenceTo<host::UIApplication>(
      objc::sendToClass<id>(objc_getClass("UIApplication"), "sharedApplication"_sel));
}

host::Ref<host::Screen> PhoneHost::mainScreen() {
  return referenceTo<host::Screen>(objc::sendToClass<id>(objc_getClass("UIScreen"), "mainScreen"_sel));
}

// Block animations are class messages of the class of views.
host::Ref<host::Animator> PhoneHost::animator() { return referenceTo<host::Animator>(classObject("UIView")); }

host::Ref<host::View> PhoneHost::makeView(const host::Rect& frame) {
  return referenceTo<host::View>(allocInit("UIView", "initWithFrame:"_sel, toRuntime(frame)));
}

host::Ref<host::Button> PhoneHost::buttonWithType(std::int64_t type) {
  return referenceTo<host::Button>(
      objc::sendToClass<id>(objc_getClass("UIButton"), "buttonWithType:"_sel, static_cast<NSInteger>(type)));
}

host::Ref<host::ImageView> PhoneHost::makeImageView(const host::Ref<host::Image>& image) {
  return referenceTo<host::ImageView>(allocInit("UIImageView", "initWithImage:"_sel, objectOf(image)));
}

host::Ref<host::Label> PhoneHost::makeLabel(const host::Rect& frame) {
  return referenceTo<host::Label>(allocInit("UILabel", "initWithFrame:"_sel, toRuntime(frame)));
}

host::Ref<host::ScrollView> PhoneHost::makeScrollView(const host::Rect& frame) {
  return referenceTo<host::ScrollView>(allocInit("UIScrollView", "initWithFrame:"_sel, toRuntime(frame)));
}

host::Ref<host::TableView> PhoneHost::makeTableView(const host::Rect& frame, std::int64_t style) {
  return referenceTo<host::TableView>(
      allocInit("UITableView", "initWithFrame:style:"_sel, toRuntime(frame), static_cast<NSInteger>(style)));
}

host::Ref<host::TableViewCell> PhoneHost::makeTableViewCell(std::int64_t style, const host::String& reuseIdentifier) {
  return referenceTo<host::TableViewCell>(allocInit("UITableViewCell", "initWithStyle:reuseIdentifier:"_sel,
                                                    static_cast<NSInteger>(style), makeString(reuseIdentifier).get()));
}

host::Ref<host::BackdropSettings> PhoneHost::backdropSettingsForPrivateStyle(std::int64_t style) {
  return referenceTo<host::BackdropSettings>(objc::sendToClass<id>(
      objc_getClass("_UIBackdropViewSettings"), "settingsForPrivateStyle:"_sel, static_cast<NSInteger>(style)));
}

host::Ref<host::BackdropView> PhoneHost::makeBackdropView(const host::Rect& frame, bool autosizesToFitSuperview,
                                                          const host::Ref<host::BackdropSettings>& settings) {
  return referenceTo<host::BackdropView>(
      allocInit("_UIBackdropView", "initWithFrame:autosizesToFitSuperview:settings:"_sel, toRuntime(frame),
                static_cast<BOOL>(autosizesToFitSuperview), objectOf(settings)));
}

host::Ref<host::ShapeLayer> PhoneHost::makeShapeLayer() {
  return referenceTo<host::ShapeLayer>(allocInit("CAShapeLayer", "init"_sel));
}

host::Ref<host::BezierPath> PhoneHost::makeBezierPath() {
  return referenceTo<host::BezierPath>(allocInit("UIBezierPath", "init"_sel));
}

host::Ref<host::GestureRecognizer> PhoneHost::makeSwipeGestureRecognizer(const host::Ref<host::Object>& target,
                                                                         const host::ControllerAction& action) {
  return makeRecognizer("UISwipeGestureRecognizer", target, action);
}

host::Ref<host::GestureRecognizer> PhoneHost::makeTapGestureRecognizer(const host::Ref<host::Object>& target,
                                                                       const host::ControllerAction& action) {
  return makeRecognizer("UITapGestureRecognizer", target, action);
}

host::Ref<host::GestureRecognizer> PhoneHost::makeLongPressGestureRecognizer(const host::Ref<host::Object>& target,
                                                                             const host::ControllerAction& action) {
  return makeRecognizer("UILongPressGestureRecognizer", target, action);
}

host::Ref<host::AlertView> PhoneHost::makeAlertView(const host::String& title, const host::String& message,
                                                    const host::String& cancelButtonTitle) {
  id allocated = objc::sendToClass<id>(objc_getClass("UIAlertView"), "alloc"_sel);
  return referenceTo<host::AlertView>(objc::Strong::adopt(
      initAlert(allocated, makeString(title).get(), makeString(message).get(), makeString(cancelButtonTitle).get())));
}

host::Ref<host::ImageContext> PhoneHost::beginImageContextWithOptions(const host::Size& size, bool opaque,
                                                                      double scale) {
  return PhoneImageContext::begin(size, opaque, scale);
}

}  // namespace tessel::phone
