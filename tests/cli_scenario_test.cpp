#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "cli/demo_scenario.h"
#include "cli/scenario.h"

namespace tessel::cli {
namespace {

using ::testing::Contains;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

ParseResult parse(const std::string& text) { return parseScenarioText(text, "/nonexistent-base"); }

TEST(ScenarioReading, EmptyScenarioTakesEveryDefault) {
  auto result = parse("{}");
  ASSERT_TRUE(result.scenario) << testing::PrintToString(result.errors);
  const auto& world = result.scenario->world;
  EXPECT_EQ(world.screen.width, 390);
  EXPECT_EQ(world.screen.height, 844);
  EXPECT_EQ(world.screen.scale, 3);
  EXPECT_TRUE(world.settings.enabled);
  EXPECT_TRUE(world.settings.darkMode);
  EXPECT_EQ(world.settings.activationMethod, 0);
  EXPECT_FALSE(world.settingsFile);
  EXPECT_DOUBLE_EQ(world.coreFoundationVersion, 1751.108);
  EXPECT_THAT(result.scenario->events, IsEmpty());
}

TEST(ScenarioReading, ClockAndAgesBecomeHostDates) {
  auto result = parse(R"({
    "clock": "2026-11-21T09:41:00Z",
    "notifications": {"com.b": [{"title": "T", "message": "M", "age": 45}],
                      "com.a": [{"date": "2026-11-21T09:40:00+00:00"}], "com.c": []}})");
  ASSERT_TRUE(result.scenario) << testing::PrintToString(result.errors);
  const auto& world = result.scenario->world;
  EXPECT_DOUBLE_EQ(world.clockEpoch, 1795254060);
  ASSERT_EQ(world.notifications.size(), 3u);
  // Sections keep the order in which the file lists them.
  EXPECT_EQ(world.notifications[0].first, "com.b");
  EXPECT_EQ(world.notifications[1].first, "com.a");
  EXPECT_DOUBLE_EQ(world.notifications[0].second[0].date, 1795254060 - 45);
  EXPECT_DOUBLE_EQ(world.notifications[1].second[0].date, 1795254000);
  EXPECT_THAT(world.notifications[2].second, IsEmpty());
}

TEST(ScenarioReading, IsoTimesWithOffsetsAndFractions) {
  EXPECT_DOUBLE_EQ(*parseIsoTime("1970-01-01T00:00:00Z"), 0);
  EXPECT_DOUBLE_EQ(*parseIsoTime("1970-01-01T01:00:00+01:00"), 0);
  EXPECT_DOUBLE_EQ(*parseIsoTime("2000-03-01T00:00:00.5Z"), 951868800.5);
  EXPECT_FALSE(parseIsoTime("2026-13-01T00:00:00Z"));
  EXPECT_FALSE(parseIsoTime("yesterday"));
  EXPECT_FALSE(parseIsoTime("2026-11-21T09:41:00"));
}

TEST(ScenarioReading, EventsRunInTimeOrderKeepingFileOrderForTies) {
  auto result = parse(R"({"events": [
    {"at": 2, "do": "lock"}, {"at": 1, "do": "unlock"},
    {"at": 2, "do": "dump", "name": "a"}, {"at": 0.5, "do": "home", "handled": false}]})");
  ASSERT_TRUE(result.scenario) << testing::PrintToString(result.errors);
  const auto& events = result.scenario->events;
  ASSERT_EQ(events.size(), 4u);
  EXPECT_EQ(events[0].action, "home");
  EXPECT_FALSE(events[0].handled);
  EXPECT_EQ(events[1].action, "unlock");
  EXPECT_EQ(events[2].action, "lock");
  EXPECT_EQ(events[3].action, "dump");
}

TEST(ScenarioReading, SettingsEventsKeepEarlierValuesForKeysLeftOut) {
  auto result = parse(R"({"settings": {"darkMode": false, "activationMethod": 3},
    "events": [{"at": 1, "do": "settings", "activationMethod": 2},
               {"at": 2, "do": "settings", "enabled": false}]})");
  ASSERT_TRUE(result.scenario) << testing::PrintToString(result.errors);
  const auto& events = result.scenario->events;
  EXPECT_EQ(events[0].settings.activationMethod, 2);
  EXPECT_FALSE(events[0].settings.darkMode);
  EXPECT_EQ(events[1].settings.activationMethod, 2);
  EXPECT_FALSE(events[1].settings.enabled);
}

TEST(ScenarioReading, EveryProblemIsReportedWithItsPlace) {
  auto result = parse(R"({
    "screen": {"width": -1, "depth": 3},
    "settings": {"darkMode": "yes"},
    "apps": {"com.example.mail": {"color": "blue"}},
    "home": {"pages": [["com.a", "com.a"]], "folders": [{"name": "F", "page": 4}]},
    "colour": 1,
    "events": [
      {"at": 1, "do": "tap", "point": [1]},
      {"at": 1, "do": "fly"},
      {"at": -1, "do": "gesture", "icon": "com.missing", "gesture": "wave"},
      {"do": "dump", "name": "../escape"},
      {"do": "expect", "pointer": "/a", "equals": 1, "near": 2},
      {"do": "record", "name": "r", "at": 2, "until": 1}
    ]})");
  EXPECT_FALSE(result.scenario);
  const auto& e = result.errors;
  EXPECT_THAT(e, Contains("screen.width: expected a number above 0 and at most 4096"));
  EXPECT_THAT(e, Contains("screen.depth: unknown field"));
  EXPECT_THAT(e, Contains("settings.darkMode: expected true or false"));
  EXPECT_THAT(e, Contains("apps[\"com.example.mail\"].color: expected a colour \"#RRGGBB\""));
  EXPECT_THAT(e, Contains("home.pages[0][1]: \"com.a\" is on the home screen twice"));
  EXPECT_THAT(e, Contains("home.folders[0].page: no page 4"));
  EXPECT_THAT(e, Contains("scenario.colour: unknown field"));
  EXPECT_THAT(e, Contains("events[0].point: expected [x, y]"));
  EXPECT_THAT(e, Contains("events[1].do: unknown event \"fly\""));
  EXPECT_THAT(e, Contains("events[2].at: expected a number of at least 0"));
  EXPECT_THAT(e, Contains("events[2].icon: no icon \"com.missing\" on the home screen"));
  EXPECT_THAT(e, Contains(HasSubstr("events[2].gesture: unknown gesture \"wave\"")));
  EXPECT_THAT(e, Contains(HasSubstr("events[3].name: expected a plain file name")));
  EXPECT_THAT(e, Contains("events[4]: an expect takes exactly one of equals, near, contains, absent"));
  EXPECT_THAT(e, Contains("events[5].until: must be later than at"));
}

TEST(ScenarioReading, MalformedJsonIsOneClearError) {
  auto result = parse("{\"events\": [");
  ASSERT_EQ(result.errors.size(), 1u);
  EXPECT_THAT(result.errors[0], HasSubstr("not valid JSON"));
}

TEST(ScenarioReading, MissingSettingsFileIsAnErrorButNoneMeansNoFile) {
  auto missing = parse(R"({"settingsFile": "absent.plist"})");
  ASSERT_EQ(missing.errors.size(), 1u);
  EXPECT_THAT(missing.errors[0], HasSubstr("settingsFile: no such file: /nonexistent-base/absent.plist"));
  auto none = parse(R"({"settingsFile": "none"})");
  ASSERT_TRUE(none.scenario);
  EXPECT_EQ(none.scenario->world.settingsFile, "none");
}

TEST(ScenarioReading, BuiltInDemoIsValid) {
  auto result = parseScenarioText(std::string(demoScenarioText()), ".");
  EXPECT_THAT(result.errors, IsEmpty());
  ASSERT_TRUE(result.scenario);
  EXPECT_GE(result.scenario->world.pages.size(), 2u);
  EXPECT_FALSE(result.scenario->world.dock.empty());
  EXPECT_FALSE(result.scenario->world.folders.empty());
}

}  // namespace
}  // namespace tessel::cli
