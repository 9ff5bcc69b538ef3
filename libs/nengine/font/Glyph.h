#pragma once

#include <cstdint>

namespace nurel::font {

/// Metrics of one character of a font, linear and unhinted, in pixels at the font's own size.
struct Glyph {
    std::uint32_t index; ///< of the glyph in the font file
    float advance;       ///< how far the pen moves on
};

} // namespace nurel::font
