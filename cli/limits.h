#pragma once

#include <cstddef>
#include <cstdint>

#include "sim/png_loader.h"

namespace tessel::cli {

// What a scenario may ask for. Each keeps a hand-written or generated file
// from exhausting the stack, the memory, the disk or the patience of whoever
// runs it; the messages that enforce them state them.

// Objects and arrays inside one another, anywhere in the document.
inline constexpr int kMaxNesting = 64;

inline constexpr std::size_t kMaxEvents = 100'000;

// Frames of one `record`: (until - at) x fps.
inline constexpr double kMaxRecordFrames = 10'000;

// Pixels of one picture, written (width x height x scale^2) or read (a
// wallpaper or an icon): the decoder's own cap.
inline constexpr std::uint64_t kMaxPicturePixels = sim::kMaxPngPixels;

// Characters of a snapshot, record or dump name (the file name adds at most
// ".state.json").
inline constexpr std::size_t kMaxOutputNameLength = 100;

// The name of the dump every run ends with.
inline constexpr const char* kFinalDumpName = "final";

}  // namespace tessel::cli
