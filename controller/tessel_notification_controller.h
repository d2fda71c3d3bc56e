#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "controller/panel_link.h"
#include "host/host.h"

namespace tessel {

class TesselGenericNotificationView;

// The one object through which the panel is attached, shown, moved and
// closed. Its operations are spread over one file each by what the user
// sees: activation, placement, construction, opening, closing, keyboard and
// bulletin lookup.
class TesselNotificationController : public host::ActionTarget,
                                     public std::enable_shared_from_this<TesselNotificationController> {
 public:
  // `sharedController`: the one instance, made on first call.
  static std::shared_ptr<TesselNotificationController> sharedController();
  // `new`: `alloc` then `init`.
  static std::shared_ptr<TesselNotificationController> make();

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

  // |host::ActionTarget|: recognizers, the dismiss button and the keyboard
  // notifications reach the controller here.
  void performAction(std::string_view selector, const host::Ref<host::Object>& sender) noexcept override;

  // Properties, in declaration order.
  const host::BulletinArray* bulletins() const { return bulletins_; }
  void setBulletins(const host::BulletinArray* bulletins) { bulletins_ = bulletins; }
  const host::String& heldIconIdentifier() const { return heldIconIdentifier_; }
  void setHeldIconIdentifier(host::String identifier) { heldIconIdentifier_ = std::move(identifier); }
  std::vector<host::Ref<host::IconView>>& iconsToMoveUp() { return iconsToMoveUp_; }
  void setIconsToMoveUp(std::vector<host::Ref<host::IconView>> icons) { iconsToMoveUp_ = std::move(icons); }
  const host::Ref<host::Button>& dismissButton() const { return dismissButton_; }
  void setDismissButton(host::Ref<host::Button> button) { dismissButton_ = std::move(button); }
  // The panel's view; `genericPanel()` is the library object behind it.
  const host::Ref<host::View>& genericView() const { return genericView_; }
  void setGenericView(host::Ref<host::View> view) { genericView_ = std::move(view); }
  PanelLink genericPanel() const;
  const host::Ref<host::View>& specializedView() const { return specializedView_; }
  void setSpecializedView(host::Ref<host::View> view) { specializedView_ = std::move(view); }
  const host::Ref<host::BackdropView>& specializedFullBackBlur() const { return specializedFullBackBlur_; }
  void setSpecializedFullBackBlur(host::Ref<host::BackdropView> blur) { specializedFullBackBlur_ = std::move(blur); }
  bool isLightMode() const { return isLightMode_; }
  void setIsLightMode(bool lightMode) { isLightMode_ = lightMode; }

 private:
  // `init`.
  TesselNotificationController() = default;
  void init();
  // Once the panel has settled: moves everything back inside the window when
  // the panel sticks out of it or the held icon sits at its top.
  void keepPanelInsideWindow(const host::Ref<host::View>& panelView);
  // The icon views that the page's icons are shown by: the visible icons of
  // the open folder's list or of the current page's list.
  std::vector<host::Ref<host::IconView>> gatherIconViews() const;

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
