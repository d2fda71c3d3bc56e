#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include <unistd.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "render/png_file.h"
#include "tool_run.h"

// A long run, stopped by a person part way, and what it leaves behind.
namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;

std::vector<std::string> namesIn(const fs::path& dir) {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(dir)) names.push_back(entry.path().filename().string());
  std::sort(names.begin(), names.end());
  return names;
}

// A snapshot first, then a recording far longer than the run is let go on;
// answers the directory it is in.
fs::path longScenario(const std::string& name) {
  fs::path dir = fs::temp_directory_path() / ("tessel-" + name + "-" + std::to_string(::getpid()));
  fs::remove_all(dir);
  fs::create_directories(dir / "tmp");
  std::ofstream(dir / "long.json") << R"({"screen": {"width": 390, "height": 844, "scale": 3},
    "events": [{"at": 0, "do": "snapshot", "name": "first"},
               {"at": 0, "do": "record", "name": "long", "until": 900, "fps": 10},
               {"at": 900, "do": "dump", "name": "never"}]})";
  return dir;
}

// Starts the run and, once its progress line is out (so the snapshot is
// written and the recording under way, however slow the machine), sends it
// the signal; gives up waiting after two minutes.
tessel::testing::Outcome stopOnceUnderWay(const fs::path& dir, const std::string& signal) {
  const std::string log = (dir / "log").string();
  return tessel::testing::runCommandLine(
      "TMPDIR=" + (dir / "tmp").string() + " TOOL run " + (dir / "long.json").string() + " --out " +
      (dir / "out").string() + " >" + log + " 2>&1 & pid=$!; for i in $(seq 1200); do grep -q 'of 3 events (' " + log +
      " && break; sleep 0.1; done; kill -" + signal + " $pid; wait $pid; status=$?; cat " + log + "; exit $status");
}

TEST(LongRun, ShowsProgressAndAStopLeavesOnlyWholeFilesAndNoTemporaryOnes) {
  fs::path dir = longScenario("stop-test");
  auto outcome = stopOnceUnderWay(dir, "TERM");

  EXPECT_EQ(outcome.status, 128 + 15) << outcome.output;
  EXPECT_THAT(outcome.output, HasSubstr("tessel-sim: stopped by signal 15 after 2 of 3 events at simulated t="));
  EXPECT_THAT(outcome.output, ::testing::Not(HasSubstr("t=900"))) << "the clock stops where the run was stopped";
  EXPECT_THAT(outcome.output, HasSubstr("of 3 events (")) << "a progress line after the first seconds";
  EXPECT_EQ(namesIn(dir / "out"), std::vector<std::string>{"first.png"}) << "no half-written or temporary file";
  std::string error;
  EXPECT_TRUE(tessel::render::readPng((dir / "out" / "first.png").string(), error)) << error;
  EXPECT_TRUE(namesIn(dir / "tmp").empty()) << "the phone's scratch directory is removed";
  fs::remove_all(dir);
}

TEST(LongRun, AKilledRunLeavesNothingOutsideItsOutputDirectory) {
  fs::path dir = longScenario("kill-test");
  auto outcome = stopOnceUnderWay(dir, "KILL");
  EXPECT_NE(outcome.status, 0) << outcome.output;
  EXPECT_TRUE(namesIn(dir / "tmp").empty());
  for (const auto& name : namesIn(dir / "out"))
    EXPECT_TRUE(name == "first.png" || name.front() == '.') << name << ": only hidden temporary files are unfinished";
  fs::remove_all(dir);
}

}  // namespace
