#include <array>
#include <atomic>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <httplib.h>

#include <nlohmann/json.hpp>

#include "cli/demo_scenario.h"
#include "cli/scratch_directory.h"
#include "cli/serve/seed.h"
#include "cli/serve/serve_server.h"
#include "cli/serve/web_assets.h"
#include "hooks/settings_schema.h"
#include "tool_run.h"

// The web server of `tessel-sim serve`, in this process on a free port,
// called as the page calls it.
namespace {

namespace fs = std::filesystem;
using nlohmann::json;
using tessel::cli::ScratchDirectory;
using tessel::cli::serve::ServeServer;
using ::testing::HasSubstr;

class Serve : public ::testing::Test {
 protected:
  void SetUp() override {
    std::ostringstream problems;
    auto seed = tessel::cli::serve::loadSeed("", problems);
    ASSERT_TRUE(seed) << problems.str();
    server_ = std::make_unique<ServeServer>(std::move(*seed), ServeServer::Options{1.0, phoneFiles_.path()});
    port_ = server_->start("127.0.0.1", 0);
    ASSERT_GT(port_, 0);
    client_ = std::make_unique<httplib::Client>("127.0.0.1", port_);
    client_->set_read_timeout(30, 0);
  }

  json get(const std::string& path) {
    auto result = client_->Get(path);
    EXPECT_TRUE(result) << path;
    if (!result) return {};
    EXPECT_EQ(result->status, 200) << path << ": " << result->body;
    return json::parse(result->body, nullptr, false);
  }
  httplib::Result post(const std::string& path, const json& body) {
    return client_->Post(path, body.dump(), "application/json");
  }
  // Posts and expects it done.
  double act(const std::string& path, const json& body) {
    auto result = post(path, body);
    EXPECT_TRUE(result) << path;
    if (!result) return -1;
    EXPECT_EQ(result->status, 200) << path << " " << body << ": " << result->body;
    return json::parse(result->body).value("time", -1.0);
  }
  // Posts and expects it refused with a reason that says `why`.
  void refused(const std::string& path, const std::string& body, int status, const std::string& why) {
    auto result = client_->Post(path, body, "application/json");
    ASSERT_TRUE(result) << path;
    EXPECT_EQ(result->status, status) << path << " " << body;
    auto answer = json::parse(result->body, nullptr, false);
    ASSERT_TRUE(answer.is_object()) << result->body;
    EXPECT_THAT(answer.value("error", ""), HasSubstr(why)) << path << " " << body;
  }
  json state() { return get("/state.json"); }
  json waitFor(const std::string& what, const std::function<bool(const json&)>& holds, double seconds = 30) {
    auto end = std::chrono::steady_clock::now() + std::chrono::duration<double>(seconds);
    for (;;) {
      json s = state();
      if (holds(s)) return s;
      if (std::chrono::steady_clock::now() > end) {
        ADD_FAILURE() << "timed out waiting for " << what;
        return s;
      }
      std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }
  }
  // A view's frame in window coordinates (the dump gives the superview's).
  static std::array<double, 4> windowFrame(const json& s, std::string id) {
    const auto& frame = s["views"][id]["frame"];
    std::array<double, 4> result{0, 0, frame[2].get<double>(), frame[3].get<double>()};
    while (!id.empty()) {
      const auto& view = s["views"][id];
      result[0] += view["frame"][0].get<double>();
      result[1] += view["frame"][1].get<double>();
      id = view["superview"].is_string() ? view["superview"].get<std::string>() : "";
    }
    return result;
  }
  static json iconCenter(const json& s, const std::string& icon) {
    auto frame = windowFrame(s, s["home"]["iconViews"][icon]);
    return {frame[0] + frame[2] / 2, frame[1] + 30};
  }
  // How far the phone's clock and the wall clock moved while the test slept
  // for `pause` between two readings (the wall clock's span includes both).
  std::pair<double, double> clockOver(std::chrono::milliseconds pause) {
    auto start = std::chrono::steady_clock::now();
    double before = get("/api/status")["time"];
    std::this_thread::sleep_for(pause);
    double after = get("/api/status")["time"];
    return {after - before, std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count()};
  }
  static bool panelOf(const json& s, const std::string& icon) {
    return s["panel"].is_object() && s["panel"]["bundleIdentifier"] == icon;
  }

  ScratchDirectory phoneFiles_{"tessel-serve-test"};
  std::unique_ptr<ServeServer> server_;
  int port_ = 0;
  std::unique_ptr<httplib::Client> client_;
};

TEST_F(Serve, StateIsTheDumpOfTheContractAndCanBeNarrowed) {
  json s = state();
  for (const char* key : {"time", "screen", "shared", "controller", "window", "views", "panel", "home", "animations",
                          "alerts", "launched", "observers", "hooks", "hostCalls"}) {
    EXPECT_TRUE(s.contains(key)) << key;
  }
  EXPECT_TRUE(s["home"]["iconViews"].contains("com.example.mail"));
  EXPECT_EQ(s["screen"]["width"], 390);

  json narrow = get("/state.json?only=panel,time");
  EXPECT_EQ(narrow.size(), 2u);
  EXPECT_TRUE(narrow.contains("panel") && narrow.contains("time"));
  auto bogus = client_->Get("/state.json?only=panel,nonsense");
  ASSERT_TRUE(bogus);
  EXPECT_EQ(bogus->status, 400);
  EXPECT_THAT(bogus->body, HasSubstr("nonsense"));

  // The phone's clock follows the wall clock.
  auto [simulated, wall] = clockOver(std::chrono::milliseconds(300));
  EXPECT_GT(simulated, 0.25);
  EXPECT_LE(simulated, wall + 0.01);
}

TEST_F(Serve, AGestureOpensThePanelAndATapOnARowLaunchesTheApp) {
  refused("/api/tapRow", R"({"row": 0})", 400, "no row 0");
  act("/api/gesture", {{"icon", "com.example.mail"}, {"gesture", "swipeUp"}});
  json open = waitFor("the Mail panel", [](const json& s) { return panelOf(s, "com.example.mail"); });
  EXPECT_EQ(open["panel"]["rows"], 3);
  refused("/api/tapRow", R"({"row": 3})", 400, "no row 3");
  act("/api/tapRow", {{"row", 1}});
  json closed = waitFor("the panel gone", [](const json& s) { return s["panel"].is_null(); });
  EXPECT_EQ(closed["launched"].back(), "com.example.mail");

  refused("/api/gesture", R"({"icon": "com.example.nope", "gesture": "swipeUp"})", 400, "no icon");
  refused("/api/gesture", R"({"icon": "com.example.mail", "gesture": "wave"})", 400, "gesture");
  refused("/api/gesture", R"({"icon": "com.example.mail", "gesture": "hold", "hold": -1})", 400, "hold");
}

TEST_F(Serve, TouchesAtPointsBecomeSwipesAndTaps) {
  json s = state();
  json from = iconCenter(s, "com.example.mail");
  json to = {from[0], from[1].get<double>() - 100};
  act("/api/touch", {{"phase", "down"}, {"point", from}});
  act("/api/touch", {{"phase", "move"}, {"point", {from[0], from[1].get<double>() - 50}}});
  act("/api/touch", {{"phase", "up"}, {"point", to}});
  waitFor("the Mail panel", [](const json& s) { return panelOf(s, "com.example.mail"); });

  // A tap outside the panel lands on the dismiss button.
  act("/api/touch", {{"phase", "down"}, {"point", {195, 820}}});
  act("/api/touch", {{"phase", "up"}, {"point", {195, 820}}});
  json closed = waitFor("the panel gone", [](const json& s) { return s["panel"].is_null(); });
  EXPECT_TRUE(closed["launched"].empty());

  // A tap on an icon launches its app; a tap on a folder's icon opens it.
  act("/api/touch", {{"phase", "down"}, {"point", iconCenter(closed, "com.example.weather")}});
  act("/api/touch", {{"phase", "up"}, {"point", iconCenter(closed, "com.example.weather")}});
  waitFor("Weather launched", [](const json& s) { return !s["launched"].empty(); });

  refused("/api/touch", R"({"phase": "down"})", 400, "point: missing");
  refused("/api/touch", R"({"phase": "press", "point": [1, 2]})", 400, "phase");
  refused("/api/touch", R"({"phase": "down", "point": [1]})", 400, "point");
  refused("/api/touch", R"({"phase": "down", "point": [1, 1e300]})", 400, "point");
}

TEST_F(Serve, SettingsAreWrittenToThePropertyListAndAnnounced) {
  act("/api/settings", {{"darkMode", false}, {"activationMethod", 2}});
  json s = waitFor("light mode", [](const json& s) { return s["shared"]["darkMode"] == false; });
  EXPECT_EQ(s["shared"]["activationMethod"], 2);
  // As the settings pane writes it.
  std::ifstream file(phoneFiles_.path() + std::string(tessel::settings::kPath));
  std::string plist((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
  EXPECT_THAT(plist, HasSubstr("<key>darkMode</key>"));
  EXPECT_THAT(plist, HasSubstr("<false/>"));
  // Every app's icon now takes a double tap as well.
  std::string mail = s["home"]["iconViews"]["com.example.mail"];
  EXPECT_THAT(s["views"][mail]["recognizers"].dump(), HasSubstr(R"("taps":2)"));
  json status = get("/api/status");
  EXPECT_EQ(status["settings"], (json{{"enabled", true}, {"darkMode", false}, {"activationMethod", 2}}));

  refused("/api/settings", "{}", 400, "expected one or more");
  refused("/api/settings", R"({"activationMethod": 5})", 400, "activationMethod");
  refused("/api/settings", R"({"activationMethod": 1.5})", 400, "activationMethod");
  refused("/api/settings", R"({"darkMode": "no"})", 400, "darkMode");
  refused("/api/settings", R"({"darkmode": false})", 400, "unknown field");
}

TEST_F(Serve, TheControlsReachThePhone) {
  act("/api/keyboard", {{"show", true}});
  EXPECT_EQ(get("/api/status")["keyboard"], true);
  act("/api/keyboard", {{"show", false}});
  EXPECT_EQ(get("/api/status")["keyboard"], false);

  act("/api/lock", {{"locked", false}});
  EXPECT_EQ(state()["home"]["locked"], false);
  act("/api/lock", {{"locked", true}});
  EXPECT_EQ(state()["home"]["locked"], true);

  act("/api/notify", {{"icon", "com.example.mail"}, {"title", "Zoe"}, {"message", "Coffee?"}});
  act("/api/gesture", {{"icon", "com.example.mail"}, {"gesture", "swipeUp"}});
  json open =
      waitFor("four rows", [](const json& s) { return panelOf(s, "com.example.mail") && s["panel"]["rows"] == 4; });
  EXPECT_THAT(open["panel"]["cells"].dump(), HasSubstr("Zoe"));
  act("/api/home", json::object());
  waitFor("the panel gone", [](const json& s) { return s["panel"].is_null(); });

  act("/api/page", {{"index", 1}});
  EXPECT_EQ(state()["home"]["page"], 1);
  act("/api/folder", {{"name", "Utilities"}, {"open", true}});
  EXPECT_EQ(state()["home"]["openFolder"], "Utilities");
  act("/api/folder", {{"name", "Utilities"}, {"open", false}});
  EXPECT_TRUE(state()["home"]["openFolder"].is_null());

  refused("/api/notify", R"({"icon": "com.example.nope", "title": "x"})", 400, "no application");
  refused("/api/notify", R"({"icon": "com.example.mail", "title": 5})", 400, "title");
  refused("/api/page", R"({"index": 7})", 400, "no page 7");
  refused("/api/folder", R"({"name": "Games", "open": true})", 400, "no folder");
  refused("/api/keyboard", R"({"show": 1})", 400, "show");
}

TEST_F(Serve, SlowMotionSlowsThePhonesClock) {
  json answer = json::parse(post("/api/speed", {{"speed", 0.1}})->body);
  EXPECT_EQ(answer["speed"], 0.1);
  auto [simulated, wall] = clockOver(std::chrono::milliseconds(500));
  EXPECT_GT(simulated, 0.04);
  EXPECT_LE(simulated, 0.1 * wall + 0.01);
  refused("/api/speed", R"({"speed": 2})", 400, "speed");
  refused("/api/speed", R"({"speed": 0})", 400, "speed");
  EXPECT_EQ(get("/api/status")["speed"], 0.1);
}

TEST_F(Serve, FramesComeAsPngWebpAndRawPixelsAndWaitForChange) {
  // The first frame is drawn on the phone's first tick.
  auto png = client_->Get("/frame.png?after=0&wait=5000");
  ASSERT_TRUE(png);
  ASSERT_EQ(png->status, 200);
  EXPECT_EQ(png->get_header_value("Content-Type"), "image/png");
  ASSERT_GT(png->body.size(), 24u);
  EXPECT_EQ(png->body.substr(1, 3), "PNG");
  auto bigEndian = [&](std::size_t at) {
    const auto* b = reinterpret_cast<const unsigned char*>(png->body.data() + at);
    return (b[0] << 24) | (b[1] << 16) | (b[2] << 8) | b[3];
  };
  EXPECT_EQ(bigEndian(16), 390);  // one pixel a point
  EXPECT_EQ(bigEndian(20), 844);

  auto webp = client_->Get("/frame.webp");
  ASSERT_TRUE(webp);
  EXPECT_EQ(webp->body.substr(0, 4), "RIFF");
  EXPECT_EQ(webp->body.substr(8, 4), "WEBP");
  auto raw = client_->Get("/frame.rgba");
  ASSERT_TRUE(raw);
  EXPECT_EQ(raw->body.size(), 390u * 844u * 4u);

  // Nothing moves on the home screen: a wait for a newer frame ends empty.
  std::string latest = raw->get_header_value("X-Frame");
  auto none = client_->Get("/frame.rgba?after=" + latest + "&wait=200");
  ASSERT_TRUE(none);
  EXPECT_EQ(none->status, 204);
  // The panel opening makes new frames, each shown at its own time.
  act("/api/gesture", {{"icon", "com.example.mail"}, {"gesture", "swipeUp"}});
  auto next = client_->Get("/frame.rgba?after=" + latest + "&wait=5000");
  ASSERT_TRUE(next);
  ASSERT_EQ(next->status, 200);
  EXPECT_GT(std::stoull(next->get_header_value("X-Frame")), std::stoull(latest));
  EXPECT_NE(next->body, raw->body);

  for (const char* bad : {"/frame.png?after=x", "/frame.png?after=-1", "/frame.png?after=1&wait=99999999"}) {
    auto result = client_->Get(bad);
    ASSERT_TRUE(result);
    EXPECT_EQ(result->status, 400) << bad;
  }
}

TEST_F(Serve, ThePageIsServedFromTheProgram) {
  auto page = client_->Get("/");
  ASSERT_TRUE(page);
  EXPECT_EQ(page->status, 200);
  EXPECT_THAT(page->get_header_value("Content-Type"), HasSubstr("text/html"));
  EXPECT_THAT(page->body, HasSubstr("<canvas id=\"screen\""));
  int files = 0;
  for (const auto& asset : tessel::cli::serve::webAssets()) {
    auto result = client_->Get(std::string(asset.path));
    ASSERT_TRUE(result);
    EXPECT_EQ(result->status, 200) << asset.path;
    EXPECT_EQ(result->body, asset.bytes) << asset.path;
    ++files;
  }
  EXPECT_GE(files, 3);
  EXPECT_EQ(client_->Get("/main.js")->get_header_value("Content-Type"), "text/javascript; charset=utf-8");
  auto missing = client_->Get("/missing.js");
  ASSERT_TRUE(missing);
  EXPECT_EQ(missing->status, 404);
  EXPECT_THAT(missing->body, HasSubstr("error"));
}

TEST_F(Serve, BadRequestsAreRefusedWithTheirReasonAndLeaveThePhoneAlone) {
  act("/api/gesture", {{"icon", "com.example.mail"}, {"gesture", "swipeUp"}});
  json before = waitFor("the Mail panel", [](const json& s) { return panelOf(s, "com.example.mail"); });
  std::size_t events = get("/api/status")["events"];

  refused("/api/home", "not json", 400, "not JSON");
  refused("/api/home", "[1, 2]", 400, "object");
  refused("/api/home", R"({"double": true, "extra": 1})", 400, "extra: unknown field");
  refused("/api/lock", "{}", 400, "locked: missing");
  refused("/api/tap", std::string(20, '[') + std::string(20, ']'), 400, "deeper");
  refused("/api/notify", json{{"icon", "com.example.mail"}, {"title", std::string(300, 'x')}}.dump(), 400, "longer");
  refused("/api/notify", std::string(100'000, ' '), 413, "larger than");
  auto nowhere = client_->Post("/api/launchRockets", "{}", "application/json");
  ASSERT_TRUE(nowhere);
  EXPECT_EQ(nowhere->status, 404);

  json after = state();
  EXPECT_TRUE(panelOf(after, "com.example.mail"));
  EXPECT_EQ(get("/api/status")["events"], events);
  EXPECT_GT(after["time"].get<double>(), before["time"].get<double>());
}

TEST_F(Serve, SeveralViewersAtOnceShareOnePhone) {
  // Viewers that give up while waiting for a frame, as a closed tab does.
  for (int i = 0; i < 4; ++i) {
    httplib::Client impatient("127.0.0.1", port_);
    impatient.set_read_timeout(0, 50'000);
    auto result = impatient.Get("/frame.rgba?after=999999&wait=2000");
    EXPECT_FALSE(result);
  }
  std::vector<std::thread> viewers;
  std::atomic<int> failures = 0;
  std::atomic<int> answered = 0;
  for (int v = 0; v < 6; ++v) {
    viewers.emplace_back([&, v] {
      httplib::Client viewer("127.0.0.1", port_);
      viewer.set_read_timeout(30, 0);
      for (int i = 0; i < 10; ++i) {
        auto result = v % 2 ? viewer.Get("/state.json?only=panel,time") : viewer.Get("/frame.webp");
        if (!result || result->status != 200) {
          ++failures;
        } else {
          ++answered;
        }
      }
    });
  }
  act("/api/gesture", {{"icon", "com.example.mail"}, {"gesture", "swipeUp"}});
  for (auto& viewer : viewers) viewer.join();
  EXPECT_EQ(failures, 0);
  EXPECT_EQ(answered, 60);
  // Every viewer sees the one phone.
  httplib::Client other("127.0.0.1", port_);
  waitFor("the Mail panel", [](const json& s) { return panelOf(s, "com.example.mail"); });
  auto seen = other.Get("/state.json?only=panel");
  ASSERT_TRUE(seen);
  EXPECT_EQ(json::parse(seen->body)["panel"]["bundleIdentifier"], "com.example.mail");
}

TEST_F(Serve, TheSessionDownloadsAsAScenarioThatReplaysToTheSameState) {
  json s = state();
  json from = iconCenter(s, "com.example.weather");
  double unlocked = act("/api/lock", {{"locked", false}});
  // The unlock finishes a little later, and a panel open by then would be
  // closed by it, as by any foreign action.
  waitFor("the unlock to finish", [&](const json& s) { return s["time"].get<double>() > unlocked + 1; });
  act("/api/touch", {{"phase", "down"}, {"point", from}});
  act("/api/touch", {{"phase", "up"}, {"point", {from[0], from[1].get<double>() - 90}}});
  waitFor("the Weather panel", [](const json& s) { return panelOf(s, "com.example.weather"); });
  act("/api/keyboard", {{"show", true}});
  act("/api/notify", {{"icon", "com.example.weather"}, {"title", "Sun"}, {"message", "Later today"}});
  act("/api/tapRow", {{"row", 0}});
  act("/api/keyboard", {{"show", false}});
  act("/api/settings", {{"darkMode", false}});
  double last = act("/api/gesture", {{"icon", "com.example.mail"}, {"gesture", "swipeUp"}});
  // `run` takes its final state one second after the last event.
  json live = waitFor("the session to settle", [&](const json& s) { return s["time"].get<double>() > last + 1.2; });

  auto download = client_->Get("/api/scenario");
  ASSERT_TRUE(download);
  EXPECT_THAT(download->get_header_value("Content-Disposition"), HasSubstr("attachment"));
  json scenario = json::parse(download->body);
  ASSERT_EQ(scenario["events"].size(), 8u) << scenario["events"].dump();
  EXPECT_EQ(scenario["events"][1]["do"], "gesture");
  EXPECT_EQ(scenario["events"][1]["gesture"], "swipeUp");
  EXPECT_EQ(scenario["apps"], json::parse(std::string(tessel::cli::demoScenarioText()))["apps"]);

  ScratchDirectory out("tessel-serve-replay");
  std::string file = out.path() + "/session.json";
  std::ofstream(file) << download->body;
  auto outcome = tessel::testing::runTool("run " + file + " --out " + out.path() + "/out");
  ASSERT_EQ(outcome.status, 0) << outcome.output;
  json replayed = json::parse(std::ifstream(out.path() + "/out/final.state.json"));
  live.erase("time");
  replayed.erase("time");
  EXPECT_EQ(replayed, live) << "differs at: " << json::diff(replayed, live).dump().substr(0, 2000);
}

}  // namespace
