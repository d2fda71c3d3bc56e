#pragma once

#include <filesystem>
#include <string>

#include "tests/package/shell.h"

namespace tessel::package_test {

// The time stamp the tests build with: Tue, 14 Nov 2023 22:13:20 UTC.
inline constexpr long kSourceDateEpoch = 1700000000;

// The package as the tests see it: built twice, into two folders, by the real
// build script from one placeholder dylib; made once per test program.
struct BuiltPackage {
  std::filesystem::path dylib;
  std::filesystem::path firstOut;
  std::filesystem::path secondOut;
  std::filesystem::path deb;        // the first build's
  std::filesystem::path repo;       // the first build's APT source
  std::filesystem::path extracted;  // the first build's files, unpacked
  CommandResult firstBuild;
  CommandResult secondBuild;

  bool built() const { return firstBuild.exitStatus == 0 && secondBuild.exitStatus == 0; }
  std::string log() const { return firstBuild.output + secondBuild.output; }
};

const BuiltPackage& builtPackage();

std::filesystem::path repoRoot();
// A scratch folder of its own for a test, removed when the program ends.
std::filesystem::path scratchFolder();
// The version as the repository's VERSION file holds it.
std::string projectVersion();
std::string debName();

// The build script's command line, with the test's generator; `environment`
// goes before it (e.g. "SOURCE_DATE_EPOCH=1 ").
std::string buildCommand(const std::filesystem::path& dylib, const std::filesystem::path& outdir,
                         const std::string& environment);

}  // namespace tessel::package_test
