#pragma once

#include <ostream>
#include <span>
#include <string_view>

namespace tessel::signing {

inline constexpr int kExitValid = 0;
inline constexpr int kExitInvalidSignature = 1;
inline constexpr int kExitBadInput = 2;

// `tessel-codesign` without the program name: `sign FILE [--identifier ID]` or
// `verify FILE`. Returns the exit status.
int runCodesignCommand(std::span<const std::string_view> arguments, std::ostream& out, std::ostream& err);

}  // namespace tessel::signing
