// PNG files load as they are stored: RGBA or RGB bytes, grey and palette
// expanded, 16-bit channels reduced, with clear errors for bad files.

#include <png.h>

#include <sys/stat.h>

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <future>
#include <thread>

#include <gtest/gtest.h>

#include "sim/png_loader.h"

namespace tessel::sim::testing {
namespace {

namespace fs = std::filesystem;
using Bytes = std::vector<std::uint8_t>;

struct PngPicture {
  PngPicture(png_uint_32 w, png_uint_32 h, int type, int depth, Bytes rows, std::vector<png_color> colors = {},
             Bytes alphas = {})
      : width(w),
        height(h),
        colorType(type),
        bitDepth(depth),
        pixels(std::move(rows)),
        palette(std::move(colors)),
        transparency(std::move(alphas)) {}
  png_uint_32 width;
  png_uint_32 height;
  int colorType;
  int bitDepth;
  Bytes pixels;  // rows as libpng takes them (16-bit samples big-endian)
  std::vector<png_color> palette;
  Bytes transparency;
};

// Writes a PNG with libpng; false if libpng refused.
bool writePng(const std::string& path, const PngPicture& picture) {
  FILE* file = std::fopen(path.c_str(), "wb");
  if (!file) return false;
  png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
  png_infop info = png_create_info_struct(png);
  if (setjmp(png_jmpbuf(png))) {
    png_destroy_write_struct(&png, &info);
    std::fclose(file);
    return false;
  }
  png_init_io(png, file);
  png_set_IHDR(png, info, picture.width, picture.height, picture.bitDepth, picture.colorType, PNG_INTERLACE_NONE,
               PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
  if (!picture.palette.empty())
    png_set_PLTE(png, info, picture.palette.data(), static_cast<int>(picture.palette.size()));
  if (!picture.transparency.empty()) {
    png_set_tRNS(png, info, picture.transparency.data(), static_cast<int>(picture.transparency.size()), nullptr);
  }
  png_write_info(png, info);
  std::size_t rowBytes = picture.pixels.size() / picture.height;
  for (png_uint_32 y = 0; y < picture.height; ++y) {
    png_write_row(png, picture.pixels.data() + y * rowBytes);
  }
  png_write_end(png, nullptr);
  png_destroy_write_struct(&png, &info);
  std::fclose(file);
  return true;
}

class PngLoader : public ::testing::Test {
 protected:
  void SetUp() override {
    dir_ = fs::temp_directory_path() /
           ("tessel-png-" + std::string(::testing::UnitTest::GetInstance()->current_test_info()->name()));
    fs::create_directories(dir_);
  }
  void TearDown() override { fs::remove_all(dir_); }

  PngLoad load(const PngPicture& picture) {
    std::string path = (dir_ / "image.png").string();
    EXPECT_TRUE(writePng(path, picture));
    return loadPng(path);
  }
  void expectImage(const PngLoad& loaded, PixelLayout layout, std::size_t bitsPerPixel, const Bytes& bytes) {
    ASSERT_TRUE(loaded.image) << loaded.error;
    EXPECT_EQ(loaded.image->layout(), layout);
    EXPECT_EQ(loaded.image->bitsPerPixel(), bitsPerPixel);
    EXPECT_EQ(loaded.image->bytesPerRow(), loaded.image->width() * bitsPerPixel / 8);
    EXPECT_EQ(loaded.image->copyData(), bytes);
  }

  fs::path dir_;
};

TEST_F(PngLoader, ColourImagesLoadAsStored) {
  Bytes rgba = {255, 0, 0, 128, 0, 10, 255, 255, 1, 2, 3, 0, 9, 8, 7, 6};
  auto loaded = load(PngPicture{2, 2, PNG_COLOR_TYPE_RGBA, 8, rgba});
  expectImage(loaded, PixelLayout::rgba, 32, rgba);
  EXPECT_EQ(loaded.image->width(), 2u);
  EXPECT_EQ(loaded.image->height(), 2u);
  EXPECT_EQ(loaded.image->pixel(0, 0), (host::Color{1, 0, 0, 128 / 255.0})) << "not premultiplied";

  Bytes rgb = {255, 0, 0, 0, 0, 255};
  expectImage(load(PngPicture{2, 1, PNG_COLOR_TYPE_RGB, 8, rgb}), PixelLayout::rgb, 24, rgb);
}

TEST_F(PngLoader, GreyAndPaletteImagesAreExpanded) {
  expectImage(load(PngPicture{2, 1, PNG_COLOR_TYPE_GRAY, 8, {0, 200}}), PixelLayout::rgb, 24, {0, 0, 0, 200, 200, 200});
  expectImage(load(PngPicture{2, 1, PNG_COLOR_TYPE_GRAY_ALPHA, 8, {50, 255, 100, 0}}), PixelLayout::rgba, 32,
              {50, 50, 50, 255, 100, 100, 100, 0});
  // Two-bit grey: 0, 1, 2, 3 become 0, 85, 170, 255.
  expectImage(load(PngPicture{4, 1, PNG_COLOR_TYPE_GRAY, 2, {0b00011011}}), PixelLayout::rgb, 24,
              {0, 0, 0, 85, 85, 85, 170, 170, 170, 255, 255, 255});

  PngPicture palette{2, 1, PNG_COLOR_TYPE_PALETTE, 8, {1, 0}, {{10, 20, 30}, {40, 50, 60}}};
  expectImage(load(palette), PixelLayout::rgb, 24, {40, 50, 60, 10, 20, 30});
  palette.transparency = {77};
  expectImage(load(palette), PixelLayout::rgba, 32, {40, 50, 60, 255, 10, 20, 30, 77});
}

TEST_F(PngLoader, SixteenBitChannelsAreReducedToEight) {
  // 257 × v in sixteen bits is exactly v in eight.
  Bytes samples = {0xFF, 0xFF, 0x80, 0x80, 0x00, 0x00, 0x01, 0x01, 0x00, 0x00, 0xFE, 0xFE};
  expectImage(load(PngPicture{2, 1, PNG_COLOR_TYPE_RGB, 16, samples}), PixelLayout::rgb, 24, {255, 128, 0, 1, 0, 254});
}

TEST_F(PngLoader, BadFilesGiveAnErrorNamingThem) {
  std::string missing = (dir_ / "missing.png").string();
  auto result = loadPng(missing);
  EXPECT_FALSE(result.image);
  EXPECT_NE(result.error.find(missing), std::string::npos) << result.error;

  std::string text = (dir_ / "text.png").string();
  std::ofstream(text) << "not a picture at all";
  result = loadPng(text);
  EXPECT_FALSE(result.image);
  EXPECT_NE(result.error.find("not a PNG"), std::string::npos) << result.error;

  Bytes rgba(64 * 64 * 4, 90);
  std::string whole = (dir_ / "whole.png").string();
  ASSERT_TRUE(writePng(whole, PngPicture{64, 64, PNG_COLOR_TYPE_RGBA, 8, rgba}));
  std::ifstream in(whole, std::ios::binary);
  std::string bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  for (std::size_t length : {std::size_t{9}, std::size_t{40}, bytes.size() / 2, bytes.size() - 1}) {
    std::string cut = (dir_ / "cut.png").string();
    std::ofstream(cut, std::ios::binary) << bytes.substr(0, length);
    result = loadPng(cut);
    EXPECT_FALSE(result.image) << length;
    EXPECT_FALSE(result.error.empty()) << length;
  }
}

// The signature and a whole header chunk claiming `width` x `height` RGBA
// pixels, with no picture data after it.
Bytes headerOnly(png_uint_32 width, png_uint_32 height) {
  Bytes bytes = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1a, '\n', 0, 0, 0, 13, 'I', 'H', 'D', 'R'};
  for (png_uint_32 value : {width, height}) {
    for (int shift = 24; shift >= 0; shift -= 8) bytes.push_back(static_cast<std::uint8_t>(value >> shift));
  }
  for (std::uint8_t byte : {8, 6, 0, 0, 0}) bytes.push_back(byte);
  // The chunk's CRC-32 over its type and data, so that the header is whole.
  std::uint32_t crc = 0xFFFFFFFFu;
  for (std::size_t i = 12; i < bytes.size(); ++i) {
    crc ^= bytes[i];
    for (int bit = 0; bit < 8; ++bit) crc = (crc >> 1) ^ (0xEDB88320u & (0u - (crc & 1u)));
  }
  crc ^= 0xFFFFFFFFu;
  for (int shift = 24; shift >= 0; shift -= 8) bytes.push_back(static_cast<std::uint8_t>(crc >> shift));
  return bytes;
}

TEST_F(PngLoader, AHugeClaimedSizeIsRefusedFromTheHeader) {
  std::string path = (dir_ / "huge.png").string();
  auto loadHeader = [&](png_uint_32 width, png_uint_32 height) {
    Bytes bytes = headerOnly(width, height);
    std::ofstream(path, std::ios::binary).write(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    return loadPng(path);
  };
  auto huge = loadHeader(1'000'000, 1'000'000);
  EXPECT_FALSE(huge.image);
  EXPECT_TRUE(huge.tooLarge);
  EXPECT_EQ(huge.error,
            path + ": the header claims 1000000 x 1000000 pixels, more than the 64000000 a picture may have");

  EXPECT_TRUE(loadHeader(8001, 8000).tooLarge);
  auto atLimit = loadHeader(8000, 8000);
  EXPECT_FALSE(atLimit.tooLarge) << "exactly the limit is allowed";
  EXPECT_FALSE(atLimit.image) << "no picture data follows the header";
  EXPECT_FALSE(atLimit.error.empty());

  // The start of a data chunk too short for what the header claims: not
  // a byte of room is made for its 256 MB of pixels.
  Bytes stub = headerOnly(8000, 8000);
  const Bytes dataStart = {0, 0, 0, 8, 'I', 'D', 'A', 'T', 0x78, 0x9c, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0};
  stub.insert(stub.end(), dataStart.begin(), dataStart.end());
  std::ofstream(path, std::ios::binary).write(reinterpret_cast<const char*>(stub.data()), stub.size());
  EXPECT_EQ(loadPng(path).error, path + ": the file is too short for the pixels its header claims");
}

// A file that is no PNG, or claims too many pixels, is judged by its first
// bytes: the rest, however long, is never read. A pipe whose writer holds
// it open stands for a file that goes on and on.
TEST_F(PngLoader, AFileIsJudgedByItsHeaderBeforeTheRestIsRead) {
  std::string pipe = (dir_ / "endless.png").string();
  auto loadFromPipe = [&](const Bytes& start) {
    EXPECT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    std::promise<void> loaded;
    std::future_status pipeOpenUntil = std::future_status::timeout;
    std::thread writer([&] {
      std::ofstream out(pipe, std::ios::binary);
      out.write(reinterpret_cast<const char*>(start.data()), std::streamsize(start.size()));
      out.flush();
      // Held open until the loader is done, or for ten seconds at most.
      pipeOpenUntil = loaded.get_future().wait_for(std::chrono::seconds(10));
    });
    PngLoad result = loadPng(pipe);
    loaded.set_value();
    writer.join();
    fs::remove(pipe);
    EXPECT_EQ(pipeOpenUntil, std::future_status::ready) << "the loader waited for the end of the file";
    return result;
  };
  Bytes text(24, 'x');
  EXPECT_NE(loadFromPipe(text).error.find("not a PNG"), std::string::npos);
  EXPECT_TRUE(loadFromPipe(headerOnly(1'000'000, 1'000'000)).tooLarge);
}

}  // namespace
}  // namespace tessel::sim::testing
