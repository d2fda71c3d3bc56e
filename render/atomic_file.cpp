#include "render/atomic_file.h"

#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>

namespace tessel::render {

bool writeFileAtomically(const std::string& path, const std::function<bool(std::FILE*, std::string&)>& write,
                         std::string& error) {
  std::filesystem::path target(path);
  std::string pattern = (target.parent_path() / ("." + target.filename().string() + ".XXXXXX")).string();
  int descriptor = mkstemp(pattern.data());
  if (descriptor < 0) {
    error = "cannot write " + path + ": " + std::strerror(errno);
    return false;
  }
  std::FILE* file = fdopen(descriptor, "wb");
  if (!file) {
    error = "cannot write " + path + ": " + std::strerror(errno);
    close(descriptor);
    std::remove(pattern.c_str());
    return false;
  }
  bool written = write(file, error);
  if (std::fflush(file) != 0 && written) {
    error = "cannot write " + path + ": " + std::strerror(errno);
    written = false;
  }
  if (std::fclose(file) != 0 && written) {
    error = "cannot write " + path + ": " + std::strerror(errno);
    written = false;
  }
  if (written) {
    // mkstemp makes the file private; a picture is as readable as any other output.
    ::chmod(pattern.c_str(), 0644);
    if (std::rename(pattern.c_str(), path.c_str()) != 0) {
      error = "cannot write " + path + ": " + std::strerror(errno);
      written = false;
    }
  }
  if (!written) std::remove(pattern.c_str());
  return written;
}

}  // namespace tessel::render
