#include "controller/tessel_notification_controller.h"

#include "controller/host_lookup.h"
#include "controller/module.h"
#include "views/tessel_generic_notification_view.h"

namespace tessel {

std::shared_ptr<TesselNotificationController> TesselNotificationController::sharedController() {
  auto& instance = module().controller;
  if (!instance) instance = make();
  return instance;
}

std::shared_ptr<TesselNotificationController> TesselNotificationController::make() {
  std::shared_ptr<TesselNotificationController> controller(new TesselNotificationController());
  controller->init();
  return controller;
}

void TesselNotificationController::init() { iconsToMoveUp_.clear(); }

void TesselNotificationController::performAction(std::string_view selector,
                                                 const host::Ref<host::Object>& sender) noexcept {
  try {
    if (selector == "handleIconHeldFromSender:") {
      handleIconHeldFromSender(host::cast<host::GestureRecognizer>(sender));
    } else if (selector == "removeTesselViewsFromView:") {
      removeTesselViewsFromView(host::cast<host::View>(sender));
    } else if (selector == "keyboardWillShowOrHide:") {
      keyboardWillShowOrHide(host::cast<host::Notification>(sender));
    }
  } catch (...) {
  }
}

PanelLink TesselNotificationController::genericPanel() const {
  return PanelLink(TesselGenericNotificationView::of(genericView_));
}

std::vector<host::Ref<host::IconView>> TesselNotificationController::gatherIconViews() const {
  auto controller = iconController();
  auto list = shared().iconExistsInFolder ? controller->currentFolderIconList() : controller->currentRootIconList();
  auto map = homescreenMap();
  std::vector<host::Ref<host::IconView>> views;
  for (const auto& icon : list->visibleIcons()) views.push_back(map->mappedIconViewForIcon(icon));
  return views;
}

}  // namespace tessel
