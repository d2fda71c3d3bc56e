#pragma once

#include <optional>
#include <string>

namespace tessel::host {

// A platform string, which may be nothing.
using String = std::optional<std::string>;

// Equality as the platform's string comparison sees it: nothing equals nothing
// only in the sense that a message to nothing yields false.
inline bool isEqualToString(const String& receiver, const String& other) {
  return receiver && other && *receiver == *other;
}

}  // namespace tessel::host
