#pragma once

#include <cmath>
#include <cstdint>
#include <limits>

namespace tessel {

// A coordinate truncated toward zero into 32 bits, saturating at the ends
// and reading NaN as 0, as the phone's processor converts.
inline std::int32_t truncateToInt32(double value) {
  if (std::isnan(value)) return 0;
  if (value >= static_cast<double>(std::numeric_limits<std::int32_t>::max()))
    return std::numeric_limits<std::int32_t>::max();
  if (value <= static_cast<double>(std::numeric_limits<std::int32_t>::min()))
    return std::numeric_limits<std::int32_t>::min();
  return static_cast<std::int32_t>(value);
}

}  // namespace tessel
