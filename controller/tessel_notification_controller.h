#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "controller/context.h"
#include "controller/panel_link.h"
#include "host/host.h"
#include "views/panel_delegate.h"

namespace tessel {

// The one object through which the panel is attached, shown, moved and
// closed. Its operations are spread over one file each by what the user
// sees: activation, placement, construction, opening, closing, keyboard and
// bulletin lookup. The host sees it as an object of the class
// "TesselNotificationController" (see `make`), which keeps it alive.
class TesselNotificationController : public host::ControllerDelegate,
                                     public PanelDelegate,
                                     public std::enable_shared_from_this<TesselNotificationController> {
 public:
  struct Made {
    std::shared_ptr<TesselNotificationController> controller;
    host::Ref<host::Object> object;
  };
  // `new`: `alloc` then `init`, as an object of the host's.
  static Made make(Context& context);

  void registerLongHoldNotificationWithBundleIdentifier(const host::String& bundleIdentifier);
  void handleIconHeldFromSender(const host::Ref<host::GestureRecognizer>& sender);
  void dismissTessel();

  void showTesselForBundleIdentifier(const host::String& bundleIdentifier);
  void showGenericNotificationViewForBundleIdentifier(const host::String& bundleIdentifier);
  void performOpeningAnimation();
  void removeTesselViewsFromView(const host::Ref<host::View>& view);
  void performClosingAnimationOnViewWithHandledView(const host::Ref<host::View>& container,
                                                    const host::Ref<host::View>& handled);
  void keyboardWillShowOrHide(const host::Ref<host::Notification>& notification);
  std::optional<host::BulletinArray> bulletinsForBundleIdentifier(const host::String& bundleIdentifier);

  // Properties, in declaration order.
  const host::BulletinArray* bulletins() const { return bulletins_; }
  void setBulletins(const host::BulletinArray* bulletins) { bulletins_ = bulletins; }
  const host::String& heldIconIdentifier() const { return heldIconIdentifier_; }
  void setHeldIconIdentifier(host::String identifier) { heldIconIdentifier_ = std::move(identifier); }
  const std::vector<host::Ref<host::IconView>>& iconsToMoveUp() const { return iconsToMoveUp_; }
  void setIconsToMoveUp(std::vector<host::Ref<host::IconView>> icons) { iconsToMoveUp_ = std::move(icons); }
  const host::Ref<host::Button>& dismissButton() const { return dismissButton_; }
  void setDismissButton(host::Ref<host::Button> button) { dismissButton_ = std::move(button); }
  const host::Ref<host::View>& genericView() const { return genericView_; }
  const host::Ref<host::View>& specializedView() const { return specializedView_; }
  void setSpecializedView(host::Ref<host::View> view) { specializedView_ = std::move(view); }
  const host::Ref<host::BackdropView>& specializedFullBackBlur() const { return specializedFullBackBlur_; }
  void setSpecializedFullBackBlur(host::Ref<host::BackdropView> blur) { specializedFullBackBlur_ = std::move(blur); }
  bool isLightMode() const { return isLightMode_; }
  void setIsLightMode(bool lightMode) { isLightMode_ = lightMode; }

  // The panel object behind `genericView`, while its view lives.
  std::shared_ptr<TesselGenericNotificationView> panel() const { return panel_.lock(); }

 protected:
  // |host::ControllerDelegate|
  void iconHeld(const host::Ref<host::GestureRecognizer>& sender) override { handleIconHeldFromSender(sender); }
  void removeViews(const host::Ref<host::View>& view) override { removeTesselViewsFromView(view); }
  void keyboardChanged(const host::Ref<host::Notification>& notification) override {
    keyboardWillShowOrHide(notification);
  }
  // |PanelDelegate|
  void dismissPanel() override { removeTesselViewsFromView(nullptr); }

 private:
  explicit TesselNotificationController(Context& context) : context_(context) {}
  // `init`.
  void init();
  PanelLink genericPanel() const { return PanelLink(panel_); }
  // Once the panel has settled: moves everything back inside the window when
  // the panel sticks out of it or the held icon sits at its top.
  void keepPanelInsideWindow(const host::Ref<host::View>& panelView);
  // The icon views that the page's icons are shown by: the visible icons of
  // the open folder's list or of the current page's list.
  std::vector<host::Ref<host::IconView>> gatherIconViews();
  // This controller as the host knows it: the target of its actions.
  host::Ref<host::Object> object() const { return object_.lock(); }

  Context& context_;
  SharedState& state_ = context_.state;
  host::Weak<host::Object> object_;
  std::weak_ptr<TesselGenericNotificationView> panel_;

  const host::BulletinArray* bulletins_ = nullptr;  // assigned, never read
  host::String heldIconIdentifier_;
  std::vector<host::Ref<host::IconView>> iconsToMoveUp_;
  host::Ref<host::Button> dismissButton_;
  host::Ref<host::View> genericView_;
  host::Ref<host::View> specializedView_;
  host::Ref<host::BackdropView> specializedFullBackBlur_;
  bool isLightMode_ = false;
};

}  // namespace tessel
