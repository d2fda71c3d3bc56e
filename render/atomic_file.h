#pragma once

#include <cstdio>
#include <functional>
#include <string>

namespace tessel::render {

// A file that appears whole or not at all: it is written under a temporary
// name beside `path`, and takes its name only when committed. Dropped
// uncommitted (an error, a stop), it leaves nothing behind.
class AtomicFile {
 public:
  explicit AtomicFile(std::string path);
  ~AtomicFile();
  AtomicFile(const AtomicFile&) = delete;
  AtomicFile& operator=(const AtomicFile&) = delete;

  // Null (with error() saying why) when the temporary file cannot be made.
  std::FILE* file() const { return file_; }
  const std::string& error() const { return error_; }
  // Closes the file and gives it its name; false with the reason otherwise.
  bool commit(std::string& error);

 private:
  std::string path_;
  std::string temporary_;
  std::FILE* file_ = nullptr;
  std::string error_;
};

// Writes a file whole or not at all: `write` fills the file, which then takes
// the final name. False with the reason otherwise.
bool writeFileAtomically(const std::string& path, const std::function<bool(std::FILE*, std::string&)>& write,
                         std::string& error);

}  // namespace tessel::render
