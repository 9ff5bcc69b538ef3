#pragma once

#include <cstdint>
#include <string>
#include <vector>

struct UBiDi;
struct UBreakIterator;

namespace nurel::font::detail {

/// A text in UTF-16, as the Unicode library wants it, with the way back to characters.
struct Utf16Text {
    explicit Utf16Text(const std::u32string &characters);

    std::u16string units;

    /// The character of a position in units; the number of characters at the end.
    std::uint32_t toCharacter(std::int32_t unit) const {
        return mCharacterOfUnit.empty() ? static_cast<std::uint32_t>(unit)
                                        : mCharacterOfUnit[static_cast<std::size_t>(unit)];
    }

private:
    std::vector<std::uint32_t> mCharacterOfUnit; ///< empty where every character is one unit
};

/// Finds where lines may break and letters begin, and which way text runs, by the rules of Unicode. Opening these rules
/// is slow, so one is kept.
class TextBoundaries {
public:
    TextBoundaries();
    ~TextBoundaries();
    TextBoundaries(const TextBoundaries &) = delete;
    TextBoundaries &operator=(const TextBoundaries &) = delete;

    /// Adds `ShapedParagraph::GRAPHEME`, `LINE_BREAK` and `SPACE` to the boundaries of the characters; `out` has one
    /// for each and one for the end. Where the rules cannot be had, every character is a letter and lines break after
    /// spaces.
    void find(const std::u32string &characters, std::vector<std::uint8_t> &out);

    /// The level of each character: even from left to right, odd from right to left; and that of the paragraph, which
    /// its first letter decides. `out` is left empty when everything runs from left to right.
    std::uint8_t findLevels(const std::u32string &characters, std::vector<std::uint8_t> &out);

private:
    void findSimple(const std::u32string &characters, std::vector<std::uint8_t> &out) const;
    static void mark(UBreakIterator *rules, const Utf16Text &text, std::uint8_t boundary,
                     std::vector<std::uint8_t> &out);

    UBreakIterator *mLineRules = nullptr;
    UBreakIterator *mGraphemeRules = nullptr;
    UBiDi *mBidi = nullptr;
};

} // namespace nurel::font::detail
