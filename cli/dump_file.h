#pragma once

#include <functional>
#include <string>

#include <nlohmann/json.hpp>

namespace tessel::sim {
class World;
}

namespace tessel::cli {

// Writes the world's state dump to `path` whole or not at all, laid out as
// a two-space indented document, with the animations drawn from the world
// one at a time instead of held in one document; `onAnimation` sees each on
// the way. False with the reason when the file cannot be written.
bool writeDumpFile(const std::string& path, const sim::World& world, std::string& error,
                   const std::function<void(const nlohmann::json&)>& onAnimation = {});

}  // namespace tessel::cli
