#include "imaging/channel_sums.h"

#include <algorithm>
#include <cstring>

namespace tessel {
namespace {

std::uint8_t byteAt(const std::vector<std::uint8_t>& bytes, std::size_t offset) {
  return offset < bytes.size() ? bytes[offset] : 0;
}

// A 16-bit lane takes one byte per group of pixels: 257 groups of 255
// still fit.
constexpr std::size_t kStepsPerFlush = 256;

// Vectors of four-byte pixels seen as 16-bit lanes, 16 or 32 bytes wide.
struct Vectors16 {
  using Pixels = std::uint32_t __attribute__((vector_size(16)));
  using Lanes = std::uint16_t __attribute__((vector_size(16)));
};
struct Vectors32 {
  using Pixels = std::uint32_t __attribute__((vector_size(32)));
  using Lanes = std::uint16_t __attribute__((vector_size(32)));
};

// Four-byte pixels of one row, a vector of them at a time: bytes 0 and 2 of
// each pixel go to the even and odd 16-bit lanes of one accumulator, bytes
// 1 and 3 to another.
template <class Vectors>
__attribute__((always_inline)) inline void addFourBytePixels(const std::uint8_t* row, std::size_t width,
                                                             ChannelSums& sums) {
  using Pixels = typename Vectors::Pixels;
  using Lanes = typename Vectors::Lanes;
  constexpr std::size_t kBytes = sizeof(Pixels);
  constexpr std::size_t kPixels = kBytes / 4;
  Pixels mask;
  for (std::size_t i = 0; i < kPixels; ++i) mask[i] = 0x00FF00FFu;
  std::size_t x = 0;
  while (width - x >= kPixels) {
    Lanes zeroAndTwo = {};
    Lanes oneAndThree = {};
    const std::size_t steps = std::min(kStepsPerFlush, (width - x) / kPixels);
    std::size_t s = 0;
    // Two vectors at a time keep two additions in flight.
    for (; s + 2 <= steps; s += 2, x += 2 * kPixels) {
      Pixels first;
      Pixels second;
      std::memcpy(&first, row + x * 4, sizeof first);
      std::memcpy(&second, row + x * 4 + kBytes, sizeof second);
      zeroAndTwo += reinterpret_cast<Lanes>(first & mask) + reinterpret_cast<Lanes>(second & mask);
      oneAndThree += reinterpret_cast<Lanes>((first >> 8) & mask) + reinterpret_cast<Lanes>((second >> 8) & mask);
    }
    for (; s < steps; ++s, x += kPixels) {
      Pixels pixels;
      std::memcpy(&pixels, row + x * 4, sizeof pixels);
      zeroAndTwo += reinterpret_cast<Lanes>(pixels & mask);
      oneAndThree += reinterpret_cast<Lanes>((pixels >> 8) & mask);
    }
    for (std::size_t lane = 0; lane < 2 * kPixels; lane += 2) {
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

#if defined(__x86_64__)
// Where the processor has them, 32-byte vectors halve the work per byte;
// the program is built for every x86-64, so it asks at run time.
__attribute__((target("avx2"))) void addRowOfFourBytePixelsWide(const std::uint8_t* row, std::size_t width,
                                                                ChannelSums& sums) {
  addFourBytePixels<Vectors32>(row, width, sums);
}

bool hasWideVectors() {
  static const bool has = __builtin_cpu_supports("avx2");
  return has;
}

void addRowOfFourBytePixels(const std::uint8_t* row, std::size_t width, ChannelSums& sums) {
  if (hasWideVectors())
    addRowOfFourBytePixelsWide(row, width, sums);
  else
    addFourBytePixels<Vectors16>(row, width, sums);
}
#else
void addRowOfFourBytePixels(const std::uint8_t* row, std::size_t width, ChannelSums& sums) {
  addFourBytePixels<Vectors16>(row, width, sums);
}
#endif

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
