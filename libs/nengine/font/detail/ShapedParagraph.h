#pragma once

#include "foundation/core/IRefCount.h"
#include "foundation/core/SmartPtr.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace nurel::font::detail {

class Face;
class TextBoundaries;

/// A glyph with its place relative to the pen, in em, y upward.
struct ShapedGlyph {
    std::uint32_t glyph;
    std::uint32_t cluster; ///< its cluster's first character, counted from the start of the paragraph
    float advance;
    float offsetX;
    float offsetY;
};

/// A stretch of one font, one script and one direction. Its glyphs stand from left to right, so their clusters descend
/// where the level is odd (right to left).
struct ShapedRun {
    ::core::SmartPtr<Face> face;
    std::uint32_t firstCharacter;
    std::uint32_t endCharacter;
    std::uint32_t firstGlyph;
    std::uint32_t endGlyph;
    std::uint8_t level;

    bool isRightToLeft() const { return (level & 1) != 0; }
};

/// A paragraph as the shaper left it: sizes are in em, so one serves every size. Shared by the texts that show it, and
/// never changed once it is made.
class ShapedParagraph : public ::core::IRefCount {
public:
    /// What may happen in front of a character.
    enum Boundary : std::uint8_t {
        CLUSTER = 0x01,    ///< a cluster of glyphs begins
        GRAPHEME = 0x02,   ///< what a reader takes for one letter begins, and a cluster
        LINE_BREAK = 0x04, ///< a line may begin, and a cluster begins
        SPACE = 0x08       ///< the character itself hangs over the end of a line
    };

    ShapedParagraph(std::uint32_t fontId, std::string text);
    ~ShapedParagraph() override;

    const std::uint32_t fontId;
    const std::string text; ///< UTF-8
    std::uint32_t characterCount = 0;
    std::uint8_t baseLevel = 0;  ///< 0 left to right, 1 right to left
    float width = 0.0f;          ///< of everything, spaces at the end included
    std::vector<ShapedRun> runs; ///< in logical order, covering all characters
    std::vector<ShapedGlyph> glyphs;

    /// Boundaries of each character, one more for the end. Looked for at the first call.
    const std::vector<std::uint8_t> &getBoundaries(TextBoundaries &finder) const;
    bool hasBoundaries() const { return !mBoundaries.empty(); }

    /// Adds up advances: element i is how wide the first i characters are. A cluster's advance is shared evenly by its
    /// characters.
    void sumAdvances(std::vector<double> &out) const;

    /// The run's glyphs whose clusters begin in the range of characters, as they stand from left to right.
    std::span<const ShapedGlyph> getGlyphs(const ShapedRun &run, std::uint32_t first, std::uint32_t end) const;

    /// Bytes that it takes, about.
    std::size_t getCost() const;

private:
    void markClusters(std::vector<std::uint8_t> &boundaries) const;

    mutable std::vector<std::uint8_t> mBoundaries;
};

} // namespace nurel::font::detail
