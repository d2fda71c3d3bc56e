#include <benchmark/benchmark.h>

#include <cstdint>
#include <cstring>
#include <opencv2/core.hpp>
#include <random>
#include <vector>

#include "imaging/channel_sums.h"

namespace tessel {
namespace {

// One 3840 x 2160 RGBA picture, the same buffer for every comparison.
constexpr std::size_t kWidth = 3840;
constexpr std::size_t kHeight = 2160;

const std::vector<std::uint8_t>& picture() {
  static const std::vector<std::uint8_t> bytes = [] {
    std::vector<std::uint8_t> b(kWidth * kHeight * 4);
    std::mt19937 random(7);
    for (auto& byte : b) byte = static_cast<std::uint8_t>(random());
    return b;
  }();
  return bytes;
}

void setBytes(benchmark::State& state) {
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * picture().size()));
}

// The sums behind `averageColor`, without the host's copy of the bytes.
void BM_AverageColor(benchmark::State& state) {
  const auto& bytes = picture();
  for (auto _ : state) benchmark::DoNotOptimize(sumFirstThreeBytes(bytes, kWidth, kHeight, kWidth * 4, 4));
  setBytes(state);
}
BENCHMARK(BM_AverageColor)->Unit(benchmark::kMillisecond);

// The same sums a pixel at a time, as they were summed before.
void BM_AverageColorPlainly(benchmark::State& state) {
  const auto& bytes = picture();
  for (auto _ : state) benchmark::DoNotOptimize(sumFirstThreeBytesPlainly(bytes, kWidth, kHeight, kWidth * 4, 4));
  setBytes(state);
}
BENCHMARK(BM_AverageColorPlainly)->Unit(benchmark::kMillisecond);

// The reference: a library's mean of every channel.
void BM_CvMean(benchmark::State& state) {
  auto& bytes = const_cast<std::vector<std::uint8_t>&>(picture());
  const cv::Mat image(static_cast<int>(kHeight), static_cast<int>(kWidth), CV_8UC4, bytes.data());
  for (auto _ : state) benchmark::DoNotOptimize(cv::mean(image));
  setBytes(state);
}
BENCHMARK(BM_CvMean)->Unit(benchmark::kMillisecond);

// Reading the buffer once and doing almost nothing with it: the memory's speed.
void BM_MemoryRead(benchmark::State& state) {
  const auto& bytes = picture();
  using Block = std::uint64_t __attribute__((vector_size(16)));
  for (auto _ : state) {
    Block lanes[4] = {};
    for (std::size_t i = 0; i + sizeof lanes <= bytes.size(); i += sizeof lanes) {
      Block blocks[4];
      std::memcpy(blocks, bytes.data() + i, sizeof blocks);
      for (int lane = 0; lane < 4; ++lane) lanes[lane] ^= blocks[lane];
    }
    benchmark::DoNotOptimize(lanes);
  }
  setBytes(state);
}
BENCHMARK(BM_MemoryRead)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tessel
