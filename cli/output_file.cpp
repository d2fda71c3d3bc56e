#include "cli/output_file.h"

#include "render/atomic_file.h"

namespace tessel::cli {

bool writeFileAtomically(const std::string& path, std::string_view contents, std::string& error) {
  return render::writeFileAtomically(
      path,
      [&path, contents](std::FILE* file, std::string& why) {
        if (std::fwrite(contents.data(), 1, contents.size(), file) == contents.size()) return true;
        why = "cannot write " + path + " (disk full?)";
        return false;
      },
      error);
}

}  // namespace tessel::cli
