#include "cli/output_file.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <random>

namespace tessel::cli {

bool writeFileAtomically(const std::string& path, std::string_view contents, std::string& error) {
  namespace fs = std::filesystem;
  std::random_device entropy;
  std::string temporary = path + ".tmp-" + std::to_string(entropy());
  {
    std::ofstream out(temporary, std::ios::binary | std::ios::trunc);
    if (!out) {
      error = "cannot write " + temporary + ": " + std::strerror(errno);
      return false;
    }
    out.write(contents.data(), static_cast<std::streamsize>(contents.size()));
    out.close();
    if (!out) {
      error = "cannot write " + temporary + ": " + std::strerror(errno);
      std::error_code ignored;
      fs::remove(temporary, ignored);
      return false;
    }
  }
  std::error_code ec;
  fs::rename(temporary, path, ec);
  if (ec) {
    error = "cannot write " + path + ": " + ec.message();
    fs::remove(temporary, ec);
    return false;
  }
  return true;
}

}  // namespace tessel::cli
