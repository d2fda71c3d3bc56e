#include "render/atomic_file.h"

#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>

namespace tessel::render {

AtomicFile::AtomicFile(std::string path) : path_(std::move(path)) {
  std::filesystem::path target(path_);
  temporary_ = (target.parent_path() / ("." + target.filename().string() + ".XXXXXX")).string();
  int descriptor = mkstemp(temporary_.data());
  if (descriptor < 0) {
    error_ = "cannot write " + path_ + ": " + std::strerror(errno);
    temporary_.clear();
    return;
  }
  file_ = fdopen(descriptor, "wb");
  if (!file_) {
    error_ = "cannot write " + path_ + ": " + std::strerror(errno);
    close(descriptor);
  }
}

AtomicFile::~AtomicFile() {
  if (file_) std::fclose(file_);
  if (!temporary_.empty()) std::remove(temporary_.c_str());
}

bool AtomicFile::commit(std::string& error) {
  if (!file_) {
    error = error_;
    return false;
  }
  bool written = !std::ferror(file_);
  if (!written) error = "cannot write " + path_ + " (disk full?)";
  if (std::fflush(file_) != 0 && written) {
    error = "cannot write " + path_ + ": " + std::strerror(errno);
    written = false;
  }
  if (std::fclose(file_) != 0 && written) {
    error = "cannot write " + path_ + ": " + std::strerror(errno);
    written = false;
  }
  file_ = nullptr;
  if (!written) return false;
  // mkstemp makes the file private; an output is as readable as any other file.
  ::chmod(temporary_.c_str(), 0644);
  if (std::rename(temporary_.c_str(), path_.c_str()) != 0) {
    error = "cannot write " + path_ + ": " + std::strerror(errno);
    return false;
  }
  temporary_.clear();
  return true;
}

bool writeFileAtomically(const std::string& path, const std::function<bool(std::FILE*, std::string&)>& write,
                         std::string& error) {
  AtomicFile file(path);
  if (!file.file()) {
    error = file.error();
    return false;
  }
  return write(file.file(), error) && file.commit(error);
}

}  // namespace tessel::render
