#pragma once

#include <stdexcept>

namespace tessel::signing {

// The file cannot be signed or checked at all: not a usable Mach-O, or unreadable.
class InputError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace tessel::signing
