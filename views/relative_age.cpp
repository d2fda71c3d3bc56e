#include "views/relative_age.h"

#include <cstdint>

#include "controller/truncation.h"

namespace tessel {
namespace {

// The thresholds compare as unsigned, so a negative count is larger than any.
bool above(std::int32_t value, std::uint32_t threshold) { return static_cast<std::uint32_t>(value) > threshold; }

std::string formatted(std::int32_t value, const char* unit) { return std::to_string(value) + unit; }

}  // namespace

std::string relativeAgeText(double secondsSince) {
  const std::int32_t seconds = truncateToInt32(secondsSince);
  const std::int32_t hours = seconds / 3600;
  const std::int32_t totalMinutes = seconds / 60;
  const std::int32_t minutesInHour = totalMinutes - (totalMinutes / 60) * 60;
  const std::int32_t secondsInMinute = seconds - totalMinutes * 60;
  const std::int32_t days = seconds / 86400;

  if (above(hours, 24)) return formatted(days, above(hours, 47) ? " days ago" : " day ago");
  if (above(hours, 1)) return formatted(hours, " hours ago");
  if (above(minutesInHour, 1)) return formatted(minutesInHour, " minutes ago");
  return formatted(secondsInMinute, " seconds ago");
}

}  // namespace tessel
