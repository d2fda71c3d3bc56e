#include "sim/sim_host.h"

#include "sim/home_screen.h"
#include "sim/home_screen_builder.h"
#include "sim/host_behaviour.h"
#include "sim/library_objects.h"
#include "sim/property_list.h"
#include "sim/sim_alert_view.h"
#include "sim/sim_animator.h"
#include "sim/sim_application.h"
#include "sim/sim_backdrop_view.h"
#include "sim/sim_button.h"
#include "sim/sim_custom_view.h"
#include "sim/sim_gesture_recognizer.h"
#include "sim/sim_image_context.h"
#include "sim/sim_image_view.h"
#include "sim/sim_label.h"
#include "sim/sim_layer.h"
#include "sim/sim_main_queue.h"
#include "sim/sim_notification_center.h"
#include "sim/sim_runtime.h"
#include "sim/sim_table_view.h"
#include "sim/sim_table_view_cell.h"

namespace tessel::sim {

SimHost::SimHost(const WorldConfig& config, std::string fileSystemRoot)
    : config_(config),
      fileSystemRoot_(std::move(fileSystemRoot)),
      queue_(std::make_shared<SimMainQueue>(clock_, recorder_)),
      animator_(std::make_shared<SimAnimator>(clock_, *queue_, recorder_)),
      runtime_(std::make_shared<SimRuntime>(recorder_)),
      defaultCenter_(std::make_shared<SimNotificationCenter>()),
      darwinCenter_(std::make_shared<SimDarwinNotifyCenter>()) {
  window_ = create<SimView>("UIWindow", screenBounds());
  screen_ = create<SimScreen>("UIScreen");
  application_ = create<SimApplicationObject>("UIApplication");
  installOriginalMethods(*this);
  installClassOperations(*this);
  if (config.keepEndedAnimationsOnDisk) animator_->keepEndedOnDisk();
}

SimHost::~SimHost() {
  // The home screen's controllers refer to it; let them go before it does.
  home_.reset();
}

void SimHost::adopt(const std::shared_ptr<SimObject>& object) {
  registry_.add(object, dynamic_cast<SimView*>(object.get()) != nullptr);
  object->awake();
}

std::shared_ptr<SimClass> SimHost::classNamed(std::string_view name) const { return runtime_->find(name); }

std::string SimHost::localPath(const std::string& phonePath) const {
  if (!phonePath.empty() && phonePath.front() == '/') return fileSystemRoot_ + phonePath;
  return fileSystemRoot_ + "/" + phonePath;
}

void SimHost::buildHomeScreen() {
  auto home = std::make_unique<HomeScreen>(*this);
  HomeScreen* building = home.get();
  // The controllers answer from the start, as the library may ask during the build.
  home_ = std::move(home);
  HomeScreenBuilder(*this, *building).build();
}

void SimHost::runTurn(const std::function<void()>& block) {
  if (block) block();
  layoutPass_.run();
}

void SimHost::advanceTo(double t) {
  while (auto block = queue_->takeDue(t)) runTurn(block);
  if (t > clock_.now) clock_.now = t;
}

// |host::Host| platform

host::Ref<host::Runtime> SimHost::runtime() { return host::Ref<host::Runtime>(runtime_); }

host::Ref<host::Dictionary> SimHost::dictionaryWithContentsOfFile(const std::string& path) {
  return host::Ref<host::Dictionary>(readDictionaryFile(localPath(path)));
}

host::Ref<host::Bundle> SimHost::bundleWithPath(const std::string& path) {
  return host::Ref<host::Bundle>(create<SimBundle>("NSBundle", path));
}

host::Ref<host::DarwinNotifyCenter> SimHost::darwinNotifyCenter() {
  return host::Ref<host::DarwinNotifyCenter>(darwinCenter_);
}

host::Ref<host::NotificationCenter> SimHost::defaultCenter() {
  return host::Ref<host::NotificationCenter>(defaultCenter_);
}

host::Ref<host::MainQueue> SimHost::mainQueue() { return host::Ref<host::MainQueue>(queue_); }

// |host::Host| toolkit singletons

host::Ref<host::UIApplication> SimHost::sharedApplication() { return host::Ref<host::UIApplication>(application_); }

host::Ref<host::Screen> SimHost::mainScreen() { return host::Ref<host::Screen>(screen_); }

host::Ref<host::Animator> SimHost::animator() { return host::Ref<host::Animator>(animator_); }

// |host::Host| toolkit factories

host::Ref<host::View> SimHost::makeView(const host::Rect& frame) {
  return host::Ref<host::View>(create<SimView>("UIView", frame));
}

host::Ref<host::Object> SimHost::makeController(const host::Ref<host::Class>& cls,
                                                std::shared_ptr<host::ControllerDelegate> delegate) {
  auto simClass = std::dynamic_pointer_cast<SimClass>(cls.shared());
  if (!simClass) simClass = classNamed("NSObject");
  return host::Ref<host::Object>(create<SimControllerObject>(simClass, std::move(delegate)));
}

host::Ref<host::View> SimHost::makeCustomView(const host::Ref<host::Class>& cls, const host::Rect& frame,
                                              std::shared_ptr<host::ViewDelegate> delegate) {
  auto simClass = std::dynamic_pointer_cast<SimClass>(cls.shared());
  if (!simClass) simClass = classNamed("UIView");
  return host::Ref<host::View>(create<SimCustomView>(simClass, frame, std::move(delegate)));
}

host::Ref<host::Button> SimHost::buttonWithType(std::int64_t type) {
  return host::Ref<host::Button>(create<SimButton>("UIButton", type));
}

host::Ref<host::ImageView> SimHost::makeImageView(const host::Ref<host::Image>& image) {
  return host::Ref<host::ImageView>(create<SimImageView>("UIImageView", image));
}

host::Ref<host::Label> SimHost::makeLabel(const host::Rect& frame) {
  return host::Ref<host::Label>(create<SimLabel>("UILabel", frame));
}

host::Ref<host::ScrollView> SimHost::makeScrollView(const host::Rect& frame) {
  return host::Ref<host::ScrollView>(create<SimScrollView>("UIScrollView", frame));
}

host::Ref<host::TableView> SimHost::makeTableView(const host::Rect& frame, std::int64_t style) {
  return host::Ref<host::TableView>(create<SimTableView>("UITableView", frame, style));
}

host::Ref<host::TableViewCell> SimHost::makeTableViewCell(std::int64_t style, const host::String& reuseIdentifier) {
  return host::Ref<host::TableViewCell>(create<SimTableViewCell>("UITableViewCell", style, reuseIdentifier));
}

host::Ref<host::BackdropSettings> SimHost::backdropSettingsForPrivateStyle(std::int64_t style) {
  return host::Ref<host::BackdropSettings>(create<SimBackdropSettings>("_UIBackdropViewSettings", style));
}

host::Ref<host::BackdropView> SimHost::makeBackdropView(const host::Rect& frame, bool autosizesToFitSuperview,
                                                        const host::Ref<host::BackdropSettings>& settings) {
  return host::Ref<host::BackdropView>(
      create<SimBackdropView>("_UIBackdropView", frame, autosizesToFitSuperview, settings->style()));
}

host::Ref<host::ShapeLayer> SimHost::makeShapeLayer() {
  return host::Ref<host::ShapeLayer>(std::make_shared<SimShapeLayer>());
}

host::Ref<host::BezierPath> SimHost::makeBezierPath() {
  return host::Ref<host::BezierPath>(std::make_shared<SimBezierPath>());
}

host::Ref<host::GestureRecognizer> SimHost::makeSwipeGestureRecognizer(const host::Ref<host::Object>& target,
                                                                       const host::ControllerAction& action) {
  return host::Ref<host::GestureRecognizer>(create<SimGestureRecognizer>(
      "UISwipeGestureRecognizer", SimGestureRecognizer::Kind::swipe, TargetAction(target, action)));
}

host::Ref<host::GestureRecognizer> SimHost::makeTapGestureRecognizer(const host::Ref<host::Object>& target,
                                                                     const host::ControllerAction& action) {
  return host::Ref<host::GestureRecognizer>(create<SimGestureRecognizer>(
      "UITapGestureRecognizer", SimGestureRecognizer::Kind::tap, TargetAction(target, action)));
}

host::Ref<host::GestureRecognizer> SimHost::makeLongPressGestureRecognizer(const host::Ref<host::Object>& target,
                                                                           const host::ControllerAction& action) {
  return host::Ref<host::GestureRecognizer>(create<SimGestureRecognizer>(
      "UILongPressGestureRecognizer", SimGestureRecognizer::Kind::longPress, TargetAction(target, action)));
}

host::Ref<host::AlertView> SimHost::makeAlertView(const host::String& title, const host::String& message,
                                                  const host::String& cancelButtonTitle) {
  return host::Ref<host::AlertView>(create<SimAlertView>("UIAlertView", title, message, cancelButtonTitle));
}

host::Ref<host::ImageContext> SimHost::beginImageContextWithOptions(const host::Size& size, bool opaque, double scale) {
  // Scale 0 means the main screen's.
  double effective = scale > 0 ? scale : config_.screen.scale;
  return host::Ref<host::ImageContext>(std::make_shared<SimImageContext>(size, opaque, effective));
}

}  // namespace tessel::sim
