#include "nengine/font/detail/ShapedParagraph.h"

#include "foundation/text/Utf8.h"
#include "nengine/font/detail/Face.h"
#include "nengine/font/detail/TextBoundaries.h"

#include <algorithm>
#include <utility>

namespace nurel::font::detail {

ShapedParagraph::ShapedParagraph(std::uint32_t idOfFont, std::string utf8) : fontId(idOfFont), text(std::move(utf8)) {}

ShapedParagraph::~ShapedParagraph() = default;

const std::vector<std::uint8_t> &ShapedParagraph::getBoundaries(TextBoundaries &finder) const {
    if (mBoundaries.empty()) {
        const std::u32string characters = ::text::decodeUTF8(text);
        mBoundaries.assign(characterCount + 1, 0);
        finder.find(characters, mBoundaries);
        markClusters(mBoundaries);
    }
    return mBoundaries;
}

void ShapedParagraph::markClusters(std::vector<std::uint8_t> &boundaries) const {
    for (const ShapedRun &run : runs) {
        boundaries[run.firstCharacter] |= CLUSTER;
        for (std::uint32_t i = run.firstGlyph; i < run.endGlyph; ++i)
            boundaries[glyphs[i].cluster] |= CLUSTER;
    }
    boundaries[characterCount] |= CLUSTER;
    for (std::uint8_t &boundary : boundaries) {
        if (!(boundary & CLUSTER))
            boundary = static_cast<std::uint8_t>(boundary & ~(GRAPHEME | LINE_BREAK));
    }
}

void ShapedParagraph::sumAdvances(std::vector<double> &out) const {
    // First each character's own advance, one place to the right, then the sums.
    out.assign(characterCount + 1, 0.0);
    const auto share = [&](std::uint32_t first, std::uint32_t end, double advance) {
        for (std::uint32_t i = first; i < end; ++i)
            out[i + 1] = advance / (end - first);
    };
    for (const ShapedRun &run : runs) {
        const std::uint32_t count = run.endGlyph - run.firstGlyph;
        std::uint32_t first = run.firstCharacter;
        std::uint32_t cluster = 0;
        double advance = 0.0;
        for (std::uint32_t i = 0; i < count; ++i) {
            const ShapedGlyph &glyph = glyphs[run.isRightToLeft() ? run.endGlyph - 1 - i : run.firstGlyph + i];
            if (i > 0 && glyph.cluster > cluster) {
                share(first, glyph.cluster, advance);
                first = glyph.cluster;
                advance = 0.0;
            }
            cluster = glyph.cluster;
            advance += static_cast<double>(glyph.advance);
        }
        share(first, run.endCharacter, advance);
    }
    for (std::uint32_t i = 0; i < characterCount; ++i)
        out[i + 1] += out[i];
}

std::span<const ShapedGlyph> ShapedParagraph::getGlyphs(const ShapedRun &run, std::uint32_t first,
                                                        std::uint32_t end) const {
    const auto begin = glyphs.begin() + run.firstGlyph;
    const auto stop = glyphs.begin() + run.endGlyph;
    if (first <= run.firstCharacter && end >= run.endCharacter)
        return {begin, stop};
    if (run.isRightToLeft()) {
        const auto from = std::partition_point(begin, stop, [&](const ShapedGlyph &g) { return g.cluster >= end; });
        return {from, std::partition_point(from, stop, [&](const ShapedGlyph &g) { return g.cluster >= first; })};
    }
    const auto from = std::partition_point(begin, stop, [&](const ShapedGlyph &g) { return g.cluster < first; });
    return {from, std::partition_point(from, stop, [&](const ShapedGlyph &g) { return g.cluster < end; })};
}

std::size_t ShapedParagraph::getCost() const {
    return sizeof(ShapedParagraph) + text.capacity() + runs.capacity() * sizeof(ShapedRun) +
           glyphs.capacity() * sizeof(ShapedGlyph);
}

} // namespace nurel::font::detail
