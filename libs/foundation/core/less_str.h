#pragma once

#include <cstring>

namespace core {

/// Orders C strings by their bytes, for maps with const char * keys. Null comes before every text.
struct less_str {
    bool operator()(const char *a, const char *b) const noexcept {
        if (!a || !b)
            return !a && b;
        return std::strcmp(a, b) < 0;
    }
};

} // namespace core
