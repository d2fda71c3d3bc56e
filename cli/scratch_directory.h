#pragma once

#include <string>

namespace tessel::cli {

// A fresh directory under `parent` (by default the system's temporary
// directory), removed with all it holds when this goes; its path is empty
// when none could be made.
class ScratchDirectory {
 public:
  explicit ScratchDirectory(const std::string& prefix, const std::string& parent = "");
  ~ScratchDirectory();
  ScratchDirectory(const ScratchDirectory&) = delete;
  ScratchDirectory& operator=(const ScratchDirectory&) = delete;
  const std::string& path() const { return path_; }

 private:
  std::string path_;
};

}  // namespace tessel::cli
