#pragma once

#include "host/host.h"

namespace tessel::phone {

// The real home screen and toolkit as the library's host: the platform's
// singletons and facts and the toolkit's factories, each a message to the
// runtime's objects (or a function of the platform's, looked up at run time
// where it lives outside the four libraries the dylib links against).
class PhoneHost : public host::Host {
 public:
  PhoneHost();

  // |host::Host| platform
  host::Ref<host::Runtime> runtime() override;
  double coreFoundationVersionNumber() const override;
  host::Ref<host::Dictionary> dictionaryWithContentsOfFile(const std::string& path) override;
  host::Ref<host::Bundle> bundleWithPath(const std::string& path) override;
  host::Ref<host::DarwinNotifyCenter> darwinNotifyCenter() override;
  host::Ref<host::NotificationCenter> defaultCenter() override;
  host::Ref<host::MainQueue> mainQueue() override;
  double now() const override;
  // |host::Host| toolkit singletons
  host::Ref<host::UIApplication> sharedApplication() override;
  host::Ref<host::Screen> mainScreen() override;
  host::Ref<host::Animator> animator() override;
  // |host::Host| the library's own objects (library_objects.cpp)
  host::Ref<host::Object> makeController(const host::Ref<host::Class>& cls,
                                         std::shared_ptr<host::ControllerDelegate> delegate) override;
  host::Ref<host::View> makeCustomView(const host::Ref<host::Class>& cls, const host::Rect& frame,
                                       std::shared_ptr<host::ViewDelegate> delegate) override;
  // |host::Host| toolkit factories
  host::Ref<host::View> makeView(const host::Rect& frame) override;
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

 private:
  host::Ref<host::Runtime> runtime_;
};

}  // namespace tessel::phone
