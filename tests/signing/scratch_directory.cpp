#include "tests/signing/scratch_directory.h"

#include <stdlib.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace tessel::signing::testing {

ScratchDirectory::ScratchDirectory() {
  std::string pattern = (std::filesystem::temp_directory_path() / "tessel-signing-XXXXXX").string();
  if (::mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("mkdtemp failed");
  path_ = pattern;
}

ScratchDirectory::~ScratchDirectory() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

std::filesystem::path ScratchDirectory::write(const std::string& name, std::span<const std::uint8_t> bytes) const {
  const std::filesystem::path file = path_ / name;
  std::ofstream out(file, std::ios::binary);
  out.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
  if (!out) throw std::runtime_error("cannot write " + file.string());
  return file;
}

std::vector<std::string> ScratchDirectory::fileNames() const {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(path_)) names.push_back(entry.path().filename());
  std::ranges::sort(names);
  return names;
}

std::vector<std::uint8_t> readBytes(const std::filesystem::path& file) {
  std::ifstream in(file, std::ios::binary);
  if (!in) throw std::runtime_error("cannot open " + file.string());
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

}  // namespace tessel::signing::testing
