#pragma once

#include <cstdint>
#include <filesystem>
#include <span>
#include <vector>

namespace tessel::signing {

// Throws InputError when the file cannot be read.
std::vector<std::uint8_t> readWholeFile(const std::filesystem::path& path);

// Writes a temporary file beside `path` (same permissions), flushes it to disk and
// renames it over `path`, so that readers see either the old or the new contents.
// A symbolic link is followed: its target is replaced. Throws std::runtime_error.
void replaceFileContents(const std::filesystem::path& path, std::span<const std::uint8_t> contents);

}  // namespace tessel::signing
