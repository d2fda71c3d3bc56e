#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace tessel::signing {

// The empty requirement set: an ad-hoc signature states no requirements.
std::vector<std::uint8_t> emptyRequirements();

// Length of the super blob buildEmbeddedSignature makes, known before hashing so
// that the Mach-O headers (which are hashed) can describe it.
std::uint32_t embeddedSignatureLength(std::uint32_t codeLimit, std::string_view identifier);

// The super blob: the SHA-1 code directory over `code` and the empty requirements.
std::vector<std::uint8_t> buildEmbeddedSignature(std::span<const std::uint8_t> code, std::string_view identifier);

}  // namespace tessel::signing
