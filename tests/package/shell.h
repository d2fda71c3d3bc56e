#pragma once

#include <filesystem>
#include <string>

namespace tessel::package_test {

struct CommandResult {
  int exitStatus = -1;
  std::string output;  // standard output only; add 2>&1 to the line to see errors too
};

CommandResult run(const std::string& commandLine);

// A path as one word of a shell command line.
std::string quoted(const std::filesystem::path& path);

std::string readFile(const std::filesystem::path& path);

}  // namespace tessel::package_test
