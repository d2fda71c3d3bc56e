#pragma once

#include <cstdint>
#include <string_view>

namespace tessel::sim {

// The platform's readings of a string as a boolean and as an integer.
// Both skip leading white space and an optional sign. `boolValue` then skips
// zeros and is true when the next character is Y, y, T, t or a digit 1-9.
// `intValue` reads decimal digits, saturating at the 32-bit limits; 0 when
// there are none.
bool stringBoolValue(std::string_view text);
std::int32_t stringIntValue(std::string_view text);

}  // namespace tessel::sim
