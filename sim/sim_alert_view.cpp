#include "sim/sim_alert_view.h"

#include "sim/sim_host.h"

namespace tessel::sim {

namespace {

nlohmann::json text(const host::String& s) { return s ? nlohmann::json(*s) : nlohmann::json(nullptr); }

}  // namespace

void SimAlertView::show() {
  nlohmann::json alert = {{"title", text(title_)}, {"message", text(message_)}, {"cancel", text(cancel_)}};
  simHost().recorder().alert(alert);
  simHost().recorder().hostCall("show", id(),
                                nlohmann::json::array({alert["title"], alert["message"], alert["cancel"]}));
}

}  // namespace tessel::sim
