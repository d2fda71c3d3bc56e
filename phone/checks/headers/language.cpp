// Language support: exceptions, allocation, type information, errors.
// The order of these includes is what is being checked.
// clang-format off
#ifndef TESSEL_HEADERS_REVERSED
#include <cstdarg>
#include <exception>
#include <initializer_list>
#include <new>
#include <stdexcept>
#include <system_error>
#include <typeinfo>
#else
#include <typeinfo>
#include <system_error>
#include <stdexcept>
#include <new>
#include <initializer_list>
#include <exception>
#include <cstdarg>
#endif
// clang-format on

bool languageInUse(const std::exception& error) {
  try {
    throw std::runtime_error(error.what());
  } catch (const std::runtime_error& caught) {
    return typeid(caught) == typeid(std::runtime_error) && std::make_error_code(std::errc::timed_out).value() != 0;
  }
}
