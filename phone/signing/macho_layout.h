#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace tessel::signing {

// What signing needs to know about a thin, little-endian 64-bit Mach-O. The
// `...At` members are file offsets of the header fields that signing rewrites.
struct MachOLayout {
  std::uint32_t cpuType = 0;
  std::uint32_t signatureOffset = 0;  // LC_CODE_SIGNATURE dataoff: where hashing stops
  std::uint32_t signatureSize = 0;
  std::size_t signatureSizeAt = 0;
  std::uint64_t linkeditFileOffset = 0;
  std::uint64_t linkeditFileSize = 0;
  std::uint64_t linkeditVmSize = 0;
  std::size_t linkeditFileSizeAt = 0;
  std::size_t linkeditVmSizeAt = 0;
};

struct SignatureLocation {
  std::uint32_t offset = 0;
  std::uint32_t size = 0;
};

// Where LC_CODE_SIGNATURE says the signature is. Throws InputError naming the
// problem when `image` is not such a file, has no LC_CODE_SIGNATURE or is cut short.
SignatureLocation readSignatureLocation(std::span<const std::uint8_t> image);

// As readSignatureLocation, and also requires the signature to end __LINKEDIT
// and __LINKEDIT to end the file, so that the signature can be replaced.
MachOLayout readMachOLayout(std::span<const std::uint8_t> image);

// The __LINKEDIT vmsize for a new filesize, rounded the way the linker rounded the old one.
std::uint64_t resizedLinkeditVmSize(const MachOLayout& layout, std::uint64_t newFileSize);

}  // namespace tessel::signing
