#include "cli/serve/seed.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <ostream>

#include "cli/demo_scenario.h"
#include "cli/json_document.h"
#include "cli/scenario_file.h"

namespace tessel::cli::serve {

namespace fs = std::filesystem;

namespace {

Json pathOrNull(const std::string& path) { return path.empty() ? Json(nullptr) : Json(path); }

// A scenario saved anywhere finds the same files: each as the parser
// resolved it (a picture it could not read is left out, as it was drawn).
void makeFileNamesAbsolute(Json& document, const sim::WorldConfig& world) {
  if (document.contains("wallpaper") && document["wallpaper"].is_string())
    document["wallpaper"] = pathOrNull(world.wallpaperPath);
  if (document.contains("settingsFile") && document["settingsFile"].is_string() && world.settingsFile)
    document["settingsFile"] = *world.settingsFile;
  if (!document.contains("apps") || !document["apps"].is_object()) return;
  for (auto& [id, app] : document["apps"].items()) {
    auto found = world.apps.find(id);
    if (app.is_object() && app.contains("icon") && app["icon"].is_string() && found != world.apps.end())
      app["icon"] = pathOrNull(found->second.iconPath);
  }
}

}  // namespace

std::optional<Seed> loadSeed(const std::string& path, std::ostream& err) {
  Seed seed;
  ScenarioSource source;
  if (path.empty()) {
    seed.origin = "the demo";
    source = {std::string(demoScenarioText()), fs::current_path().string()};
  } else {
    seed.origin = path;
    auto read = readScenarioSource(path, err);
    if (!read) return std::nullopt;
    source = std::move(*read);
  }
  DocumentRead read = readJsonDocument(source.text);
  if (!read.document) {
    err << seed.origin << ": " << read.error << "\n";
    return std::nullopt;
  }
  ParseResult result = parseScenario(*read.document, source.base);
  printProblems(result, seed.origin, err);
  if (!result.scenario) return std::nullopt;
  seed.scenario = std::move(*result.scenario);
  seed.document = std::move(*read.document);
  makeFileNamesAbsolute(seed.document, seed.scenario.world);
  return seed;
}

}  // namespace tessel::cli::serve
