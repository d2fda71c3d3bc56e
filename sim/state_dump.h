#pragma once

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

}  // namespace tessel::sim
