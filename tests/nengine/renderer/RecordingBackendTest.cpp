#include "nengine/renderer/RecordingBackend.h"

#include <gtest/gtest.h>

namespace {

using namespace nurel::renderer;

TEST(RecordingBackend, KeepsADeepCopyOfTheLastList) {
    RecordingBackend backend;
    {
        const std::vector<DrawVertex> vertices = {{1, 2, 3, 0, 0, 5}, {4, 5, 6, 0, 0, 6}, {7, 8, 9, 0, 0, 7}};
        const std::vector<std::uint32_t> indices = {2, 1, 0};
        std::vector<DrawCommand> commands(1);
        commands[0].indexCount = 3;
        DrawList list;
        list.vertices = vertices.data();
        list.vertexCount = 3;
        list.indices = indices.data();
        list.indexCount = 3;
        list.commands = commands.data();
        list.commandCount = 1;
        list.revision = 1;
        FrameTarget target;
        target.width = 10;
        backend.submit(list, target);
    }
    ASSERT_EQ(backend.getList().vertexCount, 3u);
    EXPECT_EQ(backend.getList().vertices, backend.getVertices().data());
    EXPECT_EQ(backend.getVertices()[1].x, 4);
    EXPECT_EQ(backend.getVertices(backend.getCommands()[0])[0].x, 7);
    EXPECT_EQ(backend.getTarget().width, 10u);
}

TEST(RecordingBackend, CountsSubmissionsOfTheSameRevision) {
    RecordingBackend backend;
    DrawList list;
    list.revision = 1;
    backend.submit(list, {});
    backend.submit(list, {});
    list.revision = 2;
    backend.submit(list, {});
    EXPECT_EQ(backend.getSubmitCount(), 3u);
    EXPECT_EQ(backend.getSameRevisionCount(), 1u);
}

TEST(RecordingBackend, KeepsTheTexturesWithTheirPixels) {
    RecordingBackend backend;
    const std::uint8_t pixels[2 * 2 * 4] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16};
    const TextureId id = backend.createTexture(2, 2, PixelFormat::RGBA8, pixels);
    const TextureId empty = backend.createTexture(3, 1, PixelFormat::RGBA8, nullptr);
    ASSERT_NE(id, NO_TEXTURE);
    EXPECT_NE(id, empty);
    const std::uint8_t pixel[4] = {21, 22, 23, 24};
    backend.updateTexture(id, 1, 1, 1, 1, pixel);
    const RecordingBackend::Texture &texture = backend.getTextures().at(id);
    EXPECT_EQ(texture.pixels, (std::vector<std::uint8_t>{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 21, 22, 23, 24}));
    EXPECT_EQ(texture.updates, 1u);
    EXPECT_EQ(backend.getTextures().at(empty).pixels, std::vector<std::uint8_t>(12));
    EXPECT_EQ(backend.getUploadedPixelCount(), 5u);
    EXPECT_EQ(backend.getCreatedTextureCount(), 2u);
    EXPECT_EQ(backend.getUpdatedTextureCount(), 1u);
    backend.destroyTexture(id);
    backend.destroyTexture(NO_TEXTURE);
    EXPECT_EQ(backend.getDestroyedTextureCount(), 1u);
    EXPECT_EQ(backend.getTextures().size(), 1u);
}

TEST(RecordingBackend, RefusesWhatDoesNotFit) {
    RecordingBackend backend;
    backend.setMaximumTextureSize(64);
    EXPECT_EQ(backend.getMaximumTextureSize(), 64u);
    EXPECT_EQ(backend.createTexture(65, 1, PixelFormat::RGBA8, nullptr), NO_TEXTURE);
    EXPECT_EQ(backend.createTexture(0, 1, PixelFormat::RGBA8, nullptr), NO_TEXTURE);
    const TextureId id = backend.createTexture(4, 4, PixelFormat::RGBA8, nullptr);
    const std::vector<std::uint8_t> pixels(4 * 4 * 4);
    backend.updateTexture(id, 1, 0, 4, 1, pixels.data());
    backend.updateTexture(id, 0, 4, 1, 1, pixels.data());
    backend.updateTexture(99, 0, 0, 1, 1, pixels.data());
    EXPECT_EQ(backend.getUpdatedTextureCount(), 0u);
}

TEST(Backend, OptionalOperationsHaveDefaults) {
    class Least : public Backend {
    public:
        TextureId createTexture(unsigned int, unsigned int, PixelFormat, const void *) override { return 1; }
        void updateTexture(TextureId, unsigned int, unsigned int, unsigned int, unsigned int, const void *) override {}
        void destroyTexture(TextureId) override {}
        void submit(const DrawList &, const FrameTarget &) override {}
    };
    Least backend;
    std::uint8_t pixel[4] = {9, 9, 9, 9};
    EXPECT_FALSE(backend.readPixels(0, 0, 1, 1, pixel));
    EXPECT_EQ(pixel[0], 9);
    EXPECT_EQ(backend.getMaximumTextureSize(), 2048u);
}

TEST(DrawCommand, SameStateLeavesOutTheRange) {
    DrawCommand a;
    DrawCommand b;
    b.firstIndex = 6;
    b.indexCount = 9;
    EXPECT_TRUE(a.hasSameState(b));
    EXPECT_FALSE(a == b);
    b.stencilReference = 1;
    EXPECT_FALSE(a.hasSameState(b));
}

} // namespace
