#pragma once

#include <string_view>

namespace tessel::fuzz {

// True for "PLACE: MESSAGE" where PLACE is a path into the scenario
// document ("scenario", "events[3].point", "apps[\"com.x y\"].icon", "[0]")
// and MESSAGE is not empty.
bool isLocatedMessage(std::string_view text);

}  // namespace tessel::fuzz
