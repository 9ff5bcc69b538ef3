#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

/// Writes small picture files of every kind that there is to read.
namespace test {

using Color = std::array<std::uint8_t, 4>;

struct PngOptions {
    int colorType; ///< PNG_COLOR_TYPE_...
    int bitDepth = 8;
    bool interlaced = false;
    std::vector<Color> palette; ///< alpha below 255 is written as the palette's transparency
};

/// `rows` holds the samples as the file has them: packed, and two bytes, high first, where there are 16 bits.
std::string encodePng(unsigned int width, unsigned int height, const std::vector<std::uint8_t> &rows,
                      const PngOptions &options);

/// A PNG file of RGBA pixels.
std::string encodePng(unsigned int width, unsigned int height, const std::vector<Color> &pixels);

/// Each pixel of one colour.
std::string encodePng(unsigned int width, unsigned int height, Color color);

struct JpegOptions {
    int pixelSpace; ///< J_COLOR_SPACE of the pixels
    int fileSpace;  ///< and of the file
    bool adobeMarker = true;
    bool progressive = false;
    bool manyScans = false; ///< progressive, one scan for each coefficient
};

/// Every pixel has the same components.
std::string encodeJpeg(unsigned int width, unsigned int height, const std::vector<std::uint8_t> &pixel,
                       const JpegOptions &options);

std::string encodeWebp(unsigned int width, unsigned int height, const std::vector<Color> &pixels, bool lossless);

} // namespace test
