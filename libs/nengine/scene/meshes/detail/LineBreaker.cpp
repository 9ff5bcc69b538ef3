#include "nengine/scene/meshes/detail/LineBreaker.h"

#include "nengine/font/detail/TextSystem.h"

#include <algorithm>

namespace nurel::scene::meshes::detail {

LineBreaker::LineBreaker(font::detail::TextSystem &system, float limit, TextLayout &out)
    : mSystem(system), mLimit(limit), mOut(out) {}

void LineBreaker::breakParagraph(const ShapedParagraph &shape, std::uint32_t paragraph) {
    mCount = shape.characterCount;
    if (fits(static_cast<double>(shape.width), mLimit)) {
        mOut.lines.add({paragraph, 0, mCount, mCount, shape.width, 0.0f});
        mOut.width = std::max(mOut.width, shape.width);
        return;
    }
    mBoundaries = &mSystem.getBoundaries(shape);
    shape.sumAdvances(mSums);
    for (std::uint32_t first = 0; first < mCount;) {
        const std::uint32_t end = findLineEnd(first);
        addLine(paragraph, first, end);
        first = end;
    }
}

std::uint32_t LineBreaker::findLineEnd(std::uint32_t first) const {
    std::uint32_t lastBreak = first;
    for (std::uint32_t i = first; i < mCount; ++i) {
        if (i > first && is(i, ShapedParagraph::LINE_BREAK))
            lastBreak = i;
        if (is(i, ShapedParagraph::SPACE) || fits(getWidth(first, i + 1), mLimit))
            continue;
        return lastBreak > first ? lastBreak : findForcedEnd(first, i);
    }
    return mCount;
}

std::uint32_t LineBreaker::findForcedEnd(std::uint32_t first, std::uint32_t overflow) const {
    // At least one letter, however narrow the line is.
    std::uint32_t end = overflow;
    while (end > first && !is(end, ShapedParagraph::GRAPHEME))
        --end;
    if (end > first)
        return end;
    end = first + 1;
    while (end < mCount && !is(end, ShapedParagraph::GRAPHEME))
        ++end;
    while (end < mCount && is(end, ShapedParagraph::SPACE)) // these hang
        ++end;
    return end;
}

void LineBreaker::addLine(std::uint32_t paragraph, std::uint32_t first, std::uint32_t end) {
    std::uint32_t contentEnd = end;
    while (contentEnd > first && is(contentEnd - 1, ShapedParagraph::SPACE))
        --contentEnd;
    const double full = getWidth(first, end);
    double width = getWidth(first, contentEnd);
    if (end == mCount) {
        // Spaces at the end of the paragraph are there to be seen by whoever types them, as far as the line goes.
        width = std::max(width, std::min(full, static_cast<double>(mLimit)));
        contentEnd = end;
    }
    mOut.lines.add({paragraph, first, contentEnd, end, static_cast<float>(width),
                    static_cast<float>(std::max(0.0, full - width))});
    mOut.width = std::max(mOut.width, static_cast<float>(width));
}

} // namespace nurel::scene::meshes::detail
