#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace tessel::signing {

inline constexpr std::string_view kDefaultIdentifier = "com.orvalt.tessellite";

// Returns `image` with its signature replaced by an ad-hoc SHA-1 one, and the
// LC_CODE_SIGNATURE and __LINKEDIT sizes updated to match. The same input always
// gives the same bytes. Throws InputError when the image cannot be signed.
std::vector<std::uint8_t> signImage(std::span<const std::uint8_t> image,
                                    std::string_view identifier = kDefaultIdentifier);

}  // namespace tessel::signing
