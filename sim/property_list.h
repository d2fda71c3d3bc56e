#pragma once

#include <memory>
#include <string>

#include "sim/sim_value.h"
#include "sim/world_config.h"

namespace tessel::sim {

// `dictionaryWithContentsOfFile:` over a real file, XML or binary. A file
// that is missing, empty, truncated or corrupt, or whose root is not a
// dictionary, gives nothing.
std::shared_ptr<SimDictionary> readDictionaryFile(const std::string& path);

// Writes the settings pane's file (XML) whole; false when it cannot.
bool writeSettingsFile(const std::string& path, const WorldConfig::Settings& settings);

}  // namespace tessel::sim
