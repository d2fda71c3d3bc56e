#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "phone/signing/sha1.h"

namespace tessel::signing {

struct Verification {
  bool valid = false;
  std::string problem;  // the first check that failed, when not valid
  std::string identifier;
  std::uint32_t codeLimit = 0;
  std::uint32_t codeSlots = 0;
  Sha1Digest cdHash{};  // SHA-1 of the whole code directory blob
};

// Checks an ad-hoc SHA-1 signature of the kind signImage writes: the super blob,
// every field of the code directory, each special slot and each page hash.
// Throws InputError when `image` is not a readable Mach-O with LC_CODE_SIGNATURE.
Verification verifyImage(std::span<const std::uint8_t> image);

}  // namespace tessel::signing
