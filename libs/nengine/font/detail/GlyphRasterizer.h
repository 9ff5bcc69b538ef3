#pragma once

#include <cstdint>
#include <vector>

namespace nurel::font::detail {

class Face;

/// A rasterised glyph: premultiplied RGBA rows from the top. A glyph without a shape has no pixels.
struct GlyphImage {
    std::vector<std::uint8_t> rgba;
    unsigned int width = 0;
    unsigned int height = 0;
    int left = 0;       ///< from the pen to the first column, in pixels
    int top = 0;        ///< from the base line up to the top of the first row, in pixels
    float scale = 1.0f; ///< pixels of the size that was asked for that one pixel of the image stands for
    bool colored = false;
};

/// Draws glyphs of faces at given sizes, lightly hinted: only heights are fitted to the pixels.
class GlyphRasterizer {
public:
    /// Positions between two pixels at which a glyph is drawn.
    static constexpr unsigned int SUBPIXEL_BINS = 4;

    /// `quarters` is the size in quarters of a pixel, `bin` the shift to the right in fractions of SUBPIXEL_BINS. An
    /// image that would be larger than `largestSide` is drawn smaller and tells it in its scale. False, with an empty
    /// image, when the glyph cannot be drawn.
    bool rasterize(const Face &face, std::uint32_t glyph, unsigned int quarters, unsigned int bin,
                   unsigned int largestSide, GlyphImage &out);

private:
    bool rasterizeAt(const Face &face, std::uint32_t glyph, float size, unsigned int bin, GlyphImage &out);
    bool rasterizePicture(const Face &face, std::uint32_t glyph, float size, GlyphImage &out);
};

} // namespace nurel::font::detail
