#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>

#include <sys/wait.h>
#include <unistd.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include "tool_run.h"

#include "render/render.h"

// Runs the built tessel-sim as a person would and checks what it prints,
// what it writes and how it exits.
namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;

using tessel::testing::Outcome;
Outcome run(const std::string& arguments) { return tessel::testing::runTool(arguments); }

class TesselSim : public ::testing::Test {
 protected:
  void SetUp() override {
    dir_ = fs::temp_directory_path() / ("tessel-sim-test-" + std::to_string(::getpid()) + "-" +
                                        ::testing::UnitTest::GetInstance()->current_test_info()->name());
    fs::remove_all(dir_);
    fs::create_directories(dir_);
  }
  void TearDown() override { fs::remove_all(dir_); }
  std::string path(const std::string& name) const { return (dir_ / name).string(); }
  void write(const std::string& name, const std::string& text) const { std::ofstream(dir_ / name) << text; }
  fs::path dir_;
};

TEST_F(TesselSim, EveryKeptScenarioRunsWithItsExpectationsHolding) {
  int scenarios = 0;
  for (const auto& entry : fs::directory_iterator(fs::path(TESSEL_SOURCE_DIR) / "scenarios")) {
    if (entry.path().extension() != ".json" || entry.path().filename() == "demo.json") continue;
    ++scenarios;
    std::string out = path(entry.path().stem().string());
    Outcome outcome = run("run " + entry.path().string() + " --out " + out + " --scale 0.25");
    EXPECT_EQ(outcome.status, 0) << entry.path() << "\n" << outcome.output;
    EXPECT_TRUE(fs::exists(fs::path(out) / "final.state.json"));
    EXPECT_TRUE(fs::exists(fs::path(out) / "trace.jsonl"));
    auto timeline = nlohmann::json::parse(std::ifstream(fs::path(out) / "timeline.json"));
    EXPECT_FALSE(timeline.at("traceEvents").empty());
  }
  EXPECT_GE(scenarios, 3);
}

TEST_F(TesselSim, DemoWritesItsPicturesWithAProgressLineEach) {
  Outcome outcome = run("demo --scale 0.25 --out " + path("demo"));
  ASSERT_EQ(outcome.status, 0) << outcome.output;
  EXPECT_THAT(outcome.output, HasSubstr("[1] wrote"));
  for (const char* name : {"01-home.png", "02-opening.webp", "03-panel-dark.png", "06-panel-light.png",
                           "07-dock-panel.png", "08-folder-panel.png", "final.state.json"}) {
    EXPECT_TRUE(fs::exists(dir_ / "demo" / name)) << name;
  }
}

TEST_F(TesselSim, FailedExpectationExitsOneAndSaysWhereAndWhat) {
  write("s.json", R"({"events": [{"at": 0.5, "do": "expect", "pointer": "/shared/arrowPosition", "equals": 1}]})");
  Outcome outcome = run("run " + path("s.json") + " --out " + path("out"));
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.output, HasSubstr("expect failed at t=0.5: /shared/arrowPosition: got 0, want 1"));
}

TEST_F(TesselSim, InvalidScenarioExitsTwoListsEveryProblemAndWritesNothing) {
  write("bad.json", R"({"events": [{"at": 1, "do": "tap", "point": [1]}, {"do": "dump", "name": "a/b"}]})");
  Outcome outcome = run("run " + path("bad.json") + " --out " + path("out"));
  EXPECT_EQ(outcome.status, 2);
  EXPECT_THAT(outcome.output, HasSubstr("events[0].point: expected [x, y]"));
  EXPECT_THAT(outcome.output, HasSubstr("events[1].name: expected a plain file name"));
  EXPECT_FALSE(fs::exists(path("out")));
  EXPECT_EQ(run("check " + path("bad.json")).status, 2);
  EXPECT_EQ(run("run " + path("missing.json")).status, 2);
  EXPECT_EQ(run("run").status, 2);
  EXPECT_EQ(run("frobnicate").status, 2);
}

TEST_F(TesselSim, HelpAnswersOnEverySubcommand) {
  for (const char* sub : {"", "demo ", "run ", "check ", "color "}) {
    Outcome outcome = run(std::string(sub) + "--help");
    EXPECT_EQ(outcome.status, 0) << sub;
    EXPECT_THAT(outcome.output, HasSubstr("Usage")) << sub;
  }
}

TEST_F(TesselSim, ColorPrintsBothAveragesOfAStoredPng) {
  tessel::render::Picture picture{2, 1, {255, 0, 0, 255, 0, 0, 255, 255}};
  std::string error;
  ASSERT_TRUE(tessel::render::writePng(picture, path("two.png"), error)) << error;
  Outcome text = run("color " + path("two.png"));
  EXPECT_EQ(text.status, 0) << text.output;
  EXPECT_THAT(text.output, HasSubstr("averageColor 0.500000 0.000000 0.500000 1.000000\n"));
  EXPECT_THAT(text.output, HasSubstr("mergedColor "));
  Outcome json = run("color --json " + path("two.png"));
  auto parsed = nlohmann::json::parse(json.output);
  EXPECT_NEAR(parsed["averageColor"][0].get<double>(), 0.5, 1e-6);
  EXPECT_NEAR(parsed["averageColor"][2].get<double>(), 0.5, 1e-6);
  EXPECT_EQ(parsed["mergedColor"][3].get<double>(), 1.0);
  write("not.png", "hello");
  Outcome broken = run("color " + path("not.png"));
  EXPECT_EQ(broken.status, 2);
}

TEST_F(TesselSim, ColorAgreesWithAnIndependentAverageOfTheStoredBytes) {
  // An odd-sized picture of varied, partly translucent pixels: stored as they
  // are, so the average is over the bytes as written.
  tessel::render::Picture picture{37, 23, {}};
  std::uint32_t seed = 12345;
  double sums[3] = {0, 0, 0};
  for (int i = 0; i < picture.width * picture.height; ++i) {
    for (int c = 0; c < 4; ++c) {
      seed = seed * 1664525u + 1013904223u;
      std::uint8_t byte = std::uint8_t(seed >> 24);
      if (c == 3) byte = std::uint8_t(128 + byte / 2);
      picture.rgba.push_back(byte);
      if (c < 3) sums[c] += byte;
    }
  }
  std::string error;
  ASSERT_TRUE(tessel::render::writePng(picture, path("varied.png"), error)) << error;
  auto parsed = nlohmann::json::parse(run("color --json " + path("varied.png")).output);
  for (int c = 0; c < 3; ++c) {
    EXPECT_NEAR(parsed["averageColor"][c].get<double>(), sums[c] / (37.0 * 23.0 * 255.0), 1e-6) << c;
  }
  EXPECT_EQ(parsed["averageColor"][3].get<double>(), 1.0);
}

}  // namespace
