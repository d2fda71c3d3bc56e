// Golden pictures: a few whole scenes drawn at 1× and compared with the
// reference PNGs kept in tests/golden/. A comparison that fails writes the
// reference, the new picture and their difference side by side into
// golden-failures/ beside the test binary, and names that file.
//
// After a deliberate change to how things look, record new references with
//   TESSEL_RECORD_GOLDEN=1 ./tessel_tests --gtest_filter='RenderGolden*'
// and look at every changed PNG before committing it.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <string>

#include "render/png_file.h"
#include "render/render.h"
#include "sim/world.h"

namespace tessel::render {
namespace {

namespace fs = std::filesystem;

// A pixel differs when one of its channels is off by more than this much;
// a picture fails when more than this share of its pixels differ. Small
// enough to catch a moved view or a changed colour, loose enough for the
// anti-aliasing of another cairo or pixman release.
constexpr int kChannelTolerance = 12;
constexpr double kDifferingShare = 0.002;

fs::path goldenDirectory() { return fs::path(TESSEL_SOURCE_DIR) / "tests" / "golden"; }

fs::path failureDirectory() {
  std::error_code ec;
  fs::path binary = fs::read_symlink("/proc/self/exe", ec);
  return (ec ? fs::current_path() : binary.parent_path()) / "golden-failures";
}

bool recording() {
  const char* value = std::getenv("TESSEL_RECORD_GOLDEN");
  return value && std::string(value) == "1";
}

int channelDifference(const Picture& a, const Picture& b, std::size_t pixel) {
  int most = 0;
  for (std::size_t c = 0; c < 4; ++c)
    most = std::max(most, std::abs(int(a.rgba[pixel * 4 + c]) - int(b.rgba[pixel * 4 + c])));
  return most;
}

// Reference | new | difference (differing pixels red over a faded reference).
Picture sideBySide(const Picture& reference, const Picture& actual) {
  int w = reference.width, h = reference.height;
  Picture out{3 * w, h, PixelBytes(std::size_t(3 * w) * std::size_t(h) * 4, 0)};
  for (int y = 0; y < h; ++y)
    for (int x = 0; x < w; ++x) {
      std::size_t i = std::size_t(y) * std::size_t(w) + std::size_t(x);
      auto put = [&](int column, std::uint8_t r, std::uint8_t g, std::uint8_t b) {
        std::uint8_t* p = &out.rgba[(std::size_t(y) * std::size_t(3 * w) + std::size_t(column * w + x)) * 4];
        p[0] = r, p[1] = g, p[2] = b, p[3] = 255;
      };
      const std::uint8_t* r = &reference.rgba[i * 4];
      const std::uint8_t* a = &actual.rgba[i * 4];
      put(0, r[0], r[1], r[2]);
      put(1, a[0], a[1], a[2]);
      if (channelDifference(reference, actual, i) > kChannelTolerance) {
        put(2, 255, 0, 0);
      } else {
        std::uint8_t grey = std::uint8_t(((r[0] + r[1] + r[2]) / 3) / 4 + 160);
        put(2, grey, grey, grey);
      }
    }
  return out;
}

void expectMatchesGolden(const Picture& actual, const std::string& name) {
  fs::path reference = goldenDirectory() / (name + ".png");
  std::string error;
  if (recording()) {
    ASSERT_TRUE(writePng(actual, reference.string(), error)) << error;
    std::cout << "recorded " << reference.string() << "\n";
    return;
  }
  auto expected = readPng(reference.string(), error);
  ASSERT_TRUE(expected) << error << "\nrecord the reference with TESSEL_RECORD_GOLDEN=1";
  ASSERT_EQ(expected->width, actual.width) << name;
  ASSERT_EQ(expected->height, actual.height) << name;
  std::size_t pixels = std::size_t(actual.width) * std::size_t(actual.height);
  std::size_t differing = 0;
  int worst = 0;
  for (std::size_t i = 0; i < pixels; ++i) {
    int d = channelDifference(*expected, actual, i);
    worst = std::max(worst, d);
    differing += d > kChannelTolerance;
  }
  if (double(differing) <= kDifferingShare * double(pixels)) return;
  fs::path failures = failureDirectory();
  fs::create_directories(failures);
  fs::path comparison = failures / (name + ".png");
  writePng(sideBySide(*expected, actual), comparison.string(), error);
  writePng(actual, (failures / (name + ".new.png")).string(), error);
  ADD_FAILURE() << name << ": " << differing << " of " << pixels << " pixels differ (worst channel by " << worst
                << ");\nreference | new | difference: " << comparison.string()
                << "\nnew picture alone: " << (failures / (name + ".new.png")).string();
}

// A small phone: one page of eight applications and a folder, three in
// the dock, notifications for two of them.
sim::WorldConfig phone(bool darkMode) {
  sim::WorldConfig c;
  c.screen = {390, 844, 1};
  c.settings.darkMode = darkMode;
  auto app = [&](const std::string& id, const std::string& name, const std::string& colour) {
    c.apps["com.example." + id] = {name, colour, ""};
    return "com.example." + id;
  };
  c.pages = {{app("mail", "Mail", "#2F7CF6"), app("messages", "Messages", "#34C759"),
              app("calendar", "Calendar", "#F2F2F7"), app("photos", "Photos", "#FF9F0A"),
              app("maps", "Maps", "#30B0C7"), app("notes", "Notes", "#FFD60A"), app("music", "Music", "#FF375F"),
              app("clock", "Clock", "#1C1C1E")}};
  c.dock = {app("phone", "Phone", "#30D158"), app("browser", "Browser", "#64D2FF"), app("chat", "Chat", "#32D74B")};
  c.folders = {{"Tools", 0, 8, {app("calc", "Calculator", "#FF9500"), app("compass", "Compass", "#3A3A3C")}}};
  double now = c.clockEpoch;
  c.notifications = {
      {"com.example.mail",
       {{"Ana Ruiz", "Lunch at one? The new place on Elm Street.", now - 45},
        {"Build server", "Nightly build passed (412 tests).", now - 1500},
        {"Jonas", "Slides for Monday are in the shared folder.", now - 10800}}},
      {"com.example.phone", {{"Missed call", "Dr. Okafor's office", now - 2400}}},
      {"com.example.calc", {{"Result", "42", now - 90000}}},
  };
  return c;
}

// Opens the panel of `icon` with a swipe and waits until every animation of
// the opening has settled.
Picture panelOf(sim::World& world, const std::string& icon) {
  world.unlock();
  world.advanceTo(1.0);
  world.gesture(icon, "swipeUp", 0);
  world.advanceTo(2.5);
  return renderWorld(world, 1);
}

TEST(RenderGolden, HomeScreen) {
  sim::World world(phone(true));
  world.unlock();
  world.advanceTo(0.5);
  expectMatchesGolden(renderWorld(world, 1), "home");
}

TEST(RenderGolden, DarkPanel) {
  sim::World world(phone(true));
  expectMatchesGolden(panelOf(world, "com.example.mail"), "panel-dark");
}

TEST(RenderGolden, LightPanel) {
  sim::World world(phone(false));
  expectMatchesGolden(panelOf(world, "com.example.mail"), "panel-light");
}

TEST(RenderGolden, DockPanel) {
  sim::World world(phone(true));
  expectMatchesGolden(panelOf(world, "com.example.phone"), "panel-dock");
}

TEST(RenderGolden, FolderPanel) {
  sim::World world(phone(true));
  world.openFolder("Tools");
  world.advanceTo(0.5);
  expectMatchesGolden(panelOf(world, "com.example.calc"), "panel-folder");
}

TEST(RenderGolden, PanelWithoutNotifications) {
  sim::World world(phone(true));
  expectMatchesGolden(panelOf(world, "com.example.music"), "panel-empty");
}

}  // namespace
}  // namespace tessel::render
