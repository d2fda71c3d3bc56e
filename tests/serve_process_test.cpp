#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <regex>
#include <string>
#include <thread>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <httplib.h>

#include "tool_run.h"

// `tessel-sim serve` as a person runs it: started from the shell, stopped
// with Ctrl-C or a SIGTERM.
namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;

// The tool serving on a free port, its output read line by line.
class ServingTool {
 public:
  explicit ServingTool(const std::string& arguments = "") {
    int out[2];
    if (pipe(out) != 0) return;
    pid_ = fork();
    if (pid_ == 0) {
      dup2(out[1], STDOUT_FILENO);
      dup2(out[1], STDERR_FILENO);
      close(out[0]);
      close(out[1]);
      std::string command = std::string(TESSEL_SIM_EXE) + " serve --port 0 " + arguments;
      execl("/bin/sh", "sh", "-c", ("exec " + command).c_str(), static_cast<char*>(nullptr));
      _exit(127);
    }
    close(out[1]);
    output_ = fdopen(out[0], "r");
  }
  ~ServingTool() {
    if (pid_ > 0 && !waited_) {
      kill(pid_, SIGKILL);
      waitpid(pid_, nullptr, 0);
    }
    if (output_) fclose(output_);
  }

  // Reads output until a line matches; its first group, or "".
  std::string await(const std::regex& pattern) {
    char line[4096];
    while (output_ && std::fgets(line, sizeof line, output_)) {
      text_ += line;
      std::smatch match;
      std::string text(line);
      if (std::regex_search(text, match, pattern)) return match.size() > 1 ? match[1].str() : text;
    }
    return "";
  }
  // Signals the tool and returns its exit status (-1: it did not exit).
  int stop(int signal) {
    kill(pid_, signal);
    int status = 0;
    waitpid(pid_, &status, 0);
    waited_ = true;
    char line[4096];
    while (std::fgets(line, sizeof line, output_)) text_ += line;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }
  const std::string& text() const { return text_; }

 private:
  pid_t pid_ = -1;
  bool waited_ = false;
  FILE* output_ = nullptr;
  std::string text_;
};

void stopsCleanlyOn(int signal) {
  ServingTool tool;
  int port = std::stoi("0" + tool.await(std::regex(R"(http://127\.0\.0\.1:(\d+)/)")));
  ASSERT_GT(port, 0) << tool.text();
  std::string files = tool.await(std::regex(R"(files are in (\S+))"));
  ASSERT_TRUE(fs::is_directory(files)) << tool.text();

  httplib::Client client("127.0.0.1", port);
  auto status = client.Get("/api/status");
  ASSERT_TRUE(status);
  EXPECT_EQ(status->status, 200);
  // A viewer waiting for a frame does not hold the stop up.
  std::thread viewer([port] {
    httplib::Client waiting("127.0.0.1", port);
    waiting.set_read_timeout(30, 0);
    waiting.Get("/frame.rgba?after=999999&wait=30000");
  });
  std::this_thread::sleep_for(std::chrono::milliseconds(100));

  auto start = std::chrono::steady_clock::now();
  EXPECT_EQ(tool.stop(signal), 0) << tool.text();
  viewer.join();
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
  EXPECT_THAT(tool.text(), HasSubstr("stopped"));
  EXPECT_FALSE(fs::exists(files)) << "the phone's files are removed";
  EXPECT_FALSE(client.Get("/api/status")) << "nothing answers any more";
}

TEST(ServeTool, StopsCleanlyOnSigterm) { stopsCleanlyOn(SIGTERM); }

TEST(ServeTool, StopsCleanlyOnCtrlC) { stopsCleanlyOn(SIGINT); }

TEST(ServeTool, RefusesWhatItCannotServe) {
  auto missing = tessel::testing::runTool("serve /nonexistent/scenario.json --port 0");
  EXPECT_EQ(missing.status, 2);
  EXPECT_THAT(missing.output, HasSubstr("cannot read the scenario file"));

  auto scale = tessel::testing::runTool("serve --port 0 --scale 9");
  EXPECT_EQ(scale.status, 2);

  // A port already taken.
  httplib::Server holder;
  int taken = holder.bind_to_any_port("127.0.0.1");
  ASSERT_GT(taken, 0);
  auto busy = tessel::testing::runTool("serve --port " + std::to_string(taken));
  EXPECT_EQ(busy.status, 2);
  EXPECT_THAT(busy.output, HasSubstr("cannot listen"));
}

}  // namespace
