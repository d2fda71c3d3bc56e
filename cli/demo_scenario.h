#pragma once

#include <string_view>

namespace tessel::cli {

// The built-in scenario of `tessel-sim demo`: a phone home screen with a few
// pages, a dock, a folder and a web clip, and the panel's whole story.
std::string_view demoScenarioText();

}  // namespace tessel::cli
