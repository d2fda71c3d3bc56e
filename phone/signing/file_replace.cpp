#include "phone/signing/file_replace.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

#include "phone/signing/input_error.h"

namespace tessel::signing {
namespace {

std::runtime_error systemError(const std::string& what, const std::filesystem::path& path) {
  return std::runtime_error(what + " " + path.string() + ": " + std::strerror(errno));
}

// Closes the descriptor and removes the temporary file unless it was renamed into place.
class TemporaryFile {
 public:
  explicit TemporaryFile(const std::filesystem::path& beside) {
    std::string pattern = (beside.parent_path() / ("." + beside.filename().string() + ".codesign-XXXXXX")).string();
    fd_ = ::mkstemp(pattern.data());
    if (fd_ < 0) throw systemError("cannot create a temporary file beside", beside);
    path_ = pattern;
  }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;
  ~TemporaryFile() {
    if (fd_ >= 0) ::close(fd_);
    if (!renamed_) ::unlink(path_.c_str());
  }

  void write(std::span<const std::uint8_t> contents) {
    while (!contents.empty()) {
      const ssize_t written = ::write(fd_, contents.data(), contents.size());
      if (written < 0 && errno == EINTR) continue;
      if (written < 0) throw systemError("cannot write", path_);
      contents = contents.subspan(static_cast<std::size_t>(written));
    }
  }

  void commitOver(const std::filesystem::path& target, mode_t mode) {
    if (::fchmod(fd_, mode) != 0) throw systemError("cannot set the permissions of", path_);
    if (::fsync(fd_) != 0) throw systemError("cannot flush", path_);
    const int fd = fd_;
    fd_ = -1;
    if (::close(fd) != 0) throw systemError("cannot close", path_);
    if (::rename(path_.c_str(), target.c_str()) != 0) throw systemError("cannot rename over", target);
    renamed_ = true;
  }

 private:
  int fd_ = -1;
  std::filesystem::path path_;
  bool renamed_ = false;
};

}  // namespace

std::vector<std::uint8_t> readWholeFile(const std::filesystem::path& path) {
  std::error_code error;
  if (std::filesystem::exists(path, error) && !std::filesystem::is_regular_file(path, error)) {
    throw InputError(path.string() + " is not a regular file");
  }
  std::ifstream in(path, std::ios::binary);
  if (!in) throw InputError("cannot open " + path.string() + ": " + std::strerror(errno));
  std::vector<std::uint8_t> bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  if (in.bad()) throw InputError("cannot read " + path.string());
  return bytes;
}

void replaceFileContents(const std::filesystem::path& path, std::span<const std::uint8_t> contents) {
  const std::filesystem::path target = std::filesystem::canonical(path);
  struct stat status {};
  if (::stat(target.c_str(), &status) != 0) throw systemError("cannot stat", target);
  TemporaryFile temporary(target);
  temporary.write(contents);
  temporary.commitOver(target, status.st_mode & 07777);
}

}  // namespace tessel::signing
