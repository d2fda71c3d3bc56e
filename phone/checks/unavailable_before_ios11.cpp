// Must NOT compile for iOS 7: value() throws bad_optional_access, whose
// type information the phone's C++ library has only from iOS 11.
#include <optional>

int valueOf(const std::optional<int>& maybe) { return maybe.value(); }
