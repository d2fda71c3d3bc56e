#include "fuzz/targets/scratch_directory.h"

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>

namespace tessel::fuzz {

namespace fs = std::filesystem;

namespace {

class ScratchDirectory {
 public:
  ScratchDirectory() : path_(fs::temp_directory_path() / ("tessel-fuzz-" + std::to_string(::getpid()))) {
    std::error_code ec;
    fs::remove_all(path_, ec);
    fs::create_directories(path_, ec);
    if (ec) {
      std::fprintf(stderr, "cannot make the scratch directory %s: %s\n", path_.c_str(), ec.message().c_str());
      std::abort();
    }
  }
  ~ScratchDirectory() {
    std::error_code ec;
    fs::remove_all(path_, ec);
  }
  ScratchDirectory(const ScratchDirectory&) = delete;
  ScratchDirectory& operator=(const ScratchDirectory&) = delete;

  const fs::path& path() const { return path_; }

 private:
  fs::path path_;
};

}  // namespace

const fs::path& scratchDirectory() {
  static const ScratchDirectory directory;
  return directory.path();
}

void writeScratchFile(const fs::path& path, std::string_view bytes) {
  std::error_code ec;
  fs::create_directories(path.parent_path(), ec);
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  if (!out.flush()) {
    std::fprintf(stderr, "cannot write the scratch file %s\n", path.c_str());
    std::abort();
  }
}

}  // namespace tessel::fuzz
