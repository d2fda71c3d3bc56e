#include "phone/signing/code_directory.h"

#include <algorithm>

#include "phone/signing/byte_order.h"

namespace tessel::signing {

std::uint32_t codeSlotCount(std::uint32_t codeLimit) {
  return static_cast<std::uint32_t>((std::uint64_t{codeLimit} + kPageSize - 1) / kPageSize);
}

CodeDirectoryLayout codeDirectoryLayout(std::uint32_t codeLimit, std::string_view identifier) {
  CodeDirectoryLayout layout;
  layout.codeSlots = codeSlotCount(codeLimit);
  layout.identOffset = cd::kHeaderSize;
  layout.hashOffset = layout.identOffset + static_cast<std::uint32_t>(identifier.size()) + 1 +
                      kSpecialSlotCount * std::uint32_t{kSha1HashSize};
  layout.length = layout.hashOffset + layout.codeSlots * std::uint32_t{kSha1HashSize};
  return layout;
}

bool isValidIdentifier(std::string_view identifier) {
  return !identifier.empty() && std::ranges::all_of(identifier, [](char c) { return c > ' ' && c <= '~'; });
}

std::vector<std::uint8_t> buildCodeDirectory(std::span<const std::uint8_t> code, std::string_view identifier,
                                             std::span<const Sha1Digest, kSpecialSlotCount> specialSlots) {
  const auto codeLimit = static_cast<std::uint32_t>(code.size());
  const CodeDirectoryLayout layout = codeDirectoryLayout(codeLimit, identifier);

  std::vector<std::uint8_t> blob;
  blob.reserve(layout.length);
  appendBig32(blob, kCodeDirectoryMagic);
  appendBig32(blob, layout.length);
  appendBig32(blob, kCodeDirectoryVersion);
  appendBig32(blob, kAdhocFlag);
  appendBig32(blob, layout.hashOffset);
  appendBig32(blob, layout.identOffset);
  appendBig32(blob, kSpecialSlotCount);
  appendBig32(blob, layout.codeSlots);
  appendBig32(blob, codeLimit);
  blob.push_back(kSha1HashSize);
  blob.push_back(kSha1HashType);
  blob.push_back(0);  // platform: not a platform binary
  blob.push_back(kPageSizeLog2);
  appendBig32(blob, 0);  // spare2
  appendBig32(blob, 0);  // scatterOffset: no scatter vector

  blob.insert(blob.end(), identifier.begin(), identifier.end());
  blob.push_back(0);

  // Special slots are stored in descending order, ending just before slot 0.
  for (std::uint32_t slot = kSpecialSlotCount; slot >= 1; --slot) {
    const Sha1Digest& digest = specialSlots[slot - 1];
    blob.insert(blob.end(), digest.begin(), digest.end());
  }
  for (std::uint32_t page = 0; page < layout.codeSlots; ++page) {
    const std::size_t begin = std::size_t{page} * kPageSize;
    const Sha1Digest digest = sha1(code.subspan(begin, std::min<std::size_t>(kPageSize, code.size() - begin)));
    blob.insert(blob.end(), digest.begin(), digest.end());
  }
  return blob;
}

}  // namespace tessel::signing
