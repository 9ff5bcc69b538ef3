#include "foundation/text/Utf8.h"

#include <utf8.h>

#include <cstring>

namespace text {

namespace {

constexpr char32_t REPLACEMENT = 0xFFFD;

/// Calls visit(where the character starts, the character) for each character, until one call returns false.
template <class Visit>
void walk(const char *at, const char *end, Visit visit) {
    while (at != end) {
        const char *const malformed = utf8::find_invalid(at, end);
        while (at != malformed) {
            const char *const start = at;
            const char32_t character = utf8::unchecked::next(at);
            if (!visit(start, character))
                return;
        }
        if (at == end || !visit(at, REPLACEMENT))
            return;
        ++at;
    }
}

} // namespace

unsigned getUTF8Length(const char *text) {
    if (!text)
        return 0;
    unsigned length = 0;
    walk(text, text + std::strlen(text), [&](const char *, char32_t) {
        ++length;
        return true;
    });
    return length;
}

unsigned getUTF8Index(const char *text, unsigned character) {
    if (!text || character == 0)
        return 0;
    // a character takes four bytes at most, so the one that is asked for begins before or right behind this many
    const char *const end = text + strnlen(text, std::size_t{4} * character);
    const char *found = end;
    unsigned index = 0;
    walk(text, end, [&](const char *start, char32_t) {
        if (index++ != character)
            return true;
        found = start;
        return false;
    });
    return static_cast<unsigned>(found - text);
}

std::size_t findMalformedUTF8(std::string_view text) {
    const char *const end = text.data() + text.size();
    const char *const malformed = utf8::find_invalid(text.data(), end);
    return malformed == end ? text.npos : static_cast<std::size_t>(malformed - text.data());
}

std::u32string decodeUTF8(std::string_view text) {
    std::u32string characters;
    characters.reserve(text.size());
    walk(text.data(), text.data() + text.size(), [&](const char *, char32_t character) {
        characters.push_back(character);
        return true;
    });
    return characters;
}

} // namespace text
