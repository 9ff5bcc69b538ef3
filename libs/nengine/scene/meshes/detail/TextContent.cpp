#include "nengine/scene/meshes/detail/TextContent.h"

#include "nengine/font/Font.h"
#include "nengine/font/detail/TextSystem.h"
#include "nengine/scene/meshes/detail/LineBreaker.h"

#include <algorithm>

namespace nurel::scene::meshes::detail {

namespace {

/// Where a paragraph ends and how many bytes its line end has: LF, CR, both together, or one of Unicode's separators
/// (U+2028 and U+2029).
struct LineEnd {
    std::size_t at;
    std::size_t bytes;
    std::uint32_t characters;
};

LineEnd findLineEnd(std::string_view text) {
    for (std::size_t at = 0; (at = text.find_first_of("\n\r\xe2", at)) != std::string_view::npos; ++at) {
        if (text[at] == '\r' && text.substr(at + 1, 1) == "\n")
            return {at, 2, 2};
        if (text[at] == '\r' || text[at] == '\n')
            return {at, 1, 1};
        const std::string_view three = text.substr(at, 3);
        if (three == "\xe2\x80\xa8" || three == "\xe2\x80\xa9")
            return {at, 3, 1};
    }
    return {text.size(), 0, 0};
}

// The last run that begins at or before the character.
std::size_t findRun(const ShapedParagraph &shape, std::uint32_t character) {
    const auto after = std::partition_point(shape.runs.begin(), shape.runs.end(),
                                            [&](const ShapedRun &run) { return run.firstCharacter <= character; });
    return after == shape.runs.begin() ? 0 : static_cast<std::size_t>(after - shape.runs.begin()) - 1;
}

// From the highest level down to the lowest odd one: turns round every stretch of pieces that have at least this level.
void reorder(TextPieces &pieces) {
    std::uint8_t highest = 0;
    std::uint8_t lowestOdd = 255;
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        highest = std::max(highest, pieces[i].level);
        if (pieces[i].level % 2 == 1)
            lowestOdd = std::min(lowestOdd, pieces[i].level);
    }
    for (std::uint8_t level = highest; level >= lowestOdd; --level) {
        for (std::size_t first = 0; first < pieces.size(); ++first) {
            std::size_t end = first;
            while (end < pieces.size() && pieces[end].level >= level)
                ++end;
            for (std::size_t a = first, b = end; a + 1 < b; ++a)
                std::swap(pieces[a], pieces[--b]);
            first = end;
        }
    }
}

} // namespace

TextContent::TextContent(const font::Font &font, std::string_view utf8, font::detail::TextSystem *system)
    : mGeneration(font::detail::TextSystem::getShapeGeneration()) {
    if (system)
        shape(font, utf8, *system);
    else
        mParagraphs.add({});
    layOutNaturally();
}

TextContent::~TextContent() = default;

void TextContent::shape(const font::Font &font, std::string_view utf8, font::detail::TextSystem &system) {
    std::uint32_t character = 0;
    for (;;) {
        const LineEnd end = findLineEnd(utf8);
        TextParagraph paragraph;
        paragraph.shape = system.shape(font, utf8.substr(0, end.at));
        paragraph.firstCharacter = character;
        character += paragraph.getCount() + end.characters;
        mParagraphs.add(std::move(paragraph));
        if (end.bytes == 0)
            return;
        utf8.remove_prefix(end.at + end.bytes);
    }
}

void TextContent::layOutNaturally() {
    for (std::uint32_t i = 0; i < mParagraphs.size(); ++i) {
        const TextParagraph &paragraph = mParagraphs[i];
        const std::uint32_t count = paragraph.getCount();
        const float width = paragraph.shape ? paragraph.shape->width : 0.0f;
        mNatural.lines.add({i, 0, count, count, width, 0.0f});
        mNatural.width = std::max(mNatural.width, width);
    }
}

const TextLayout &TextContent::getLayout(float limit, font::detail::TextSystem *system) {
    if (limit < 0.0f || LineBreaker::fits(mNatural.width, limit) || !system)
        return mNatural;
    if (mWrapped && mWrapped->limit == limit)
        return *mWrapped;
    if (!mWrapped)
        mWrapped = std::make_unique<TextLayout>();
    mWrapped->limit = limit;
    mWrapped->width = 0.0f;
    mWrapped->lines.clear();
    LineBreaker breaker(*system, limit, *mWrapped);
    for (std::uint32_t i = 0; i < mParagraphs.size(); ++i) {
        if (const ShapedParagraph *paragraph = mParagraphs[i].shape.get())
            breaker.breakParagraph(*paragraph, i);
        else
            mWrapped->lines.add(mNatural.lines[i]);
    }
    return *mWrapped;
}

float TextContent::getPieces(const TextLine &line, TextPieces &out) const {
    out.clear();
    const ShapedParagraph *shape = mParagraphs[line.paragraph].shape.get();
    if (!shape || shape->runs.empty() || line.first == line.end)
        return 0.0f;
    for (std::size_t i = findRun(*shape, line.first); i < shape->runs.size(); ++i) {
        const ShapedRun &run = shape->runs[i];
        if (run.firstCharacter >= line.end)
            break;
        const std::uint32_t first = std::max(run.firstCharacter, line.first);
        const std::uint32_t contentEnd = std::min(run.endCharacter, line.contentEnd);
        const std::uint32_t end = std::min(run.endCharacter, line.end);
        if (first < contentEnd)
            out.add({&run, first, contentEnd, run.level});
        if (std::max(first, contentEnd) < end) // hanging spaces run the paragraph's way
            out.add({&run, std::max(first, contentEnd), end, shape->baseLevel});
    }
    reorder(out);
    return shape->baseLevel != 0 ? -line.hang : 0.0f;
}

TextContent::Place TextContent::findPlace(const TextLayout &layout, std::uint32_t character) const {
    // The last paragraph that begins at or before the character, and in it the last line that does.
    std::size_t low = 0;
    for (std::size_t high = mParagraphs.size(); high - low > 1;) {
        const std::size_t middle = (low + high) / 2;
        (mParagraphs[middle].firstCharacter <= character ? low : high) = middle;
    }
    const auto paragraph = static_cast<std::uint32_t>(low);
    const std::uint32_t inside = std::min(character - mParagraphs[low].firstCharacter, mParagraphs[low].getCount());
    std::size_t line = 0;
    for (std::size_t high = layout.lines.size(); high - line > 1;) {
        const std::size_t middle = (line + high) / 2;
        const TextLine &candidate = layout.lines[middle];
        const bool isAfter =
            candidate.paragraph > paragraph || (candidate.paragraph == paragraph && candidate.first > inside);
        (isAfter ? high : line) = middle;
    }
    return {&layout.lines[line], line, inside};
}

float TextContent::getCaret(const TextLine &line, std::uint32_t character) const {
    if (line.first == line.end)
        return 0.0f;
    const bool after = character >= line.end;
    const std::uint32_t wanted = after ? line.end - 1 : character;
    const ShapedParagraph &shape = *mParagraphs[line.paragraph].shape;
    TextPieces pieces;
    double pen = static_cast<double>(getPieces(line, pieces));
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        const TextPiece &piece = pieces[i];
        const bool isHere = wanted >= piece.first && wanted < piece.end;
        const bool backward = piece.run->isRightToLeft();
        const auto glyphs = shape.getGlyphs(*piece.run, piece.first, piece.end);
        // Glyphs of one cluster stand together. Its characters go up to the next cluster, which is the one before in
        // right-to-left text; the first cluster of a piece begins with the piece.
        std::uint32_t endOfBackward = piece.end;
        for (std::size_t g = 0; g < glyphs.size();) {
            const std::size_t begin = g;
            double advance = 0.0;
            for (; g < glyphs.size() && glyphs[g].cluster == glyphs[begin].cluster; ++g)
                advance += static_cast<double>(glyphs[g].advance);
            std::uint32_t first = glyphs[begin].cluster;
            std::uint32_t end = piece.end;
            if (backward) {
                end = endOfBackward;
                endOfBackward = first;
                if (g == glyphs.size())
                    first = piece.first;
            } else {
                if (g < glyphs.size())
                    end = glyphs[g].cluster;
                if (begin == 0)
                    first = piece.first;
            }
            if (isHere && wanted >= first && wanted < end) {
                const double part = static_cast<double>(wanted - first + (after ? 1 : 0)) / (end - first);
                return static_cast<float>(pen + advance * (backward ? 1.0 - part : part));
            }
            pen += advance;
        }
        if (isHere)
            break;
    }
    return static_cast<float>(pen);
}

} // namespace nurel::scene::meshes::detail
