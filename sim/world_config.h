#pragma once

#include <array>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "host/geometry.h"

namespace tessel::sim {

// Everything a simulated phone is made from: what a scenario's top-level
// keys describe. Defaults are the ones a scenario gets when it leaves a key out.
struct WorldConfig {
  struct Screen {
    double width = 390;
    double height = 844;
    double scale = 3;
  };
  struct Settings {
    bool enabled = true;
    bool darkMode = true;
    long long activationMethod = 0;
  };
  struct App {
    std::string name;      // generated from the identifier when empty
    std::string color;     // "#RRGGBB"; generated when empty
    std::string iconPath;  // a PNG drawn as the icon; empty: a generated icon
  };
  struct Folder {
    std::string name;
    int page = 0;
    int slot = 0;
    std::vector<std::string> icons;
  };
  struct Notification {
    std::string title;
    std::string message;
    double date = 0;  // seconds on the host clock (clock epoch + t)
  };

  Screen screen;
  double coreFoundationVersion = 1751.108;
  Settings settings;
  // A property-list file to read instead of writing `settings`; "none" means
  // no file at all.
  std::optional<std::string> settingsFile;
  // Host clock at t = 0, in seconds since 1970 (the scenario's `clock`).
  double clockEpoch = 1795254060;  // 2026-11-21T09:41:00Z
  std::string wallpaperPath;
  std::map<std::string, App> apps;
  std::vector<std::vector<std::string>> pages;
  std::vector<std::string> dock;
  std::vector<Folder> folders;
  std::vector<std::string> webClips;
  std::vector<std::string> newsstand;
  int page = 0;
  // Pinned geometry: lists in window coordinates, frames in the icon's list.
  std::optional<host::Rect> pageList;
  std::optional<host::Rect> dockList;
  std::optional<host::Rect> folderList;
  std::map<std::string, host::Rect> frames;
  // Sections of the notification list, in order; an app not listed has none.
  std::vector<std::pair<std::string, std::vector<Notification>>> notifications;
  // The directory that stands for the phone's file system: the settings file
  // lives at fileSystemRoot + "/User/Library/Preferences/...". A given
  // `settingsFile` is copied there, never written to.
  std::string fileSystemRoot;
  // Ended animations go to a temporary file instead of memory (a long run).
  bool keepEndedAnimationsOnDisk = false;
};

}  // namespace tessel::sim
