#include "cli/runner.h"

#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <list>
#include <memory>
#include <ostream>
#include <sstream>

#include <fmt/format.h>

#include "cli/dump_file.h"
#include "cli/expect.h"
#include "cli/output_file.h"
#include "cli/progress.h"
#include "cli/scratch_directory.h"
#include "cli/stop_signal.h"
#include "cli/timeline.h"
#include "render/atomic_file.h"
#include "render/render.h"
#include "sim/world.h"

namespace tessel::cli {

namespace fs = std::filesystem;
using nlohmann::json;

namespace {

// How long after the last event the final state is taken, so that every
// animation and queued block has settled.
constexpr double kSettleTime = 1.0;

class Run {
 public:
  Run(const Scenario& scenario, const RunOptions& options, std::ostream& out, std::ostream& err)
      : scenario_(scenario), options_(options), out_(out), err_(err) {}

  int play() {
    std::error_code ec;
    fs::create_directories(options_.outDirectory, ec);
    if (ec || !fs::is_directory(options_.outDirectory)) {
      err_ << "cannot make the output directory " << options_.outDirectory << ": " << ec.message() << "\n";
      return kExitInvalid;
    }
    // The phone's file system, gone at the end; inside the output directory,
    // so that even a killed run leaves nothing elsewhere.
    ScratchDirectory phone(".tessel-phone", options_.outDirectory);
    if (phone.path().empty()) {
      err_ << "cannot make a scratch directory for the phone's files\n";
      return kExitInvalid;
    }
    // The trace and the timeline are written as the run goes, and appear
    // only when it has ended.
    render::AtomicFile traceFile(outPath("trace.jsonl"));
    render::AtomicFile timelineFile(outPath("timeline.json"));
    for (const auto* file : {&traceFile, &timelineFile}) {
      if (!file->file()) {
        err_ << file->error() << "\n";
        return kExitInvalid;
      }
    }
    TimelineFile timeline(timelineFile.file());

    sim::WorldConfig config = scenario_.world;
    config.fileSystemRoot = phone.path();
    config.keepEndedAnimationsOnDisk = true;
    sim::World world(config);
    world_ = &world;
    world.streamTrace([&](const json& line) {
      std::string text = line.dump();
      text += '\n';
      std::fwrite(text.data(), 1, text.size(), traceFile.file());
      timeline.traceLine(line);
    });

    double end = 0;
    for (const Event& event : scenario_.events) {
      advanceTo(event.at);
      if (stopped()) return stop();
      perform(event);
      end = std::max({end, event.at, event.action == "record" ? event.until : 0.0});
      if (failedToWrite_) return kExitInvalid;
      ++done_;
      showProgress();
    }
    advanceTo(end + kSettleTime);
    if (stopped()) return stop();
    finishRecordings();
    progress_.finish(done_, world.time(), pictures_);
    world.streamTrace({});
    std::string error;
    if (!writeDumpFile(outPath("final.state.json"), world, error,
                       [&](const json& animation) { timeline.animation(animation); })) {
      err_ << error << "\n";
      return kExitInvalid;
    }
    timeline.finish();
    if (!traceFile.commit(error) || !timelineFile.commit(error)) {
      err_ << error << "\n";
      failedToWrite_ = true;
    }
    if (failedToWrite_) return kExitInvalid;
    return expectationsFailed_ ? kExitExpectFailed : kExitOk;
  }

 private:
  std::string outPath(const std::string& name) const { return (fs::path(options_.outDirectory) / name).string(); }

  bool stopped() const { return stopSignal() != 0; }

  void showProgress() { progress_.update(done_, world_->time(), pictures_); }

  // What a stop leaves: the files finished so far, nothing half written.
  int stop() {
    world_->streamTrace({});
    err_ << fmt::format(
        "tessel-sim: stopped by signal {} after {} of {} events at simulated t={}; the files written "
        "so far are complete, the trace, timeline and final state were not written\n",
        stopSignal(), done_, scenario_.events.size(), world_->time());
    return 128 + stopSignal();
  }

  double pictureScale() const { return options_.scale.value_or(scenario_.world.screen.scale); }

  // Moves the clock forward, taking the frames of running recordings on the way.
  void advanceTo(double t) {
    for (;;) {
      Recording* next = nullptr;
      for (auto& recording : recordings_) {
        if (recording.nextFrame <= t + 1e-9 && (!next || recording.nextFrame < next->nextFrame)) next = &recording;
      }
      if (!next || stopped()) break;
      world_->advanceTo(std::max(world_->time(), next->nextFrame));
      next->animation->addFrame(render::renderWorld(*world_, pictureScale()));
      showProgress();
      ++next->frame;
      next->nextFrame = next->start + next->frame / next->fps;
      if (next->nextFrame > next->until + 1e-9) finishRecording(*next);
      recordings_.remove_if([](const Recording& r) { return r.done; });
    }
    if (stopped()) return;
    // Blocks queued by an earlier event of the same instant run first.
    world_->advanceTo(std::max(t, world_->time()));
  }

  void perform(const Event& e) {
    sim::World& w = *world_;
    const std::string& a = e.action;
    bool known = true;
    if (a == "unlock") {
      w.unlock();
    } else if (a == "lock") {
      w.lock();
    } else if (a == "layout") {
      known = w.layout(e.icon.empty() ? std::nullopt : std::optional<std::string>(e.icon));
    } else if (a == "gesture") {
      known = w.gesture(e.icon, e.gesture, e.hold);
    } else if (a == "tap") {
      w.tap(e.point);
    } else if (a == "tapRow") {
      known = w.tapRow(e.row);
    } else if (a == "home") {
      w.home(e.handled);
    } else if (a == "doubleHome") {
      w.doubleHome(e.handled);
    } else if (a == "switcherTap") {
      known = w.switcherTap(e.icon);
    } else if (a == "switcherLaunch") {
      known = w.switcherLaunch(e.icon);
    } else if (a == "launch") {
      known = w.launch(e.icon);
    } else if (a == "keyboard") {
      w.keyboard(e.show, e.frame);
    } else if (a == "editing") {
      w.editing(e.on);
    } else if (a == "openFolder") {
      known = w.openFolder(e.folder);
    } else if (a == "closeFolder") {
      known = w.closeFolder(e.folder);
    } else if (a == "page") {
      known = w.page(e.index);
    } else if (a == "notify") {
      w.notify(e.icon, e.notification);
    } else if (a == "settings") {
      w.settings(e.settings);
    } else if (a == "dump") {
      std::string error;
      if (!writeDumpFile(outPath(e.name + ".state.json"), w, error)) {
        err_ << error << "\n";
        failedToWrite_ = true;
      }
    } else if (a == "expect") {
      // A long run's animations are many: only a pointer that may reach them pays for them.
      bool reachesAnimations =
          e.pointer.find("animations") != std::string::npos || e.pointer.find('{') != std::string::npos;
      if (auto failure = checkExpectation(e, reachesAnimations ? w.dump() : w.dumpWithoutAnimations())) {
        out_ << fmt::format("expect failed at t={}: {}\n", e.at, *failure);
        expectationsFailed_ = true;
      }
    } else if (a == "snapshot") {
      snapshot(e);
    } else if (a == "record") {
      startRecording(e);
    }
    if (!known) err_ << fmt::format("note: at t={} the {} event found nothing to act on\n", e.at, a);
  }

  void snapshot(const Event& e) {
    std::string path = (fs::path(options_.outDirectory) / (e.name + ".png")).string();
    std::string error;
    if (!render::writePng(render::renderWorld(*world_, pictureScale()), path, error)) {
      err_ << error << "\n";
      failedToWrite_ = true;
      return;
    }
    wrote(path);
  }

  void startRecording(const Event& e) {
    const auto& screen = scenario_.world.screen;
    int width = static_cast<int>(std::lround(screen.width * pictureScale()));
    int height = static_cast<int>(std::lround(screen.height * pictureScale()));
    Recording recording;
    recording.name = e.name;
    recording.start = e.at;
    recording.until = e.until;
    recording.fps = e.fps;
    recording.nextFrame = e.at;
    recording.animation = std::make_shared<render::Animation>(width, height, e.fps);
    recordings_.push_back(recording);
    advanceTo(e.at);
  }

  void finishRecordings() {
    for (auto& recording : recordings_) finishRecording(recording);
    recordings_.clear();
  }

  struct Recording {
    std::string name;
    double start = 0;
    double until = 0;
    double fps = 60;
    int frame = 0;
    double nextFrame = 0;
    bool done = false;
    std::shared_ptr<render::Animation> animation;
  };

  void finishRecording(Recording& recording) {
    if (recording.done) return;
    recording.done = true;
    std::string path = (fs::path(options_.outDirectory) / (recording.name + ".webp")).string();
    std::string error;
    if (!recording.animation->write(path, error)) {
      err_ << error << "\n";
      failedToWrite_ = true;
      return;
    }
    wrote(path);
  }

  std::list<Recording> recordings_;

  void write(const std::string& name, const std::string& contents) {
    std::string path = (fs::path(options_.outDirectory) / name).string();
    std::string error;
    if (!writeFileAtomically(path, contents, error)) {
      err_ << error << "\n";
      failedToWrite_ = true;
    }
  }

  void wrote(const std::string& path) {
    ++pictures_;
    if (options_.progress) out_ << fmt::format("[{}] wrote {}\n", pictures_, path);
  }

  const Scenario& scenario_;
  const RunOptions& options_;
  std::ostream& out_;
  std::ostream& err_;
  sim::World* world_ = nullptr;
  bool expectationsFailed_ = false;
  bool failedToWrite_ = false;
  int pictures_ = 0;
  std::size_t done_ = 0;
  Progress progress_{err_, scenario_.events.size()};
};

}  // namespace

int runScenario(const Scenario& scenario, const RunOptions& options, std::ostream& out, std::ostream& err) {
  return Run(scenario, options, out, err).play();
}

}  // namespace tessel::cli
