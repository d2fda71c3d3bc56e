#pragma once

#include <optional>
#include <string>

#include <nlohmann/json.hpp>

#include "cli/scenario.h"

namespace tessel::cli {

// Checks one `expect` against a state dump. Nothing when it holds, else the
// failure as "POINTER: got X, want Y".
std::optional<std::string> checkExpectation(const Event& expect, const nlohmann::json& dump);

// A pointer whose `{/inner/pointer}` parts are replaced by the strings found
// there first; nothing when an inner part does not name a string.
std::optional<std::string> resolvePointer(const std::string& pointer, const nlohmann::json& dump);

}  // namespace tessel::cli
