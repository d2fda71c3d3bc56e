#include "imaging/channel_sums.h"

#include <algorithm>
#include <cstring>

namespace tessel {
namespace {

std::uint8_t byteAt(const std::vector<std::uint8_t>& bytes, std::size_t offset) {
  return offset < bytes.size() ? bytes[offset] : 0;
}

// Sixteen bytes seen as four 32-bit pixels or eight 16-bit lanes.
using Pixels4 = std::uint32_t __attribute__((vector_size(16)));
using Lanes8 = std::uint16_t __attribute__((vector_size(16)));

// A 16-bit lane takes one byte per group of four pixels: 257 groups of 255
// still fit.
constexpr std::size_t kStepsPerFlush = 256;

// Four-byte pixels of one row, four at a time: bytes 0 and 2 of each pixel
// go to the even and odd lanes of one accumulator, bytes 1 and 3 to another.
void addRowOfFourBytePixels(const std::uint8_t* row, std::size_t width, ChannelSums& sums) {
  const Pixels4 mask = {0x00FF00FFu, 0x00FF00FFu, 0x00FF00FFu, 0x00FF00FFu};
  std::size_t x = 0;
  while (width - x >= 4) {
    Lanes8 zeroAndTwo = {};
    Lanes8 oneAndThree = {};
    const std::size_t steps = std::min(kStepsPerFlush, (width - x) / 4);
    std::size_t s = 0;
    // Two groups of four at a time keep two additions in flight.
    for (; s + 2 <= steps; s += 2, x += 8) {
      Pixels4 first;
      Pixels4 second;
      std::memcpy(&first, row + x * 4, sizeof first);
      std::memcpy(&second, row + x * 4 + 16, sizeof second);
      zeroAndTwo += reinterpret_cast<Lanes8>(first & mask) + reinterpret_cast<Lanes8>(second & mask);
      oneAndThree += reinterpret_cast<Lanes8>((first >> 8) & mask) + reinterpret_cast<Lanes8>((second >> 8) & mask);
    }
    for (; s < steps; ++s, x += 4) {
      Pixels4 pixels;
      std::memcpy(&pixels, row + x * 4, sizeof pixels);
      zeroAndTwo += reinterpret_cast<Lanes8>(pixels & mask);
      oneAndThree += reinterpret_cast<Lanes8>((pixels >> 8) & mask);
    }
    for (int lane = 0; lane < 8; lane += 2) {
      sums.first += zeroAndTwo[lane];
      sums.third += zeroAndTwo[lane + 1];
      sums.second += oneAndThree[lane];
    }
  }
  for (; x < width; ++x) {
    sums.first += row[x * 4];
    sums.second += row[x * 4 + 1];
    sums.third += row[x * 4 + 2];
  }
}

void addRowAtStep(const std::uint8_t* row, std::size_t width, std::size_t step, ChannelSums& sums) {
  for (std::size_t x = 0; x < width; ++x) {
    sums.first += row[x * step];
    sums.second += row[x * step + 1];
    sums.third += row[x * step + 2];
  }
}

void addRowNearTheEnd(const std::vector<std::uint8_t>& bytes, std::size_t rowStart, std::size_t width, std::size_t step,
                      ChannelSums& sums) {
  for (std::size_t x = 0; x < width; ++x) {
    const std::size_t pixel = rowStart + x * step;
    sums.first += byteAt(bytes, pixel);
    sums.second += byteAt(bytes, pixel + 1);
    sums.third += byteAt(bytes, pixel + 2);
  }
}

}  // namespace

ChannelSums sumFirstThreeBytes(const std::vector<std::uint8_t>& bytes, std::size_t width, std::size_t height,
                               std::size_t bytesPerRow, std::size_t step) {
  ChannelSums sums;
  if (width == 0) return sums;
  // The row's last pixel reads three bytes from its start.
  const std::size_t rowReach = (width - 1) * step + 3;
  for (std::size_t row = 0; row < height; ++row) {
    const std::size_t rowStart = row * bytesPerRow;
    const bool inside = rowStart <= bytes.size() && bytes.size() - rowStart >= rowReach;
    if (!inside) {
      addRowNearTheEnd(bytes, rowStart, width, step, sums);
    } else if (step == 4 && bytes.size() - rowStart >= width * 4) {
      addRowOfFourBytePixels(bytes.data() + rowStart, width, sums);
    } else {
      addRowAtStep(bytes.data() + rowStart, width, step, sums);
    }
  }
  return sums;
}

ChannelSums sumFirstThreeBytesPlainly(const std::vector<std::uint8_t>& bytes, std::size_t width, std::size_t height,
                                      std::size_t bytesPerRow, std::size_t step) {
  ChannelSums sums;
  for (std::size_t row = 0; row < height; ++row) addRowNearTheEnd(bytes, row * bytesPerRow, width, step, sums);
  return sums;
}

}  // namespace tessel
