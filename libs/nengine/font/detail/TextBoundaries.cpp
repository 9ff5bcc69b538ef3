#include "nengine/font/detail/TextBoundaries.h"

#include "nengine/font/detail/ShapedParagraph.h"

#include <unicode/ubidi.h>
#include <unicode/ubrk.h>
#include <unicode/uchar.h>

#include <algorithm>

namespace nurel::font::detail {

namespace {

// Below this character nothing runs from right to left.
constexpr char32_t FIRST_RIGHT_TO_LEFT = 0x590;

// Below this character, graphemes are single characters but for CR LF, which no paragraph holds.
constexpr char32_t FIRST_COMBINING = 0x300;

bool isHangingSpace(char32_t c) {
    switch (c) {
    case U' ':
    case U'\t':
    case 0x1680:
    case 0x205f:
    case 0x3000:
        return true;
    default:
        // The spaces of given widths, without the figure space, which does not break.
        return c >= 0x2000 && c <= 0x200a && c != 0x2007;
    }
}

} // namespace

Utf16Text::Utf16Text(const std::u32string &characters) {
    const bool simple = std::all_of(characters.begin(), characters.end(), [](char32_t c) { return c < 0x10000; });
    if (simple) {
        units.assign(characters.begin(), characters.end());
        return;
    }
    units.reserve(characters.size() + characters.size() / 2);
    mCharacterOfUnit.reserve(characters.size() + characters.size() / 2 + 1);
    std::uint32_t index = 0;
    for (const char32_t c : characters) {
        if (c < 0x10000) {
            units.push_back(static_cast<char16_t>(c));
        } else {
            units.push_back(static_cast<char16_t>(0xd800 + ((c - 0x10000) >> 10)));
            units.push_back(static_cast<char16_t>(0xdc00 + ((c - 0x10000) & 0x3ff)));
            mCharacterOfUnit.push_back(index);
        }
        mCharacterOfUnit.push_back(index++);
    }
    mCharacterOfUnit.push_back(index);
}

TextBoundaries::TextBoundaries() = default;

TextBoundaries::~TextBoundaries() {
    if (mLineRules)
        ubrk_close(mLineRules);
    if (mGraphemeRules)
        ubrk_close(mGraphemeRules);
    if (mBidi)
        ubidi_close(mBidi);
}

void TextBoundaries::mark(UBreakIterator *rules, const Utf16Text &text, std::uint8_t boundary,
                          std::vector<std::uint8_t> &out) {
    UErrorCode status = U_ZERO_ERROR;
    ubrk_setText(rules, text.units.data(), static_cast<std::int32_t>(text.units.size()), &status);
    if (U_FAILURE(status))
        return;
    for (std::int32_t at = ubrk_first(rules); at != UBRK_DONE; at = ubrk_next(rules))
        out[text.toCharacter(at)] |= boundary;
}

void TextBoundaries::findSimple(const std::u32string &characters, std::vector<std::uint8_t> &out) const {
    for (std::size_t i = 0; i < characters.size(); ++i) {
        out[i] |= ShapedParagraph::GRAPHEME;
        if (i > 0 && isHangingSpace(characters[i - 1]) && !isHangingSpace(characters[i]))
            out[i] |= ShapedParagraph::LINE_BREAK;
    }
}

void TextBoundaries::find(const std::u32string &characters, std::vector<std::uint8_t> &out) {
    for (std::size_t i = 0; i < characters.size(); ++i) {
        if (isHangingSpace(characters[i]))
            out[i] |= ShapedParagraph::SPACE;
    }
    UErrorCode status = U_ZERO_ERROR;
    if (!mLineRules)
        mLineRules = ubrk_open(UBRK_LINE, "", nullptr, 0, &status);
    if (!mGraphemeRules)
        mGraphemeRules = ubrk_open(UBRK_CHARACTER, "", nullptr, 0, &status);
    if (!mLineRules || !mGraphemeRules || U_FAILURE(status)) {
        findSimple(characters, out);
        return;
    }
    const Utf16Text text(characters);
    mark(mLineRules, text, ShapedParagraph::LINE_BREAK, out);
    const bool plain =
        std::all_of(characters.begin(), characters.end(), [](char32_t c) { return c < FIRST_COMBINING; });
    if (plain)
        std::for_each(out.begin(), out.end(), [](std::uint8_t &b) { b |= ShapedParagraph::GRAPHEME; });
    else
        mark(mGraphemeRules, text, ShapedParagraph::GRAPHEME, out);
}

std::uint8_t TextBoundaries::findLevels(const std::u32string &characters, std::vector<std::uint8_t> &out) {
    out.clear();
    if (std::all_of(characters.begin(), characters.end(), [](char32_t c) { return c < FIRST_RIGHT_TO_LEFT; }))
        return 0;
    if (!mBidi)
        mBidi = ubidi_open();
    const Utf16Text text(characters);
    UErrorCode status = U_ZERO_ERROR;
    ubidi_setPara(mBidi, text.units.data(), static_cast<std::int32_t>(text.units.size()), UBIDI_DEFAULT_LTR, nullptr,
                  &status);
    if (U_FAILURE(status) || ubidi_getDirection(mBidi) == UBIDI_LTR)
        return 0;
    const UBiDiLevel *levels = ubidi_getLevels(mBidi, &status);
    if (U_FAILURE(status) || !levels)
        return 0;
    out.resize(characters.size());
    for (std::size_t i = text.units.size(); i-- > 0;)
        out[text.toCharacter(static_cast<std::int32_t>(i))] = levels[i];
    return static_cast<std::uint8_t>(ubidi_getParaLevel(mBidi) & 1);
}

} // namespace nurel::font::detail
