#pragma once

#include <string>
#include <vector>

#include "sim/world_config.h"

namespace tessel::bench {

// A full page of icons (six rows of four), a dock of four and three
// notifications for the sixth application, on a 390 × 844 screen at 3x.
inline sim::WorldConfig fullPhone() {
  sim::WorldConfig c;
  c.screen = {390, 844, 3};
  std::vector<std::string> page;
  for (int i = 0; i < 24; ++i) page.push_back("com.example.app" + std::to_string(i));
  c.pages = {page};
  c.dock = {"com.example.phone", "com.example.browser", "com.example.chat", "com.example.music"};
  double now = c.clockEpoch;
  c.notifications = {{page[5],
                      {{"Ana Ruiz", "Lunch at one? The new place on Elm Street.", now - 45},
                       {"Build server", "Nightly build passed (412 tests).", now - 1500},
                       {"Jonas", "Slides for Monday are in the shared folder.", now - 10800}}}};
  return c;
}

}  // namespace tessel::bench
