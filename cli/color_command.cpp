#include <cmath>
#include <ostream>

#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include "cli/commands.h"
#include "cli/runner.h"
#include "imaging/average_color.h"
#include "sim/png_loader.h"
#include "sim/sim_host.h"

namespace tessel::cli {

namespace {

std::string line(const char* name, const host::Color& c) {
  return fmt::format("{} {:.6f} {:.6f} {:.6f} {:.6f}\n", name, c.red, c.green, c.blue, c.alpha);
}

// JSON has no NaN; an image of zero size averages to null components.
nlohmann::json components(const host::Color& c) {
  nlohmann::json list = nlohmann::json::array();
  for (double v : {c.red, c.green, c.blue, c.alpha})
    list.push_back(std::isnan(v) ? nlohmann::json() : nlohmann::json(v));
  return list;
}

}  // namespace

int colorCommand(const std::string& imagePath, bool json, std::ostream& out, std::ostream& err) {
  sim::PngLoad load = sim::loadPng(imagePath);
  if (!load.image) {
    err << load.error << "\n";  // the loader names the file
    return kExitInvalid;
  }
  // The image contexts that mergedColor draws into are the simulated toolkit's.
  sim::SimHost host(sim::WorldConfig{}, std::string());
  host::Ref<host::Image> image(load.image);
  host::Color average = averageColor(image);
  host::Color merged = mergedColor(host, image);
  if (json) {
    out << nlohmann::json{{"averageColor", components(average)}, {"mergedColor", components(merged)}}.dump() << "\n";
  } else {
    out << line("averageColor", average) << line("mergedColor", merged);
  }
  return kExitOk;
}

}  // namespace tessel::cli
