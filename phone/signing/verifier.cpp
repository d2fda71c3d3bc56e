#include "phone/signing/verifier.h"

#include <algorithm>
#include <map>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>

#include "phone/signing/byte_order.h"
#include "phone/signing/code_directory.h"
#include "phone/signing/macho_layout.h"
#include "phone/signing/signature_format.h"

namespace tessel::signing {
namespace {

struct Invalid {
  std::string problem;
};

std::string hex32(std::uint32_t value) {
  std::ostringstream text;
  text << "0x" << std::hex << value;
  return text.str();
}

void require(bool holds, std::string problem) {
  if (!holds) throw Invalid{std::move(problem)};
}

void requireValue(std::string_view what, std::uint32_t actual, std::uint32_t expected) {
  require(actual == expected, std::string(what) + " is " + hex32(actual) + ", expected " + hex32(expected));
}

// The super blob's entries by type, each spanning exactly its blob's own length.
std::map<std::uint32_t, std::span<const std::uint8_t>> readSuperBlob(std::span<const std::uint8_t> area) {
  require(area.size() >= kSuperBlobHeaderSize, "the code signature area is too small for a super blob");
  requireValue("super blob magic", readBig32(area, 0), kSuperBlobMagic);
  const std::uint32_t length = readBig32(area, 4);
  const std::uint32_t count = readBig32(area, 8);
  require(length >= kSuperBlobHeaderSize && length <= area.size(),
          "the super blob's length does not fit LC_CODE_SIGNATURE's datasize");
  require(count <= (length - kSuperBlobHeaderSize) / kBlobIndexEntrySize, "the super blob index overruns it");
  const auto superBlob = area.first(length);

  std::map<std::uint32_t, std::span<const std::uint8_t>> blobs;
  std::uint32_t blobsEnd = kSuperBlobHeaderSize + count * kBlobIndexEntrySize;
  for (std::uint32_t i = 0; i < count; ++i) {
    const std::size_t entry = kSuperBlobHeaderSize + std::size_t{i} * kBlobIndexEntrySize;
    const std::uint32_t type = readBig32(superBlob, entry);
    const std::uint32_t offset = readBig32(superBlob, entry + 4);
    const std::string which = "super blob entry " + std::to_string(i);
    require(offset >= kSuperBlobHeaderSize + count * kBlobIndexEntrySize &&
                std::uint64_t{offset} + kBlobHeaderSize <= length,
            which + " points outside the super blob");
    const std::uint32_t blobLength = readBig32(superBlob, offset + 4);
    require(blobLength >= kBlobHeaderSize && std::uint64_t{offset} + blobLength <= length,
            which + " has a blob running past the super blob");
    require(blobs.emplace(type, superBlob.subspan(offset, blobLength)).second, which + " repeats type " + hex32(type));
    blobsEnd = std::max(blobsEnd, offset + blobLength);
  }
  require(blobsEnd == length, "the super blob's length does not match its contents");
  require(blobs.contains(kCodeDirectoryType), "the super blob holds no code directory");
  return blobs;
}

std::string checkIdentifier(std::span<const std::uint8_t> directory, std::uint32_t identOffset) {
  requireValue("code directory identOffset", identOffset, cd::kHeaderSize);
  const auto text = directory.subspan(identOffset);
  const auto terminator = std::ranges::find(text, std::uint8_t{0});
  require(terminator != text.end(), "code directory identifier is not terminated");
  std::string identifier(text.begin(), terminator);
  require(isValidIdentifier(identifier), "code directory identifier is not printable ASCII");
  return identifier;
}

void checkCodeDirectoryFields(std::span<const std::uint8_t> directory, std::uint32_t signatureOffset,
                              Verification& result) {
  require(directory.size() >= cd::kHeaderSize, "the code directory is shorter than its header");
  requireValue("code directory magic", readBig32(directory, cd::kMagic), kCodeDirectoryMagic);
  requireValue("code directory version", readBig32(directory, cd::kVersion), kCodeDirectoryVersion);
  requireValue("code directory flags", readBig32(directory, cd::kFlags), kAdhocFlag);
  requireValue("code directory hash type", directory[cd::kHashType], kSha1HashType);
  requireValue("code directory hash size", directory[cd::kHashSize], kSha1HashSize);
  requireValue("code directory page size (log2)", directory[cd::kPageSizeLog2], kPageSizeLog2);
  requireValue("code directory platform", directory[cd::kPlatform], 0);
  requireValue("code directory spare2", readBig32(directory, cd::kSpare2), 0);
  requireValue("code directory scatterOffset", readBig32(directory, cd::kScatterOffset), 0);
  result.codeLimit = readBig32(directory, cd::kCodeLimit);
  requireValue("code directory codeLimit (the signature's file offset)", result.codeLimit, signatureOffset);
  result.codeSlots = readBig32(directory, cd::kCodeSlots);
  requireValue("code directory nCodeSlots", result.codeSlots, codeSlotCount(result.codeLimit));
  requireValue("code directory nSpecialSlots", readBig32(directory, cd::kSpecialSlots), kSpecialSlotCount);

  result.identifier = checkIdentifier(directory, readBig32(directory, cd::kIdentOffset));
  const CodeDirectoryLayout layout = codeDirectoryLayout(result.codeLimit, result.identifier);
  requireValue("code directory hashOffset", readBig32(directory, cd::kHashOffset), layout.hashOffset);
  requireValue("code directory length", readBig32(directory, cd::kLength), layout.length);
}

const char* specialSlotName(std::uint32_t slot) { return slot == kRequirementsSlot ? "requirements" : "Info.plist"; }

void checkSpecialSlots(std::span<const std::uint8_t> directory,
                       const std::map<std::uint32_t, std::span<const std::uint8_t>>& blobs) {
  const std::uint32_t hashOffset = readBig32(directory, cd::kHashOffset);
  for (const auto& [type, blob] : blobs) {
    require(type <= kSpecialSlotCount, "super blob type " + hex32(type) + " has no special slot");
  }
  for (std::uint32_t slot = kSpecialSlotCount; slot >= 1; --slot) {
    const auto stored = directory.subspan(hashOffset - slot * kSha1HashSize, kSha1HashSize);
    const auto blob = blobs.find(slot);
    const Sha1Digest expected = blob == blobs.end() ? Sha1Digest{} : sha1(blob->second);
    require(std::ranges::equal(stored, expected),
            "special slot -" + std::to_string(slot) + " (" + specialSlotName(slot) + ") does not match its hash");
  }
}

void checkPages(std::span<const std::uint8_t> directory, std::span<const std::uint8_t> code) {
  const std::uint32_t hashOffset = readBig32(directory, cd::kHashOffset);
  for (std::uint32_t page = 0; page < codeSlotCount(static_cast<std::uint32_t>(code.size())); ++page) {
    const std::size_t begin = std::size_t{page} * kPageSize;
    const std::size_t size = std::min<std::size_t>(kPageSize, code.size() - begin);
    const auto stored = directory.subspan(hashOffset + page * kSha1HashSize, kSha1HashSize);
    require(std::ranges::equal(stored, sha1(code.subspan(begin, size))),
            "page " + std::to_string(page) + " (bytes " + std::to_string(begin) + "-" +
                std::to_string(begin + size - 1) + ") does not match its hash");
  }
}

}  // namespace

Verification verifyImage(std::span<const std::uint8_t> image) {
  const SignatureLocation location = readSignatureLocation(image);
  Verification result;
  try {
    const auto blobs = readSuperBlob(image.subspan(location.offset, location.size));
    const auto directory = blobs.at(kCodeDirectoryType);
    checkCodeDirectoryFields(directory, location.offset, result);
    result.cdHash = sha1(directory);
    checkSpecialSlots(directory, blobs);
    checkPages(directory, image.first(location.offset));
    result.valid = true;
  } catch (const Invalid& invalid) {
    result.problem = invalid.problem;
  }
  return result;
}

}  // namespace tessel::signing
