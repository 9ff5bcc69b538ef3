#include "nengine/renderer/Renderer.h"

#include "foundation/core/Exception.h"
#include "nengine/renderer/RecordingBackend.h"
#include "nengine/texture/Texture.h"

#include <gtest/gtest.h>

namespace nurel {
namespace {

using renderer::Renderer;
using renderer::ResizeEventData;

class RendererFixture : public testing::Test {
public:
    RendererFixture() : renderer(backend, 640, 480, true) {}
    renderer::RecordingBackend backend;
    Renderer renderer;
};

TEST_F(RendererFixture, IsASingletonWhileItLives) {
    EXPECT_TRUE(Renderer::isSingletonCreated());
    EXPECT_EQ(&Renderer::getSingleton(), &renderer);
    EXPECT_EQ(Renderer::getSingletonPtr(), &renderer);
    EXPECT_EQ(&renderer.getBackend(), &backend);
    try {
        Renderer second(backend, 1, 1, true);
        FAIL() << "no exception";
    } catch (const core::IllegalStateException &exception) {
        EXPECT_STREQ(exception.what(), "The renderer is there already");
    }
    EXPECT_EQ(Renderer::getSingletonPtr(), &renderer);
}

TEST(Renderer, IsGoneWithoutAnEngine) {
    EXPECT_FALSE(Renderer::isSingletonCreated());
    EXPECT_EQ(Renderer::getSingletonPtr(), nullptr);
    try {
        Renderer::getSingleton();
        FAIL() << "no exception";
    } catch (const core::IllegalStateException &exception) {
        EXPECT_STREQ(exception.what(), "There is no renderer: the engine is not running");
    }
}

TEST_F(RendererFixture, HasNoAtlasUntilItIsGivenOne) {
    EXPECT_EQ(renderer.getAtlasPtr(), nullptr);
    try {
        renderer.getAtlas();
        FAIL() << "no exception";
    } catch (const core::IllegalStateException &exception) {
        EXPECT_STREQ(exception.what(), "There is no atlas: the engine is not running");
    }
}

TEST_F(RendererFixture, TheFrameClockMovesWithTheFrame) {
    EXPECT_EQ(renderer.getFrameTime(), 0);
    renderer.getTimer().advance(0.5);
    EXPECT_EQ(renderer.getFrameTime(), 0);
    EXPECT_EQ(renderer.getTimer().getMilliseconds(), 500u);
    renderer.beginFrame();
    EXPECT_EQ(renderer.getFrameTime(), 0.5f);
    EXPECT_EQ(renderer.getFrameTimeExact(), 0.5);
}

TEST_F(RendererFixture, ResizeTellsOldAndNewSizeAndStoresTheNew) {
    ResizeEventData seen{};
    renderer.subscribeResize([&](const ResizeEventData &data) {
        seen = data;
        EXPECT_EQ(renderer.getScreenSettings().width, data.newWidth);
        return false;
    });
    renderer.resize(800, 600);
    EXPECT_EQ(seen.kind, ResizeEventData::SCREEN);
    EXPECT_EQ(seen.oldWidth, 640u);
    EXPECT_EQ(seen.oldHeight, 480u);
    EXPECT_EQ(seen.newWidth, 800u);
    EXPECT_EQ(seen.newHeight, 600u);
    renderer.resize(0, 0);
    EXPECT_EQ(seen.oldWidth, 800u);
    EXPECT_EQ(seen.newHeight, 0u);
    EXPECT_EQ(renderer.getScreenSettings().height, 0u);
}

TEST_F(RendererFixture, ACallbackThatReturnsTrueIsUnsubscribed) {
    int calls = 0;
    const unsigned int id = renderer.subscribeResize([&](const ResizeEventData &) { return ++calls == 2; });
    EXPECT_EQ(renderer.getResizeSubscriberCount(), 1u);
    for (int i = 0; i < 4; ++i)
        renderer.resize(1, 1);
    EXPECT_EQ(calls, 2);
    EXPECT_EQ(renderer.getResizeSubscriberCount(), 0u);
    EXPECT_FALSE(renderer.unsubscribeResize(id));
}

TEST_F(RendererFixture, TextureRegistrationReachesItsSubscribers) {
    const core::SmartPtr<texture::Texture> texture(new texture::Texture("t"));
    std::vector<texture::Texture *> seen;
    const unsigned int id = renderer.subscribeTextureRegistered([&](texture::Texture *registered) {
        seen.push_back(registered);
        return false;
    });
    renderer.textureRegistered(texture.get());
    EXPECT_TRUE(renderer.unsubscribeTextureRegistered(id));
    renderer.textureRegistered(texture.get());
    EXPECT_EQ(seen, std::vector<texture::Texture *>{texture.get()});
}

} // namespace
} // namespace nurel
