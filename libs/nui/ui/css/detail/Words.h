#pragma once

#include <cstddef>
#include <cstring>

namespace nurel::ui::css::detail {

/// The number of a word in a list, letter for letter; -1 for another one.
template <std::size_t COUNT>
int findWord(const char *text, const char *const (&words)[COUNT]) {
    for (std::size_t i = 0; i < COUNT; ++i) {
        if (std::strcmp(text, words[i]) == 0)
            return static_cast<int>(i);
    }
    return -1;
}

/// The word of a number; null for one that is not in the list.
template <std::size_t COUNT>
const char *getWord(unsigned int number, const char *const (&words)[COUNT]) {
    return number < COUNT ? words[number] : nullptr;
}

} // namespace nurel::ui::css::detail
