#include <cstdint>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "imaging/channel_sums.h"

namespace tessel {
namespace {

// Random images of every shape the stored formats give: pixels of 1 to 8
// bytes, rows padded or not, data cut short of the last row or not.
TEST(ChannelSums, EqualThePlainLoopOnRandomImagesStridesAndPadding) {
  std::mt19937 random(20261123);
  auto pick = [&](int low, int high) { return std::uniform_int_distribution<int>(low, high)(random); };
  for (int trial = 0; trial < 2000; ++trial) {
    const std::size_t step = trial % 3 == 0 ? 4 : static_cast<std::size_t>(pick(0, 8));
    const std::size_t width = static_cast<std::size_t>(pick(0, 70));
    const std::size_t height = static_cast<std::size_t>(pick(0, 9));
    const std::size_t bytesPerRow = width * step + static_cast<std::size_t>(pick(0, 2) == 0 ? pick(0, 13) : 0);
    std::size_t size = bytesPerRow * height;
    if (pick(0, 3) == 0) size = size > 0 ? static_cast<std::size_t>(pick(0, static_cast<int>(size))) : 0;
    std::vector<std::uint8_t> bytes(size);
    for (auto& b : bytes) b = static_cast<std::uint8_t>(pick(0, 255));
    SCOPED_TRACE(testing::Message() << "width " << width << " height " << height << " row " << bytesPerRow << " step "
                                    << step << " size " << size);
    ASSERT_EQ(sumFirstThreeBytes(bytes, width, height, bytesPerRow, step),
              sumFirstThreeBytesPlainly(bytes, width, height, bytesPerRow, step));
  }
}

TEST(ChannelSums, FourBytePixelsWrapPastTheLastSumThatFits) {
  // 16,884,000 bright pixels, past the 16,843,009 whose sums of 255 still
  // fit in 32 bits.
  const std::size_t width = 4200;
  const std::size_t height = 4020;
  std::vector<std::uint8_t> bytes(width * height * 4, 255);
  const auto sums = sumFirstThreeBytes(bytes, width, height, width * 4, 4);
  const auto wrapped = static_cast<std::uint32_t>((std::uint64_t{width} * height * 255) % (std::uint64_t{1} << 32));
  EXPECT_GT(std::uint64_t{width} * height, 16843009u);
  EXPECT_EQ(sums, (ChannelSums{wrapped, wrapped, wrapped}));
}

TEST(ChannelSums, PaddingAndTheFourthByteAreNeverRead) {
  // Two rows of two pixels, each row padded by 8 bytes of 255.
  std::vector<std::uint8_t> bytes{1, 2, 3, 255, 4,  5,  6,  255, 255, 255, 255, 255, 255, 255, 255, 255,
                                  7, 8, 9, 255, 10, 11, 12, 255, 255, 255, 255, 255, 255, 255, 255, 255};
  EXPECT_EQ(sumFirstThreeBytes(bytes, 2, 2, 16, 4), (ChannelSums{22, 26, 30}));
}

}  // namespace
}  // namespace tessel
