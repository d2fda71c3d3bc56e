// Bad input to the built tessel-sim: exit 2, the problem named by its place,
// nothing run and nothing written; for `check` as for `run`.

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include <sys/wait.h>
#include <unistd.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tool_run.h"

namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;
using ::testing::Not;

using tessel::testing::Outcome;
Outcome run(const std::string& arguments) { return tessel::testing::runTool(arguments); }

std::string repeat(const std::string& text, std::size_t times) {
  std::string result;
  for (std::size_t i = 0; i < times; ++i) result += text;
  return result;
}

// The signature and a header chunk claiming `width` x `height` RGBA pixels;
// nothing after it.
std::string pngHeader(std::uint32_t width, std::uint32_t height) {
  std::string bytes = "\x89PNG\r\n\x1a\n";
  auto word = [&](std::uint32_t value) {
    for (int shift = 24; shift >= 0; shift -= 8) bytes += char((value >> shift) & 0xFF);
  };
  word(13);
  bytes += "IHDR";
  word(width);
  word(height);
  bytes += std::string("\x08\x06\x00\x00\x00", 5);
  word(0);  // the checksum: the size is refused before it matters
  return bytes;
}

class BadInput : public ::testing::Test {
 protected:
  void SetUp() override {
    dir_ = fs::temp_directory_path() / ("tessel-bad-input-" + std::to_string(::getpid()) + "-" +
                                        ::testing::UnitTest::GetInstance()->current_test_info()->name());
    fs::remove_all(dir_);
    fs::create_directories(dir_);
  }
  void TearDown() override { fs::remove_all(dir_); }
  std::string path(const std::string& name) const { return (dir_ / name).string(); }
  void write(const std::string& name, const std::string& bytes) const {
    std::ofstream(dir_ / name, std::ios::binary) << bytes;
  }

  // Both commands refuse the scenario with `message` after its file name, and
  // `run` writes nothing at all.
  void expectRefused(const std::string& scenario, const std::string& message, const std::string& extra = "") {
    SCOPED_TRACE(message);
    write("s.json", scenario);
    std::string out = path("out");
    Outcome ran = run("run " + path("s.json") + " --out " + out + extra);
    EXPECT_EQ(ran.status, 2) << ran.output;
    EXPECT_THAT(ran.output, HasSubstr(message));
    EXPECT_THAT(ran.output, Not(HasSubstr("tessel-sim:"))) << "an uncaught failure instead of a located one";
    EXPECT_FALSE(fs::exists(out)) << "something was written";
    if (extra.empty()) {
      Outcome checked = run("check " + path("s.json"));
      EXPECT_EQ(checked.status, 2) << checked.output;
      EXPECT_THAT(checked.output, HasSubstr(message));
    }
  }

  fs::path dir_;
};

TEST_F(BadInput, DeepNestingIsRefusedWhereItGoesTooDeep) {
  std::string deep = repeat("[", 50'000) + repeat("]", 50'000);
  expectRefused(R"({"events": [{"do": "expect", "pointer": "/time", "equals": )" + deep + "}]}",
                path("s.json") + ": events[0].equals[0][0][0]");
  expectRefused(R"({"events": [{"do": "expect", "pointer": "/time", "near": )" + deep + "}]}",
                "nested deeper than 64 levels of objects and arrays");
  expectRefused(R"({"apps": )" + repeat(R"({"x": )", 50'000) + "1" + repeat("}", 50'000) + "}", "apps.x.x.x");
}

TEST_F(BadInput, NumberOutOfRangeIsNamedByItsPlace) {
  expectRefused(R"({"events": [{"at": 1e400, "do": "unlock"}]})",
                path("s.json") + ": events[0].at: number out of range: 1e400");
}

TEST_F(BadInput, BytesAfterTheDocumentAreRefused) {
  expectRefused(R"({"events": []} {"events": [{"do": "lock"}]})",
                "scenario: bytes after the end of the JSON document at line 1, column 16 (byte 15)");
  expectRefused(std::string(R"({"events": []})") + '\0' + R"({"events": [{"do": "lock"}]})",
                "scenario: a NUL byte at line 1, column 15 (byte 14)");
}

TEST_F(BadInput, TooManyEventsAreRefused) {
  expectRefused(R"({"events": [)" + repeat(R"({"do": "lock"},)", 100'000) + R"({"do": "lock"}]})",
                "events: 100001 events, more than the 100000 a scenario may have");
}

TEST_F(BadInput, AThousandWrongEventsShowTheFirstFiftyProblemsAndCountTheRest) {
  std::string events = repeat(R"({"do": "fly"},)", 999) + R"({"do": "fly"})";
  expectRefused(R"({"events": [)" + events + "]}", ": ... and 950 more problems");
  Outcome checked = run("check " + path("s.json"));
  EXPECT_THAT(checked.output, HasSubstr("events[49].do"));
  EXPECT_THAT(checked.output, Not(HasSubstr("events[50].do")));
}

TEST_F(BadInput, EndlessRecordingIsRefusedBeforeItStarts) {
  expectRefused(R"({"events": [{"at": 0, "do": "record", "name": "r", "until": 1e9, "fps": 120}]})",
                "events[0].until: a recording of 120000000001 frames ((until - at) x fps), more than the 10000");
}

TEST_F(BadInput, PictureSizesOutsideOnePixelToTheLimitAreRefused) {
  expectRefused(R"({"screen": {"width": 1e-300}, "events": [{"do": "snapshot", "name": "s"}]})",
                "screen: a picture of 1e-300 x 844 points at scale 3 is less than one pixel wide or high");
  expectRefused(R"({"screen": {"width": 4096, "height": 4096, "scale": 4}})",
                "screen: a picture of 16384 x 16384 pixels (width x height x scale^2) is more than the 64000000");
  expectRefused(R"({"screen": {"width": 4096, "height": 4096, "scale": 1}})",
                "--scale: a picture of 16384 x 16384 pixels", " --scale 4");
}

TEST_F(BadInput, OutputNamesAreCheckedBeforeAnythingIsWritten) {
  // The long name comes after a valid dump that would otherwise be written.
  expectRefused(R"({"events": [{"do": "dump", "name": "first"}, {"at": 1, "do": "dump", "name": ")" +
                    std::string(255, 'n') + R"("}]})",
                "events[1].name: a name of 255 characters, more than 100");
  expectRefused(R"({"events": [{"do": "dump", "name": "final"}]})",
                "events[0].name: \"final\" is reserved for the state every run ends with");
}

TEST_F(BadInput, PngWhoseHeaderClaimsAHugeSizeIsRefusedWithItsPlace) {
  write("huge.png", pngHeader(1'000'000, 1'000'000));
  expectRefused(R"({"wallpaper": "huge.png"})", "wallpaper: " + path("huge.png") +
                                                    ": the header claims 1000000 x 1000000 pixels, more than the "
                                                    "64000000 a picture may have");
  expectRefused(R"({"apps": {"com.example.mail": {"icon": "huge.png"}}, "home": {"pages": [["com.example.mail"]]}})",
                "apps[\"com.example.mail\"].icon: " + path("huge.png") + ": the header claims");

  Outcome colour = run("color " + path("huge.png"));
  EXPECT_EQ(colour.status, 2);
  EXPECT_EQ(
      colour.output,
      path("huge.png") + ": the header claims 1000000 x 1000000 pixels, more than the 64000000 a picture may have\n");
}

TEST_F(BadInput, UnreadablePicturesAreNamedInAWarningAndTheDefaultArtIsDrawn) {
  write("broken.png", pngHeader(4, 4));  // a header and no picture data
  write("text.png", "not a picture");
  write("s.json", R"({"wallpaper": "broken.png", "apps": {"com.example.mail": {"icon": "text.png"}},
                      "home": {"pages": [["com.example.mail"]]},
                      "events": [{"do": "snapshot", "name": "home"}]})");
  Outcome ran = run("run " + path("s.json") + " --scale 0.25 --out " + path("out"));
  EXPECT_EQ(ran.status, 0) << ran.output;
  EXPECT_THAT(ran.output, HasSubstr(path("s.json") + ": warning: wallpaper: " + path("broken.png")));
  EXPECT_THAT(ran.output, HasSubstr("drawing the default wallpaper instead"));
  EXPECT_THAT(ran.output, HasSubstr("warning: apps[\"com.example.mail\"].icon: " + path("text.png") +
                                    " is not a PNG file; drawing a generated icon instead"));
  EXPECT_TRUE(fs::exists(path("out/home.png")));
  EXPECT_TRUE(fs::exists(path("out/final.state.json")));

  Outcome checked = run("check " + path("s.json"));
  EXPECT_EQ(checked.status, 0) << checked.output;
  EXPECT_THAT(checked.output, HasSubstr("warning: wallpaper: "));
}

}  // namespace
