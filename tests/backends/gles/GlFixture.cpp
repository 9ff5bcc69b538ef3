#include "GlFixture.h"

#include <epoxy/gl.h>

#include <cstdlib>
#include <cstring>

namespace test {

nurel::egl::HeadlessContext &getContext() {
    const char *wanted = std::getenv("NUI_TEST_GL");
    using Api = nurel::egl::HeadlessContext::Api;
    static nurel::egl::HeadlessContext context(32, 32,
                                               wanted && std::strcmp(wanted, "desktop") == 0 ? Api::GL_33 : Api::ES_3);
    context.makeCurrent();
    return context;
}

namespace {

nurel::gles::GlesBackend makeBackend() {
    getContext().resize(32, 32);
    return {};
}

} // namespace

GlFixture::GlFixture() : backend(makeBackend()) {
    target.width = target.height = SIZE;
    target.clearColor = true;
    target.clear[3] = 1;
}

GlFixture::~GlFixture() {
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
}

void GlFixture::draw() {
    backend.submit(canvas.getList(), target);
    picture = getContext().readPixels();
}

void GlFixture::drawOver() {
    target.clearColor = false;
    draw();
}

Color GlFixture::getPixel(unsigned int x, unsigned int y) const {
    Color color;
    std::memcpy(color.data(), picture.data() + (std::size_t{y} * SIZE + x) * 4, 4);
    return color;
}

void GlFixture::expectRectangle(unsigned int x, unsigned int y, unsigned int width, unsigned int height, Color inside,
                                Color outside) const {
    for (unsigned int row = 0; row < SIZE; ++row) {
        for (unsigned int column = 0; column < SIZE; ++column) {
            const bool in = column >= x && column < x + width && row >= y && row < y + height;
            ASSERT_EQ(getPixel(column, row), in ? inside : outside) << "at " << column << ", " << row;
        }
    }
}

nurel::renderer::TextureId GlFixture::makeTexture(unsigned int width, unsigned int height,
                                                  const std::vector<Color> &pixels) {
    return backend.createTexture(width, height, nurel::renderer::PixelFormat::RGBA8,
                                 pixels.empty() ? nullptr : pixels.data());
}

} // namespace test
