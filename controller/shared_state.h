#pragma once

#include <cstdint>
#include <vector>

#include "controller/distinct_weak_list.h"
#include "host/bulletins.h"
#include "host/icon_controller.h"
#include "host/icon_view.h"

namespace tessel {

// The twenty module-level values that the library's parts share. Host
// objects are named without being kept alive.
struct SharedState {
  bool darkMode = false;
  std::intptr_t activationMethod = 0;
  DistinctWeakList<host::IconView> iconViews;
  std::vector<host::Weak<host::Folder>> folders;
  bool hasUnlockedOnce = false;
  host::Weak<host::BulletinViewController> bulletinViewController;
  host::Weak<host::IconView> globalViewSender;
  host::Weak<host::IconView> iconView;
  host::Weak<host::View> arrowView;
  std::intptr_t arrowPosition = 0;
  std::int32_t checkIconOriginY = 0;
  bool iconExistsInFolder = false;
  double originToStartFrom = 0;
  std::int32_t verticalOffset = 0;
  host::Rect oldTesselFrame;
  host::Rect oldArrowFrame;
  host::Rect newTesselFrame;
  host::Rect intermediateTesselFrame;
  host::Rect intermediateArrowFrame;
  double realKeyboardDisplacement = 0;
};

}  // namespace tessel
