#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "host/application.h"
#include "host/block.h"
#include "host/bulletins.h"
#include "host/gesture_recognizer.h"
#include "host/icon_controller.h"
#include "host/library_delegates.h"
#include "host/main_queue.h"
#include "host/notification_center.h"
#include "host/path.h"
#include "host/platform_constants.h"
#include "host/runtime.h"
#include "host/table_view.h"
#include "host/value.h"

namespace tessel::host {

// The root of the outside world: the platform's singletons and facts, and
// the factories through which the library makes toolkit objects. The library
// never makes a host object with `new`.
class Host {
 public:
  virtual ~Host() = default;

  // Platform.
  virtual Ref<Runtime> runtime() { return {}; }
  virtual double coreFoundationVersionNumber() const { return 0; }
  virtual Ref<Dictionary> dictionaryWithContentsOfFile(const std::string& /*path*/) { return {}; }
  virtual Ref<Bundle> bundleWithPath(const std::string& /*path*/) { return {}; }
  virtual Ref<DarwinNotifyCenter> darwinNotifyCenter() { return {}; }
  virtual Ref<NotificationCenter> defaultCenter() { return {}; }
  virtual Ref<MainQueue> mainQueue() { return {}; }
  // `NSDate` `date`: now, in seconds on the host's clock.
  virtual double now() const { return 0; }

  // Toolkit singletons.
  virtual Ref<UIApplication> sharedApplication() { return {}; }
  virtual Ref<Screen> mainScreen() { return {}; }
  virtual Ref<Animator> animator() { return {}; }

  // The library's own objects: `new` of its controller class and
  // `initWithFrame:` of its view class. The object keeps its delegate alive.
  virtual Ref<Object> makeController(const Ref<Class>& /*cls*/, std::shared_ptr<ControllerDelegate> /*delegate*/) {
    return {};
  }
  virtual Ref<View> makeCustomView(const Ref<Class>& /*cls*/, const Rect& /*frame*/,
                                   std::shared_ptr<ViewDelegate> /*delegate*/) {
    return {};
  }

  // Toolkit factories (the `alloc`/`init…` pairs and class constructors).
  virtual Ref<View> makeView(const Rect& /*frame*/) { return {}; }
  virtual Ref<Button> buttonWithType(std::int64_t /*type*/) { return {}; }
  virtual Ref<ImageView> makeImageView(const Ref<Image>& /*image*/) { return {}; }
  virtual Ref<Label> makeLabel(const Rect& /*frame*/) { return {}; }
  virtual Ref<ScrollView> makeScrollView(const Rect& /*frame*/) { return {}; }
  virtual Ref<TableView> makeTableView(const Rect& /*frame*/, std::int64_t /*style*/) { return {}; }
  virtual Ref<TableViewCell> makeTableViewCell(std::int64_t /*style*/, const String& /*reuseIdentifier*/) { return {}; }
  virtual Ref<BackdropSettings> backdropSettingsForPrivateStyle(std::int64_t /*style*/) { return {}; }
  virtual Ref<BackdropView> makeBackdropView(const Rect& /*frame*/, bool /*autosizesToFitSuperview*/,
                                             const Ref<BackdropSettings>& /*settings*/) {
    return {};
  }
  virtual Ref<ShapeLayer> makeShapeLayer() { return {}; }
  virtual Ref<BezierPath> makeBezierPath() { return {}; }
  // `initWithTarget:action:` of each recognizer class; the target is not kept alive.
  virtual Ref<GestureRecognizer> makeSwipeGestureRecognizer(const Ref<Object>& /*target*/,
                                                            const ControllerAction& /*action*/) {
    return {};
  }
  virtual Ref<GestureRecognizer> makeTapGestureRecognizer(const Ref<Object>& /*target*/,
                                                          const ControllerAction& /*action*/) {
    return {};
  }
  virtual Ref<GestureRecognizer> makeLongPressGestureRecognizer(const Ref<Object>& /*target*/,
                                                                const ControllerAction& /*action*/) {
    return {};
  }
  // `initWithTitle:message:delegate:cancelButtonTitle:otherButtonTitles:` with no delegate.
  virtual Ref<AlertView> makeAlertView(const String& /*title*/, const String& /*message*/,
                                       const String& /*cancelButtonTitle*/) {
    return {};
  }

  // Image contexts. `UIGraphicsBeginImageContext` is the variant with
  // opaque false and scale 1.
  virtual Ref<ImageContext> beginImageContextWithOptions(const Size& /*size*/, bool /*opaque*/, double /*scale*/) {
    return {};
  }
  Ref<ImageContext> beginImageContext(const Size& size) { return beginImageContextWithOptions(size, false, 1.0); }
};

// The library delegates' entries, shielded once.
inline void ControllerDelegate::handleIconHeldFromSender(const Ref<Object>& sender) noexcept {
  shield([&] { iconHeld(cast<GestureRecognizer>(sender)); });
}
inline void ControllerDelegate::removeTesselViewsFromView(const Ref<Object>& sender) noexcept {
  shield([&] { removeViews(cast<View>(sender)); });
}
inline void ControllerDelegate::keyboardWillShowOrHide(const Ref<Object>& sender) noexcept {
  shield([&] { keyboardChanged(cast<Notification>(sender)); });
}
inline void ViewDelegate::layoutSubviews() noexcept {
  shield([&] { layout(); });
}
inline std::int64_t ViewDelegate::tableViewNumberOfRowsInSection(const Ref<TableView>& table,
                                                                 std::int64_t section) noexcept {
  std::int64_t rows = 0;
  shield([&] { rows = numberOfRows(table, section); });
  return rows;
}
inline Ref<TableViewCell> ViewDelegate::tableViewCellForRowAtIndexPath(const Ref<TableView>& table,
                                                                       const IndexPath& indexPath) noexcept {
  Ref<TableViewCell> cell;
  shield([&] { cell = cellForRow(table, indexPath); });
  return cell;
}
inline void ViewDelegate::tableViewDidSelectRowAtIndexPath(const Ref<TableView>& table,
                                                           const IndexPath& indexPath) noexcept {
  shield([&] { didSelectRow(table, indexPath); });
}

}  // namespace tessel::host
