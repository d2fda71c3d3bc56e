#include "sim/sim_icon.h"

#include "host/hooked_methods.h"
#include "sim/home_screen.h"
#include "sim/sim_class.h"
#include "sim/sim_host.h"

namespace tessel::sim {

host::Ref<host::Application> SimIcon::application() const {
  // Only icon kinds that answer `application` have one.
  if (!respondsToSelector("application")) return {};
  return host::Ref<host::Application>(application_);
}

host::Ref<host::Icon> SimIcon::initWithApplication(const host::Ref<host::Application>& application) {
  application_ = std::dynamic_pointer_cast<SimApplication>(application.shared());
  if (application_) {
    displayIdentifier_ = application_->identifier();
    displayName_ = application_->name();
  }
  // An icon made by hand shows the picture of its application's home-screen icon.
  if (application_ && simHost().homeScreen()) {
    if (auto shown = simHost().homeScreen()->iconFor(application_->identifier())) image_ = shown->image();
  }
  return host::Ref<host::Icon>(self<SimIcon>());
}

void SimIcon::launchFromLocation(std::int64_t location) {
  auto launch = simClass()->method(host::hooked::applicationIconLaunchFromLocation);
  if (launch) launch(host::Ref<host::Icon>(self<SimIcon>()), location);
}

}  // namespace tessel::sim
