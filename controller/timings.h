#pragma once

#include <cstdint>

namespace tessel::timing {

// The icon copy fades in (opening) and out (closing) this long after the panel starts moving.
inline constexpr std::int64_t kIconCopyFadeDelayNanoseconds = 200000000;
inline constexpr double kIconCopyFade = 0.25;

}  // namespace tessel::timing
