#pragma once

#include <string>
#include <string_view>

#include "phone/objc/runtime.h"

namespace tessel::objc {

// The runtime's type code of a C++ type, as its compiler would write it.
// Structs passed to or returned from methods specialize this with their
// runtime name and members (see geometry.h).
template <typename T>
struct TypeEncoding;

#define TESSEL_OBJC_TYPE_ENCODING(type, code)       \
  template <>                                       \
  struct TypeEncoding<type> {                       \
    static constexpr std::string_view value = code; \
  }

TESSEL_OBJC_TYPE_ENCODING(void, "v");
TESSEL_OBJC_TYPE_ENCODING(id, "@");
TESSEL_OBJC_TYPE_ENCODING(Class, "#");
TESSEL_OBJC_TYPE_ENCODING(SEL, ":");
TESSEL_OBJC_TYPE_ENCODING(bool, "B");
TESSEL_OBJC_TYPE_ENCODING(char, "c");
TESSEL_OBJC_TYPE_ENCODING(signed char, "c");
TESSEL_OBJC_TYPE_ENCODING(unsigned char, "C");
TESSEL_OBJC_TYPE_ENCODING(short, "s");
TESSEL_OBJC_TYPE_ENCODING(unsigned short, "S");
TESSEL_OBJC_TYPE_ENCODING(int, "i");
TESSEL_OBJC_TYPE_ENCODING(unsigned int, "I");
// The phone's compiler writes a 64-bit long as a long long.
TESSEL_OBJC_TYPE_ENCODING(long, TESSEL_OBJC_APPLE_RUNTIME && sizeof(long) == 8 ? "q" : "l");
TESSEL_OBJC_TYPE_ENCODING(unsigned long, TESSEL_OBJC_APPLE_RUNTIME && sizeof(long) == 8 ? "Q" : "L");
TESSEL_OBJC_TYPE_ENCODING(long long, "q");
TESSEL_OBJC_TYPE_ENCODING(unsigned long long, "Q");
TESSEL_OBJC_TYPE_ENCODING(float, "f");
TESSEL_OBJC_TYPE_ENCODING(double, "d");
TESSEL_OBJC_TYPE_ENCODING(const char*, "*");

#undef TESSEL_OBJC_TYPE_ENCODING

// Any other pointer travels as an untyped pointer.
template <typename T>
struct TypeEncoding<T*> {
  static constexpr std::string_view value = "^v";
};

// The type string of a method returning R and taking Args after self and _cmd.
// Built once per signature and kept: the runtime may keep the pointer.
template <typename R, typename... Args>
const char* methodTypeEncoding() {
  static const std::string& types = *new std::string([] {
    std::string text(TypeEncoding<R>::value);
    text += "@:";
    ((text += TypeEncoding<Args>::value), ...);
    return text;
  }());
  return types.c_str();
}

// The type string of an instance variable of type T.
template <typename T>
const char* ivarTypeEncoding() {
  static const std::string& types = *new std::string(TypeEncoding<T>::value);
  return types.c_str();
}

}  // namespace tessel::objc
