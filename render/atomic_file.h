#pragma once

#include <cstdio>
#include <functional>
#include <string>

namespace tessel::render {

// Writes a file whole or not at all: `write` fills a temporary file beside
// `path`, which then takes the final name. False with the reason otherwise.
bool writeFileAtomically(const std::string& path, const std::function<bool(std::FILE*, std::string&)>& write,
                         std::string& error);

}  // namespace tessel::render
