#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace tessel::signing::testing {

// A minimal arm64 MH_DYLIB as a linker leaves it: __TEXT from offset 0 (headers
// included), __LINKEDIT holding some data and then the reserved signature space.
struct TestDylibShape {
  std::uint32_t textBytes = 3 * 4096 + 512;
  std::uint32_t linkeditDataBytes = 200;
  std::uint32_t reservedSignatureBytes = 416;
  bool linkeditVmSizeRounded = false;  // false: vmsize == filesize, as lld leaves it
  bool withCodeSignatureCommand = true;
};

std::vector<std::uint8_t> makeTestDylib(const TestDylibShape& shape = {});

// Field positions and values, read the way a loader reads them (little-endian).
struct DylibFields {
  std::uint32_t signatureOffset;
  std::uint32_t signatureSize;
  std::uint64_t linkeditFileOffset;
  std::uint64_t linkeditFileSize;
  std::uint64_t linkeditVmSize;
};
DylibFields readDylibFields(std::span<const std::uint8_t> image);

// Grows __LINKEDIT's data by `bytes` before the signature, as a relink with more symbols would.
std::vector<std::uint8_t> growLinkeditData(std::span<const std::uint8_t> image, std::uint32_t bytes);

// Where the test dylib's load commands end; bytes after it and before the signature are plain content.
inline constexpr std::size_t kTestDylibHeadersEnd = 32 + 72 + 72 + 16;
// The __TEXT segment's vmaddr field: hashed, but not read by the signer.
inline constexpr std::size_t kTestDylibTextVmAddrAt = 32 + 24;

}  // namespace tessel::signing::testing
