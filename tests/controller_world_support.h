#pragma once

// A small simulated phone for the library's tests, and ways to read what a
// person would see from its state dump.

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "hooks/library.h"
#include "host/geometry.h"
#include "sim/world.h"

namespace tessel::testing {

using nlohmann::json;

inline constexpr const char* kMail = "com.example.mail";
inline constexpr const char* kMaps = "com.example.maps";
inline constexpr const char* kNotes = "com.example.notes";
inline constexpr const char* kPhone = "com.example.phone";
inline constexpr const char* kCalc = "com.example.calc";
inline constexpr const char* kBookmark = "com.example.bookmark";
inline constexpr std::size_t kApplicationCount = 8;  // the web clip is none

// A directory standing for the phone's file system, removed afterwards.
class ScratchRoot {
 public:
  ScratchRoot() {
    std::string pattern = (std::filesystem::temp_directory_path() / "tessel-test-XXXXXX").string();
    if (mkdtemp(pattern.data())) path_ = pattern;
  }
  ~ScratchRoot() {
    std::error_code ignored;
    if (!path_.empty()) std::filesystem::remove_all(path_, ignored);
  }
  ScratchRoot(const ScratchRoot&) = delete;
  ScratchRoot& operator=(const ScratchRoot&) = delete;
  const std::string& path() const { return path_; }
  std::string write(const std::string& name, const std::string& contents) const {
    std::ofstream(path_ + "/" + name) << contents;
    return path_ + "/" + name;
  }

 private:
  std::string path_;
};

// 320 x 568. The page's list lies at the window's origin with Mail at
// (16, 100); the dock's list starts at y 496 with Phone at (16, 4), its top at
// 500 in the window; the open Tools folder's list lies at (20, 150) with Calc
// at (16, 20).
inline sim::WorldConfig smallPhone() {
  sim::WorldConfig config;
  config.screen = {320, 568, 2};
  config.pages = {{kMail, kMaps, kNotes, "com.example.clock", "com.example.photos"}};
  config.dock = {kPhone, "com.example.browser"};
  config.folders = {{"Tools", 0, 5, {kCalc}}};
  config.webClips = {kBookmark};
  config.pageList = host::Rect{0, 0, 320, 568};
  config.dockList = host::Rect{0, 496, 320, 72};
  config.folderList = host::Rect{20, 150, 280, 300};
  config.frames = {{kMail, {16, 100, 60, 74}}, {kPhone, {16, 4, 60, 74}}, {kCalc, {16, 20, 60, 74}}};
  config.notifications = {{kMail, {{"Ana", "Lunch at one?", config.clockEpoch - 45}}}};
  return config;
}

// A phone with the library loaded; unlocked once (at t = 0, settled by
// t = 1) so that every application icon carries the activation gesture.
class Phone {
 public:
  explicit Phone(sim::WorldConfig config = smallPhone(), bool unlock = true) {
    config.fileSystemRoot = root_.path();
    world_ = std::make_unique<sim::World>(config);
    if (unlock) {
      world_->unlock();
      settle();
    }
  }
  sim::World* operator->() { return world_.get(); }
  Library& library() { return *world_->library(); }
  // Lets every block, timer and animation of the last events finish.
  void settle() { world_->advanceTo(world_->time() + 1.0); }
  json dump() const { return world_->dump(); }
  void open(const std::string& bundleIdentifier, const std::string& gesture = "swipeUp") {
    ASSERT_TRUE(world_->gesture(bundleIdentifier, gesture, 0));
    settle();
  }

 private:
  ScratchRoot root_;
  std::unique_ptr<sim::World> world_;
};

inline host::Rect rectOf(const json& value) {
  return {value.at(0).get<double>(), value.at(1).get<double>(), value.at(2).get<double>(), value.at(3).get<double>()};
}

inline const json& viewOf(const json& dump, const json& id) { return dump.at("views").at(id.get<std::string>()); }

// Every view in the key window's tree, window first.
inline std::vector<std::string> windowTree(const json& dump) {
  std::vector<std::string> ids{dump.at("window").get<std::string>()};
  for (std::size_t i = 0; i < ids.size(); ++i) {
    for (const auto& id : dump.at("views").at(ids[i]).at("subviews")) ids.push_back(id.get<std::string>());
  }
  return ids;
}

// The home screen's own icon view of an application, not the panel's copy.
inline std::string iconViewId(const json& dump, const std::string& bundleIdentifier) {
  for (const auto& id : windowTree(dump)) {
    const auto& view = dump.at("views").at(id);
    if (view.at("class") == "SBIconView" && view.at("bundleIdentifier") == bundleIdentifier && view.at("tag") != 1333) {
      return id;
    }
  }
  return {};
}

inline bool panelIsOpen(const json& dump) {
  const auto& controller = dump.at("controller");  // null until first used
  return !controller.is_null() && !controller.at("genericView").is_null() &&
         !viewOf(dump, controller.at("genericView")).at("superview").is_null();
}

// The animations recorded for one target and property, in start order.
inline std::vector<json> animationsOf(const json& dump, const json& target, const std::string& property) {
  std::vector<json> found;
  for (const auto& animation : dump.at("animations")) {
    if (animation.at("target") == target && animation.at("property") == property) found.push_back(animation);
  }
  return found;
}

}  // namespace tessel::testing
