#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "phone/signing/sha1.h"
#include "phone/signing/signature_format.h"

namespace tessel::signing {

// Where the parts of a code directory sit for a given code limit and identifier.
struct CodeDirectoryLayout {
  std::uint32_t codeSlots;
  std::uint32_t identOffset;
  std::uint32_t hashOffset;  // slot 0; special slot i lies i hashes before it
  std::uint32_t length;
};

std::uint32_t codeSlotCount(std::uint32_t codeLimit);
CodeDirectoryLayout codeDirectoryLayout(std::uint32_t codeLimit, std::string_view identifier);

// Printable ASCII without spaces, as bundle-style identifiers are.
bool isValidIdentifier(std::string_view identifier);

// Hashes `code` (everything up to the code limit) page by page. `specialSlots[i]`
// fills special slot i + 1.
std::vector<std::uint8_t> buildCodeDirectory(std::span<const std::uint8_t> code, std::string_view identifier,
                                             std::span<const Sha1Digest, kSpecialSlotCount> specialSlots);

}  // namespace tessel::signing
