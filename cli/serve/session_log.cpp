#include "cli/serve/session_log.h"

namespace tessel::cli::serve {

void SessionLog::add(double at, const std::string& action, const Json& fields) {
  Json event = {{"at", at}, {"do", action}};
  for (const auto& [key, value] : fields.items()) event[key] = value;
  events_.push_back(std::move(event));
}

Json SessionLog::scenario(const Json& seedDocument) const {
  Json document = seedDocument;
  document["events"] = Json::array();
  for (const auto& event : events_) document["events"].push_back(event);
  return document;
}

}  // namespace tessel::cli::serve
