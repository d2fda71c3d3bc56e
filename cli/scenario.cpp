#include "cli/scenario.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <map>
#include <set>

#include <fmt/format.h>

#include "cli/json_document.h"
#include "cli/json_reader.h"
#include "cli/limits.h"
#include "sim/png_loader.h"

namespace tessel::cli {

namespace fs = std::filesystem;

namespace {

const std::vector<std::string> kGestures = {"swipeUp",   "swipeDown",  "tap", "doubleTap",
                                            "tripleTap", "tapAndHold", "hold"};

// The fields each event takes besides `at` and `do`.
const std::map<std::string, std::vector<std::string>>& eventFields() {
  static const std::map<std::string, std::vector<std::string>> fields = {
      {"unlock", {}},
      {"lock", {}},
      {"layout", {"icon"}},
      {"gesture", {"icon", "gesture", "hold"}},
      {"tap", {"point"}},
      {"tapRow", {"row"}},
      {"home", {"handled"}},
      {"doubleHome", {"handled"}},
      {"switcherTap", {"icon"}},
      {"switcherLaunch", {"icon"}},
      {"launch", {"icon"}},
      {"keyboard", {"show", "frame"}},
      {"editing", {"on"}},
      {"openFolder", {"name"}},
      {"closeFolder", {"name"}},
      {"page", {"index"}},
      {"notify", {"icon", "title", "message", "age", "date"}},
      {"settings", {"enabled", "darkMode", "activationMethod"}},
      {"snapshot", {"name"}},
      {"record", {"name", "until", "fps"}},
      {"dump", {"name"}},
      {"expect", {"pointer", "equals", "near", "contains", "absent", "tol"}},
  };
  return fields;
}

bool isPlainFileName(const std::string& name) {
  if (name.empty() || name == "." || name == ".." || name.find("..") != std::string::npos) return false;
  return std::all_of(name.begin(), name.end(), [](char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-' || c == '_' ||
           c == '.';
  });
}

// A number, or a non-empty array of such (frames, lists of points), nested
// no deeper than a document may be.
bool isNumeric(const nlohmann::json& value, int depth = 0) {
  if (value.is_number()) return true;
  if (!value.is_array() || value.empty() || depth >= kMaxNesting) return false;
  return std::all_of(value.begin(), value.end(),
                     [&](const nlohmann::json& item) { return isNumeric(item, depth + 1); });
}

bool isHexColor(const std::string& text) {
  return text.size() == 7 && text[0] == '#' &&
         std::all_of(text.begin() + 1, text.end(), [](char c) { return std::isxdigit(static_cast<unsigned char>(c)); });
}

class ScenarioParser {
 public:
  ScenarioParser(const Json& document, std::string base) : doc_(document), base_(std::move(base)), in_(errors_) {}

  ParseResult parse() {
    Scenario scenario;
    scenario.baseDirectory = base_;
    if (in_.object(doc_, "scenario",
                   {"screen", "platform", "settings", "settingsFile", "clock", "wallpaper", "apps", "home",
                    "notifications", "events"})) {
      auto& world = scenario.world;
      if (doc_.contains("screen")) readScreen(doc_["screen"], world.screen);
      if (doc_.contains("platform")) readPlatform(doc_["platform"], world);
      if (doc_.contains("settings")) readSettings(doc_["settings"], "settings", world.settings);
      if (doc_.contains("settingsFile")) readSettingsFile(doc_["settingsFile"], world);
      if (doc_.contains("clock")) readClock(doc_["clock"], world);
      if (doc_.contains("wallpaper") && !doc_["wallpaper"].is_null()) {
        world.wallpaperPath = pictureFile(doc_["wallpaper"], "wallpaper", "the default wallpaper");
      }
      if (doc_.contains("apps")) readApps(doc_["apps"], world);
      if (doc_.contains("home")) readHome(doc_["home"], world);
      if (doc_.contains("notifications")) readNotifications(doc_["notifications"], world);
      if (doc_.contains("events")) readEvents(doc_["events"], scenario);
    }
    if (auto problem = pictureSizeProblem(scenario.world.screen, scenario.world.screen.scale)) {
      in_.error("screen", *problem);
    }
    ParseResult result;
    result.errors = errors_;
    result.warnings = warnings_;
    if (errors_.empty()) result.scenario = std::move(scenario);
    return result;
  }

 private:
  void readScreen(const Json& value, sim::WorldConfig::Screen& screen) {
    if (!in_.object(value, "screen", {"width", "height", "scale"})) return;
    auto positive = [&](const char* key, double& out, double most) {
      if (!value.contains(key)) return;
      auto number = in_.number(value[key], member("screen", key));
      if (number && (*number <= 0 || *number > most)) {
        in_.error(member("screen", key), "expected a number above 0 and at most " + std::to_string(int(most)));
      } else if (number) {
        out = *number;
      }
    };
    positive("width", screen.width, 4096);
    positive("height", screen.height, 4096);
    positive("scale", screen.scale, 4);
  }

  void readPlatform(const Json& value, sim::WorldConfig& world) {
    if (!in_.object(value, "platform", {"coreFoundationVersion"})) return;
    if (value.contains("coreFoundationVersion")) {
      if (auto v = in_.number(value["coreFoundationVersion"], "platform.coreFoundationVersion")) {
        world.coreFoundationVersion = *v;
      }
    }
  }

  void readSettings(const Json& value, const std::string& place, sim::WorldConfig::Settings& settings) {
    if (!value.is_object()) {
      in_.error(place, "expected an object");
      return;
    }
    for (const auto& [key, item] : value.items()) {
      std::string at = member(place, key);
      if (key == "enabled" || key == "darkMode") {
        if (auto b = in_.boolean(item, at)) (key == "enabled" ? settings.enabled : settings.darkMode) = *b;
      } else if (key == "activationMethod") {
        if (auto n = in_.integer(item, at)) settings.activationMethod = *n;
      } else if (place == "settings") {
        in_.error(at, "unknown field");
      }
    }
  }

  void readSettingsFile(const Json& value, sim::WorldConfig& world) {
    if (value.is_null()) return;
    if (value.is_string() && value.get<std::string>() == "none") {
      world.settingsFile = "none";
      return;
    }
    std::string path = existingFile(value, "settingsFile");
    if (!path.empty()) world.settingsFile = path;
  }

  void readClock(const Json& value, sim::WorldConfig& world) {
    auto text = in_.string(value, "clock");
    if (!text) return;
    if (auto seconds = parseIsoTime(*text)) {
      world.clockEpoch = *seconds;
    } else {
      in_.error("clock", "expected an ISO 8601 time such as \"2026-11-21T09:41:00Z\"");
    }
  }

  std::string existingFile(const Json& value, const std::string& place) {
    auto text = in_.string(value, place);
    if (!text) return {};
    fs::path path(*text);
    if (path.is_relative()) path = fs::path(base_) / path;
    std::error_code ec;
    if (!fs::is_regular_file(path, ec)) {
      in_.error(place, "no such file: " + path.string());
      return {};
    }
    return path.string();
  }

  // A PNG named by the scenario: refused when its header claims too many
  // pixels; when it cannot be read, a warning and `fallback` is drawn instead.
  std::string pictureFile(const Json& value, const std::string& place, const std::string& fallback) {
    std::string path = existingFile(value, place);
    if (path.empty()) return {};
    sim::PngLoad load = sim::loadPng(path);
    if (load.tooLarge) {
      in_.error(place, load.error);
      return {};
    }
    if (!load.image) {
      warnings_.push_back(place + ": " + load.error + "; drawing " + fallback + " instead");
      return {};
    }
    return path;
  }

  void readApps(const Json& value, sim::WorldConfig& world) {
    if (!value.is_object()) {
      in_.error("apps", "expected an object of bundle identifiers");
      return;
    }
    for (const auto& [id, item] : value.items()) {
      std::string place = member("apps", id);
      if (!in_.object(item, place, {"name", "color", "icon"})) continue;
      sim::WorldConfig::App app;
      if (item.contains("name")) app.name = in_.string(item["name"], member(place, "name")).value_or("");
      if (item.contains("color") && !item["color"].is_null()) {
        auto color = in_.string(item["color"], member(place, "color"));
        if (color && !isHexColor(*color)) {
          in_.error(member(place, "color"), "expected a colour \"#RRGGBB\"");
        } else if (color) {
          app.color = *color;
        }
      }
      if (item.contains("icon") && !item["icon"].is_null())
        app.iconPath = pictureFile(item["icon"], member(place, "icon"), "a generated icon");
      world.apps[id] = app;
    }
  }

  void readHome(const Json& value, sim::WorldConfig& world) {
    if (!in_.object(value, "home", {"pages", "dock", "folders", "webClips", "newsstand", "page", "lists", "frames"})) {
      return;
    }
    if (value.contains("pages")) {
      const Json& pages = value["pages"];
      if (!pages.is_array()) {
        in_.error("home.pages", "expected an array of pages");
      } else {
        for (std::size_t i = 0; i < pages.size(); ++i) {
          world.pages.push_back(in_.strings(pages[i], element("home.pages", i)).value_or(std::vector<std::string>{}));
        }
      }
    }
    if (value.contains("dock")) world.dock = in_.strings(value["dock"], "home.dock").value_or(world.dock);
    if (value.contains("webClips"))
      world.webClips = in_.strings(value["webClips"], "home.webClips").value_or(world.webClips);
    if (value.contains("newsstand")) {
      world.newsstand = in_.strings(value["newsstand"], "home.newsstand").value_or(world.newsstand);
    }
    if (world.pages.empty()) world.pages.emplace_back();
    if (value.contains("folders")) readFolders(value["folders"], world);
    if (value.contains("page")) {
      auto index = in_.integer(value["page"], "home.page");
      if (index && (*index < 0 || *index >= static_cast<long long>(world.pages.size()))) {
        in_.error("home.page", "no page " + std::to_string(*index));
      } else if (index) {
        world.page = static_cast<int>(*index);
      }
    }
    if (value.contains("lists") && in_.object(value["lists"], "home.lists", {"page", "dock", "folder"})) {
      const Json& lists = value["lists"];
      if (lists.contains("page")) world.pageList = in_.rect(lists["page"], "home.lists.page");
      if (lists.contains("dock")) world.dockList = in_.rect(lists["dock"], "home.lists.dock");
      if (lists.contains("folder")) world.folderList = in_.rect(lists["folder"], "home.lists.folder");
    }
    checkUniqueIcons(world);
    if (value.contains("frames")) {
      const Json& frames = value["frames"];
      if (!frames.is_object()) {
        in_.error("home.frames", "expected an object of bundle identifiers");
      } else {
        for (const auto& [id, rect] : frames.items()) {
          std::string place = member("home.frames", id);
          if (!onHomeScreen(world, id)) in_.error(place, "no icon \"" + id + "\" on the home screen");
          if (auto r = in_.rect(rect, place)) world.frames[id] = *r;
        }
      }
    }
  }

  void readFolders(const Json& value, sim::WorldConfig& world) {
    if (!value.is_array()) {
      in_.error("home.folders", "expected an array of folders");
      return;
    }
    for (std::size_t i = 0; i < value.size(); ++i) {
      std::string place = element("home.folders", i);
      const Json& item = value[i];
      if (!in_.object(item, place, {"name", "page", "slot", "icons"})) continue;
      sim::WorldConfig::Folder folder;
      if (item.contains("name")) folder.name = in_.string(item["name"], member(place, "name")).value_or("");
      if (folder.name.empty()) in_.error(member(place, "name"), "a folder needs a name");
      if (item.contains("page")) {
        auto page = in_.integer(item["page"], member(place, "page"));
        if (page && (*page < 0 || *page >= static_cast<long long>(world.pages.size()))) {
          in_.error(member(place, "page"), "no page " + std::to_string(*page));
        } else if (page) {
          folder.page = static_cast<int>(*page);
        }
      }
      if (item.contains("slot")) {
        auto slot = in_.integer(item["slot"], member(place, "slot"));
        if (slot && (*slot < 0 || *slot > 1000)) {
          in_.error(member(place, "slot"), "expected a slot from 0");
        } else if (slot) {
          folder.slot = static_cast<int>(*slot);
        }
      }
      if (item.contains("icons"))
        folder.icons = in_.strings(item["icons"], member(place, "icons")).value_or(folder.icons);
      for (const auto& other : world.folders) {
        if (other.name == folder.name && !folder.name.empty()) {
          in_.error(member(place, "name"), "a second folder named \"" + folder.name + "\"");
        }
      }
      world.folders.push_back(folder);
    }
  }

  void checkUniqueIcons(const sim::WorldConfig& world) {
    std::set<std::string> seen;
    auto visit = [&](const std::string& id, const std::string& place) {
      if (id.empty()) in_.error(place, "an empty bundle identifier");
      if (!seen.insert(id).second) in_.error(place, "\"" + id + "\" is on the home screen twice");
    };
    for (std::size_t p = 0; p < world.pages.size(); ++p) {
      for (std::size_t i = 0; i < world.pages[p].size(); ++i) {
        visit(world.pages[p][i], element(element("home.pages", p), i));
      }
    }
    for (std::size_t i = 0; i < world.dock.size(); ++i) visit(world.dock[i], element("home.dock", i));
    for (std::size_t f = 0; f < world.folders.size(); ++f) {
      for (std::size_t i = 0; i < world.folders[f].icons.size(); ++i) {
        visit(world.folders[f].icons[i], element(member(element("home.folders", f), "icons"), i));
      }
    }
    for (std::size_t i = 0; i < world.webClips.size(); ++i) visit(world.webClips[i], element("home.webClips", i));
    for (std::size_t i = 0; i < world.newsstand.size(); ++i) visit(world.newsstand[i], element("home.newsstand", i));
  }

  static bool onHomeScreen(const sim::WorldConfig& world, const std::string& id) {
    auto in = [&](const std::vector<std::string>& list) {
      return std::find(list.begin(), list.end(), id) != list.end();
    };
    if (in(world.dock) || in(world.webClips) || in(world.newsstand)) return true;
    for (const auto& page : world.pages) {
      if (in(page)) return true;
    }
    for (const auto& folder : world.folders) {
      if (in(folder.icons)) return true;
    }
    return false;
  }

  void readNotifications(const Json& value, sim::WorldConfig& world) {
    if (!value.is_object()) {
      in_.error("notifications", "expected an object of bundle identifiers");
      return;
    }
    // Sections keep the file's order.
    for (const auto& [id, list] : value.items()) {
      std::string place = member("notifications", id);
      if (!list.is_array()) {
        in_.error(place, "expected an array of notifications");
        continue;
      }
      std::vector<sim::WorldConfig::Notification> section;
      for (std::size_t i = 0; i < list.size(); ++i) {
        sim::WorldConfig::Notification note;
        if (readNotification(list[i], element(place, i), world.clockEpoch, note)) section.push_back(note);
      }
      world.notifications.emplace_back(id, section);
    }
  }

  bool readNotification(const Json& value, const std::string& place, double epoch, sim::WorldConfig::Notification& note,
                        const std::vector<std::string>& extra = {}) {
    std::vector<std::string> known = {"title", "message", "age", "date"};
    known.insert(known.end(), extra.begin(), extra.end());
    if (!in_.object(value, place, known)) return false;
    if (value.contains("title")) note.title = in_.string(value["title"], member(place, "title")).value_or("");
    if (value.contains("message")) note.message = in_.string(value["message"], member(place, "message")).value_or("");
    if (value.contains("age") && value.contains("date")) in_.error(place, "give either age or date, not both");
    note.date = epoch;
    if (value.contains("age")) {
      if (auto age = in_.number(value["age"], member(place, "age"))) note.date = epoch - *age;
    } else if (value.contains("date")) {
      auto text = in_.string(value["date"], member(place, "date"));
      auto seconds = text ? parseIsoTime(*text) : std::nullopt;
      if (seconds) {
        note.date = *seconds;
      } else if (text) {
        in_.error(member(place, "date"), "expected an ISO 8601 time");
      }
    }
    return true;
  }

  void readEvents(const Json& value, Scenario& scenario) {
    if (!value.is_array()) {
      in_.error("events", "expected an array of events");
      return;
    }
    if (value.size() > kMaxEvents) {
      in_.error("events", std::to_string(value.size()) + " events, more than the " + std::to_string(kMaxEvents) +
                              " a scenario may have");
      return;
    }
    sim::WorldConfig::Settings settings = scenario.world.settings;
    for (std::size_t i = 0; i < value.size(); ++i) {
      Event event;
      if (readEvent(value[i], element("events", i), scenario.world, settings, event)) scenario.events.push_back(event);
    }
    std::stable_sort(scenario.events.begin(), scenario.events.end(),
                     [](const Event& a, const Event& b) { return a.at < b.at; });
  }

  bool readEvent(const Json& item, const std::string& place, const sim::WorldConfig& world,
                 sim::WorldConfig::Settings& settings, Event& event) {
    if (!item.is_object()) {
      in_.error(place, "expected an event object");
      return false;
    }
    if (!item.contains("do")) {
      in_.error(member(place, "do"), "missing: what the event does");
      return false;
    }
    auto action = in_.string(item["do"], member(place, "do"));
    if (!action) return false;
    auto fields = eventFields().find(*action);
    if (fields == eventFields().end()) {
      in_.error(member(place, "do"), "unknown event \"" + *action + "\"");
      return false;
    }
    std::vector<std::string> known = fields->second;
    known.push_back("at");
    known.push_back("do");
    if (!in_.object(item, place, known)) return false;
    event.action = *action;
    if (item.contains("at")) event.at = in_.nonNegative(item["at"], member(place, "at")).value_or(0);

    auto need = [&](const char* key) {
      if (item.contains(key)) return true;
      in_.error(member(place, key), "missing");
      return false;
    };
    auto icon = [&](bool required) {
      if (!item.contains("icon")) {
        if (required) in_.error(member(place, "icon"), "missing");
        return;
      }
      auto id = in_.string(item["icon"], member(place, "icon"));
      if (id && !onHomeScreen(world, *id))
        in_.error(member(place, "icon"), "no icon \"" + *id + "\" on the home screen");
      if (id) event.icon = *id;
    };
    auto fileName = [&] {
      if (!need("name")) return;
      auto name = in_.string(item["name"], member(place, "name"));
      if (name && !isPlainFileName(*name)) {
        in_.error(member(place, "name"), "expected a plain file name (letters, digits, '-', '_', '.')");
      } else if (name && name->size() > kMaxOutputNameLength) {
        in_.error(member(place, "name"), "a name of " + std::to_string(name->size()) + " characters, more than " +
                                             std::to_string(kMaxOutputNameLength));
      } else if (name && *name == kFinalDumpName) {
        in_.error(member(place, "name"),
                  std::string("\"") + kFinalDumpName + "\" is reserved for the state every run ends with");
      } else if (name) {
        event.name = *name;
      }
    };

    const std::string& a = event.action;
    if (a == "layout") {
      icon(false);
    } else if (a == "gesture") {
      icon(true);
      if (need("gesture")) {
        auto gesture = in_.string(item["gesture"], member(place, "gesture"));
        if (gesture && std::find(kGestures.begin(), kGestures.end(), *gesture) == kGestures.end()) {
          in_.error(
              member(place, "gesture"),
              "unknown gesture \"" + *gesture + "\" (swipeUp, swipeDown, tap, doubleTap, tripleTap, tapAndHold, hold)");
        } else if (gesture) {
          event.gesture = *gesture;
        }
      }
      if (item.contains("hold")) event.hold = in_.nonNegative(item["hold"], member(place, "hold")).value_or(1.0);
    } else if (a == "tap") {
      if (need("point")) event.point = in_.point(item["point"], member(place, "point")).value_or(host::Point{});
    } else if (a == "tapRow") {
      if (need("row")) {
        auto row = in_.integer(item["row"], member(place, "row"));
        if (row && *row < 0) in_.error(member(place, "row"), "expected a row from 0");
        event.row = row.value_or(0);
      }
    } else if (a == "home" || a == "doubleHome") {
      if (item.contains("handled"))
        event.handled = in_.boolean(item["handled"], member(place, "handled")).value_or(true);
    } else if (a == "switcherTap" || a == "switcherLaunch" || a == "launch") {
      icon(true);
    } else if (a == "keyboard") {
      if (need("show")) event.show = in_.boolean(item["show"], member(place, "show")).value_or(true);
      double keyboardHeight = 291;
      event.frame = {0, world.screen.height - keyboardHeight, world.screen.width, keyboardHeight};
      if (item.contains("frame")) event.frame = in_.rect(item["frame"], member(place, "frame")).value_or(event.frame);
    } else if (a == "editing") {
      if (need("on")) event.on = in_.boolean(item["on"], member(place, "on")).value_or(true);
    } else if (a == "openFolder" || a == "closeFolder") {
      if (need("name")) {
        auto name = in_.string(item["name"], member(place, "name"));
        bool known = name && std::any_of(world.folders.begin(), world.folders.end(),
                                         [&](const auto& folder) { return folder.name == *name; });
        if (name && !known) in_.error(member(place, "name"), "no folder named \"" + *name + "\"");
        event.folder = name.value_or("");
      }
    } else if (a == "page") {
      if (need("index")) {
        auto index = in_.integer(item["index"], member(place, "index"));
        if (index && (*index < 0 || *index >= static_cast<long long>(world.pages.size()))) {
          in_.error(member(place, "index"), "no page " + std::to_string(*index));
        }
        event.index = static_cast<int>(index.value_or(0));
      }
    } else if (a == "notify") {
      if (need("icon")) {
        auto id = in_.string(item["icon"], member(place, "icon"));
        if (id && id->empty()) in_.error(member(place, "icon"), "an empty bundle identifier");
        event.icon = id.value_or("");
      }
      Json note = item;
      note.erase("at");
      note.erase("do");
      note.erase("icon");
      readNotification(note, place, world.clockEpoch + event.at, event.notification);
    } else if (a == "settings") {
      readSettings(item, place, settings);
      event.settings = settings;
    } else if (a == "snapshot" || a == "dump") {
      fileName();
    } else if (a == "record") {
      fileName();
      if (need("until")) {
        auto until = in_.number(item["until"], member(place, "until"));
        if (until && *until <= event.at) in_.error(member(place, "until"), "must be later than at");
        event.until = until.value_or(event.at);
      }
      if (item.contains("fps")) {
        auto fps = in_.number(item["fps"], member(place, "fps"));
        if (fps && (*fps < 1 || *fps > 120)) in_.error(member(place, "fps"), "expected 1 to 120 frames a second");
        event.fps = fps.value_or(60);
      }
      double frames = std::floor((event.until - event.at) * event.fps) + 1;
      if (frames > kMaxRecordFrames) {
        in_.error(member(place, "until"),
                  fmt::format("a recording of {:.0f} frames ((until - at) x fps), more than the {:.0f} one may have",
                              frames, kMaxRecordFrames));
      }
    } else if (a == "expect") {
      readExpect(item, place, event);
    }
    return true;
  }

  void readExpect(const Json& item, const std::string& place, Event& event) {
    if (item.contains("pointer")) {
      auto pointer = in_.string(item["pointer"], member(place, "pointer"));
      if (pointer && !pointer->empty() && (*pointer)[0] != '/') {
        in_.error(member(place, "pointer"), "a JSON Pointer starts with '/'");
      }
      event.pointer = pointer.value_or("");
    } else {
      in_.error(member(place, "pointer"), "missing");
    }
    int checks = 0;
    for (const char* check : {"equals", "near", "contains", "absent"}) {
      if (!item.contains(check)) continue;
      ++checks;
      event.check = check;
      event.value = item[check];
    }
    if (checks != 1) {
      in_.error(place, "an expect takes exactly one of equals, near, contains, absent");
      return;
    }
    if (event.check == "near" && !isNumeric(event.value)) {
      in_.error(member(place, "near"), "expected a number or an array of numbers (arrays may nest)");
    }
    if (event.check == "absent" && !event.value.is_boolean())
      in_.error(member(place, "absent"), "expected true or false");
    if (item.contains("tol")) {
      if (event.check != "near") in_.error(member(place, "tol"), "only a near check takes a tolerance");
      event.tolerance = in_.nonNegative(item["tol"], member(place, "tol")).value_or(1e-6);
    }
  }

  const Json& doc_;
  std::string base_;
  std::vector<std::string> errors_;
  std::vector<std::string> warnings_;
  JsonReader in_;
};

}  // namespace

ParseResult parseScenario(const Json& document, const std::string& baseDirectory) {
  return ScenarioParser(document, baseDirectory).parse();
}

ParseResult parseScenarioText(const std::string& text, const std::string& baseDirectory) {
  DocumentRead read = readJsonDocument(text);
  if (!read.document) return {std::nullopt, {read.error}, {}};
  return parseScenario(*read.document, baseDirectory);
}

std::optional<std::string> pictureSizeProblem(const sim::WorldConfig::Screen& screen, double scale) {
  double width = std::round(screen.width * scale);
  double height = std::round(screen.height * scale);
  if (width < 1 || height < 1) {
    return fmt::format("a picture of {:g} x {:g} points at scale {:g} is less than one pixel wide or high",
                       screen.width, screen.height, scale);
  }
  if (width * height > static_cast<double>(kMaxPicturePixels)) {
    return fmt::format(
        "a picture of {:g} x {:g} pixels (width x height x scale^2) is more than the {} pixels one may have", width,
        height, kMaxPicturePixels);
  }
  return std::nullopt;
}

}  // namespace tessel::cli
