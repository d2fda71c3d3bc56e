#include "controller/tessel_notification_controller.h"

#include "views/tessel_generic_notification_view.h"

namespace tessel {

TesselNotificationController::Made TesselNotificationController::make(Context& context) {
  std::shared_ptr<TesselNotificationController> controller(new TesselNotificationController(context));
  controller->init();
  auto object = context.host.makeController(context.classNamed("TesselNotificationController"), controller);
  controller->object_ = object;
  return {controller, object};
}

void TesselNotificationController::init() { iconsToMoveUp_.clear(); }

void TesselNotificationController::dismissTessel() { removeTesselViewsFromView({}); }

std::vector<host::Ref<host::IconView>> TesselNotificationController::gatherIconViews() {
  auto controller = context_.iconController();
  auto list = state_.iconExistsInFolder ? controller->currentFolderIconList() : controller->currentRootIconList();
  auto map = context_.homescreenMap();
  std::vector<host::Ref<host::IconView>> views;
  for (const auto& icon : list->visibleIcons()) views.push_back(map->mappedIconViewForIcon(icon));
  return views;
}

}  // namespace tessel
