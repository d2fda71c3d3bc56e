#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "render/png_file.h"
#include "render/render.h"

namespace tessel::render {
namespace {

namespace fs = std::filesystem;

class RenderFiles : public ::testing::Test {
 protected:
  void SetUp() override {
    dir_ = fs::temp_directory_path() /
           ("tessel-render-files-" + std::string(::testing::UnitTest::GetInstance()->current_test_info()->name()));
    fs::remove_all(dir_);
    fs::create_directories(dir_);
  }
  void TearDown() override { fs::remove_all(dir_); }

  std::vector<std::string> filesInDir() const {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(dir_)) names.push_back(entry.path().filename().string());
    return names;
  }

  fs::path dir_;
};

Picture gradient(int width, int height, std::uint8_t alpha = 255) {
  Picture picture{width, height, PixelBytes(std::size_t(width) * std::size_t(height) * 4, 0)};
  for (int y = 0; y < height; ++y)
    for (int x = 0; x < width; ++x) {
      std::uint8_t* p = &picture.rgba[(std::size_t(y) * std::size_t(width) + std::size_t(x)) * 4];
      p[0] = std::uint8_t(x * 255 / std::max(width - 1, 1));
      p[1] = std::uint8_t(y * 255 / std::max(height - 1, 1));
      p[2] = std::uint8_t((x + y) % 256);
      p[3] = alpha;
    }
  return picture;
}

std::vector<std::uint8_t> bytesOf(const fs::path& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

TEST_F(RenderFiles, PngKeepsEveryPixelIncludingTranslucentOnes) {
  for (std::uint8_t alpha : {std::uint8_t(255), std::uint8_t(90)}) {
    Picture picture = gradient(33, 17, alpha);
    std::string error;
    fs::path path = dir_ / "picture.png";
    ASSERT_TRUE(writePng(picture, path.string(), error)) << error;
    auto back = readPng(path.string(), error);
    ASSERT_TRUE(back) << error;
    EXPECT_EQ(back->width, 33);
    EXPECT_EQ(back->height, 17);
    EXPECT_EQ(back->rgba, picture.rgba);
  }
}

TEST_F(RenderFiles, PngReplacesAnOlderFileAndLeavesNoTemporaryBehind) {
  fs::path path = dir_ / "shot.png";
  std::ofstream(path) << "old contents";
  std::string error;
  ASSERT_TRUE(writePng(gradient(4, 4), path.string(), error)) << error;
  EXPECT_EQ(filesInDir(), std::vector<std::string>{"shot.png"});
  auto back = readPng(path.string(), error);
  ASSERT_TRUE(back) << error;
  EXPECT_EQ(back->rgba, gradient(4, 4).rgba);
  EXPECT_EQ(fs::status(path).permissions() & fs::perms::others_read, fs::perms::others_read);
}

TEST_F(RenderFiles, PngThatCannotBeWrittenSaysWhyAndLeavesTheOldFile) {
  std::string error;
  EXPECT_FALSE(writePng(gradient(4, 4), (dir_ / "missing" / "shot.png").string(), error));
  EXPECT_NE(error.find("missing/shot.png"), std::string::npos) << error;

  fs::path path = dir_ / "kept.png";
  std::ofstream(path) << "old contents";
  error.clear();
  Picture broken = gradient(4, 4);
  broken.rgba.pop_back();
  EXPECT_FALSE(writePng(broken, path.string(), error));
  EXPECT_FALSE(error.empty());
  EXPECT_FALSE(writePng(Picture{}, path.string(), error));
  EXPECT_EQ(filesInDir(), std::vector<std::string>{"kept.png"});
  std::vector<std::uint8_t> old{'o', 'l', 'd', ' ', 'c', 'o', 'n', 't', 'e', 'n', 't', 's'};
  EXPECT_EQ(bytesOf(path), old);
}

TEST_F(RenderFiles, ReadingSomethingThatIsNotAPngFails) {
  fs::path path = dir_ / "not.png";
  std::ofstream(path) << "plain text";
  std::string error;
  EXPECT_FALSE(readPng(path.string(), error));
  EXPECT_FALSE(error.empty());
  EXPECT_FALSE(readPng((dir_ / "absent.png").string(), error));
}

// The frames of an animated WebP as its ANMF chunks describe them.
struct WebpFrame {
  int width;
  int height;
  int duration;
};

std::uint32_t little(const std::vector<std::uint8_t>& b, std::size_t at, int bytes) {
  std::uint32_t value = 0;
  for (int i = bytes - 1; i >= 0; --i) value = value << 8 | b[at + std::size_t(i)];
  return value;
}

std::vector<WebpFrame> webpFrames(const std::vector<std::uint8_t>& file, int& loops) {
  std::vector<WebpFrame> frames;
  if (file.size() < 12 || std::string(file.begin(), file.begin() + 4) != "RIFF" ||
      std::string(file.begin() + 8, file.begin() + 12) != "WEBP")
    return frames;
  for (std::size_t at = 12; at + 8 <= file.size();) {
    std::string fourcc(file.begin() + std::ptrdiff_t(at), file.begin() + std::ptrdiff_t(at + 4));
    std::size_t size = little(file, at + 4, 4);
    if (fourcc == "ANIM") loops = int(little(file, at + 12, 2));
    if (fourcc == "ANMF")
      frames.push_back(
          {int(little(file, at + 14, 3)) + 1, int(little(file, at + 17, 3)) + 1, int(little(file, at + 20, 3))});
    at += 8 + size + (size & 1);
  }
  return frames;
}

TEST_F(RenderFiles, AnimationHasEveryFrameAtItsRateAndLoops) {
  Animation animation(40, 30, 20);
  for (int i = 0; i < 4; ++i) {
    Picture frame = gradient(40, 30);
    frame.rgba[0] = std::uint8_t(i * 60);  // frames differ, so none is merged away
    for (std::size_t p = 0; p < frame.rgba.size(); p += 4) frame.rgba[p + 2] = std::uint8_t(i * 50);
    animation.addFrame(frame);
  }
  EXPECT_EQ(animation.frames(), 4);
  std::string error;
  fs::path path = dir_ / "clip.webp";
  ASSERT_TRUE(animation.write(path.string(), error)) << error;
  EXPECT_EQ(filesInDir(), std::vector<std::string>{"clip.webp"});
  int loops = -1;
  auto frames = webpFrames(bytesOf(path), loops);
  ASSERT_EQ(frames.size(), 4u);
  EXPECT_EQ(loops, 0);  // forever
  for (const auto& frame : frames) EXPECT_EQ(frame.duration, 50);
}

TEST_F(RenderFiles, AnimationFrameDurationsAddUpAtUnevenRates) {
  Animation animation(8, 8, 30);
  for (int i = 0; i < 6; ++i) {
    Picture frame = gradient(8, 8);
    for (std::size_t p = 0; p < frame.rgba.size(); p += 4) frame.rgba[p] = std::uint8_t(i * 40);
    animation.addFrame(frame);
  }
  std::string error;
  fs::path path = dir_ / "thirty.webp";
  ASSERT_TRUE(animation.write(path.string(), error)) << error;
  int loops = -1;
  int total = 0;
  auto frames = webpFrames(bytesOf(path), loops);
  ASSERT_EQ(frames.size(), 6u);
  for (const auto& frame : frames) {
    EXPECT_NEAR(frame.duration, 1000.0 / 30, 1);
    total += frame.duration;
  }
  EXPECT_EQ(total, 200);
}

TEST_F(RenderFiles, AnimationShowsAStillStretchAsOnePictureHeldLonger) {
  Animation animation(8, 8, 30);
  Picture still = gradient(8, 8);
  Picture moved = gradient(8, 8);
  moved.rgba[5] ^= 0xFF;
  for (const Picture* frame : {&still, &still, &still, &moved, &still}) animation.addFrame(*frame);
  EXPECT_EQ(animation.frames(), 5);
  std::string error;
  fs::path path = dir_ / "still.webp";
  ASSERT_TRUE(animation.write(path.string(), error)) << error;
  int loops = -1;
  auto frames = webpFrames(bytesOf(path), loops);
  ASSERT_EQ(frames.size(), 3u);
  EXPECT_EQ(frames[0].duration, 100);
  EXPECT_EQ(frames[1].duration, 33);
  EXPECT_EQ(frames[2].duration, 34);
  for (const auto& frame : frames) EXPECT_EQ(std::pair(frame.width, frame.height), std::pair(8, 8));
}

TEST_F(RenderFiles, AnimationRefusesFramesOfAnotherSizeAndEmptyAnimations) {
  std::string error;
  Animation empty(10, 10, 30);
  EXPECT_FALSE(empty.write((dir_ / "empty.webp").string(), error));
  EXPECT_NE(error.find("no frames"), std::string::npos) << error;

  Animation animation(10, 10, 30);
  animation.addFrame(gradient(10, 10));
  animation.addFrame(gradient(12, 10));
  EXPECT_EQ(animation.frames(), 1);
  error.clear();
  EXPECT_FALSE(animation.write((dir_ / "mixed.webp").string(), error));
  EXPECT_NE(error.find("12 × 10"), std::string::npos) << error;
  EXPECT_TRUE(filesInDir().empty());
}

TEST_F(RenderFiles, AnimationCanBeWrittenTwice) {
  Animation animation(6, 6, 10);
  animation.addFrame(gradient(6, 6));
  std::string error;
  ASSERT_TRUE(animation.write((dir_ / "a.webp").string(), error)) << error;
  ASSERT_TRUE(animation.write((dir_ / "b.webp").string(), error)) << error;
  EXPECT_EQ(bytesOf(dir_ / "a.webp"), bytesOf(dir_ / "b.webp"));
}

}  // namespace
}  // namespace tessel::render
