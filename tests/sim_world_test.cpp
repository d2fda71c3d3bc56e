// The simulated phone with the library loaded into it: the order of start,
// the settings file, the state dump and trace, and touches that reach the
// library's panel.

#include <filesystem>
#include <fstream>
#include <set>

#include <gtest/gtest.h>

#include "hooks/settings_schema.h"

#include "hooks/library.h"
#include "sim/property_list.h"
#include "sim/sim_animator.h"
#include "sim/sim_host.h"
#include "sim/sim_view.h"
#include "sim/world.h"

namespace tessel::sim::testing {
namespace {

namespace fs = std::filesystem;
using nlohmann::json;

constexpr const char* kMail = "com.example.mail";

WorldConfig smallHome() {
  WorldConfig config;
  config.screen = {320, 568, 2};
  config.pages = {{kMail, "com.example.maps", "com.example.notes"}};
  config.dock = {"com.example.phone"};
  config.folders = {{"Tools", 0, 3, {"com.example.calc"}}};
  config.webClips = {"com.example.bookmark"};
  config.notifications = {{kMail, {{"Ana", "Lunch at one?", config.clockEpoch - 45}}}};
  return config;
}

class ScratchDirectory {
 public:
  ScratchDirectory() {
    path_ = fs::temp_directory_path() /
            ("tessel-world-test-" + std::string(::testing::UnitTest::GetInstance()->current_test_info()->name()));
    fs::create_directories(path_);
  }
  ~ScratchDirectory() { fs::remove_all(path_); }
  const fs::path& path() const { return path_; }

 private:
  fs::path path_;
};

std::string settingsPath(const fs::path& root) { return (root / ("." + std::string(settings::kPath))).string(); }

const json& viewOfIcon(const json& dump, const std::string& bundleIdentifier) {
  for (const auto& [id, view] : dump.at("views").items()) {
    if (view.value("bundleIdentifier", json()) == bundleIdentifier && view.at("tag") != 1333) return view;
  }
  static const json none;
  return none;
}

TEST(World, TheDumpHasEverySectionOfTheContract) {
  World world(smallHome());
  json dump = world.dump();
  for (const char* key : {"time", "screen", "shared", "controller", "window", "views", "panel", "animations", "alerts",
                          "launched", "observers", "hooks", "bundlesLoaded", "hostCalls"}) {
    EXPECT_TRUE(dump.contains(key)) << key;
  }
  std::set<std::string> shared;
  for (const auto& [key, value] : dump.at("shared").items()) shared.insert(key);
  EXPECT_EQ(shared, (std::set<std::string>{"darkMode",
                                           "activationMethod",
                                           "iconViews",
                                           "folders",
                                           "hasUnlockedOnce",
                                           "bulletinViewController",
                                           "globalViewSender",
                                           "iconView",
                                           "arrowView",
                                           "arrowPosition",
                                           "checkIconOriginY",
                                           "iconExistsInFolder",
                                           "originToStartFrom",
                                           "verticalOffset",
                                           "oldTesselFrame",
                                           "oldArrowFrame",
                                           "newTesselFrame",
                                           "intermediateTesselFrame",
                                           "intermediateArrowFrame",
                                           "realKeyboardDisplacement"}));
  EXPECT_EQ(dump.at("shared").at("verticalOffset"), 81) << "568 / 7, read from the simulated screen";
  EXPECT_EQ(dump.at("window"), "v1");
  const json& window = dump.at("views").at("v1");
  EXPECT_EQ(window.at("class"), "UIWindow");
  EXPECT_EQ(window.at("frame"), (json{0, 0, 320, 568}));
  // The whole tree of the window is there.
  std::vector<std::string> pending{"v1"};
  while (!pending.empty()) {
    std::string id = pending.back();
    pending.pop_back();
    ASSERT_TRUE(dump.at("views").contains(id)) << id;
    for (const auto& child : dump.at("views").at(id).at("subviews")) pending.push_back(child);
  }
  EXPECT_EQ(dump.at("observers").at("darwin"), (json{std::string(settings::kChangedNotification)}));
}

TEST(World, TheLibraryIsLoadedBeforeTheHomeScreenIsMade) {
  World world(smallHome());
  json shared = world.dump().at("shared");
  EXPECT_EQ(shared.at("folders").size(), 1u) << "the folder's initialiser ran through the replacement";
  EXPECT_FALSE(shared.at("bulletinViewController").is_null());
  // Every icon view of the home screen (five on the page, one in the dock, one
  // in the folder) was laid out with the replacement in place.
  EXPECT_EQ(shared.at("iconViews").size(), 7u);
  EXPECT_EQ(world.dump().at("hooks").size(), 10u);
}

TEST(World, SettingsAreARealFileThatTheSettingsEventRewrites) {
  ScratchDirectory root;
  WorldConfig config = smallHome();
  config.fileSystemRoot = root.path().string();
  config.settings = {true, /*darkMode*/ false, /*activationMethod*/ 2};
  World world(config);
  json dump = world.dump();
  EXPECT_EQ(dump.at("shared").at("darkMode"), false);
  EXPECT_EQ(dump.at("shared").at("activationMethod"), 2);
  EXPECT_EQ(viewOfIcon(dump, kMail).at("recognizers"), (json{{{"kind", "tap"}, {"taps", 2}, {"touches", 1}}}));

  world.advanceTo(1);
  world.settings({true, true, 3});
  auto file = readDictionaryFile(settingsPath(root.path()));
  ASSERT_TRUE(file);
  EXPECT_EQ(file->objectForKey("activationMethod")->intValue(), 3);
  dump = world.dump();
  EXPECT_EQ(dump.at("shared").at("activationMethod"), 3) << "the change notification reached the library";
  EXPECT_EQ(viewOfIcon(dump, kMail).at("recognizers").back().at("taps"), 3);
}

TEST(World, AGivenSettingsFileIsCopiedAndNeverWrittenTo) {
  ScratchDirectory dir;
  fs::path source = dir.path() / "given.plist";
  const std::string given =
      "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\"><dict>"
      "<key>darkMode</key><string>no</string><key>activationMethod</key><string> 1</string></dict></plist>\n";
  std::ofstream(source) << given;
  WorldConfig config = smallHome();
  config.settingsFile = source.string();
  World world(config);
  EXPECT_EQ(world.dump().at("shared").at("darkMode"), false);
  EXPECT_EQ(world.dump().at("shared").at("activationMethod"), 1);

  world.settings({true, true, 0});
  std::ifstream in(source);
  EXPECT_EQ(std::string((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>()), given);
}

TEST(World, WithoutASettingsFileTheDefaultsApply) {
  ScratchDirectory root;
  WorldConfig config = smallHome();
  config.fileSystemRoot = root.path().string();
  config.settingsFile = "none";
  config.settings = {false, false, 3};
  World world(config);
  EXPECT_FALSE(fs::exists(settingsPath(root.path())));
  json dump = world.dump();
  EXPECT_EQ(dump.at("shared").at("darkMode"), true);
  EXPECT_EQ(dump.at("shared").at("activationMethod"), 0);
  EXPECT_EQ(dump.at("hooks").size(), 10u);
}

class OpenPanel : public ::testing::Test {
 protected:
  void SetUp() override {
    world.unlock();
    world.advanceTo(1);
    ASSERT_TRUE(world.gesture(kMail, "swipeUp", 0));
    world.advanceTo(3);
    ASSERT_FALSE(world.dump().at("panel").is_null());
  }
  // The window rectangle of the panel's list.
  host::Rect tableInWindow() {
    json dump = world.dump();
    for (const auto& [id, view] : dump.at("views").items()) {
      if (view.at("class") != "UITableView") continue;
      auto* table = dynamic_cast<SimView*>(world.host().registry().find(id).get());
      return table->convertRectToView(table->bounds(), nullptr);
    }
    ADD_FAILURE() << "no table";
    return {};
  }
  World world{smallHome()};
};

TEST_F(OpenPanel, ATapOnARowReachesTheListAndATapElsewhereTheDismissButton) {
  EXPECT_FALSE(world.tapRow(1)) << "the list has one row";
  host::Rect table = tableInWindow();
  world.tap({table.x + 20, table.y + 10});
  EXPECT_EQ(world.dump().at("launched"), (json{kMail}));
  world.advanceTo(5);
  EXPECT_TRUE(world.dump().at("panel").is_null()) << "the row closed the panel";

  ASSERT_TRUE(world.gesture(kMail, "swipeUp", 0));
  world.advanceTo(7);
  ASSERT_FALSE(world.dump().at("panel").is_null());
  world.tap({table.x + 20, table.y + table.height + 40});
  world.advanceTo(9);
  EXPECT_TRUE(world.dump().at("panel").is_null()) << "a tap outside the panel reached the dismiss button";
  EXPECT_EQ(world.dump().at("launched"), (json{kMail}));
}

TEST_F(OpenPanel, KeyboardNotificationsCarryTheirEndFrame) {
  json dump = world.dump();
  EXPECT_EQ(dump.at("observers").at("keyboard"),
            (json{"UIKeyboardWillShowNotification", "UIKeyboardWillHideNotification"}));
  const json& panel = dump.at("views").at(dump.at("controller").at("genericView").get<std::string>());
  double bottom = panel.at("frame")[1].get<double>() + panel.at("frame")[3].get<double>();
  world.keyboard(true, {0, bottom - 50, 320, 300});
  EXPECT_DOUBLE_EQ(world.dump().at("shared").at("realKeyboardDisplacement").get<double>(), 50);
}

TEST_F(OpenPanel, TheTraceHasALineForEveryEventAndHostCall) {
  std::set<std::string> kinds;
  std::vector<std::string> events;
  double last = 0;
  for (const auto& line : world.trace()) {
    kinds.insert(line.at("kind").get<std::string>());
    EXPECT_GE(line.at("t").get<double>(), last) << line;
    last = line.at("t").get<double>();
    if (line.at("kind") == "event") events.push_back(line.at("do").get<std::string>());
  }
  EXPECT_EQ(kinds, (std::set<std::string>{"event", "hook", "hostCall", "dispatch", "animation"}));
  EXPECT_EQ(events, (std::vector<std::string>{"unlock", "gesture"}));
}

}  // namespace
}  // namespace tessel::sim::testing

namespace tessel::sim::testing {
namespace {

// Two openings and closings, with the second opening still running when the
// dump is taken.
void openTwice(World& world) {
  world.unlock();
  world.advanceTo(1);
  world.gesture(kMail, "swipeUp", 0);
  world.advanceTo(3);
  world.home(false);
  world.advanceTo(5);
  world.gesture(kMail, "swipeUp", 0);
  world.advanceTo(5.1);
}

TEST(World, EndedAnimationsKeptOnDiskAreDumpedAsThoughKeptInMemory) {
  WorldConfig inMemory = smallHome();
  WorldConfig onDisk = smallHome();
  onDisk.keepEndedAnimationsOnDisk = true;
  World kept(inMemory);
  World spilled(onDisk);
  openTwice(kept);
  openTwice(spilled);

  json expected = kept.dump();
  ASSERT_GT(expected.at("animations").size(), 10u);
  EXPECT_EQ(spilled.dump(), expected);
  std::vector<json> visited;
  spilled.forEachAnimation([&](const json& record) { visited.push_back(record); });
  EXPECT_EQ(json(visited), expected.at("animations")) << "and the same one at a time";
  EXPECT_LT(spilled.host().simAnimator().records().size(), kept.host().simAnimator().records().size())
      << "the first opening's and the closing's records left memory";
  EXPECT_FALSE(spilled.host().simAnimator().records().empty()) << "the running ones stay";
}

}  // namespace
}  // namespace tessel::sim::testing
