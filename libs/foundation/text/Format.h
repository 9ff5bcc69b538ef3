#pragma once

#include <cstdarg>
#include <string>

namespace text {

/// A text made by printf's rules, of any length. A null format gives an empty text.
std::string format(const char *format, ...) __attribute__((format(printf, 1, 2)));
std::string formatV(const char *format, va_list arguments) __attribute__((format(printf, 1, 0)));

} // namespace text
