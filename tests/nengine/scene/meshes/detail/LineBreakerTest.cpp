#include "nengine/scene/meshes/detail/LineBreaker.h"

#include "nengine/font/TestFonts.h"

#include <algorithm>
#include <random>

namespace nurel {
namespace {

using font::detail::ShapedParagraph;
using scene::meshes::detail::LineBreaker;
using scene::meshes::detail::TextLayout;

/// Lines as they are defined, without regard to time: for each one the end is tried everywhere, from the far end back.
class PlainBreaker {
public:
    PlainBreaker(const ShapedParagraph &shape, const std::vector<std::uint8_t> &boundaries, float limit)
        : mBoundaries(boundaries), mCount(shape.characterCount), mLimit(limit) {
        shape.sumAdvances(mSums);
    }

    std::vector<std::uint32_t> findEnds() const {
        std::vector<std::uint32_t> ends;
        for (std::uint32_t first = 0; first < mCount; first = ends.back())
            ends.push_back(findEnd(first));
        if (mCount == 0)
            ends.push_back(0);
        return ends;
    }

private:
    bool is(std::uint32_t i, unsigned int bit) const { return (mBoundaries[i] & bit) != 0; }

    bool fits(std::uint32_t first, std::uint32_t end) const {
        while (end > first && is(end - 1, ShapedParagraph::SPACE))
            --end;
        return LineBreaker::fits(mSums[end] - mSums[first], mLimit);
    }

    std::uint32_t findEnd(std::uint32_t first) const {
        for (std::uint32_t end = mCount; end > first; --end) {
            if ((end == mCount || is(end, ShapedParagraph::LINE_BREAK)) && fits(first, end))
                return end;
        }
        for (std::uint32_t end = mCount; end > first; --end) {
            if (is(end, ShapedParagraph::GRAPHEME) && !is(end, ShapedParagraph::SPACE) && fits(first, end))
                return end;
        }
        std::uint32_t end = first + 1;
        while (end < mCount && (!is(end, ShapedParagraph::GRAPHEME) || is(end, ShapedParagraph::SPACE)))
            ++end;
        return end;
    }

    const std::vector<std::uint8_t> &mBoundaries;
    const std::uint32_t mCount;
    const float mLimit;
    std::vector<double> mSums;
};

class LineBreakerTest : public test::TextTest {};

TEST_F(LineBreakerTest, BreaksRandomTextsAsThePlainWayDoes) {
    const std::vector<std::string> parts = {"n", "nn",        "word",         " ",    "  ",   "-",  "ffi",
                                            "é", "e\xcc\x81", "漢",           "。",   "שלום", "\t", "(",
                                            ")", "\xc2\xa0",  "\xe2\x80\x8b", "12,5", "/"};
    std::mt19937 random(11);
    for (int i = 0; i < 500; ++i) {
        std::string utf8;
        for (auto count = random() % 40; count > 0; --count)
            utf8 += parts[random() % parts.size()];
        const float limit = static_cast<float>(random() % 120) / 10;
        SCOPED_TRACE(testing::Message() << limit << " em: " << utf8);
        const auto shape = getSystem().shape(*manager->getDefaultFont(), utf8);
        TextLayout layout;
        LineBreaker(getSystem(), limit, layout).breakParagraph(*shape, 0);

        std::vector<std::uint32_t> ends;
        std::uint32_t first = 0;
        for (std::size_t line = 0; line < layout.lines.size(); ++line) {
            EXPECT_EQ(layout.lines[line].first, first);
            EXPECT_LE(layout.lines[line].contentEnd, layout.lines[line].end);
            EXPECT_LE(layout.lines[line].width, layout.width);
            first = layout.lines[line].end;
            ends.push_back(first);
        }
        EXPECT_EQ(ends, PlainBreaker(*shape, getSystem().getBoundaries(*shape), limit).findEnds());
    }
}

} // namespace
} // namespace nurel
