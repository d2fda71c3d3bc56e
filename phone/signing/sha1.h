#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace tessel::signing {

using Sha1Digest = std::array<std::uint8_t, 20>;

// Incremental SHA-1 (FIPS 180-4). Code pages and blobs are hashed with it.
class Sha1 {
 public:
  Sha1();
  void update(std::span<const std::uint8_t> bytes);
  Sha1Digest finish();

 private:
  void compressBlock(const std::uint8_t* block);

  std::array<std::uint32_t, 5> state_;
  std::array<std::uint8_t, 64> buffer_{};
  std::size_t buffered_ = 0;
  std::uint64_t totalBytes_ = 0;
};

Sha1Digest sha1(std::span<const std::uint8_t> bytes);

std::string toHex(const Sha1Digest& digest);

}  // namespace tessel::signing
