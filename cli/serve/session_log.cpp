#include "cli/serve/session_log.h"

#include <algorithm>

namespace tessel::cli::serve {

void SessionLog::add(double at, const std::string& action, const Json& fields) {
  Json event = {{"at", at}, {"do", action}};
  for (const auto& [key, value] : fields.items()) event[key] = value;
  // In time order: a long press is logged from when its finger went down.
  auto later = std::upper_bound(events_.begin(), events_.end(), at,
                                [](double t, const Json& logged) { return t < logged["at"].get<double>(); });
  events_.insert(later, std::move(event));
}

Json SessionLog::scenario(const Json& seedDocument) const {
  Json document = seedDocument;
  document["events"] = Json::array();
  for (const auto& event : events_) document["events"].push_back(event);
  return document;
}

}  // namespace tessel::cli::serve
