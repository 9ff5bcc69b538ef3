#include "nengine/font/detail/GlyphRasterizer.h"

#include "nengine/font/detail/Face.h"

#include <ft2build.h>
#include FT_FREETYPE_H
#include <freetype/ftoutln.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

namespace nurel::font::detail {

namespace {

constexpr float FIXED = 64.0f; // the rasteriser counts in 64ths of a pixel

bool setSize(FT_Face face, float size) {
    const auto fixed = static_cast<FT_F26Dot6>(std::lround(size * FIXED));
    return FT_Set_Char_Size(face, 0, std::max<FT_F26Dot6>(fixed, 1), 72, 72) == 0;
}

// Coverage becomes white of that alpha.
void copyCoverage(const FT_Bitmap &bitmap, GlyphImage &out) {
    std::uint8_t *to = out.rgba.data();
    for (unsigned int y = 0; y < bitmap.rows; ++y) {
        const unsigned char *row = bitmap.buffer + static_cast<std::ptrdiff_t>(y) * bitmap.pitch;
        for (unsigned int x = 0; x < bitmap.width; ++x, to += 4) {
            const bool gray = bitmap.pixel_mode == FT_PIXEL_MODE_GRAY;
            const auto alpha = gray ? row[x] : static_cast<std::uint8_t>((row[x / 8] >> (7 - x % 8) & 1) * 255);
            std::fill(to, to + 4, alpha);
        }
    }
}

// Blue first becomes red first; both are premultiplied.
void copyColors(const FT_Bitmap &bitmap, GlyphImage &out) {
    std::uint8_t *to = out.rgba.data();
    for (unsigned int y = 0; y < bitmap.rows; ++y) {
        const unsigned char *from = bitmap.buffer + static_cast<std::ptrdiff_t>(y) * bitmap.pitch;
        for (unsigned int x = 0; x < bitmap.width; ++x, from += 4, to += 4) {
            to[0] = from[2];
            to[1] = from[1];
            to[2] = from[0];
            to[3] = from[3];
        }
    }
}

bool copySlot(const FT_GlyphSlotRec &slot, GlyphImage &out) {
    const FT_Bitmap &bitmap = slot.bitmap;
    out.colored = bitmap.pixel_mode == FT_PIXEL_MODE_BGRA;
    if (!out.colored && bitmap.pixel_mode != FT_PIXEL_MODE_GRAY && bitmap.pixel_mode != FT_PIXEL_MODE_MONO)
        return false;
    out.left = slot.bitmap_left;
    out.top = slot.bitmap_top;
    if (bitmap.width == 0 || bitmap.rows == 0)
        return true;
    out.width = bitmap.width;
    out.height = bitmap.rows;
    out.rgba.resize(std::size_t{out.width} * out.height * 4);
    if (out.colored)
        copyColors(bitmap, out);
    else
        copyCoverage(bitmap, out);
    return true;
}

// One axis of an area average: which source pixels make a target pixel, and how much of each.
struct Coverage {
    int first = 0;
    std::vector<float> weights;
};

std::vector<Coverage> computeCoverage(float origin, float ratio, unsigned int sourceCount, int targetFirst,
                                      unsigned int targetCount) {
    // Target pixel i covers [(targetFirst + i) / ratio - origin, …) of the source.
    std::vector<Coverage> axis(targetCount);
    for (unsigned int i = 0; i < targetCount; ++i) {
        const float begin = static_cast<float>(targetFirst + static_cast<int>(i)) / ratio - origin;
        const float end = begin + 1.0f / ratio;
        const int first = std::max(0, static_cast<int>(std::floor(begin)));
        const int last = std::min(static_cast<int>(sourceCount), static_cast<int>(std::ceil(end)));
        axis[i].first = first;
        for (int s = first; s < last; ++s) {
            const float covered = std::min(end, static_cast<float>(s + 1)) - std::max(begin, static_cast<float>(s));
            axis[i].weights.push_back(std::max(0.0f, covered) * ratio);
        }
    }
    return axis;
}

// Shrinks a picture by area average, around its pen and base line.
void resample(GlyphImage &image, float ratio) {
    const auto source = std::move(image.rgba);
    const unsigned int sourceWidth = image.width;
    const float left = static_cast<float>(image.left) * ratio;
    const float top = static_cast<float>(-image.top) * ratio;
    const int x0 = static_cast<int>(std::floor(left));
    const int y0 = static_cast<int>(std::floor(top));
    const int x1 = static_cast<int>(std::ceil(left + static_cast<float>(image.width) * ratio));
    const int y1 = static_cast<int>(std::ceil(top + static_cast<float>(image.height) * ratio));
    const auto columns =
        computeCoverage(static_cast<float>(image.left), ratio, image.width, x0, static_cast<unsigned int>(x1 - x0));
    const auto rows =
        computeCoverage(static_cast<float>(-image.top), ratio, image.height, y0, static_cast<unsigned int>(y1 - y0));
    image.width = static_cast<unsigned int>(columns.size());
    image.height = static_cast<unsigned int>(rows.size());
    image.left = x0;
    image.top = -y0;
    image.rgba.assign(std::size_t{image.width} * image.height * 4, 0);
    std::uint8_t *to = image.rgba.data();
    for (const Coverage &row : rows) {
        for (const Coverage &column : columns) {
            float sum[4] = {};
            for (std::size_t j = 0; j < row.weights.size(); ++j) {
                const std::uint8_t *from = source.data() + ((static_cast<std::size_t>(row.first) + j) * sourceWidth +
                                                            static_cast<std::size_t>(column.first)) *
                                                               4;
                for (std::size_t i = 0; i < column.weights.size(); ++i, from += 4) {
                    const float weight = row.weights[j] * column.weights[i];
                    for (int channel = 0; channel < 4; ++channel)
                        sum[channel] += weight * static_cast<float>(from[channel]);
                }
            }
            for (const float value : sum)
                *to++ = static_cast<std::uint8_t>(std::clamp(std::lround(value), 0L, 255L));
        }
    }
}

// The picture size to shrink from: the smallest that is large enough, else the largest. -1: the face has none.
int findPictureSize(FT_Face face, float size) {
    int best = -1;
    for (int i = 0; i < face->num_fixed_sizes; ++i) {
        const float candidate = static_cast<float>(face->available_sizes[i].y_ppem) / FIXED;
        const float chosen = best < 0 ? 0.0f : static_cast<float>(face->available_sizes[best].y_ppem) / FIXED;
        const bool better = chosen < size ? candidate > chosen : candidate >= size && candidate < chosen;
        if (best < 0 || better)
            best = i;
    }
    return best;
}

} // namespace

bool GlyphRasterizer::rasterize(const Face &face, std::uint32_t glyph, unsigned int quarters, unsigned int bin,
                                unsigned int largestSide, GlyphImage &out) {
    const float size = static_cast<float>(quarters) / 4.0f;
    float smaller = size;
    // A glyph may be many times as wide as an em. Twice is enough, since the first image tells how large it is.
    for (int attempt = 0; attempt < 3; ++attempt) {
        out = GlyphImage();
        if (!rasterizeAt(face, glyph, smaller, bin, out))
            break;
        out.scale *= size / smaller;
        const unsigned int side = std::max(out.width, out.height);
        if (side <= largestSide)
            return true;
        smaller *= 0.98f * static_cast<float>(largestSide) / static_cast<float>(side);
        bin = 0;
    }
    out = GlyphImage();
    return false;
}

bool GlyphRasterizer::rasterizeAt(const Face &face, std::uint32_t glyph, float size, unsigned int bin,
                                  GlyphImage &out) {
    FT_Face raster = face.getRasterFace();
    if (!FT_IS_SCALABLE(raster))
        return rasterizePicture(face, glyph, size, out);
    if (!setSize(raster, size))
        return false;
    const FT_Int32 color = face.isColored() ? FT_LOAD_COLOR : FT_LOAD_NO_BITMAP;
    if (FT_Load_Glyph(raster, glyph, FT_LOAD_TARGET_LIGHT | color) != 0)
        return false;
    FT_GlyphSlot slot = raster->glyph;
    if (slot->format == FT_GLYPH_FORMAT_BITMAP) // a picture among outlines: load it in its own size and shrink it
        return rasterizePicture(face, glyph, size, out);
    if (slot->format == FT_GLYPH_FORMAT_OUTLINE)
        FT_Outline_Translate(&slot->outline, static_cast<FT_Pos>(bin * 64 / SUBPIXEL_BINS), 0);
    if (FT_Render_Glyph(slot, FT_RENDER_MODE_LIGHT) != 0)
        return false;
    return copySlot(*slot, out);
}

bool GlyphRasterizer::rasterizePicture(const Face &face, std::uint32_t glyph, float size, GlyphImage &out) {
    FT_Face raster = face.getRasterFace();
    const int picture = findPictureSize(raster, size);
    if (picture < 0 || FT_Select_Size(raster, picture) != 0 ||
        FT_Load_Glyph(raster, glyph, FT_LOAD_COLOR | FT_LOAD_RENDER) != 0 || !copySlot(*raster->glyph, out))
        return false;
    const float ratio = size * FIXED / static_cast<float>(raster->available_sizes[picture].y_ppem);
    if (ratio > 1.0f)
        out.scale = ratio; // drawn larger than it is: smoother than pixels made up here
    else if (out.width > 0)
        resample(out, ratio);
    return true;
}

} // namespace nurel::font::detail
