#include "tests/package/shell.h"

#include <sys/wait.h>

#include <array>
#include <cstdio>
#include <fstream>
#include <sstream>

namespace tessel::package_test {

CommandResult run(const std::string& commandLine) {
  CommandResult result;
  FILE* pipe = popen(commandLine.c_str(), "r");
  if (pipe == nullptr) return result;
  std::array<char, 4096> buffer{};
  size_t count = 0;
  while ((count = fread(buffer.data(), 1, buffer.size(), pipe)) > 0) result.output.append(buffer.data(), count);
  const int status = pclose(pipe);
  result.exitStatus = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  return result;
}

std::string quoted(const std::filesystem::path& path) {
  std::string word = "'";
  for (char c : path.string()) word += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return word + "'";
}

std::string readFile(const std::filesystem::path& path) {
  std::ifstream in(path, std::ios::binary);
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

}  // namespace tessel::package_test
