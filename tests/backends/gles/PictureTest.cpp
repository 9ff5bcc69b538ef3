#include "GlFixture.h"

#include "nengine/texture/ImageFile.h"
#include "nmain/stream/InputStream.h"

#include <cmath>
#include <cstdlib>
#include <filesystem>

using namespace nurel;
using namespace test;
using renderer::Blend;
using renderer::StencilFunction;
using renderer::StencilOperation;

namespace {

constexpr unsigned int WIDTH = 256;
constexpr unsigned int HEIGHT = 160;

/// Rounded to 1/16 of a pixel, so that the rasteriser's own rounding does not matter.
float snap(float value) {
    return std::round(value * 16) / 16;
}

std::array<Point, 4> turn(float x, float y, float width, float height, float radians) {
    const float c = std::cos(radians), s = std::sin(radians);
    std::array<Point, 4> corners = {{{-0.5f, -0.5f}, {0.5f, -0.5f}, {0.5f, 0.5f}, {-0.5f, 0.5f}}};
    for (Point &corner : corners) {
        const float dx = corner.x * width, dy = corner.y * height;
        corner = {snap(x + dx * c - dy * s), snap(y + dx * s + dy * c)};
    }
    return corners;
}

std::vector<Color> makeDisc(unsigned int size) {
    std::vector<Color> pixels;
    const float middle = static_cast<float>(size) / 2;
    for (unsigned int i = 0; i < size * size; ++i) {
        const float dx = static_cast<float>(i % size) + 0.5f - middle,
                    dy = static_cast<float>(i / size) + 0.5f - middle;
        const float cover = std::clamp(middle - 1 - std::hypot(dx, dy), 0.0f, 1.0f);
        const auto value = static_cast<std::uint8_t>(std::lround(cover * 255));
        pixels.push_back({value, value, value, value});
    }
    return pixels;
}

std::vector<Color> makeChecks() {
    std::vector<Color> pixels;
    for (unsigned int i = 0; i < 64; ++i)
        pixels.push_back((i / 8 + i) % 2 ? Color{250, 240, 200, 255} : Color{60, 90, 140, 255});
    return pixels;
}

class PictureTest : public GlFixture {
protected:
    void setStencil(StencilFunction function, std::uint8_t reference, StencilOperation pass, std::uint8_t mask) {
        canvas.state.stencilTest = true;
        canvas.state.stencilFunction = function;
        canvas.state.stencilReference = reference;
        canvas.state.opPass = pass;
        canvas.state.colorMask = mask;
    }

    /// A turned window onto stripes, with a smaller one inside it.
    void addNestedClips() {
        const auto outer = turn(64, 80, 96, 88, 0.3f), inner = turn(76, 84, 72, 60, -0.5f);
        setStencil(StencilFunction::ALWAYS, 1, StencilOperation::REPLACE, 0);
        canvas.addRectangle(0, 0, 128, 160, WHITE);
        setStencil(StencilFunction::EQUAL, 1, StencilOperation::INCREMENT, 0);
        canvas.addQuad(outer, WHITE);
        setStencil(StencilFunction::EQUAL, 2, StencilOperation::KEEP, 3);
        for (int i = 0; i < 12; ++i)
            canvas.addRectangle(static_cast<float>(i) * 12, 0, 6, 160, {180, 60, 60, 255});
        setStencil(StencilFunction::EQUAL, 2, StencilOperation::INCREMENT, 0);
        canvas.addQuad(inner, WHITE);
        setStencil(StencilFunction::EQUAL, 3, StencilOperation::KEEP, 3);
        canvas.addRectangle(0, 0, 160, 160, {40, 60, 40, 200});
        for (int i = 0; i < 14; ++i)
            canvas.addRectangle(0, static_cast<float>(i) * 12, 160, 5, {90, 200, 90, 255});
        setStencil(StencilFunction::LESS_EQUAL, 2, StencilOperation::REPLACE, 0);
        canvas.addQuad(inner, WHITE);
        setStencil(StencilFunction::EQUAL, 2, StencilOperation::KEEP, 3);
        canvas.addRectangle(0, 76, 160, 8, {250, 220, 80, 255}); // over the inner window as well
        canvas.state.stencilTest = false;
    }

    void addBlendedDiscs() {
        canvas.state.blend = Blend::PREMULTIPLIED;
        canvas.state.texture = makeTexture(64, 64, makeDisc(64));
        canvas.addRectangle(136, 12, 64, 64, {200, 0, 0, 200});
        canvas.addRectangle(168, 12, 64, 64, {0, 0, 200, 200});
        canvas.addRectangle(152, 36, 64, 64, {0, 160, 0, 160});
        canvas.addRectangle(232, 8, 16, 16, {255, 255, 255, 255}); // from its smaller copies
        canvas.addRectangle(232, 28, 16, 16, {120, 120, 60, 0});   // light
    }

    void addCheckedTextures() {
        const auto texture = makeTexture(8, 8, makeChecks());
        canvas.state.blend = Blend::NONE;
        canvas.state.texture = texture;
        canvas.addRectangle(136, 112, 32, 32, WHITE);
        canvas.addQuad(turn(196, 128, 32, 32, 0.6f), {255, 255, 255, 255});
        const auto repeating = makeTexture(8, 8, makeChecks());
        backend.setTextureRepeat(repeating, true);
        canvas.state.texture = repeating;
        canvas.addRectangle(220, 112, 32, 32, {255, 200, 200, 255}, 2);
    }

    Canvas canvas{WIDTH, HEIGHT};
};

texture::Image readReference() {
    stream::FileInputStream stream(REFERENCE);
    const std::string file = stream::readAll(stream);
    return texture::decodeImage(file.data(), file.size(), false);
}

} // namespace

TEST_F(PictureTest, LooksAsItDid) {
    getContext().resize(WIDTH, HEIGHT);
    target.width = WIDTH;
    target.height = HEIGHT;
    for (float &channel : target.clear)
        channel = 0.2f;
    target.clear[3] = 1;
    canvas.addRectangle(0, 0, 128, HEIGHT, {255, 255, 255, 255});
    for (std::size_t i = 0; i < 4; ++i)
        canvas.vertices[i].rgba = i < 2 ? 0xff604830u : 0xffc0a890u; // from dark to light
    addNestedClips();
    addBlendedDiscs();
    addCheckedTextures();
    backend.submit(canvas.getList(), target);
    const std::vector<std::uint8_t> actual = getContext().readPixels();
    if (std::getenv("NUI_UPDATE_GOLDEN")) {
        texture::savePng(REFERENCE, WIDTH, HEIGHT, actual.data());
        return;
    }

    const texture::Image expected = readReference();
    ASSERT_EQ(expected.width, WIDTH);
    ASSERT_EQ(expected.height, HEIGHT);
    std::size_t outliers = 0;
    for (std::size_t i = 0; i < actual.size(); ++i)
        outliers += std::abs(actual[i] - expected.rgba[i]) > 4;
    EXPECT_LE(outliers, actual.size() / 2000) << "see " RESULTS "/picture.png";
    if (HasFailure()) {
        std::filesystem::create_directories(RESULTS);
        texture::savePng(RESULTS "/picture.png", WIDTH, HEIGHT, actual.data());
    }
}
