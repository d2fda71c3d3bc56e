#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "host/host.h"
#include "sim/layout_pass.h"
#include "sim/object_registry.h"
#include "sim/recorder.h"
#include "sim/sim_class.h"
#include "sim/virtual_clock.h"
#include "sim/world_config.h"

namespace tessel::sim {

class HomeScreen;
class SimAnimator;
class SimApplicationObject;
class SimDarwinNotifyCenter;
class SimMainQueue;
class SimNotificationCenter;
class SimRuntime;
class SimScreen;
class SimView;

// The substitute host: the platform's singletons and facts and the
// toolkit's factories, over a virtual clock and one main queue.
class SimHost : public host::Host {
 public:
  // `fileSystemRoot` is the directory standing for the phone's "/".
  SimHost(const WorldConfig& config, std::string fileSystemRoot);
  ~SimHost() override;
  SimHost(const SimHost&) = delete;
  SimHost& operator=(const SimHost&) = delete;

  // |host::Host| platform
  host::Ref<host::Runtime> runtime() override;
  double coreFoundationVersionNumber() const override { return config_.coreFoundationVersion; }
  host::Ref<host::Dictionary> dictionaryWithContentsOfFile(const std::string& path) override;
  host::Ref<host::Bundle> bundleWithPath(const std::string& path) override;
  host::Ref<host::DarwinNotifyCenter> darwinNotifyCenter() override;
  host::Ref<host::NotificationCenter> defaultCenter() override;
  host::Ref<host::MainQueue> mainQueue() override;
  double now() const override { return config_.clockEpoch + clock_.now; }
  // |host::Host| toolkit singletons
  host::Ref<host::UIApplication> sharedApplication() override;
  host::Ref<host::Screen> mainScreen() override;
  host::Ref<host::Animator> animator() override;
  // |host::Host| toolkit factories
  host::Ref<host::View> makeView(const host::Rect& frame) override;
  host::Ref<host::Object> makeController(const host::Ref<host::Class>& cls,
                                         std::shared_ptr<host::ControllerDelegate> delegate) override;
  host::Ref<host::View> makeCustomView(const host::Ref<host::Class>& cls, const host::Rect& frame,
                                       std::shared_ptr<host::ViewDelegate> delegate) override;
  host::Ref<host::Button> buttonWithType(std::int64_t type) override;
  host::Ref<host::ImageView> makeImageView(const host::Ref<host::Image>& image) override;
  host::Ref<host::Label> makeLabel(const host::Rect& frame) override;
  host::Ref<host::ScrollView> makeScrollView(const host::Rect& frame) override;
  host::Ref<host::TableView> makeTableView(const host::Rect& frame, std::int64_t style) override;
  host::Ref<host::TableViewCell> makeTableViewCell(std::int64_t style, const host::String& reuseIdentifier) override;
  host::Ref<host::BackdropSettings> backdropSettingsForPrivateStyle(std::int64_t style) override;
  host::Ref<host::BackdropView> makeBackdropView(const host::Rect& frame, bool autosizesToFitSuperview,
                                                 const host::Ref<host::BackdropSettings>& settings) override;
  host::Ref<host::ShapeLayer> makeShapeLayer() override;
  host::Ref<host::BezierPath> makeBezierPath() override;
  host::Ref<host::GestureRecognizer> makeSwipeGestureRecognizer(const host::Ref<host::Object>& target,
                                                                const host::ControllerAction& action) override;
  host::Ref<host::GestureRecognizer> makeTapGestureRecognizer(const host::Ref<host::Object>& target,
                                                              const host::ControllerAction& action) override;
  host::Ref<host::GestureRecognizer> makeLongPressGestureRecognizer(const host::Ref<host::Object>& target,
                                                                    const host::ControllerAction& action) override;
  host::Ref<host::AlertView> makeAlertView(const host::String& title, const host::String& message,
                                           const host::String& cancelButtonTitle) override;
  host::Ref<host::ImageContext> beginImageContextWithOptions(const host::Size& size, bool opaque,
                                                             double scale) override;

  // The host's own parts.
  const WorldConfig& config() const { return config_; }
  const std::string& fileSystemRoot() const { return fileSystemRoot_; }
  // Where a path of the phone's file system lives on this machine.
  std::string localPath(const std::string& phonePath) const;
  double time() const { return clock_.now; }
  VirtualClock& clock() { return clock_; }
  Recorder& recorder() { return recorder_; }
  const Recorder& recorder() const { return recorder_; }
  ObjectRegistry& registry() { return registry_; }
  LayoutPass& layoutPass() { return layoutPass_; }
  SimMainQueue& queue() { return *queue_; }
  SimAnimator& simAnimator() { return *animator_; }
  const SimAnimator& simAnimator() const { return *animator_; }
  SimRuntime& simRuntime() { return *runtime_; }
  SimNotificationCenter& notificationCenter() { return *defaultCenter_; }
  const SimNotificationCenter& notificationCenter() const { return *defaultCenter_; }
  SimDarwinNotifyCenter& darwinCenter() { return *darwinCenter_; }
  const SimDarwinNotifyCenter& darwinCenter() const { return *darwinCenter_; }
  const std::shared_ptr<SimView>& window() const { return window_; }
  host::Rect screenBounds() const { return {0, 0, config_.screen.width, config_.screen.height}; }
  // The on-screen keyboard's frame while it is up (it lives in a window of
  // its own, above the key window).
  const std::optional<host::Rect>& keyboardFrame() const { return keyboardFrame_; }
  void setKeyboardFrame(std::optional<host::Rect> frame) { keyboardFrame_ = frame; }

  // The home screen, once built (see buildHomeScreen).
  HomeScreen* homeScreen() { return home_.get(); }
  const HomeScreen* homeScreen() const { return home_.get(); }
  void buildHomeScreen();

  // The class of that name; the host's own catalogue always has it.
  std::shared_ptr<SimClass> classNamed(std::string_view name) const;
  // Makes one of the host's objects and gives it its id.
  template <class T, class... Args>
  std::shared_ptr<T> create(std::shared_ptr<SimClass> cls, Args&&... args) {
    auto object = std::make_shared<T>(*this, std::move(cls), std::forward<Args>(args)...);
    adopt(object);
    return object;
  }
  template <class T, class... Args>
  std::shared_ptr<T> create(std::string_view className, Args&&... args) {
    return create<T>(classNamed(className), std::forward<Args>(args)...);
  }

  // One turn of the main loop: the block, then the layout pass.
  void runTurn(const std::function<void()>& block);
  // Runs every block due up to `t` in its own turn, then sets the clock to `t`.
  void advanceTo(double t);

 private:
  void adopt(const std::shared_ptr<SimObject>& object);

  WorldConfig config_;
  std::string fileSystemRoot_;
  std::optional<host::Rect> keyboardFrame_;
  VirtualClock clock_;
  Recorder recorder_{clock_};
  ObjectRegistry registry_;
  LayoutPass layoutPass_;
  std::shared_ptr<SimMainQueue> queue_;
  std::shared_ptr<SimAnimator> animator_;
  std::shared_ptr<SimRuntime> runtime_;
  std::shared_ptr<SimNotificationCenter> defaultCenter_;
  std::shared_ptr<SimDarwinNotifyCenter> darwinCenter_;
  std::shared_ptr<SimScreen> screen_;
  std::shared_ptr<SimApplicationObject> application_;
  std::shared_ptr<SimView> window_;
  std::unique_ptr<HomeScreen> home_;
};

}  // namespace tessel::sim
