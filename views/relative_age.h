#pragma once

#include <string>

namespace tessel {

// The age of a notification as a row shows it ("%i minutes ago"), from the
// seconds since it arrived (negative for a date in the future). Inside the
// second hour and for future dates the text is odd; that is how it reads.
std::string relativeAgeText(double secondsSince);

}  // namespace tessel
