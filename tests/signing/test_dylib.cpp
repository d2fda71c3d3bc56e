#include "tests/signing/test_dylib.h"

#include <cstring>
#include <stdexcept>

namespace tessel::signing::testing {
namespace {

constexpr std::size_t kTextCommandAt = 32;
constexpr std::size_t kLinkeditCommandAt = kTextCommandAt + 72;
constexpr std::size_t kSignatureCommandAt = kLinkeditCommandAt + 72;

void put32(std::vector<std::uint8_t>& bytes, std::size_t at, std::uint32_t value) {
  for (std::size_t i = 0; i < 4; ++i) bytes[at + i] = std::uint8_t(value >> (8 * i));
}

void put64(std::vector<std::uint8_t>& bytes, std::size_t at, std::uint64_t value) {
  put32(bytes, at, std::uint32_t(value));
  put32(bytes, at + 4, std::uint32_t(value >> 32));
}

std::uint32_t get32(std::span<const std::uint8_t> bytes, std::size_t at) {
  std::uint32_t value = 0;
  for (std::size_t i = 0; i < 4; ++i) value |= std::uint32_t{bytes[at + i]} << (8 * i);
  return value;
}

std::uint64_t get64(std::span<const std::uint8_t> bytes, std::size_t at) {
  return get32(bytes, at) | (std::uint64_t{get32(bytes, at + 4)} << 32);
}

std::uint64_t roundUp(std::uint64_t value, std::uint64_t alignment) {
  return (value + alignment - 1) / alignment * alignment;
}

void putSegment(std::vector<std::uint8_t>& bytes, std::size_t at, const char* name, std::uint64_t vmAddr,
                std::uint64_t vmSize, std::uint64_t fileOffset, std::uint64_t fileSize, std::uint32_t protection) {
  put32(bytes, at, 0x19);  // LC_SEGMENT_64
  put32(bytes, at + 4, 72);
  std::memcpy(bytes.data() + at + 8, name, std::strlen(name));
  put64(bytes, at + 24, vmAddr);
  put64(bytes, at + 32, vmSize);
  put64(bytes, at + 40, fileOffset);
  put64(bytes, at + 48, fileSize);
  put32(bytes, at + 56, protection);
  put32(bytes, at + 60, protection);
}

}  // namespace

std::vector<std::uint8_t> makeTestDylib(const TestDylibShape& shape) {
  if (shape.textBytes < kTestDylibHeadersEnd) throw std::invalid_argument("__TEXT must hold the headers");
  const std::uint64_t linkeditOffset = shape.textBytes;
  const std::uint64_t signatureOffset = roundUp(linkeditOffset + shape.linkeditDataBytes, 16);
  const std::uint64_t fileSize = signatureOffset + shape.reservedSignatureBytes;
  const std::uint64_t linkeditFileSize = fileSize - linkeditOffset;
  const std::uint64_t linkeditVmAddr = roundUp(shape.textBytes, 0x4000);

  // Every byte distinct enough that each page hashes differently.
  std::vector<std::uint8_t> bytes(fileSize);
  std::uint32_t state = 0x2545f491;
  for (auto& byte : bytes) {
    state = state * 1664525u + 1013904223u;
    byte = std::uint8_t(state >> 24);
  }
  std::memset(bytes.data(), 0, kTestDylibHeadersEnd);

  put32(bytes, 0, 0xfeedfacf);  // MH_MAGIC_64
  put32(bytes, 4, 0x0100000c);  // CPU_TYPE_ARM64
  put32(bytes, 12, 6);          // MH_DYLIB
  put32(bytes, 16, shape.withCodeSignatureCommand ? 3 : 2);
  put32(bytes, 20, shape.withCodeSignatureCommand ? 72 + 72 + 16 : 72 + 72);
  put32(bytes, 24, 0x00100085);  // NOUNDEFS DYLDLINK TWOLEVEL NO_REEXPORTED_DYLIBS
  putSegment(bytes, kTextCommandAt, "__TEXT", 0, linkeditVmAddr, 0, shape.textBytes, 5);
  putSegment(bytes, kLinkeditCommandAt, "__LINKEDIT", linkeditVmAddr,
             shape.linkeditVmSizeRounded ? roundUp(linkeditFileSize, 0x4000) : linkeditFileSize, linkeditOffset,
             linkeditFileSize, 1);
  if (shape.withCodeSignatureCommand) {
    put32(bytes, kSignatureCommandAt, 0x1d);  // LC_CODE_SIGNATURE
    put32(bytes, kSignatureCommandAt + 4, 16);
    put32(bytes, kSignatureCommandAt + 8, std::uint32_t(signatureOffset));
    put32(bytes, kSignatureCommandAt + 12, shape.reservedSignatureBytes);
  }
  return bytes;
}

DylibFields readDylibFields(std::span<const std::uint8_t> image) {
  return DylibFields{get32(image, kSignatureCommandAt + 8), get32(image, kSignatureCommandAt + 12),
                     get64(image, kLinkeditCommandAt + 40), get64(image, kLinkeditCommandAt + 48),
                     get64(image, kLinkeditCommandAt + 32)};
}

std::vector<std::uint8_t> growLinkeditData(std::span<const std::uint8_t> image, std::uint32_t bytes) {
  const DylibFields fields = readDylibFields(image);
  std::vector<std::uint8_t> grown(image.begin(), image.begin() + fields.signatureOffset);
  grown.insert(grown.end(), bytes, 0x5a);
  grown.insert(grown.end(), image.begin() + fields.signatureOffset, image.end());
  put32(grown, kSignatureCommandAt + 8, fields.signatureOffset + bytes);
  put64(grown, kLinkeditCommandAt + 48, fields.linkeditFileSize + bytes);
  put64(grown, kLinkeditCommandAt + 32, fields.linkeditVmSize + bytes);
  return grown;
}

}  // namespace tessel::signing::testing
