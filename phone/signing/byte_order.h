#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

// Fixed-width field access: Mach-O headers are little-endian, signature blobs big-endian.
namespace tessel::signing {

inline std::uint32_t readLittle32(std::span<const std::uint8_t> bytes, std::size_t at) {
  return std::uint32_t{bytes[at]} | (std::uint32_t{bytes[at + 1]} << 8) | (std::uint32_t{bytes[at + 2]} << 16) |
         (std::uint32_t{bytes[at + 3]} << 24);
}

inline std::uint64_t readLittle64(std::span<const std::uint8_t> bytes, std::size_t at) {
  return std::uint64_t{readLittle32(bytes, at)} | (std::uint64_t{readLittle32(bytes, at + 4)} << 32);
}

inline void writeLittle32(std::span<std::uint8_t> bytes, std::size_t at, std::uint32_t value) {
  for (std::size_t i = 0; i < 4; ++i) bytes[at + i] = std::uint8_t(value >> (8 * i));
}

inline void writeLittle64(std::span<std::uint8_t> bytes, std::size_t at, std::uint64_t value) {
  writeLittle32(bytes, at, std::uint32_t(value));
  writeLittle32(bytes, at + 4, std::uint32_t(value >> 32));
}

inline std::uint32_t readBig32(std::span<const std::uint8_t> bytes, std::size_t at) {
  return (std::uint32_t{bytes[at]} << 24) | (std::uint32_t{bytes[at + 1]} << 16) | (std::uint32_t{bytes[at + 2]} << 8) |
         std::uint32_t{bytes[at + 3]};
}

inline void appendBig32(std::vector<std::uint8_t>& out, std::uint32_t value) {
  for (int shift = 24; shift >= 0; shift -= 8) out.push_back(std::uint8_t(value >> shift));
}

}  // namespace tessel::signing
