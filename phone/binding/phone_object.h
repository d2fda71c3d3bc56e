#pragma once

// The runtime's objects as host objects. One wrapper answers every host
// interface whose objects are runtime objects, since any message can be sent
// to any object; each operation is the message of its selector. Classes have
// their own wrapper (a class's `name` is not a notification's), and so have
// image contexts, which are graphics contexts, not runtime objects.

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/application.h"
#include "host/block.h"
#include "host/bulletins.h"
#include "host/gesture_recognizer.h"
#include "host/icon_controller.h"
#include "host/image.h"
#include "host/layer.h"
#include "host/main_queue.h"
#include "host/notification_center.h"
#include "host/path.h"
#include "host/table_view.h"
#include "host/value.h"
#include "phone/binding/platform_functions.h"
#include "phone/objc/runtime.h"
#include "phone/objc/strong.h"

namespace tessel::phone {

class PhoneObject final : public host::UIApplication,
                          public host::Screen,
                          public host::Bundle,
                          public host::Application,
                          public host::ApplicationController,
                          public host::Icon,
                          public host::IconListView,
                          public host::Folder,
                          public host::IconModel,
                          public host::IconViewMap,
                          public host::IconController,
                          public host::IconView,
                          public host::Bulletin,
                          public host::BulletinListSection,
                          public host::BulletinSectionController,
                          public host::BulletinViewController,
                          public host::LegacyBulletinSection,
                          public host::BulletinListController,
                          public host::ImageView,
                          public host::Button,
                          public host::Label,
                          public host::BackdropSettings,
                          public host::BackdropView,
                          public host::TableViewCell,
                          public host::TableView,
                          public host::GestureRecognizer,
                          public host::AlertView,
                          public host::Animator,
                          public host::Image,
                          public host::ShapeLayer,
                          public host::BezierPath,
                          public host::Value,
                          public host::Dictionary,
                          public host::Notification,
                          public host::NotificationCenter {
 public:
  // Holds `object`, which is not nil.
  explicit PhoneObject(objc::Strong object) : object_(std::move(object)) {}

  id runtimeObject() const { return object_.get(); }

  // |host::Object| (phone_object.cpp)
  const void* identity() const override;
  std::shared_ptr<const host::WeakReference> weakReference(const std::shared_ptr<const Object>& self) const override;
  host::Ref<host::Class> objectClass() const override;
  bool isKindOfClass(const host::Ref<host::Class>& cls) const override;
  bool respondsToSelector(std::string_view selector) const override;

  // |host::UIApplication| |host::Screen| |host::Bundle| (phone_object_home_screen.cpp)
  host::Ref<host::View> keyWindow() const override;
  void launchApplicationWithIdentifierSuspended(const host::String& bundleIdentifier, bool suspended) override;
  bool load() override;
  // |host::Application| |host::ApplicationController| |host::Icon|
  host::String bundleIdentifier() const override;
  host::Ref<host::Application> applicationWithBundleIdentifier(const host::String& bundleIdentifier) override;
  std::vector<host::Ref<host::Application>> applicationsWithBundleIdentifier(
      const host::String& bundleIdentifier) override;
  host::Ref<host::Application> application() const override;
  host::Ref<host::Icon> initWithApplication(const host::Ref<host::Application>& application) override;
  // |host::IconListView| |host::Folder| |host::IconModel| |host::IconViewMap|
  std::vector<host::Ref<host::Icon>> visibleIcons() const override;
  void setIconsNeedLayout() override;
  void layoutIconsIfNeededDomino(double duration, bool domino) override;
  std::vector<host::Ref<host::Icon>> allIcons() const override;
  host::IndexPath indexPathForIcon(const host::Ref<host::Icon>& icon) const override;
  host::Ref<host::Icon> expectedIconForDisplayIdentifier(const host::String& bundleIdentifier) const override;
  host::Ref<host::IconView> mappedIconViewForIcon(const host::Ref<host::Icon>& icon) const override;
  // |host::IconController|
  host::Ref<host::IconModel> model() const override;
  std::vector<host::Ref<host::Application>> allApplications() const override;
  bool isEditing() const override;
  host::Ref<host::IconListView> currentRootIconList() const override;
  host::Ref<host::IconListView> currentFolderIconList() const override;
  host::Ref<host::Object> valueForKeyPath(std::string_view keyPath) const override;
  host::Ref<host::IconListView> getListViewFolderRelativePathForIndexPathCreateIfNecessary(const host::IndexPath& path,
                                                                                           bool create) override;
  // |host::IconView|
  host::Ref<host::Icon> icon() const override;
  bool isInDock() const override;
  host::Ref<host::IconView> initWithDefaultSize() override;
  void _setIconAnimated(const host::Ref<host::Icon>& icon, bool animated) override;
  void setDelegate(const host::Ref<host::Object>& delegate) override;  // and |host::TableView|
  void setIconLabelAlpha(double alpha) override;

  // |host::Bulletin| and the list's sections (phone_object_bulletins.cpp)
  host::String title() const override;
  host::String message() const override;
  double date() const override;
  host::String sectionID() const override;  // both generations' sections
  host::BulletinArray bulletins() const override;
  host::Ref<host::BulletinListSection> representedListSection() const override;
  host::Ref<host::BulletinSectionController> sectionAtIndex(std::int64_t index) const override;
  std::uint64_t bulletinCount() const override;
  host::Ref<host::Bulletin> bulletinAtIndex(std::uint64_t index) const override;
  host::Ref<host::LegacyBulletinSection> _sectionAtIndex(std::int64_t index) const override;

  // |host::View| (phone_object_views.cpp)
  host::Rect frame() const override;                // and |host::Layer|
  void setFrame(const host::Rect& frame) override;  // and |host::Layer|
  host::Rect bounds() const override;               // and |host::Screen|
  host::Point center() const override;
  void setCenter(const host::Point& center) override;
  double alpha() const override;
  void setAlpha(double alpha) override;
  std::int64_t tag() const override;
  void setTag(std::int64_t tag) override;
  host::Ref<host::View> superview() const override;
  std::vector<host::Ref<host::View>> subviews() const override;
  void addSubview(const host::Ref<host::View>& view) override;
  void insertSubviewAtIndex(const host::Ref<host::View>& view, std::int64_t index) override;
  void insertSubviewBelowSubview(const host::Ref<host::View>& view, const host::Ref<host::View>& sibling) override;
  void removeFromSuperview() override;
  host::Rect convertRectFromView(const host::Rect& rect, const host::Ref<host::View>& view) const override;
  host::Rect convertRectToView(const host::Rect& rect, const host::Ref<host::View>& view) const override;
  void setBackgroundColor(const host::Color& color) override;
  void setClipsToBounds(bool clips) override;
  void setUserInteractionEnabled(bool enabled) override;
  bool isOpaque() const override;
  host::Ref<host::Layer> layer() const override;
  void addGestureRecognizer(const host::Ref<host::GestureRecognizer>& recognizer) override;
  // |host::ImageView| |host::Button| |host::Label|
  host::Ref<host::Image> image() const override;
  void addTargetActionForControlEvents(const host::Ref<host::Object>& target, const host::ControllerAction& action,
                                       std::uint64_t events) override;
  void setText(const host::String& text) override;
  host::String text() const override;
  void setTextColor(const host::Color& color) override;
  void setFont(const host::Font& font) override;
  void setEnabled(bool enabled) override;
  void setNumberOfLines(std::int64_t lines) override;
  void setAdjustsFontSizeToFitWidth(bool adjusts) override;
  // |host::ScrollView| |host::BackdropSettings| |host::BackdropView|
  void setShowsHorizontalScrollIndicator(bool shows) override;
  void setShowsVerticalScrollIndicator(bool shows) override;
  void setContentSize(const host::Size& size) override;
  void setScrollEnabled(bool enabled) override;
  void setBounces(bool bounces) override;
  std::int64_t style() const override;
  void setBlurQuality(const host::String& quality) override;
  // |host::TableViewCell| |host::TableView| (phone_object_tables.cpp)
  host::Ref<host::Label> textLabel() const override;
  host::Ref<host::Label> detailTextLabel() const override;
  host::Ref<host::View> contentView() const override;
  void setBackgroundView(const host::Ref<host::View>& view) override;  // both
  void setRowHeight(double height) override;
  void setDataSource(const host::Ref<host::Object>& dataSource) override;
  void registerClassForCellReuseIdentifier(std::string_view className, const host::String& identifier) override;
  // |host::GestureRecognizer| |host::AlertView| (phone_object_views.cpp)
  host::Ref<host::View> view() const override;
  void setDirection(std::uint64_t direction) override;
  void setNumberOfTapsRequired(std::uint64_t taps) override;
  void setNumberOfTouchesRequired(std::uint64_t touches) override;
  void show() override;

  // |host::Animator|: a message to the class of views (phone_object_animations.cpp)
  void animateWithDuration(double duration, host::Block animations, host::Completion completion) override;

  // |host::Image| (phone_object_images.cpp)
  host::Size size() const override;
  std::size_t width() const override;
  std::size_t height() const override;
  std::size_t bytesPerRow() const override;
  std::size_t bitsPerPixel() const override;
  std::vector<std::uint8_t> copyData() const override;

  // |host::Layer| |host::ShapeLayer| |host::BezierPath| (phone_object_paths.cpp)
  void setMask(const host::Ref<host::Layer>& mask) override;
  host::Ref<host::Layer> mask() const override;
  void renderInContext(const host::Ref<host::ImageContext>& context) override;
  void setPath(const host::Path& path) override;
  host::Path path() const override;
  void moveToPoint(const host::Point& p) override;
  void addLineToPoint(const host::Point& p) override;
  void closePath() override;
  host::Path CGPath() const override;

  // |host::Value| |host::Dictionary| |host::Notification| |host::NotificationCenter|
  // (phone_object_values.cpp)
  std::optional<bool> boolValue() const override;
  std::optional<std::int32_t> intValue() const override;
  std::optional<host::Rect> CGRectValue() const override;
  host::Ref<host::Value> objectForKey(std::string_view key) const override;
  host::String name() const override;
  host::Ref<host::Dictionary> userInfo() const override;
  void addObserverSelectorNameObject(const host::Ref<host::Object>& observer, const host::ControllerAction& selector,
                                     const host::String& name, const host::Ref<host::Object>& object) override;
  void removeObserverNameObject(const host::Ref<host::Object>& observer, const host::String& name,
                                const host::Ref<host::Object>& object) override;

 private:
  const objc::Strong object_;
};

// A class object; class operations are messages to it. Classes live as long
// as the process. (phone_object_class.cpp)
class PhoneClass final : public host::Class {
 public:
  explicit PhoneClass(::Class cls) : class_(cls) {}

  ::Class runtimeClass() const { return class_; }

  // |host::Object|
  const void* identity() const override;
  std::shared_ptr<const host::WeakReference> weakReference(const std::shared_ptr<const Object>& self) const override;
  host::Ref<host::Class> objectClass() const override;
  bool isKindOfClass(const host::Ref<host::Class>& cls) const override;
  bool respondsToSelector(std::string_view selector) const override;
  // |host::Class|
  std::string name() const override;
  host::Ref<host::Class> superclass() const override;
  bool isSubclassOfClass(const host::Ref<host::Class>& cls) const override;
  host::Ref<host::Object> sharedInstance() override;
  host::Ref<host::Object> sharedInstanceIfExists() override;
  host::Ref<host::Object> homescreenMap() override;
  host::Ref<host::Object> alloc() override;

 private:
  ::Class class_;
};

// The image context that `UIGraphicsBeginImageContextWithOptions` opened:
// drawing goes to its graphics context, and messages that draw (an image's
// `drawInRect:blendMode:alpha:`) go to the current context, which is this
// one until it ends. (phone_object_images.cpp)
class PhoneImageContext final : public host::ImageContext {
 public:
  // The context now current, or nothing if none could be opened.
  static host::Ref<host::ImageContext> begin(const host::Size& size, bool opaque, double scale);
  explicit PhoneImageContext(CGContextRef context) : context_(context) {}

  // The graphics context while it is open; null once ended.
  CGContextRef graphicsContext() const { return ended_ ? nullptr : context_; }

  // |host::ImageContext|
  void setFillColor(const host::Color& color) override;
  void fillRect(const host::Rect& rect) override;
  void setInterpolationQuality(int quality) override;
  void drawImage(const host::Ref<host::Image>& image, const host::Rect& rect, int blendMode, double alpha) override;
  std::vector<std::uint8_t> bitmapData() const override;
  host::Ref<host::Image> imageFromContext() const override;
  void end() override;

 private:
  CGContextRef context_;
  bool ended_ = false;
};

}  // namespace tessel::phone
