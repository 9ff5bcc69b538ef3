#pragma once

#include "Canvas.h"
#include "backends/egl/HeadlessContext.h"
#include "backends/gles/GlesBackend.h"
#include "nengine/renderer/FrameTarget.h"

#include <gtest/gtest.h>

namespace test {

/// The process's GL context: OpenGL ES, or desktop OpenGL where NUI_TEST_GL is "desktop".
nurel::egl::HeadlessContext &getContext();

/// A backend that draws on a small off-screen target, and a canvas for it.
class GlFixture : public testing::Test {
protected:
    static constexpr unsigned int SIZE = 32;

    GlFixture();
    ~GlFixture() override;

    /// Draws what is on the canvas, over a clear color of opaque black, and reads the picture.
    void draw();

    /// The same without clearing the color.
    void drawOver();

    Color getPixel(unsigned int x, unsigned int y) const;

    /// Every pixel inside has one color and every one outside another.
    void expectRectangle(unsigned int x, unsigned int y, unsigned int width, unsigned int height, Color inside,
                         Color outside) const;

    nurel::renderer::TextureId makeTexture(unsigned int width, unsigned int height, const std::vector<Color> &pixels);

    nurel::gles::GlesBackend backend;
    nurel::renderer::FrameTarget target;
    Canvas canvas{SIZE, SIZE};
    std::vector<std::uint8_t> picture;
};

constexpr Color BLACK = {0, 0, 0, 255};
constexpr Color WHITE = {255, 255, 255, 255};
constexpr Color RED = {255, 0, 0, 255};
constexpr Color GREEN = {0, 255, 0, 255};
constexpr Color BLUE = {0, 0, 255, 255};

} // namespace test
