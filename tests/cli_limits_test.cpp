// A scenario that asks for too much (too deep, too many, too large, out of
// range, trailing bytes) is refused when it is read, each problem named by
// its place and stating the limit.

#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "cli/expect.h"
#include "cli/limits.h"
#include "cli/scenario.h"

namespace tessel::cli {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::StartsWith;

ParseResult parse(const std::string& text) { return parseScenarioText(text, "/nonexistent-base"); }

std::string repeat(const std::string& text, std::size_t times) {
  std::string result;
  for (std::size_t i = 0; i < times; ++i) result += text;
  return result;
}

// An expect whose `equals` is `arrays` arrays deep: the document is then
// 3 + arrays levels (scenario, events, the event).
std::string expectNested(std::size_t arrays) {
  return R"({"events": [{"do": "expect", "pointer": "/time", "equals": )" + repeat("[", arrays) + "1" +
         repeat("]", arrays) + "}]}";
}

TEST(ScenarioLimits, NestingIsBoundedAnywhereWithThePlaceOfTheFirstTooDeepValue) {
  auto deepest = parse(expectNested(kMaxNesting - 3));
  EXPECT_TRUE(deepest.scenario) << testing::PrintToString(deepest.errors);

  auto tooDeep = parse(expectNested(kMaxNesting - 2));
  EXPECT_FALSE(tooDeep.scenario);
  ASSERT_EQ(tooDeep.errors.size(), 1u);
  EXPECT_EQ(tooDeep.errors[0], "events[0].equals" + repeat("[0]", kMaxNesting - 3) +
                                   ": nested deeper than 64 levels of objects and arrays");

  // Deep enough to overflow any recursive walk of the document.
  auto huge = parse(expectNested(50'000));
  ASSERT_EQ(huge.errors.size(), 1u);
  EXPECT_THAT(huge.errors[0], HasSubstr("nested deeper than 64 levels"));

  auto objects = parse(R"({"apps": )" + repeat(R"({"a": )", 100'000) + "1" + repeat("}", 100'000) + "}");
  ASSERT_EQ(objects.errors.size(), 1u);
  EXPECT_THAT(objects.errors[0], StartsWith("apps.a.a.a"));
  EXPECT_THAT(objects.errors[0], HasSubstr("nested deeper than 64 levels"));
}

TEST(ScenarioLimits, NumbersOutOfRangeAreNamedByTheirPlace) {
  EXPECT_THAT(parse(R"({"events": [{"do": "unlock"}, {"at": 1e400, "do": "lock"}]})").errors,
              ElementsAre("events[1].at: number out of range: 1e400"));
  EXPECT_THAT(parse(R"({"home": {"lists": {"page": [0, -1e999, 1, 1]}}})").errors,
              ElementsAre("home.lists.page[1]: number out of range: -1e999"));
  EXPECT_THAT(parse("1e400").errors, ElementsAre("scenario: number out of range: 1e400"));
}

TEST(ScenarioLimits, BytesAfterTheDocumentAreAnErrorWithTheirPlace) {
  EXPECT_THAT(parse("{}\n  x").errors,
              ElementsAre("scenario: bytes after the end of the JSON document at line 2, column 3 (byte 5)"));
  EXPECT_THAT(parse("{} {}").errors,
              ElementsAre("scenario: bytes after the end of the JSON document at line 1, column 4 (byte 3)"));
  std::string afterNul = std::string("{}") + '\0' + R"({"screen": 5})";
  ASSERT_EQ(parse(afterNul).errors.size(), 1u);
  EXPECT_THAT(parse(afterNul).errors[0], StartsWith("scenario: a NUL byte at line 1, column 3 (byte 2)"));
  EXPECT_FALSE(parse(std::string("{}") + '\0').scenario);
  EXPECT_TRUE(parse("{}\n\t ").scenario) << "white space after the document is fine";
}

TEST(ScenarioLimits, EventCountIsBounded) {
  std::string unlock = R"({"do": "unlock"},)";
  std::string most = repeat(unlock, kMaxEvents);
  most.pop_back();
  auto atLimit = parse(R"({"events": [)" + most + "]}");
  ASSERT_TRUE(atLimit.scenario) << testing::PrintToString(atLimit.errors);
  EXPECT_EQ(atLimit.scenario->events.size(), kMaxEvents);

  auto over = parse(R"({"events": [)" + most + R"(, {"do": "lock"}]})");
  EXPECT_THAT(over.errors, ElementsAre("events: 100001 events, more than the 100000 a scenario may have"));
}

TEST(ScenarioLimits, RecordingFramesAreBounded) {
  // 0 to 1e9 s at 120 fps would draw 1.2e11 frames.
  EXPECT_THAT(parse(R"({"events": [{"at": 0, "do": "record", "name": "r", "until": 1e9, "fps": 120}]})").errors,
              ElementsAre("events[0].until: a recording of 120000000001 frames ((until - at) x fps), more than the "
                          "10000 one may have"));
  // 10,000 frames: 9999 / 16 s at 16 fps, both ends drawn.
  auto atLimit = parse(R"({"events": [{"at": 0, "do": "record", "name": "r", "until": 624.9375, "fps": 16}]})");
  EXPECT_TRUE(atLimit.scenario) << testing::PrintToString(atLimit.errors);
  auto justOver = parse(R"({"events": [{"at": 0, "do": "record", "name": "r", "until": 625, "fps": 16}]})");
  EXPECT_THAT(justOver.errors, ElementsAre(HasSubstr("a recording of 10001 frames")));
}

TEST(ScenarioLimits, PicturesHaveAtLeastOnePixelAndAtMostTheLimit) {
  EXPECT_THAT(parse(R"({"screen": {"width": 1e-300}})").errors,
              ElementsAre("screen: a picture of 1e-300 x 844 points at scale 3 is less than one pixel wide or high"));
  EXPECT_THAT(parse(R"({"screen": {"width": 4096, "height": 4096, "scale": 4}})").errors,
              ElementsAre("screen: a picture of 16384 x 16384 pixels (width x height x scale^2) is more than the "
                          "64000000 pixels one may have"));
  EXPECT_TRUE(parse(R"({"screen": {"width": 4000, "height": 4000, "scale": 2}})").scenario);
  EXPECT_TRUE(parse(R"({"screen": {"width": 0.5, "height": 0.5, "scale": 1}})").scenario) << "rounds to one pixel";

  sim::WorldConfig::Screen screen{4096, 4096, 1};
  EXPECT_FALSE(pictureSizeProblem(screen, 1));
  EXPECT_TRUE(pictureSizeProblem(screen, 4));
  EXPECT_TRUE(pictureSizeProblem(screen, 1e-9));
}

TEST(ScenarioLimits, OutputNamesAreBoundedInLengthAndMayNotBeFinal) {
  std::string longest(kMaxOutputNameLength, 'n');
  EXPECT_TRUE(parse(R"({"events": [{"do": "dump", "name": ")" + longest + R"("}]})").scenario);
  EXPECT_THAT(parse(R"({"events": [{"do": "snapshot", "name": ")" + longest + R"(x"}]})").errors,
              ElementsAre("events[0].name: a name of 101 characters, more than 100"));
  EXPECT_THAT(parse(R"({"events": [{"do": "record", "name": ")" + std::string(255, 'r') + R"(", "until": 1}]})").errors,
              ElementsAre("events[0].name: a name of 255 characters, more than 100"));
  for (const char* action : {"dump", "snapshot"}) {
    EXPECT_THAT(parse(R"({"events": [{"do": ")" + std::string(action) + R"(", "name": "final"}]})").errors,
                ElementsAre("events[0].name: \"final\" is reserved for the state every run ends with"))
        << action;
  }
  EXPECT_TRUE(parse(R"({"events": [{"do": "dump", "name": "final-open"}]})").scenario);
}

TEST(ScenarioLimits, NearComparesNoDeeperThanTheNestingLimit) {
  nlohmann::json deep = 1.0;
  for (int i = 0; i < kMaxNesting + 1; ++i) deep = nlohmann::json::array({deep});
  Event expect;
  expect.pointer = "/deep";
  expect.check = "near";
  expect.value = deep;
  auto failure = checkExpectation(expect, nlohmann::json{{"deep", deep}});
  ASSERT_TRUE(failure);
  EXPECT_THAT(*failure, StartsWith("/deep: got"));

  nlohmann::json shallow = nlohmann::json::array({nlohmann::json::array({1.0})});
  expect.value = shallow;
  EXPECT_FALSE(checkExpectation(expect, nlohmann::json{{"deep", shallow}}));
}

}  // namespace
}  // namespace tessel::cli
