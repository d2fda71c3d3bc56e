#pragma once

#include <iosfwd>
#include <optional>
#include <string>

namespace tessel::cli {

// The subcommands of tessel-sim; each returns the exit status.
int demoCommand(const std::string& outDirectory, std::optional<double> scale, std::ostream& out, std::ostream& err);
int runCommand(const std::string& scenarioPath, const std::string& outDirectory, std::optional<double> scale,
               std::ostream& out, std::ostream& err);
int checkCommand(const std::string& scenarioPath, std::ostream& out, std::ostream& err);
int colorCommand(const std::string& imagePath, bool json, std::ostream& out, std::ostream& err);

}  // namespace tessel::cli
