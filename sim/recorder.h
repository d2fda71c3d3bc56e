#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include <nlohmann/json.hpp>

#include "sim/virtual_clock.h"

namespace tessel::sim {

// What the host was asked to do, kept so that a run can be checked from
// outside: the trace (one JSON object per line) and the lists of the dump.
class Recorder {
 public:
  explicit Recorder(const VirtualClock& clock) : clock_(clock) {}

  void event(std::string_view what, nlohmann::json fields = nlohmann::json::object());
  void hookInstalled(const std::string& className, std::string_view selector);
  void hostCall(std::string_view call, const std::string& target, nlohmann::json args);
  void dispatch(std::string_view queue, double due);
  void animation(const nlohmann::json& record);
  // Appended to the dump's lists; the call that led there is traced by its caller.
  void launched(const std::string& bundleIdentifier) { launches_.push_back(bundleIdentifier); }
  void alert(const nlohmann::json& alert) { alerts_.push_back(alert); }
  void bundleLoaded(const std::string& path) { bundlesLoaded_.push_back(path); }

  // From now on each trace line goes to `sink` as it is made instead of
  // being kept; the lines kept so far go first.
  void streamTrace(std::function<void(const nlohmann::json&)> sink);
  const std::vector<nlohmann::json>& trace() const { return trace_; }
  const std::vector<nlohmann::json>& hostCalls() const { return hostCalls_; }
  const std::vector<std::string>& launches() const { return launches_; }
  const std::vector<nlohmann::json>& alerts() const { return alerts_; }
  const std::vector<std::string>& hooks() const { return hooks_; }
  const std::vector<std::string>& bundlesLoaded() const { return bundlesLoaded_; }

 private:
  void line(std::string_view kind, nlohmann::json fields);

  const VirtualClock& clock_;
  std::vector<nlohmann::json> trace_;
  std::function<void(const nlohmann::json&)> traceSink_;
  std::vector<nlohmann::json> hostCalls_;
  std::vector<std::string> launches_;
  std::vector<nlohmann::json> alerts_;
  std::vector<std::string> hooks_;
  std::vector<std::string> bundlesLoaded_;
};

}  // namespace tessel::sim
