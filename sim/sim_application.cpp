#include "sim/sim_application.h"

#include "sim/sim_host.h"
#include "sim/sim_view.h"

namespace tessel::sim {

host::Ref<host::View> SimApplicationObject::keyWindow() const { return host::Ref<host::View>(simHost().window()); }

void SimApplicationObject::launchApplicationWithIdentifierSuspended(const host::String& bundleIdentifier,
                                                                    bool suspended) {
  auto& recorder = simHost().recorder();
  recorder.hostCall("launchApplicationWithIdentifier:suspended:", id(),
                    {bundleIdentifier ? nlohmann::json(*bundleIdentifier) : nlohmann::json(nullptr), suspended});
  if (bundleIdentifier && !suspended) recorder.launched(*bundleIdentifier);
}

host::Rect SimScreen::bounds() const { return simHost().screenBounds(); }

bool SimBundle::load() {
  simHost().recorder().bundleLoaded(path_);
  simHost().recorder().hostCall("load", id(), nlohmann::json::array({path_}));
  return true;
}

}  // namespace tessel::sim
