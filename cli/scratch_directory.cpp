#include "cli/scratch_directory.h"

#include <cstdlib>
#include <filesystem>

namespace tessel::cli {

namespace fs = std::filesystem;

ScratchDirectory::ScratchDirectory(const std::string& prefix, const std::string& parent) {
  std::error_code ec;
  fs::path temp = parent.empty() ? fs::temp_directory_path(ec) : fs::path(parent);
  if (ec) return;
  std::string pattern = (temp / (prefix + "-XXXXXX")).string();
  if (char* made = mkdtemp(pattern.data())) path_ = made;
}

ScratchDirectory::~ScratchDirectory() {
  std::error_code ignored;
  if (!path_.empty()) fs::remove_all(path_, ignored);
}

}  // namespace tessel::cli
