#pragma once

// Runs the built tessel-sim as a person would, for the tests of the tool.

#include <sys/wait.h>

#include <cstdio>
#include <string>

namespace tessel::testing {

struct Outcome {
  int status = -1;
  std::string output;  // standard output and error together
};

// Runs a shell command line; `TOOL` in it stands for the built tessel-sim.
inline Outcome runCommandLine(std::string commandLine) {
  for (auto at = commandLine.find("TOOL"); at != std::string::npos; at = commandLine.find("TOOL"))
    commandLine.replace(at, 4, TESSEL_SIM_EXE);
  std::string command = commandLine + " 2>&1";
  Outcome outcome;
  FILE* pipe = popen(command.c_str(), "r");
  if (!pipe) return outcome;
  char buffer[4096];
  while (std::size_t n = std::fread(buffer, 1, sizeof buffer, pipe)) outcome.output.append(buffer, n);
  int raw = pclose(pipe);
  outcome.status = WIFEXITED(raw) ? WEXITSTATUS(raw) : -1;
  return outcome;
}

inline Outcome runTool(const std::string& arguments) { return runCommandLine("TOOL " + arguments); }

}  // namespace tessel::testing
