#include "SkinImages.h"

#include "nengine/texture/ImageFile.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>

namespace {

std::string readFile(const std::filesystem::path &path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

/// The largest difference of a channel; colours count as far as they can be seen.
int compare(const std::uint8_t *expected, const std::uint8_t *actual, std::size_t bytes) {
    int worst = 0;
    for (std::size_t i = 0; i < bytes; ++i)
        worst = std::max(worst, std::abs(expected[i] - actual[i]));
    return worst;
}

} // namespace

TEST(SkinImages, TheCommittedImagesAreWhatIsDrawnNow) {
    for (const drawing::SkinImage &image : drawing::drawImages()) {
        const std::string file = readFile(std::filesystem::path(ASSETS) / image.path);
        ASSERT_FALSE(file.empty()) << image.path << " is missing; nui-draw-skins draws it";
        const nurel::texture::Image committed = nurel::texture::decodeImage(file.data(), file.size());
        ASSERT_EQ(committed.width, image.picture.getWidth()) << image.path;
        ASSERT_EQ(committed.height, image.picture.getHeight()) << image.path;
        std::vector<std::uint8_t> drawn = image.picture.getBytes();
        nurel::texture::premultiply(drawn.data(), drawn.size() / 4);
        // Processors may round the last bit differently.
        EXPECT_LE(compare(committed.rgba.get(), drawn.data(), drawn.size()), 1)
            << image.path << " differs; nui-draw-skins draws it anew";
    }
}

TEST(SkinImages, NoImageLiesThereThatIsNotDrawn) {
    std::set<std::string> drawn;
    for (const drawing::SkinImage &image : drawing::drawImages())
        EXPECT_TRUE(drawn.insert(image.path).second) << image.path << " is drawn twice";
    for (const char *folder : {"style", "gallery"}) {
        for (const auto &entry : std::filesystem::recursive_directory_iterator(std::filesystem::path(ASSETS) / folder)) {
            if (entry.path().extension() == ".png") {
                EXPECT_EQ(drawn.count(std::filesystem::relative(entry.path(), ASSETS).generic_string()), 1U)
                    << entry.path();
            }
        }
    }
}

TEST(SkinImages, TheLightAndTheDarkLookHaveTheSameImages) {
    std::set<std::string> light;
    std::set<std::string> dark;
    for (const drawing::SkinImage &image : drawing::drawImages()) {
        const std::filesystem::path path(image.path);
        if (path.parent_path() == "style/light")
            light.insert(path.filename().string());
        if (path.parent_path() == "style/dark")
            dark.insert(path.filename().string());
    }
    EXPECT_FALSE(light.empty());
    EXPECT_EQ(light, dark);
}

TEST(SkinImages, AFilledButtonIsOneColourInside) {
    drawing::Picture picture(20, 20);
    picture.fillBox({0, 0, 20, 20}, 6, drawing::makeColor(0x204060));
    const std::vector<std::uint8_t> bytes = picture.getBytes();
    const auto pixel = [&](unsigned int x, unsigned int y) { return bytes.data() + (y * 22 + x) * 4; };
    EXPECT_EQ(pixel(0, 11)[3], 0) << "the rim";
    EXPECT_EQ(pixel(1, 1)[3], 0) << "outside the round corner";
    EXPECT_EQ(pixel(1, 11)[3], 255) << "the edge is sharp";
    EXPECT_EQ(pixel(11, 11)[0], 0x20);
    EXPECT_EQ(pixel(11, 11)[1], 0x40);
    EXPECT_EQ(pixel(11, 11)[2], 0x60);
}
