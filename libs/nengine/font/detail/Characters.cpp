#include "nengine/font/detail/Characters.h"

#include <unicode/uchar.h>

#include <algorithm>

namespace nurel::font::detail {

namespace {

constexpr std::size_t LONGEST_CLUSTER = 16;
constexpr char32_t FIRST_COMBINING = 0x300;
constexpr char32_t ZERO_WIDTH_JOINER = 0x200d;
constexpr char32_t TEXT_PRESENTATION = 0xfe0e;
constexpr char32_t EMOJI_PRESENTATION = 0xfe0f;

UChar32 toIcu(char32_t c) {
    return static_cast<UChar32>(c);
}

bool isMark(char32_t c) {
    return c >= FIRST_COMBINING && (U_GET_GC_MASK(toIcu(c)) & U_GC_M_MASK) != 0;
}

bool isRegionalIndicator(char32_t c) {
    return c >= 0x1f1e6 && c <= 0x1f1ff;
}

bool isModifier(char32_t c) {
    return c >= 0x1f3fb && c <= 0x1f3ff;
}

bool isTag(char32_t c) {
    return c >= 0xe0020 && c <= 0xe007f;
}

} // namespace

bool isControl(char32_t c) {
    return c < 0x20 || (c >= 0x7f && c < 0xa0);
}

bool isInvisible(char32_t c) {
    if (c < 0xad)
        return isControl(c);
    return u_hasBinaryProperty(toIcu(c), UCHAR_DEFAULT_IGNORABLE_CODE_POINT) != 0 || c == 0x2028 || c == 0x2029;
}

std::size_t getClusterLength(std::u32string_view text) {
    std::size_t end = text.empty() ? 0 : 1;
    if (text.size() > 1 && isRegionalIndicator(text[0]) && isRegionalIndicator(text[1]))
        end = 2;
    const std::size_t limit = std::min(text.size(), LONGEST_CLUSTER);
    while (end < limit) {
        const char32_t c = text[end];
        const bool joined =
            text[end - 1] == ZERO_WIDTH_JOINER && u_hasBinaryProperty(toIcu(c), UCHAR_EXTENDED_PICTOGRAPHIC) != 0;
        if (c < FIRST_COMBINING || !(joined || isMark(c) || isModifier(c) || isTag(c) || isInvisible(c)))
            break;
        ++end;
    }
    return end;
}

bool isEmoji(std::u32string_view cluster) {
    const char32_t first = cluster.front();
    if (cluster.size() > 1 && cluster[1] == TEXT_PRESENTATION)
        return false;
    if (cluster.size() > 1 && cluster[1] == EMOJI_PRESENTATION)
        return u_hasBinaryProperty(toIcu(first), UCHAR_EMOJI) != 0;
    return first >= FIRST_COMBINING && u_hasBinaryProperty(toIcu(first), UCHAR_EMOJI_PRESENTATION) != 0;
}

} // namespace nurel::font::detail
