#include "GlFixture.h"

#include <epoxy/gl.h>

#include <cstring>

using namespace nurel;
using namespace test;
using renderer::Blend;

namespace {

class GlesBackendTest : public GlFixture {};

} // namespace

TEST_F(GlesBackendTest, ClearsTheColorOnlyWhenAsked) {
    target.clear[0] = 1;
    draw();
    expectRectangle(0, 0, SIZE, SIZE, RED, RED);
    target.clear[0] = 0;
    drawOver();
    expectRectangle(0, 0, SIZE, SIZE, RED, RED);
    target.clearColor = true;
    target.clear[3] = 0;
    draw();
    expectRectangle(0, 0, SIZE, SIZE, {0, 0, 0, 0}, BLACK);
}

TEST_F(GlesBackendTest, FillsThePixelsOfARectangleExactly) {
    canvas.addRectangle(3, 5, 11, 7, RED);
    draw();
    expectRectangle(3, 5, 11, 7, RED, BLACK);
}

TEST_F(GlesBackendTest, FillsThePixelsOfATriangleOfEitherWinding) {
    canvas.addTriangle({0, 0}, {20.5f, 0}, {0, 20.5f}, GREEN);
    canvas.addTriangle({32, 32}, {32, 21.5f}, {21.5f, 32}, GREEN);
    draw();
    for (unsigned int y = 0; y < SIZE; ++y) {
        for (unsigned int x = 0; x < SIZE; ++x)
            ASSERT_EQ(getPixel(x, y), x + y + 1 < 20.5 || x + y + 1 > 53.5 ? GREEN : BLACK) << x << ", " << y;
    }
}

TEST_F(GlesBackendTest, DrawsCommandsInTheirOrderWhateverTheirDepth) {
    canvas.addRectangle(0, 0, 20, 20, RED);
    canvas.addRectangle(10, 10, 20, 20, BLUE);
    for (std::size_t i = 4; i < 8; ++i)
        canvas.vertices[i].z = 0.9f;
    draw();
    EXPECT_EQ(getPixel(15, 15), BLUE);
    EXPECT_EQ(getPixel(5, 5), RED);
}

TEST_F(GlesBackendTest, BlendsPremultipliedColorsOver) {
    canvas.addRectangle(0, 0, SIZE, SIZE, {100, 150, 200, 255});
    canvas.state.blend = Blend::PREMULTIPLIED;
    canvas.addRectangle(4, 4, 8, 8, {51, 0, 10, 51}); // alpha of a fifth
    draw();
    expectRectangle(4, 4, 8, 8, {131, 120, 170, 255}, {100, 150, 200, 255});
}

TEST_F(GlesBackendTest, AddsLightWithoutAlpha) {
    canvas.addRectangle(0, 0, SIZE, SIZE, {100, 150, 200, 255});
    canvas.state.blend = Blend::PREMULTIPLIED;
    canvas.addRectangle(4, 4, 8, 8, {10, 20, 100, 0});
    draw();
    expectRectangle(4, 4, 8, 8, {110, 170, 255, 255}, {100, 150, 200, 255});
}

TEST_F(GlesBackendTest, ReplacesColorAndAlphaWithoutBlending) {
    canvas.state.blend = Blend::PREMULTIPLIED;
    canvas.addRectangle(0, 0, SIZE, SIZE, WHITE);
    canvas.state.blend = Blend::NONE;
    canvas.addRectangle(4, 4, 8, 8, {51, 0, 10, 51});
    draw();
    expectRectangle(4, 4, 8, 8, {51, 0, 10, 51}, WHITE);
}

TEST_F(GlesBackendTest, WritesOnlyWhatTheColorMaskLetsThrough) {
    canvas.addRectangle(0, 0, SIZE, SIZE, {1, 2, 3, 4});
    const Color color = {50, 60, 70, 80};
    for (std::uint8_t mask = 0; mask < 4; ++mask) {
        canvas.state.colorMask = mask;
        canvas.addRectangle(mask * 8.0f, 0, 8, 8, color);
    }
    draw();
    EXPECT_EQ(getPixel(4, 4), (Color{1, 2, 3, 4}));
    EXPECT_EQ(getPixel(12, 4), (Color{50, 60, 70, 4}));
    EXPECT_EQ(getPixel(20, 4), (Color{1, 2, 3, 80}));
    EXPECT_EQ(getPixel(28, 4), color);
    EXPECT_EQ(getPixel(4, 12), (Color{1, 2, 3, 4}));
    target.clearColor = true;
    canvas.clear();
    draw(); // a mask that is left over does not bar the next frame's clearing
    EXPECT_EQ(getPixel(4, 4), BLACK);
}

TEST_F(GlesBackendTest, DrawsATexturePixelByPixelFromItsTopRow) {
    std::vector<Color> pixels;
    for (unsigned int i = 0; i < 64; ++i)
        pixels.push_back({static_cast<std::uint8_t>(i * 4), static_cast<std::uint8_t>(255 - i), 7, 255});
    canvas.state.texture = makeTexture(8, 8, pixels);
    ASSERT_NE(canvas.state.texture, renderer::NO_TEXTURE);
    canvas.addRectangle(10, 20, 8, 8, WHITE);
    draw();
    for (unsigned int i = 0; i < 64; ++i)
        ASSERT_EQ(getPixel(10 + i % 8, 20 + i / 8), pixels[i]) << i;
    EXPECT_EQ(getPixel(9, 20), BLACK);
}

TEST_F(GlesBackendTest, MultipliesTextureAndVertexColor) {
    canvas.state.texture = makeTexture(1, 1, {{204, 102, 255, 255}});
    canvas.addRectangle(0, 0, 8, 8, {255, 255, 51, 255});
    draw();
    EXPECT_EQ(getPixel(3, 3), (Color{204, 102, 51, 255}));
}

TEST_F(GlesBackendTest, ReplacesAPartOfATexture) {
    const auto texture = makeTexture(8, 8, std::vector<Color>(64, RED));
    const std::vector<Color> part(6, BLUE);
    backend.updateTexture(texture, 4, 5, 3, 2, part.data());
    canvas.state.texture = texture;
    canvas.addRectangle(0, 0, 8, 8, WHITE);
    draw();
    for (unsigned int y = 0; y < 8; ++y) {
        for (unsigned int x = 0; x < 8; ++x)
            ASSERT_EQ(getPixel(x, y), x >= 4 && x < 7 && y >= 5 && y < 7 ? BLUE : RED) << x << ", " << y;
    }
}

TEST_F(GlesBackendTest, FillsATextureThatCameWithoutPixels) {
    const auto texture = makeTexture(16, 16, {});
    const std::vector<Color> part(64, GREEN);
    backend.updateTexture(texture, 8, 0, 8, 8, part.data());
    canvas.state.texture = texture;
    canvas.addRectangle(0, 0, 16, 16, WHITE);
    draw();
    EXPECT_EQ(getPixel(8, 0), GREEN);
    EXPECT_EQ(getPixel(15, 7), GREEN);
}

TEST_F(GlesBackendTest, DrawsAPictureMuchSmallerThanItIsFromSmallerCopies) {
    std::vector<Color> stripes;
    for (unsigned int i = 0; i < 64 * 64; ++i)
        stripes.push_back(i / 64 % 8 == 0 ? WHITE : BLACK); // an eighth is white
    canvas.state.texture = makeTexture(64, 64, stripes);
    canvas.addRectangle(0, 0, 8, 8, WHITE);
    draw();
    EXPECT_NEAR(getPixel(4, 4)[0], 32, 2);
    backend.updateTexture(canvas.state.texture, 0, 0, 64, 64, std::vector<Color>(64 * 64, WHITE).data());
    draw();
    EXPECT_EQ(getPixel(4, 4), WHITE);
}

TEST_F(GlesBackendTest, ClampsATextureOrRepeatsIt) {
    const auto texture = makeTexture(2, 2, {RED, BLUE, RED, BLUE});
    canvas.state.texture = texture;
    canvas.addRectangle(0, 0, 4, 4, WHITE, 2);
    draw();
    EXPECT_EQ(getPixel(0, 3), RED);
    EXPECT_EQ(getPixel(1, 3), BLUE);
    EXPECT_EQ(getPixel(2, 3), BLUE);
    EXPECT_EQ(getPixel(3, 3), BLUE);
    backend.setTextureRepeat(texture, true);
    draw();
    EXPECT_EQ(getPixel(0, 3), RED);
    EXPECT_EQ(getPixel(1, 3), BLUE);
    EXPECT_EQ(getPixel(2, 3), RED);
    EXPECT_EQ(getPixel(3, 3), BLUE);
}

TEST_F(GlesBackendTest, RefusesTexturesThatCannotBe) {
    EXPECT_EQ(makeTexture(0, 1, {}), renderer::NO_TEXTURE);
    EXPECT_EQ(makeTexture(1, 0, {}), renderer::NO_TEXTURE);
    EXPECT_GE(backend.getMaximumTextureSize(), 2048u);
    EXPECT_EQ(makeTexture(backend.getMaximumTextureSize() + 1, 1, {}), renderer::NO_TEXTURE);
    backend.destroyTexture(renderer::NO_TEXTURE);
    backend.destroyTexture(4711);
    backend.updateTexture(4711, 0, 0, 1, 1, &RED);
    backend.setTextureRepeat(4711, true);
}

TEST_F(GlesBackendTest, DestroysTextures) {
    const auto texture = makeTexture(1, 1, {RED});
    EXPECT_TRUE(glIsTexture(texture));
    backend.destroyTexture(texture);
    EXPECT_FALSE(glIsTexture(texture));
    renderer::TextureId left = 0;
    {
        gles::GlesBackend other;
        left = other.createTexture(1, 1, renderer::PixelFormat::RGBA8, &RED);
        EXPECT_TRUE(glIsTexture(left));
    }
    EXPECT_FALSE(glIsTexture(left));
}

TEST_F(GlesBackendTest, DividesByTheDistanceInPerspective) {
    canvas.addRectangle(-1, -1, 2, 2, RED);
    for (renderer::DrawVertex &vertex : canvas.vertices)
        vertex.z = 2;
    renderer::DrawList list = canvas.getList();
    const float matrix[16] = {1, 0, 0, 0, 0, -1, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0}; // w is z
    std::memcpy(list.viewProjection, matrix, sizeof matrix);
    backend.submit(list, target);
    picture = getContext().readPixels();
    expectRectangle(8, 8, 16, 16, RED, BLACK);
}

TEST_F(GlesBackendTest, SendsAListOnce) {
    canvas.addRectangle(3, 5, 11, 7, RED);
    const renderer::DrawList list = canvas.getList();
    backend.submit(list, target);
    const std::size_t bytes = backend.getUploadedBytes();
    EXPECT_EQ(bytes, 4 * sizeof(renderer::DrawVertex) + 6 * sizeof(std::uint32_t));
    backend.submit(list, target);
    EXPECT_EQ(backend.getUploadedBytes(), bytes);
    picture = getContext().readPixels();
    expectRectangle(3, 5, 11, 7, RED, BLACK);
}

TEST_F(GlesBackendTest, SendsOnlyTheVerticesThatChanged) {
    canvas.addRectangle(0, 0, 4, 4, RED);
    canvas.addRectangle(8, 8, 4, 4, RED);
    const renderer::DrawList first = canvas.getList();
    backend.submit(first, target);
    const std::size_t bytes = backend.getUploadedBytes();
    for (std::size_t i = 4; i < 8; ++i)
        canvas.vertices[i].x += 8;
    renderer::DrawList second = canvas.getList();
    second.basedOn = first.revision;
    second.changedFirst = 4;
    second.changedCount = 4;
    backend.submit(second, target);
    EXPECT_EQ(backend.getUploadedBytes(), bytes + 4 * sizeof(renderer::DrawVertex));
    picture = getContext().readPixels();
    EXPECT_EQ(getPixel(2, 2), RED);
    EXPECT_EQ(getPixel(10, 10), BLACK);
    EXPECT_EQ(getPixel(18, 10), RED);

    renderer::DrawList third = canvas.getList(); // only the matrix is another
    third.basedOn = second.revision;
    third.viewProjection[12] += 0.5f; // eight pixels to the right
    backend.submit(third, target);
    EXPECT_EQ(backend.getUploadedBytes(), bytes + 4 * sizeof(renderer::DrawVertex));
    picture = getContext().readPixels();
    EXPECT_EQ(getPixel(10, 2), RED);

    renderer::DrawList fourth = canvas.getList();
    fourth.basedOn = 123456789; // of a list that it never had
    backend.submit(fourth, target);
    EXPECT_EQ(backend.getUploadedBytes(), 2 * bytes + 4 * sizeof(renderer::DrawVertex));
}

TEST_F(GlesBackendTest, KeepsTheBuffersOfSeveralListsThatTakeTurns) {
    std::vector<Canvas> canvases(6, Canvas(SIZE, SIZE));
    std::vector<renderer::DrawList> lists;
    for (std::size_t i = 0; i < canvases.size(); ++i) {
        canvases[i].addRectangle(static_cast<float>(i) * 4, 0, 4, 4, RED);
        lists.push_back(canvases[i].getList());
    }
    const auto drawAll = [&](std::size_t count) {
        for (std::size_t i = 0; i < count; ++i) {
            target.clearColor = i == 0;
            backend.submit(lists[i], target);
        }
        picture = getContext().readPixels();
        expectRectangle(0, 0, static_cast<unsigned int>(count) * 4, 4, RED, BLACK);
    };
    drawAll(4);
    const std::size_t bytes = backend.getUploadedBytes();
    drawAll(4);
    EXPECT_EQ(backend.getUploadedBytes(), bytes);
    drawAll(6);
    EXPECT_GT(backend.getUploadedBytes(), bytes);
    drawAll(6);
}

TEST_F(GlesBackendTest, DrawsToAnotherFrameBufferAndComesBack) {
    GLuint frameBuffer = 0;
    const auto texture = makeTexture(16, 8, std::vector<Color>(128, BLUE));
    glGenFramebuffers(1, &frameBuffer);
    GLint screen = 0;
    glGetIntegerv(GL_DRAW_FRAMEBUFFER_BINDING, &screen);
    glBindFramebuffer(GL_FRAMEBUFFER, frameBuffer);
    glFramebufferTexture2D(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_TEXTURE_2D, texture, 0);
    glBindFramebuffer(GL_FRAMEBUFFER, static_cast<GLuint>(screen));

    draw();
    Canvas other(16, 8);
    other.addRectangle(2, 1, 3, 2, RED);
    renderer::FrameTarget elsewhere;
    elsewhere.frameBuffer = frameBuffer;
    elsewhere.width = 16;
    elsewhere.height = 8;
    backend.submit(other.getList(), elsewhere);
    std::vector<Color> pixels(128);
    ASSERT_TRUE(backend.readPixels(0, 0, 16, 8, pixels.data()));
    for (unsigned int i = 0; i < 128; ++i)
        ASSERT_EQ(pixels[i], i % 16 >= 2 && i % 16 < 5 && i / 16 >= 1 && i / 16 < 3 ? RED : BLUE) << i;
    GLint bound = 0;
    glGetIntegerv(GL_DRAW_FRAMEBUFFER_BINDING, &bound);
    EXPECT_EQ(bound, screen);
    picture = getContext().readPixels();
    expectRectangle(0, 0, SIZE, SIZE, BLACK, BLACK);
    glDeleteFramebuffers(1, &frameBuffer);
}

TEST_F(GlesBackendTest, ReadsARectangleFromTheTop) {
    canvas.addRectangle(3, 5, 11, 7, RED);
    draw();
    std::vector<Color> pixels(4 * 3);
    ASSERT_TRUE(backend.readPixels(2, 4, 4, 3, pixels.data()));
    for (unsigned int i = 0; i < pixels.size(); ++i)
        EXPECT_EQ(pixels[i], i % 4 >= 1 && i / 4 >= 1 ? RED : BLACK) << i;
    EXPECT_FALSE(backend.readPixels(30, 0, 3, 1, pixels.data()));
    EXPECT_FALSE(backend.readPixels(0, 30, 1, 3, pixels.data()));
    EXPECT_FALSE(backend.readPixels(33, 0, 0, 0, pixels.data()));
    EXPECT_FALSE(backend.readPixels(4000000000u, 0, 400000000u, 1, pixels.data()));
}

TEST_F(GlesBackendTest, DrawsNothingOnATargetWithoutPixels) {
    canvas.addRectangle(0, 0, 32, 32, RED);
    draw();
    target.width = 0;
    canvas.addRectangle(0, 0, 32, 32, BLUE);
    draw();
    expectRectangle(0, 0, SIZE, SIZE, RED, RED);
}

TEST_F(GlesBackendTest, SetsAllTheStateThatItNeeds) {
    GLuint sampler = 0;
    glGenSamplers(1, &sampler);
    glSamplerParameteri(sampler, GL_TEXTURE_WRAP_S, GL_MIRRORED_REPEAT);
    glBindSampler(0, sampler);
    glActiveTexture(GL_TEXTURE3);
    glEnable(GL_SCISSOR_TEST);
    glScissor(0, 0, 1, 1);
    glEnable(GL_DEPTH_TEST);
    glDepthFunc(GL_NEVER);
    glEnable(GL_CULL_FACE);
    glCullFace(GL_FRONT_AND_BACK);
    glEnable(GL_STENCIL_TEST);
    glStencilFunc(GL_NEVER, 0, 0);
    glStencilMask(0);
    glEnable(GL_BLEND);
    glBlendFunc(GL_ZERO, GL_ZERO);
    glBlendEquation(GL_FUNC_SUBTRACT);
    glColorMask(GL_FALSE, GL_FALSE, GL_FALSE, GL_FALSE);
    glPixelStorei(GL_UNPACK_ROW_LENGTH, 7);
    glPixelStorei(GL_UNPACK_SKIP_ROWS, 2);
    glPixelStorei(GL_PACK_ROW_LENGTH, 99);
    glViewport(5, 5, 1, 1);

    canvas.state.texture = makeTexture(2, 2, {RED, GREEN, BLUE, WHITE});
    canvas.state.blend = Blend::PREMULTIPLIED;
    canvas.addRectangle(0, 0, 2, 2, WHITE);
    backend.submit(canvas.getList(), target);
    std::vector<Color> pixels(4);
    ASSERT_TRUE(backend.readPixels(0, 0, 2, 2, pixels.data()));
    EXPECT_EQ(pixels, (std::vector<Color>{RED, GREEN, BLUE, WHITE}));
    glDeleteSamplers(1, &sampler);
}
