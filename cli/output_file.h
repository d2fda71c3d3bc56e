#pragma once

#include <string>
#include <string_view>

namespace tessel::cli {

// Writes a file whole or not at all: into a temporary name beside it, then
// renamed over the target. False, with the reason, when it could not.
bool writeFileAtomically(const std::string& path, std::string_view contents, std::string& error);

}  // namespace tessel::cli
