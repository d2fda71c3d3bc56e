#pragma once

#include <array>
#include <cstdint>

// The tags by which the panel's views are found again in the key window.
namespace tessel::tag {

inline constexpr std::int64_t kIconCopy = 1333;
inline constexpr std::int64_t kArrow = 1334;  // also the panel's unshown arrow-strip blur
inline constexpr std::int64_t kSwept = 1336;
inline constexpr std::int64_t kDimmingBlur = 1335;
inline constexpr std::int64_t kPanelBody = 1337;  // also the light panel's whitening layer

// Every tag that the teardown sweeps from the window, in the order it tests them.
inline constexpr std::array<std::int64_t, 5> kAllSwept{kPanelBody, kSwept, kDimmingBlur, kArrow, kIconCopy};

}  // namespace tessel::tag
