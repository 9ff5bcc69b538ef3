#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

namespace nurel::texture {

/// A picture in memory: rows from the top, without gaps, four bytes a pixel, red first.
struct Image {
    /// A longer side, or more pixels, are refused before memory is taken for them.
    static constexpr unsigned int MAXIMUM_SIDE = 16384;
    static constexpr std::uint64_t MAXIMUM_PIXELS = 64u * 1024 * 1024;

    Image() = default;

    /// Pixels are left as they come. Raises `core::IOException` "<w> x <h> pixels are too many" beyond the limits and
    /// "it has no pixels" when a side is 0.
    Image(unsigned int width, unsigned int height);

    std::size_t getSize() const { return std::size_t{4} * width * height; }

    unsigned int width = 0;
    unsigned int height = 0;
    std::unique_ptr<std::uint8_t[]> rgba;
};

/// Decodes a PNG, JPEG or WebP file, told apart by its content. Whatever has palettes, greys, 16 bits or CMYK becomes
/// 8-bit RGBA, premultiplied unless told otherwise (for pictures that `savePng` wrote of premultiplied pixels). Raises
/// `core::IOException` with the reason when it is none of these, broken, cut short, animated or too large. May be
/// called from any thread.
Image decodeImage(const void *file, std::size_t size, bool premultiplied = true);

/// Writes a PNG file; the pixels are stored as they are given, so PNG's readers take them as not premultiplied. Raises
/// `core::IOException` "Cannot write image <path>: <reason>"; a file that was begun is removed then.
void savePng(const char *path, unsigned int width, unsigned int height, const void *rgba);

/// Multiplies red, green and blue by alpha, rounding to the nearest value.
void premultiply(std::uint8_t *rgba, std::size_t pixels);

} // namespace nurel::texture
