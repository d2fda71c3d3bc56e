// The fuzzers' inputs kept in the repository, read again through the
// fuzzers' own bodies: the seeds they start from (fuzz/corpus/TARGET) and
// what they once stopped on (fuzz/crashes/TARGET). Every input gives a value
// or a refusal that says where, and nothing escapes; a seed named bad-...
// is one its reader must refuse, every other seed one it must accept.

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "fuzz/targets/located_message.h"
#include "fuzz/targets/png_target.h"
#include "fuzz/targets/property_list_target.h"
#include "fuzz/targets/scenario_target.h"

namespace tessel::fuzz {
namespace {

namespace fs = std::filesystem;
using ::testing::StartsWith;

struct Input {
  fs::path path;
  std::string bytes;
  bool seed = false;  // from the corpus, not a crash

  std::string name() const { return path.filename().string(); }
  bool meantToBeRefused() const { return seed && name().starts_with("bad-"); }
};

std::vector<Input> inputsOf(const std::string& target) {
  std::vector<Input> inputs;
  for (const char* kind : {"corpus", "crashes"}) {
    fs::path directory = fs::path(TESSEL_SOURCE_DIR) / "fuzz" / kind / target;
    if (!fs::is_directory(directory)) continue;
    for (const auto& entry : fs::directory_iterator(directory)) {
      if (!entry.is_regular_file()) continue;
      std::ifstream in(entry.path(), std::ios::binary);
      std::string bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
      inputs.push_back({entry.path(), std::move(bytes), std::string_view(kind) == "corpus"});
    }
  }
  std::sort(inputs.begin(), inputs.end(), [](const Input& a, const Input& b) { return a.path < b.path; });
  return inputs;
}

std::string seedBytes(const std::string& target, const std::string& name) {
  for (auto& input : inputsOf(target)) {
    if (input.seed && input.name() == name) return input.bytes;
  }
  ADD_FAILURE() << "no seed " << target << "/" << name;
  return {};
}

TEST(FuzzInputs, SettingsFilesGiveADictionaryOrNothingAndSurviveBeingWrittenBack) {
  auto inputs = inputsOf("property_list");
  ASSERT_GE(inputs.size(), 10u);
  for (const auto& input : inputs) {
    SCOPED_TRACE(input.path.string());
    std::optional<SettingsReading> reading;
    EXPECT_NO_THROW(reading = readSettingsFile(input.bytes));
    if (!reading) continue;
    EXPECT_EQ(settingsReadingProblem(*reading), std::nullopt);
    if (input.seed) {
      EXPECT_EQ(reading->dictionary, !input.meantToBeRefused());
    }
  }
}

TEST(FuzzInputs, SettingsSeedsReadAsTheyWereWritten) {
  struct Case {
    const char* seed;
    std::optional<bool> enabled;
    std::optional<bool> darkMode;
    std::optional<std::int32_t> activationMethod;
  };
  const Case cases[] = {
      {"xml-settings.plist", true, false, 3},
      {"binary-settings.plist", true, false, 3},
      {"xml-string-values.plist", true, false, 4},  // "YES", "NO", " +4 taps"
      {"binary-number-values.plist", false, true, -1},
      {"xml-nul-in-string.plist", std::nullopt, false, 3},  // "N\0YES", "3\09": read up to the NUL
      {"xml-values-of-other-kinds.plist", std::nullopt, std::nullopt, std::nullopt},
      {"binary-values-of-other-kinds.plist", std::nullopt, std::nullopt, std::nullopt},
      {"xml-empty-dictionary.plist", std::nullopt, std::nullopt, std::nullopt},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.seed);
    SettingsReading reading = readSettingsFile(seedBytes("property_list", c.seed));
    EXPECT_TRUE(reading.dictionary);
    EXPECT_EQ(reading.enabled, c.enabled);
    EXPECT_EQ(reading.darkMode, c.darkMode);
    EXPECT_EQ(reading.activationMethod, c.activationMethod);
  }
}

TEST(FuzzInputs, ScenariosPassWholeOrAreRefusedWithErrorsThatSayWhere) {
  auto inputs = inputsOf("scenario");
  ASSERT_GE(inputs.size(), 10u);
  for (const auto& input : inputs) {
    SCOPED_TRACE(input.path.string());
    std::optional<cli::ParseResult> result;
    EXPECT_NO_THROW(result = readScenarioFile(input.bytes));
    if (!result) continue;
    EXPECT_EQ(scenarioResultProblem(*result), std::nullopt);
    if (input.seed) {
      EXPECT_EQ(result->scenario.has_value(), !input.meantToBeRefused()) << ::testing::PrintToString(result->errors);
    }
  }
}

TEST(FuzzInputs, EachRefusedScenarioSeedIsRefusedForItsOwnFault) {
  struct Case {
    const char* seed;
    const char* firstError;  // how it begins
  };
  const Case cases[] = {
      {"bad-bytes-after-the-document.json", "scenario: bytes after the end of the JSON document at line 2, column 3"},
      {"bad-clock.json", "clock: expected an ISO 8601 time"},
      {"bad-icon-twice.json", "home.pages[1][0]: \"com.example.mail\" is on the home screen twice"},
      {"bad-missing-settings-file.json", "settingsFile: no such file: "},
      {"bad-nested-too-deep.json", "events[0].equals[0][0][0]"},
      {"bad-not-json.json", "scenario: not valid JSON: "},
      {"bad-nul-byte.json", "scenario: a NUL byte at line 1, column 15"},
      {"bad-number-out-of-range.json", "events[1].at: number out of range: 1e400"},
      {"bad-picture-too-large.json", "wallpaper: "},
      {"bad-recording-too-long.json", "events[0].until: a recording of 60001 frames"},
      {"bad-screen-too-large.json", "screen: a picture of 16384 x 16384 pixels"},
      {"bad-unknown-event.json", "events[0].do: unknown event \"fly\""},
      {"bad-unknown-field-with-odd-name.json", "apps[\"com.example.mail\"][\"icon colour\"]: unknown field"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.seed);
    auto result = readScenarioFile(seedBytes("scenario", c.seed));
    ASSERT_FALSE(result.errors.empty());
    EXPECT_THAT(result.errors[0], StartsWith(c.firstError));
  }
  auto tooLarge = readScenarioFile(seedBytes("scenario", "bad-picture-too-large.json"));
  ASSERT_FALSE(tooLarge.errors.empty());
  EXPECT_THAT(tooLarge.errors[0], ::testing::HasSubstr("claims 100000 x 100000 pixels"));
}

TEST(FuzzInputs, AScenarioNamesTheFilesBesideIt) {
  auto result = readScenarioFile(seedBytes("scenario", "files-beside-the-scenario.json"));
  ASSERT_TRUE(result.scenario) << ::testing::PrintToString(result.errors);
  const auto& world = result.scenario->world;
  ASSERT_TRUE(world.settingsFile);
  EXPECT_EQ(fs::path(*world.settingsFile).filename(), "settings.plist");
  EXPECT_EQ(fs::path(world.apps.at("com.example.mail").iconPath).filename(), "icon.png");
  EXPECT_EQ(world.wallpaperPath, "") << "a picture that cannot be read is not drawn";
  ASSERT_EQ(result.warnings.size(), 1u);
  EXPECT_THAT(result.warnings[0], StartsWith("wallpaper: "));
}

// "rgba-2x1-what.png": the layout and size the loader must give.
struct ExpectedPicture {
  sim::PixelLayout layout;
  std::size_t width;
  std::size_t height;
};

std::optional<ExpectedPicture> expectedPicture(const std::string& name) {
  unsigned width = 0;
  unsigned height = 0;
  if (std::sscanf(name.c_str(), "rgba-%ux%u-", &width, &height) == 2) {
    return ExpectedPicture{sim::PixelLayout::rgba, width, height};
  }
  if (std::sscanf(name.c_str(), "rgb-%ux%u-", &width, &height) == 2) {
    return ExpectedPicture{sim::PixelLayout::rgb, width, height};
  }
  return std::nullopt;
}

TEST(FuzzInputs, PicturesLoadWithTheirSizeAndLayoutOrAreRefusedNamingTheFile) {
  auto inputs = inputsOf("png");
  ASSERT_GE(inputs.size(), 10u);
  for (const auto& input : inputs) {
    SCOPED_TRACE(input.path.string());
    std::optional<PngReading> reading;
    EXPECT_NO_THROW(reading = loadPngFile(input.bytes));
    if (!reading) continue;
    EXPECT_EQ(pngReadingProblem(*reading), std::nullopt);
    if (!input.seed) continue;
    if (input.meantToBeRefused()) {
      EXPECT_FALSE(reading->load.image);
      continue;
    }
    auto expected = expectedPicture(input.name());
    ASSERT_TRUE(expected) << "a seed is named LAYOUT-WxH-WHAT.png or bad-WHAT.png";
    ASSERT_TRUE(reading->load.image) << reading->load.error;
    EXPECT_EQ(reading->load.image->layout(), expected->layout);
    EXPECT_EQ(reading->load.image->width(), expected->width);
    EXPECT_EQ(reading->load.image->height(), expected->height);
  }
  auto tooLarge = loadPngFile(seedBytes("png", "bad-claims-too-many-pixels.png"));
  EXPECT_TRUE(tooLarge.load.tooLarge);
}

TEST(FuzzInputs, ARefusalThatSaysNothingOfWhereIsCaught) {
  for (const char* located : {"scenario: not valid JSON", "events[3].point: expected [x, y]",
                              "apps[\"com.x y\"].icon: no such file", "[0]: number out of range: 1e400",
                              "home.pages[1][0]: \"a:b\" is on the home screen twice", "a[\"x\\\"]: y\"].b: z"}) {
    EXPECT_TRUE(isLocatedMessage(located)) << located;
  }
  for (const char* unlocated : {"", "not valid JSON", "events[3]:no space", "events[3]: ", "events[x]: y",
                                "apps[\"open: y", "events..at: z", ": nothing before"}) {
    EXPECT_FALSE(isLocatedMessage(unlocated)) << unlocated;
  }
  cli::ParseResult refusedSilently;
  EXPECT_NE(scenarioResultProblem(refusedSilently), std::nullopt);
  refusedSilently.errors = {"the file is wrong"};
  EXPECT_NE(scenarioResultProblem(refusedSilently), std::nullopt);
}

TEST(FuzzInputs, AScenarioThatARunCannotPlayIsCaught) {
  auto passedWith = [](auto change) {
    cli::ParseResult result;
    result.scenario.emplace();
    change(*result.scenario);
    return scenarioResultProblem(result);
  };
  EXPECT_EQ(passedWith([](cli::Scenario&) {}), std::nullopt);
  EXPECT_NE(passedWith([](cli::Scenario& s) { s.world.clockEpoch = std::nan(""); }), std::nullopt);
  EXPECT_NE(passedWith([](cli::Scenario& s) { s.world.screen.scale = 0; }), std::nullopt);
  EXPECT_NE(passedWith([](cli::Scenario& s) {
              s.events.resize(2);
              s.events[0].at = 2;
            }),
            std::nullopt);
  EXPECT_NE(passedWith([](cli::Scenario& s) {
              s.events.resize(1);
              s.events[0].action = "dump";
              s.events[0].name = "final";
            }),
            std::nullopt);
  EXPECT_NE(passedWith([](cli::Scenario& s) {
              s.events.resize(1);
              s.events[0].action = "record";
              s.events[0].name = "clip";
              s.events[0].until = 1;
              s.events[0].fps = 0;
            }),
            std::nullopt);
}

}  // namespace
}  // namespace tessel::fuzz
