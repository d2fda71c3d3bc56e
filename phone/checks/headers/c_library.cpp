// The C library as C++ sees it, and the phone's 64-bit layouts.
// The order of these includes is what is being checked.
// clang-format off
#ifndef TESSEL_HEADERS_REVERSED
#include <pthread.h>
#include <sched.h>
#include <cctype>
#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <cwchar>
#include <cwctype>
#else
#include <cwctype>
#include <cwchar>
#include <ctime>
#include <cstring>
#include <cstdlib>
#include <cstdio>
#include <cmath>
#include <cerrno>
#include <cctype>
#include <sched.h>
#include <pthread.h>
#endif
// clang-format on

#include <type_traits>

static_assert(sizeof(pthread_mutex_t) == 64 && alignof(pthread_mutex_t) == 8);
static_assert(sizeof(pthread_cond_t) == 48);
static_assert(sizeof(pthread_once_t) == 16);
static_assert(sizeof(pthread_attr_t) == 64);
static_assert(sizeof(pthread_mutexattr_t) == 16);
static_assert(std::is_pointer_v<pthread_t>);
static_assert(sizeof(std::mbstate_t) == 128 && alignof(std::mbstate_t) == 8);
static_assert(std::is_same_v<std::wint_t, int>);
static_assert(sizeof(std::time_t) == 8 && sizeof(std::clock_t) == 8);
static_assert(sizeof(std::tm) == 56);
static_assert(sizeof(std::fpos_t) == 8);
static_assert(sizeof(long double) == sizeof(double));

// errno is a per-thread lvalue, reached through a function.
int errnoAfterClear() {
  errno = 0;
  return errno;
}

// The overloads and classification templates that <cmath> builds on the C
// declarations.
bool mathOverloads(float f, double d, long double l) {
  return std::signbit(f) || std::isnan(d) || std::fpclassify(l) == FP_ZERO || std::isless(f, d) ||
         std::abs(f) < std::fmin(d, 1.0) || std::lround(l) == 0 || std::hypot(f, d) > 1.0;
}

bool wideAndNarrow(const char* text, const wchar_t* wide) {
  return std::strlen(text) == std::wcslen(wide) && std::isalpha(text[0]) == std::iswalpha(wide[0]);
}
