// The settings pane that the package installs, against the library that reads
// what it writes: each item's file, key, default and notification, seen from
// a simulated phone.

#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <map>
#include <memory>
#include <string>

#include <gtest/gtest.h>
#include <plist/plist.h>

#include "controller_world_support.h"
#include "sim/sim_host.h"
#include "sim/sim_notification_center.h"

namespace tessel::testing {
namespace {

using Plist = std::unique_ptr<std::remove_pointer_t<plist_t>, decltype(&plist_free)>;

std::string output(const std::string& command) {
  std::string text;
  std::unique_ptr<FILE, decltype(&pclose)> pipe(popen(command.c_str(), "r"), &pclose);
  if (!pipe) return text;
  std::array<char, 4096> buffer{};
  std::size_t n = 0;
  while ((n = fread(buffer.data(), 1, buffer.size(), pipe.get())) > 0) text.append(buffer.data(), n);
  return text;
}

std::string stringAt(plist_t dict, const char* key) {
  plist_t node = plist_dict_get_item(dict, key);
  if (!node || plist_get_node_type(node) != PLIST_STRING) return {};
  char* value = nullptr;
  plist_get_string_val(node, &value);
  std::string text = value ? value : "";
  free(value);
  return text;
}

// One setting as the pane writes it.
struct PaneItem {
  std::string domain;
  std::string notification;
  plist_type type = PLIST_NONE;
  long long defaultValue = 0;  // a boolean as 0 or 1
};

std::map<std::string, PaneItem> paneItems() {
  const std::string xml = output(TESSEL_SETTINGS_PANE_EXE " pane");
  plist_t root = nullptr;
  plist_from_xml(xml.data(), static_cast<uint32_t>(xml.size()), &root);
  Plist owned(root, &plist_free);
  std::map<std::string, PaneItem> items;
  plist_t list = root ? plist_dict_get_item(root, "items") : nullptr;
  for (uint32_t i = 0; list && i < plist_array_get_size(list); ++i) {
    plist_t item = plist_array_get_item(list, i);
    const std::string key = stringAt(item, "key");
    if (key.empty()) continue;
    PaneItem entry{stringAt(item, "defaults"), stringAt(item, "PostNotification")};
    plist_t value = plist_dict_get_item(item, "default");
    entry.type = value ? plist_get_node_type(value) : PLIST_NONE;
    if (entry.type == PLIST_BOOLEAN) {
      uint8_t b = 0;
      plist_get_bool_val(value, &b);
      entry.defaultValue = b;
    } else if (entry.type == PLIST_UINT) {
      uint64_t u = 0;
      plist_get_uint_val(value, &u);
      entry.defaultValue = static_cast<long long>(u);
    }
    items[key] = entry;
  }
  return items;
}

// Where the pane's domain keeps its settings on the phone.
std::filesystem::path domainFile(const std::string& root, const std::string& domain) {
  return std::filesystem::path(root) / "User/Library/Preferences" / (domain + ".plist");
}

// Writes the settings as the pane does: a property list of its keys.
void writeAsThePane(const std::filesystem::path& path, bool enabled, bool darkMode, int method) {
  std::filesystem::create_directories(path.parent_path());
  auto boolean = [](bool b) { return b ? "<true/>" : "<false/>"; };
  std::ofstream(path) << R"(<?xml version="1.0" encoding="UTF-8"?><plist version="1.0"><dict>)"
                      << "<key>enabled</key>" << boolean(enabled) << "<key>darkMode</key>" << boolean(darkMode)
                      << "<key>activationMethod</key><integer>" << method << "</integer></dict></plist>\n";
}

TEST(SettingsPane, EveryItemWritesWhereTheLibraryReadsAndPostsWhatItListensFor) {
  auto items = paneItems();
  ASSERT_EQ(items.size(), 3u);
  ASSERT_TRUE(items.count("enabled") && items.count("darkMode") && items.count("activationMethod"));
  const auto& dark = items["darkMode"];
  const auto& method = items["activationMethod"];
  EXPECT_EQ(items["enabled"].type, PLIST_BOOLEAN);
  EXPECT_EQ(dark.type, PLIST_BOOLEAN);
  EXPECT_EQ(method.type, PLIST_UINT);
  for (const auto& [key, item] : items) {
    SCOPED_TRACE(key);
    EXPECT_EQ(item.domain, dark.domain);
    EXPECT_EQ(item.notification, dark.notification);
  }

  // With no file the library takes each item's default.
  ScratchRoot root;
  auto config = smallPhone();
  config.fileSystemRoot = root.path();
  config.settingsFile = "none";
  EXPECT_EQ(sim::World(config).dump().at("shared").at("darkMode"), dark.defaultValue == 1);
  EXPECT_EQ(sim::World(config).dump().at("shared").at("activationMethod"), method.defaultValue);

  // What the pane writes under its domain is what the library reads.
  const int otherMethod = static_cast<int>((method.defaultValue + 2) % 5);
  ScratchRoot staging;
  config.settingsFile = staging.path() + "/settings.plist";
  writeAsThePane(*config.settingsFile, true, dark.defaultValue == 0, otherMethod);
  sim::World world(config);
  const auto inDomain = domainFile(root.path(), dark.domain);
  ASSERT_TRUE(std::filesystem::exists(inDomain)) << "the phone keeps the file where the pane writes it";
  auto dump = world.dump();
  EXPECT_EQ(dump.at("shared").at("darkMode"), dark.defaultValue == 0);
  EXPECT_EQ(dump.at("shared").at("activationMethod"), otherMethod);
  EXPECT_EQ(dump.at("observers").at("darwin"), json::array({dark.notification}));

  // A change the pane posts is read again.
  writeAsThePane(inDomain, true, dark.defaultValue == 1, 4);
  world.host().runTurn([&] { world.host().darwinCenter().post(dark.notification); });
  dump = world.dump();
  EXPECT_EQ(dump.at("shared").at("darkMode"), dark.defaultValue == 1);
  EXPECT_EQ(dump.at("shared").at("activationMethod"), 4);

  // The switch that turns it off.
  writeAsThePane(*config.settingsFile, items["enabled"].defaultValue == 0, true, 0);
  EXPECT_TRUE(sim::World(config).dump().at("hooks").empty());
}

}  // namespace
}  // namespace tessel::testing
