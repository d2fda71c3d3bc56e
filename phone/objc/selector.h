#pragma once

#include <cstddef>

#include "phone/objc/runtime.h"

namespace tessel::objc {

// A selector's name as a template argument, so that each name is registered
// with the runtime once and then read from a static.
template <std::size_t N>
struct SelectorName {
  consteval SelectorName(const char (&text)[N]) {  // NOLINT(google-explicit-constructor)
    for (std::size_t i = 0; i < N; ++i) chars[i] = text[i];
  }
  char chars[N];
};

// selector<"setFrame:">()
template <SelectorName Name>
SEL selector() {
  static const SEL registered = sel_registerName(Name.chars);
  return registered;
}

namespace literals {

// "setFrame:"_sel
template <SelectorName Name>
SEL operator""_sel() {
  return selector<Name>();
}

}  // namespace literals

}  // namespace tessel::objc
