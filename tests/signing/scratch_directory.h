#pragma once

#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <vector>

namespace tessel::signing::testing {

// A fresh directory under the system's temporary directory, removed with its contents.
class ScratchDirectory {
 public:
  ScratchDirectory();
  ScratchDirectory(const ScratchDirectory&) = delete;
  ScratchDirectory& operator=(const ScratchDirectory&) = delete;
  ~ScratchDirectory();

  const std::filesystem::path& path() const { return path_; }
  std::filesystem::path write(const std::string& name, std::span<const std::uint8_t> bytes) const;
  std::vector<std::string> fileNames() const;

 private:
  std::filesystem::path path_;
};

std::vector<std::uint8_t> readBytes(const std::filesystem::path& file);

}  // namespace tessel::signing::testing
