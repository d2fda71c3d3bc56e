#include <gtest/gtest.h>

#include "views/relative_age.h"

namespace tessel {
namespace {

struct Age {
  double seconds;
  const char* text;
};

void expectAges(std::initializer_list<Age> ages) {
  for (const auto& age : ages) EXPECT_EQ(relativeAgeText(age.seconds), age.text) << age.seconds << " s";
}

TEST(RelativeAge, SecondsAndMinutesWithinTheFirstHour) {
  expectAges({{0, "0 seconds ago"},
              {45, "45 seconds ago"},
              {45.9, "45 seconds ago"},
              {90, "30 seconds ago"},  // one whole minute is not "more than 1"
              {150, "2 minutes ago"},
              {3599, "59 minutes ago"}});
}

TEST(RelativeAge, TheSecondHourShowsOnlyItsMinutesOrSeconds) {
  expectAges({{3600, "0 seconds ago"}, {3700, "40 seconds ago"}, {5400, "30 minutes ago"}, {7199, "59 minutes ago"}});
}

TEST(RelativeAge, HoursThenDays) {
  expectAges({{7200, "2 hours ago"},
              {86400, "24 hours ago"},
              {89999, "24 hours ago"},
              {90000, "1 day ago"},
              {172799, "1 day ago"},
              {172800, "2 days ago"},
              {200000, "2 days ago"}});
}

TEST(RelativeAge, FutureDatesCompareAsVeryLarge) {
  expectAges({{-30, "-30 seconds ago"}, {-300, "-5 minutes ago"}, {-7200, "0 days ago"}, {-86400 * 3, "-3 days ago"}});
}

TEST(RelativeAge, IntervalsBeyond32BitsSaturate) {
  expectAges({{1e12, "24855 days ago"}, {-1e12, "-24855 days ago"}, {2147483647.9, "24855 days ago"}});
}

}  // namespace
}  // namespace tessel
