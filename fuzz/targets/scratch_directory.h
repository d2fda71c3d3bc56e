#pragma once

#include <filesystem>
#include <string_view>

namespace tessel::fuzz {

// The readers take file names, so every input is first written to a file.
// This is the directory they go to: one per process (several fuzzing jobs
// may share a machine), under the system's temporary directory, made on
// first use and removed when the process exits normally (libFuzzer often
// ends otherwise: scripts/fuzz.sh points TMPDIR into the build directory).
const std::filesystem::path& scratchDirectory();

// Writes `bytes` to `path` whole, making its directories. Stops the process
// when it cannot: a disk that refuses a file is not a finding of the reader.
void writeScratchFile(const std::filesystem::path& path, std::string_view bytes);

}  // namespace tessel::fuzz
