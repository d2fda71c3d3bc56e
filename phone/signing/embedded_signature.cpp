#include "phone/signing/embedded_signature.h"

#include <array>

#include "phone/signing/byte_order.h"
#include "phone/signing/code_directory.h"

namespace tessel::signing {
namespace {

constexpr std::uint32_t kBlobCount = 2;
constexpr std::uint32_t kCodeDirectoryAt = kSuperBlobHeaderSize + kBlobCount * kBlobIndexEntrySize;

}  // namespace

std::vector<std::uint8_t> emptyRequirements() {
  std::vector<std::uint8_t> blob;
  appendBig32(blob, kRequirementsMagic);
  appendBig32(blob, kEmptyRequirementsSize);
  appendBig32(blob, 0);
  return blob;
}

std::uint32_t embeddedSignatureLength(std::uint32_t codeLimit, std::string_view identifier) {
  return kCodeDirectoryAt + codeDirectoryLayout(codeLimit, identifier).length + kEmptyRequirementsSize;
}

std::vector<std::uint8_t> buildEmbeddedSignature(std::span<const std::uint8_t> code, std::string_view identifier) {
  const std::vector<std::uint8_t> requirements = emptyRequirements();
  // No Info.plist is bound to a dylib: its slot stays zero.
  const std::array<Sha1Digest, kSpecialSlotCount> specialSlots{Sha1Digest{}, sha1(requirements)};
  const std::vector<std::uint8_t> codeDirectory = buildCodeDirectory(code, identifier, specialSlots);

  const auto requirementsAt = static_cast<std::uint32_t>(kCodeDirectoryAt + codeDirectory.size());
  std::vector<std::uint8_t> blob;
  appendBig32(blob, kSuperBlobMagic);
  appendBig32(blob, requirementsAt + static_cast<std::uint32_t>(requirements.size()));
  appendBig32(blob, kBlobCount);
  appendBig32(blob, kCodeDirectoryType);
  appendBig32(blob, kCodeDirectoryAt);
  appendBig32(blob, kRequirementsSlot);
  appendBig32(blob, requirementsAt);
  blob.insert(blob.end(), codeDirectory.begin(), codeDirectory.end());
  blob.insert(blob.end(), requirements.begin(), requirements.end());
  return blob;
}

}  // namespace tessel::signing
