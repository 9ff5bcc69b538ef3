#include "foundation/text/Format.h"

#include <cstdio>

namespace text {

std::string format(const char *format, ...) {
    va_list arguments;
    va_start(arguments, format);
    std::string result = formatV(format, arguments);
    va_end(arguments);
    return result;
}

std::string formatV(const char *format, va_list arguments) {
    if (!format)
        return {};
    char shortText[256];
    va_list again;
    va_copy(again, arguments);
    const int length = std::vsnprintf(shortText, sizeof shortText, format, arguments);
    std::string result;
    if (length > 0) {
        const auto size = static_cast<std::size_t>(length);
        if (size < sizeof shortText) {
            result.assign(shortText, size);
        } else {
            result.resize(size);
            std::vsnprintf(result.data(), size + 1, format, again);
        }
    }
    va_end(again);
    return result;
}

} // namespace text
