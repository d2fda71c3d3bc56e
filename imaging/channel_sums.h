#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace tessel {

// The sums of the first three stored bytes of every pixel, in 32 bits that
// wrap, as the device sums them.
struct ChannelSums {
  std::uint32_t first = 0;
  std::uint32_t second = 0;
  std::uint32_t third = 0;
  friend bool operator==(const ChannelSums&, const ChannelSums&) = default;
};

// Pixels are `step` bytes apart within a row and rows `bytesPerRow` apart;
// a row's padding is never read, and a byte past the end of `bytes` reads
// as 0 (the last pixels of a narrow format reach a little beyond the data).
ChannelSums sumFirstThreeBytes(const std::vector<std::uint8_t>& bytes, std::size_t width, std::size_t height,
                               std::size_t bytesPerRow, std::size_t step);

// The same, one pixel at a time: the reference the fast paths must equal.
ChannelSums sumFirstThreeBytesPlainly(const std::vector<std::uint8_t>& bytes, std::size_t width, std::size_t height,
                                      std::size_t bytesPerRow, std::size_t step);

}  // namespace tessel
