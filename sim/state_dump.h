#pragma once

#include <functional>

#include <nlohmann/json.hpp>

namespace tessel {
class Library;
}

namespace tessel::sim {

class SimHost;

// The state dump of the public scenario contract: the library's shared
// state and controller, the views of the key window (and those the library
// still names), the panel, the animations and what the host recorded.
nlohmann::json stateDump(SimHost& host, const Library* library);
// The same without its animations, which grow with the length of a run.
nlohmann::json stateDumpWithoutAnimations(SimHost& host, const Library* library);
// The dump's animations, one at a time, in order.
void forEachAnimation(const SimHost& host, const std::function<void(const nlohmann::json&)>& visit);

}  // namespace tessel::sim
