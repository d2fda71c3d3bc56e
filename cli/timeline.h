#pragma once

#include <vector>

#include <nlohmann/json.hpp>

namespace tessel::cli {

// The animations of a state dump and the events of a trace as a Chrome
// trace-event document: one complete event per animation, in microseconds,
// on a track per target and property (a second track where two overlap).
nlohmann::json makeTimeline(const nlohmann::json& dump, const std::vector<nlohmann::json>& trace);

}  // namespace tessel::cli
