#pragma once

#include "nengine/scene/meshes/detail/TextContent.h"

#include <cstdint>
#include <vector>

namespace nurel::scene::meshes::detail {

/// Breaks paragraphs into lines of a limited width: as much on each line as goes on it, up to the last place where the
/// rules of Unicode let a line break, and inside a word only where that alone is wider than a line. Its time is in
/// proportion to the text.
class LineBreaker {
public:
    /// The limit is in em and not negative.
    LineBreaker(font::detail::TextSystem &system, float limit, TextLayout &out);

    /// Adds the lines of a paragraph, at least one.
    void breakParagraph(const ShapedParagraph &shape, std::uint32_t paragraph);

    /// Sums of floats differ by a little depending on where they begin; a text has to fit into the width that it was
    /// measured to have.
    static bool fits(double width, float limit) { return width <= static_cast<double>(limit) + TOLERANCE; }

private:
    static constexpr double TOLERANCE = 1.0 / 1024; // em

    std::uint32_t findLineEnd(std::uint32_t first) const;
    std::uint32_t findForcedEnd(std::uint32_t first, std::uint32_t overflow) const;
    void addLine(std::uint32_t paragraph, std::uint32_t first, std::uint32_t end);

    bool is(std::uint32_t character, std::uint8_t boundary) const {
        return ((*mBoundaries)[character] & boundary) != 0;
    }
    double getWidth(std::uint32_t first, std::uint32_t end) const { return mSums[end] - mSums[first]; }

    font::detail::TextSystem &mSystem;
    const float mLimit;
    TextLayout &mOut;
    std::uint32_t mCount = 0;
    const std::vector<std::uint8_t> *mBoundaries = nullptr;
    std::vector<double> mSums;
};

} // namespace nurel::scene::meshes::detail
