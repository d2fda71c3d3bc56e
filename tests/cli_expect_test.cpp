#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>

#include <unistd.h>

#include <gtest/gtest.h>

#include "cli/expect.h"
#include "cli/output_file.h"
#include "cli/timeline.h"

namespace tessel::cli {
namespace {

using nlohmann::json;

Event expectation(const std::string& pointer, const std::string& check, json value, double tolerance = 1e-6) {
  Event e;
  e.action = "expect";
  e.pointer = pointer;
  e.check = check;
  e.value = std::move(value);
  e.tolerance = tolerance;
  return e;
}

const json kDump = json::parse(R"({
  "shared": {"arrowPosition": 0, "arrowView": "v88", "oldTesselFrame": [0, 115, 390, 221.1]},
  "controller": {"genericView": "v89"},
  "views": {"v89": {"frame": [0, 115, 390, 221.1], "tag": 0}, "v88": {"tag": 1334}},
  "launched": ["com.example.mail"],
  "panel": null
})");

TEST(Expectations, EqualsNearContainsAbsent) {
  EXPECT_FALSE(checkExpectation(expectation("/shared/arrowPosition", "equals", 0), kDump));
  EXPECT_FALSE(checkExpectation(expectation("/shared/arrowPosition", "equals", 0.0), kDump));
  EXPECT_FALSE(checkExpectation(expectation("/shared/oldTesselFrame", "near", {0, 115, 390, 221.1004}, 1e-3), kDump));
  EXPECT_TRUE(checkExpectation(expectation("/shared/oldTesselFrame", "near", {0, 115, 390, 221.2}, 1e-3), kDump));
  EXPECT_TRUE(checkExpectation(expectation("/shared/oldTesselFrame", "near", {0, 115, 390}), kDump));
  EXPECT_FALSE(checkExpectation(expectation("/launched", "contains", "com.example.mail"), kDump));
  EXPECT_TRUE(checkExpectation(expectation("/launched", "contains", "com.example.maps"), kDump));
  EXPECT_FALSE(checkExpectation(expectation("/panel", "absent", true), kDump));
  EXPECT_FALSE(checkExpectation(expectation("/nothing/here", "absent", true), kDump));
  EXPECT_TRUE(checkExpectation(expectation("/views", "absent", true), kDump));
}

TEST(Expectations, FailureNamesPointerGotAndWant) {
  auto failure = checkExpectation(expectation("/shared/arrowPosition", "equals", 1), kDump);
  ASSERT_TRUE(failure);
  EXPECT_EQ(*failure, "/shared/arrowPosition: got 0, want 1");
  auto missing = checkExpectation(expectation("/shared/nope", "equals", 1), kDump);
  ASSERT_TRUE(missing);
  EXPECT_EQ(*missing, "/shared/nope: got nothing, want 1");
}

TEST(Expectations, PointersResolveInnerPointersFirst) {
  EXPECT_EQ(resolvePointer("/views/{/controller/genericView}/frame", kDump), "/views/v89/frame");
  EXPECT_FALSE(checkExpectation(expectation("/views/{/shared/arrowView}/tag", "equals", 1334), kDump));
  // An inner pointer that names no string cannot be resolved.
  EXPECT_FALSE(resolvePointer("/views/{/shared/arrowPosition}", kDump));
  EXPECT_FALSE(resolvePointer("/views/{/controller/genericView", kDump));
  EXPECT_TRUE(checkExpectation(expectation("/views/{/nothing}/tag", "equals", 0), kDump));
}

TEST(Timeline, OverlappingAnimationsOfOneTargetGoToSeparateTracks) {
  json dump = {{"animations",
                {{{"group", 1}, {"target", "v9"}, {"property", "frame"}, {"start", 1.0}, {"duration", 0.325}},
                 {{"group", 2}, {"target", "v9"}, {"property", "frame"}, {"start", 1.2}, {"duration", 0.25}},
                 {{"group", 3}, {"target", "v9"}, {"property", "frame"}, {"start", 1.325}, {"duration", 0.25}},
                 {{"group", 3}, {"target", "v9"}, {"property", "alpha"}, {"start", 1.325}, {"duration", 0.25}}}}};
  std::vector<json> trace = {{{"t", 1.0}, {"kind", "event"}, {"do", "gesture"}}};
  json timeline = makeTimeline(dump, trace);
  std::map<int, std::vector<std::pair<double, double>>> spans;
  int instants = 0;
  for (const auto& e : timeline["traceEvents"]) {
    if (e["ph"] == "X") spans[e["tid"].get<int>()].emplace_back(e["ts"].get<double>(), e["dur"].get<double>());
    if (e["ph"] == "i") ++instants;
  }
  EXPECT_EQ(instants, 1);
  EXPECT_EQ(spans.size(), 3u);  // frame, frame #2 (the overlap), alpha
  for (const auto& [tid, list] : spans) {
    for (std::size_t i = 1; i < list.size(); ++i) EXPECT_GE(list[i].first, list[i - 1].first + list[i - 1].second);
  }
  const auto& events = timeline["traceEvents"];
  auto first = std::find_if(events.begin(), events.end(), [](const json& e) { return e["ph"] == "X"; });
  ASSERT_NE(first, events.end());
  EXPECT_DOUBLE_EQ((*first)["ts"].get<double>(), 1e6);
  EXPECT_DOUBLE_EQ((*first)["dur"].get<double>(), 325000);
}

TEST(OutputFiles, WrittenWholeAndNeverHalfway) {
  namespace fs = std::filesystem;
  fs::path dir = fs::temp_directory_path() / ("tessel-out-" + std::to_string(::getpid()));
  fs::create_directories(dir);
  std::string error;
  ASSERT_TRUE(writeFileAtomically((dir / "a.json").string(), "{\"x\": 1}\n", error)) << error;
  std::ifstream in(dir / "a.json");
  std::string text((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  EXPECT_EQ(text, "{\"x\": 1}\n");
  EXPECT_FALSE(writeFileAtomically((dir / "missing" / "b.json").string(), "x", error));
  EXPECT_NE(error.find("cannot write"), std::string::npos);
  std::size_t leftovers = 0;
  for (const auto& entry : fs::directory_iterator(dir)) leftovers += entry.path().filename() != "a.json";
  EXPECT_EQ(leftovers, 0u);
  fs::remove_all(dir);
}

}  // namespace
}  // namespace tessel::cli
