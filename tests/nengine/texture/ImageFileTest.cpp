#include "nengine/texture/ImageFile.h"

#include "SamplePictures.h"
#include "foundation/core/Exception.h"
#include "nmain/stream/InputStream.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <random>

#include <jpeglib.h>
#include <png.h>

using namespace nurel;
using test::Color;
using test::encodeJpeg;
using test::encodePng;
using test::encodeWebp;
using texture::Image;

namespace {

Image decode(const std::string &file) {
    return texture::decodeImage(file.data(), file.size());
}

/// The reason why a file is refused; empty when it is not.
std::string getReason(const std::string &file) {
    try {
        decode(file);
    } catch (const ::core::IOException &exception) {
        return exception.what();
    }
    return {};
}

Color getPixel(const Image &image, unsigned int x, unsigned int y) {
    Color pixel;
    std::memcpy(pixel.data(), image.rgba.get() + (std::size_t{y} * image.width + x) * 4, 4);
    return pixel;
}

void expectNear(const Image &image, Color expected, int tolerance) {
    for (unsigned int y = 0; y < image.height; ++y) {
        for (unsigned int x = 0; x < image.width; ++x) {
            const Color pixel = getPixel(image, x, y);
            for (std::size_t i = 0; i < 4; ++i)
                ASSERT_NEAR(pixel[i], expected[i], tolerance) << "channel " << i << " at " << x << ", " << y;
        }
    }
}

void setBigEndian(std::string &file, std::size_t at, unsigned int value, int bytes) {
    for (int i = 0; i < bytes; ++i)
        file[at + static_cast<std::size_t>(i)] = static_cast<char>(value >> (8 * (bytes - 1 - i)));
}

/// A PNG file of which only the header is true.
std::string makePngHeader(unsigned int width, unsigned int height) {
    std::string file = encodePng(1, 1, {1, 2, 3, 4});
    setBigEndian(file, 16, width, 4);
    setBigEndian(file, 20, height, 4);
    std::uint32_t crc = 0xffffffffu;
    for (std::size_t i = 12; i < 29; ++i) {
        crc ^= static_cast<std::uint8_t>(file[i]);
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc >> 1) ^ (crc & 1 ? 0xedb88320u : 0);
    }
    setBigEndian(file, 29, ~crc, 4);
    return file;
}

} // namespace

TEST(Premultiply, RoundsToTheNearestValue) {
    for (unsigned int alpha = 0; alpha < 256; ++alpha) {
        for (unsigned int value = 0; value < 256; ++value) {
            std::uint8_t pixel[] = {static_cast<std::uint8_t>(value), 0, 255, static_cast<std::uint8_t>(alpha)};
            texture::premultiply(pixel, 1);
            ASSERT_EQ(pixel[0], std::lround(value * alpha / 255.0)) << value << " * " << alpha;
            ASSERT_EQ(pixel[1], 0);
            ASSERT_EQ(pixel[2], alpha);
            ASSERT_EQ(pixel[3], alpha);
        }
    }
}

TEST(DecodeImage, ReadsAPngAndMultipliesByItsAlpha) {
    const Image image = decode(encodePng(2, 1, {{200, 100, 50, 128}, {200, 100, 50, 255}}));
    EXPECT_EQ(image.width, 2u);
    EXPECT_EQ(image.height, 1u);
    EXPECT_EQ(getPixel(image, 0, 0), (Color{100, 50, 25, 128}));
    EXPECT_EQ(getPixel(image, 1, 0), (Color{200, 100, 50, 255}));
}

TEST(DecodeImage, LeavesPixelsAsTheyAreOnRequest) {
    const std::string file = encodePng(1, 1, {200, 100, 50, 128});
    EXPECT_EQ(getPixel(texture::decodeImage(file.data(), file.size(), false), 0, 0), (Color{200, 100, 50, 128}));
}

TEST(DecodeImage, ReadsAPaletteWithTransparentEntries) {
    const std::vector<std::uint8_t> rows = {0x1b}; // four pixels of two bits: 0 1 2 3
    const Image image = decode(encodePng(
        4, 1, rows,
        {PNG_COLOR_TYPE_PALETTE, 2, false, {{255, 0, 0, 255}, {0, 255, 0, 128}, {0, 0, 255, 0}, {9, 8, 7, 255}}}));
    EXPECT_EQ(getPixel(image, 0, 0), (Color{255, 0, 0, 255}));
    EXPECT_EQ(getPixel(image, 1, 0), (Color{0, 128, 0, 128}));
    EXPECT_EQ(getPixel(image, 2, 0), (Color{0, 0, 0, 0}));
    EXPECT_EQ(getPixel(image, 3, 0), (Color{9, 8, 7, 255}));
}

TEST(DecodeImage, ReadsGreys) {
    const Image grey = decode(encodePng(2, 1, {77, 200}, {PNG_COLOR_TYPE_GRAY, 8, false, {}}));
    EXPECT_EQ(getPixel(grey, 0, 0), (Color{77, 77, 77, 255}));
    EXPECT_EQ(getPixel(grey, 1, 0), (Color{200, 200, 200, 255}));
    const Image withAlpha = decode(encodePng(1, 1, {200, 128}, {PNG_COLOR_TYPE_GRAY_ALPHA, 8, false, {}}));
    EXPECT_EQ(getPixel(withAlpha, 0, 0), (Color{100, 100, 100, 128}));
    const Image bits = decode(encodePng(8, 1, {0xa0}, {PNG_COLOR_TYPE_GRAY, 1, false, {}}));
    EXPECT_EQ(getPixel(bits, 0, 0), (Color{255, 255, 255, 255}));
    EXPECT_EQ(getPixel(bits, 1, 0), (Color{0, 0, 0, 255}));
    EXPECT_EQ(getPixel(bits, 2, 0), (Color{255, 255, 255, 255}));
}

TEST(DecodeImage, ReadsSixteenBitsAsTheNearestOfEight) {
    const std::vector<std::uint8_t> rows = {200, 200, 100, 100, 50, 50, 255, 255};
    const Image image = decode(encodePng(1, 1, rows, {PNG_COLOR_TYPE_RGB_ALPHA, 16, false, {}}));
    EXPECT_EQ(getPixel(image, 0, 0), (Color{200, 100, 50, 255}));
}

TEST(DecodeImage, ReadsAnInterlacedPng) {
    std::vector<std::uint8_t> rows;
    for (unsigned int i = 0; i < 19 * 17 * 3; ++i)
        rows.push_back(static_cast<std::uint8_t>(i * 7));
    const Image image = decode(encodePng(19, 17, rows, {PNG_COLOR_TYPE_RGB, 8, true, {}}));
    for (unsigned int i = 0; i < 19 * 17; ++i) {
        const Color expected = {rows[i * 3], rows[i * 3 + 1], rows[i * 3 + 2], 255};
        ASSERT_EQ(getPixel(image, i % 19, i / 19), expected) << i;
    }
}

TEST(DecodeImage, ReadsAJpeg) {
    const Image image = decode(encodeJpeg(20, 10, {200, 100, 50}, {JCS_RGB, JCS_YCbCr}));
    EXPECT_EQ(image.width, 20u);
    EXPECT_EQ(image.height, 10u);
    expectNear(image, {200, 100, 50, 255}, 2);
}

TEST(DecodeImage, ReadsAProgressiveJpeg) {
    expectNear(decode(encodeJpeg(20, 10, {20, 150, 250}, {JCS_RGB, JCS_YCbCr, true, true})), {20, 150, 250, 255}, 2);
}

TEST(DecodeImage, ReadsAGreyJpeg) {
    expectNear(decode(encodeJpeg(9, 9, {123}, {JCS_GRAYSCALE, JCS_GRAYSCALE})), {123, 123, 123, 255}, 1);
}

TEST(DecodeImage, ReadsInksInverted) {
    // 255 is no ink: red and green as they are, times three quarters of the key
    const Color expected = {150, 75, 0, 255};
    expectNear(decode(encodeJpeg(9, 9, {200, 100, 0, 191}, {JCS_CMYK, JCS_CMYK})), expected, 2);
    expectNear(decode(encodeJpeg(9, 9, {200, 100, 0, 191}, {JCS_CMYK, JCS_YCCK})), expected, 3);
}

TEST(DecodeImage, ReadsInksAsTheyAreWhereNoMarkerSaysOtherwise) {
    expectNear(decode(encodeJpeg(9, 9, {55, 155, 255, 64}, {JCS_CMYK, JCS_CMYK, false})), {150, 75, 0, 255}, 2);
}

TEST(DecodeImage, ReadsWebp) {
    const Image lossless = decode(encodeWebp(2, 1, {{200, 100, 50, 128}, {1, 2, 3, 255}}, true));
    EXPECT_EQ(getPixel(lossless, 0, 0), (Color{100, 50, 25, 128}));
    EXPECT_EQ(getPixel(lossless, 1, 0), (Color{1, 2, 3, 255}));
    const Image lossy = decode(encodeWebp(16, 16, std::vector<Color>(256, {200, 100, 50, 255}), false));
    expectNear(lossy, {200, 100, 50, 255}, 4);
}

TEST(DecodeImage, RefusesWhatIsNoPicture) {
    EXPECT_EQ(getReason(""), "the file is empty");
    EXPECT_EQ(getReason("hello"), "not a PNG, JPEG or WebP file");
    EXPECT_EQ(getReason("RIFF....WAVE...."), "not a PNG, JPEG or WebP file");
}

TEST(DecodeImage, RefusesTooManyPixelsBeforeItTakesMemoryForThem) {
    EXPECT_EQ(getReason(makePngHeader(16385, 1)), "16385 x 1 pixels are too many");
    EXPECT_EQ(getReason(makePngHeader(1, 16385)), "1 x 16385 pixels are too many");
    EXPECT_EQ(getReason(makePngHeader(16384, 16384)), "16384 x 16384 pixels are too many");
    std::string jpeg = encodeJpeg(8, 8, {1, 2, 3}, {JCS_RGB, JCS_YCbCr});
    const std::size_t frame = jpeg.find("\xff\xc0");
    ASSERT_NE(frame, std::string::npos);
    setBigEndian(jpeg, frame + 5, 60000, 2);
    setBigEndian(jpeg, frame + 7, 60001, 2);
    EXPECT_EQ(getReason(jpeg), "60001 x 60000 pixels are too many");
}

TEST(DecodeImage, RefusesEveryFileThatEndsTooEarly) {
    const std::vector<std::string> files = {
        encodePng(16, 16, {1, 200, 3, 4}),
        encodeJpeg(64, 64, {200, 100, 50}, {JCS_RGB, JCS_YCbCr}),
        encodeJpeg(64, 64, {200, 100, 50}, {JCS_RGB, JCS_YCbCr, true, true}),
        encodeJpeg(64, 64, {200, 100, 50, 3}, {JCS_CMYK, JCS_YCCK}),
        encodeWebp(16, 16, std::vector<Color>(256, {200, 100, 50, 255}), false),
        encodeWebp(16, 16, std::vector<Color>(256, {200, 100, 50, 25}), true),
    };
    for (const std::string &file : files) {
        for (std::size_t size = 0; size < file.size() / 2; size += 3)
            EXPECT_NE(getReason(file.substr(0, size)), "") << size << " bytes of " << file.size();
    }
}

TEST(DecodeImage, RefusesAJpegWithMoreScansThanAnyoneNeeds) {
    EXPECT_EQ(getReason(encodeJpeg(8, 8, {1, 2, 3}, {JCS_RGB, JCS_YCbCr, true, true, true})), "more than 64 scans");
}

TEST(DecodeImage, SurvivesFilesWithWrongBytes) {
    const std::vector<std::string> files = {
        encodePng(16, 16, {1, 200, 3, 4}),
        encodeJpeg(32, 32, {200, 100, 50}, {JCS_RGB, JCS_YCbCr, true, true}),
        encodeJpeg(32, 32, {200, 100, 50, 3}, {JCS_CMYK, JCS_YCCK}),
        encodeWebp(16, 16, std::vector<Color>(256, {200, 100, 50, 255}), false),
        encodeWebp(16, 16, std::vector<Color>(256, {200, 100, 50, 25}), true),
    };
    std::mt19937 random(1);
    unsigned int refused = 0;
    for (int round = 0; round < 400; ++round) {
        std::string file = files[static_cast<std::size_t>(round) % files.size()];
        for (int change = 0; change < 3; ++change)
            file[12 + random() % (file.size() - 12)] = static_cast<char>(random());
        refused += !getReason(file).empty();
    }
    EXPECT_GT(refused, 100u);
}

TEST(SavePng, WritesWhatDecodeImageReads) {
    const std::string path = testing::TempDir() + "nui-save-png-test.png";
    const std::vector<Color> pixels = {{1, 2, 3, 255}, {4, 5, 6, 255},       {7, 8, 9, 255},
                                       {0, 0, 0, 0},   {255, 255, 255, 255}, {200, 0, 0, 255}};
    texture::savePng(path.c_str(), 3, 2, pixels.data());
    stream::FileInputStream stream(path.c_str());
    const Image image = decode(stream::readAll(stream));
    std::remove(path.c_str());
    ASSERT_EQ(image.width, 3u);
    ASSERT_EQ(image.height, 2u);
    for (unsigned int i = 0; i < 6; ++i)
        EXPECT_EQ(getPixel(image, i % 3, i / 3), pixels[i]) << i;
}

TEST(SavePng, SaysWhyItCannotWrite) {
    const auto getMessage = [](const char *path, unsigned int width, const void *rgba) -> std::string {
        try {
            texture::savePng(path, width, 1, rgba);
        } catch (const ::core::IOException &exception) {
            return exception.what();
        }
        return {};
    };
    const Color pixel = {1, 2, 3, 4};
    EXPECT_EQ(getMessage("/there/is/no/such/folder/a.png", 1, &pixel),
              "Cannot write image /there/is/no/such/folder/a.png: No such file or directory");
    EXPECT_EQ(getMessage(nullptr, 1, &pixel), "Cannot write image : it has no name");
    EXPECT_EQ(getMessage("a.png", 0, &pixel), "Cannot write image a.png: it has no pixels");
    EXPECT_EQ(getMessage("a.png", 1, nullptr), "Cannot write image a.png: it has no pixels");
    EXPECT_NE(getMessage("/dev/full", 1, &pixel), "");
}
