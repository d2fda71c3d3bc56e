#pragma once

#include <string>
#include <vector>

#include "cli/json_reader.h"

namespace tessel::cli::serve {

// Every event the server performed on the phone, at the simulated time it
// performed it (a long press from when its finger went down), in time
// order and in the scenario's event format: played by `tessel-sim run`
// after the same phone, they bring it to the same state.
class SessionLog {
 public:
  // `fields` holds the event's own keys besides `at` and `do`.
  void add(double at, const std::string& action, const Json& fields = Json::object());
  const std::vector<Json>& events() const { return events_; }

  // The scenario document the phone was made from, its own events replaced
  // by the session's.
  Json scenario(const Json& seedDocument) const;

 private:
  std::vector<Json> events_;
};

}  // namespace tessel::cli::serve
