#include "nengine/Engine.h"

#include "foundation/core/Exception.h"
#include "nengine/EngineFactory.h"
#include "nengine/font/FontManager.h"
#include "nengine/renderer/RecordingBackend.h"
#include "nengine/renderer/RenderPass.h"
#include "nengine/renderer/Renderer.h"
#include "nengine/scene/Node.h"
#include "nengine/scene/VisibilitySet.h"
#include "nengine/scene/meshes/SizeableRectangleMesh.h"
#include "nengine/texture/Atlas.h"
#include "nengine/texture/TexturePool.h"
#include "ninput/input/InputSystem.h"
#include "nxml/i18n/I18N.h"
#include "support/LogCapture.h"

#include <gtest/gtest.h>

#include <thread>

namespace nurel {
namespace {

TEST(Engine, MakesTheSingletonsAndTakesThemDown) {
    test::LogCapture log;
    {
        Engine engine(EngineConfig::headless(320, 200));
        EXPECT_TRUE(EngineFactory::isSingletonCreated());
        EXPECT_TRUE(renderer::Renderer::isSingletonCreated());
        EXPECT_TRUE(texture::TexturePool::isSingletonCreated());
        EXPECT_TRUE(font::FontManager::isSingletonCreated());
        EXPECT_TRUE(input::InputSystem::isSingletonCreated());
        EXPECT_TRUE(i18n::I18N::isSingletonCreated());
        EXPECT_EQ(&engine.getRenderer(), renderer::Renderer::getSingletonPtr());
        EXPECT_EQ(engine.getRenderer().getScreenSettings().width, 320u);
        EXPECT_EQ(engine.getRenderer().getScreenSettings().height, 200u);
        EXPECT_NE(engine.getRenderer().getAtlas().getWhite().page, nullptr);
        ASSERT_NE(engine.getRecordingBackend(), nullptr);
        EXPECT_EQ(&engine.getBackend(), engine.getRecordingBackend());
    }
    EXPECT_FALSE(EngineFactory::isSingletonCreated());
    EXPECT_FALSE(renderer::Renderer::isSingletonCreated());
    EXPECT_FALSE(texture::TexturePool::isSingletonCreated());
    EXPECT_FALSE(font::FontManager::isSingletonCreated());
    EXPECT_FALSE(input::InputSystem::isSingletonCreated());
    EXPECT_FALSE(i18n::I18N::isSingletonCreated());
}

TEST(Engine, CanBeStartedAgain) {
    test::LogCapture log;
    for (int i = 0; i < 3; ++i) {
        const Engine engine(EngineConfig::headless(10, 10));
        EXPECT_TRUE(renderer::Renderer::isSingletonCreated());
    }
}

TEST(Engine, RunsOnceAtATime) {
    Engine engine(EngineConfig::headless(10, 10));
    try {
        Engine second(EngineConfig::headless(10, 10));
        FAIL() << "no exception";
    } catch (const core::IllegalStateException &exception) {
        EXPECT_STREQ(exception.what(), "The engine is running already");
    }
    EXPECT_EQ(&engine.getRenderer(), renderer::Renderer::getSingletonPtr());
}

TEST(Engine, HasNoInputSystemWhenItIsNotWanted) {
    EngineConfig config = EngineConfig::headless(10, 10);
    config.input = false;
    const Engine engine(config);
    EXPECT_FALSE(input::InputSystem::isSingletonCreated());
}

TEST(Engine, DrawsWithTheGivenBackendAndGivesItsTexturesBack) {
    const auto backend = std::make_shared<renderer::RecordingBackend>();
    EngineConfig config = EngineConfig::headless(10, 10);
    config.backend = backend;
    {
        Engine engine(config);
        EXPECT_EQ(&engine.getBackend(), backend.get());
        EXPECT_GT(backend->getTextures().size(), 0u);
    }
    EXPECT_EQ(backend->getTextures().size(), 0u);
}

TEST(Engine, ItsManualClockMovesByAdvanceAlone) {
    Engine engine(EngineConfig::headless(10, 10));
    renderer::RenderPass pass(nullptr, nullptr);
    EXPECT_EQ(engine.getRenderer().getFrameTime(), 0);
    engine.advance(0.25);
    EXPECT_EQ(engine.getRenderer().getFrameTime(), 0.25f);
    EXPECT_EQ(engine.getRenderer().getTimer().getMilliseconds(), 250u);
    engine.pump();
    engine.renderFrame(pass);
    EXPECT_EQ(engine.getRenderer().getFrameTime(), 0.25f);
    for (int i = 0; i < 60; ++i)
        engine.advance(1.0 / 60);
    EXPECT_EQ(engine.getRenderer().getTimer().getMilliseconds(), 1250u);
}

TEST(Engine, ItsRealClockRunsByItself) {
    EngineConfig config = EngineConfig::headless(10, 10);
    config.manualClock = false;
    Engine engine(config);
    const double before = engine.getRenderer().getFrameTimeExact();
    std::this_thread::sleep_for(std::chrono::milliseconds(2));
    EXPECT_EQ(engine.getRenderer().getFrameTimeExact(), before) << "the frame clock stands still during a frame";
    engine.pump();
    EXPECT_GT(engine.getRenderer().getFrameTimeExact(), before);
    const double between = engine.getRenderer().getFrameTimeExact();
    engine.advance(1000);
    EXPECT_LT(engine.getRenderer().getFrameTimeExact(), between + 500);
}

TEST(Engine, RenderFramePumpsPreparesAndRenders) {
    Engine engine(EngineConfig::headless(100, 100));
    scene::VisibilitySet set;
    const core::SmartPtr<scene::Node> root(new scene::Node("root"));
    const core::SmartPtr<renderer::RenderPass> pass(new renderer::RenderPass(nullptr, nullptr));
    pass->append(new renderer::RenderView(new scene::Culler(&set), new scene::Camera("c"), root.get()));
    bool ran = false;
    std::thread([&] { engine.getRenderer().getTaskQueue().post([&] { ran = true; }); }).join();
    EXPECT_FALSE(ran);
    engine.renderFrame(*pass);
    EXPECT_TRUE(ran);
    EXPECT_EQ(engine.getRecordingBackend()->getSubmitCount(), 1u);
}

TEST(Engine, ResizeReachesSubscribersAndMayBeZero) {
    Engine engine(EngineConfig::headless(100, 100));
    int calls = 0;
    engine.getRenderer().subscribeResize([&](const renderer::ResizeEventData &) { return ++calls == 2; });
    engine.resize(0, 0);
    EXPECT_EQ(engine.getRenderer().getScreenSettings().width, 0u);
    engine.resize(50, 40);
    EXPECT_EQ(calls, 2);
}

TEST(Engine, TellsOfAToolkitThatWasNotShutDown) {
    test::LogCapture log;
    {
        Engine engine(EngineConfig::headless(100, 100));
        engine.getRenderer().subscribeResize([](const renderer::ResizeEventData &) { return false; });
    }
    EXPECT_EQ(log.takeOne(logging::Level::WARN),
              "The engine goes down with 1 resize subscriptions left: call UIManager::shutdown() before");
}

TEST(Engine, ItsEndServesThreadsThatWaitForATask) {
    core::Future<bool> future;
    {
        Engine engine(EngineConfig::headless(10, 10));
        std::thread([&] {
            future = engine.getRenderer().getTaskQueue().post([] { return renderer::Renderer::isSingletonCreated(); });
        }).join();
    }
    ASSERT_TRUE(future.isSet());
    EXPECT_TRUE(future.get()) << "the renderer was still there";
}

TEST(Engine, MeshesMayOutliveIt) {
    const core::SmartPtr<scene::Node> root(new scene::Node("root"));
    root->appendChild(new scene::meshes::SizeableRectangleMesh("box", {5, 5}));
    scene::VisibilitySet set;
    for (int i = 0; i < 2; ++i) {
        Engine engine(EngineConfig::headless(100, 100));
        const core::SmartPtr<renderer::RenderPass> pass(new renderer::RenderPass(nullptr, nullptr));
        pass->append(new renderer::RenderView(new scene::Culler(&set), new scene::Camera("c"), root.get()));
        root->update(0, true);
        engine.renderFrame(*pass);
        ASSERT_EQ(engine.getRecordingBackend()->getCommands().size(), 1u);
        EXPECT_EQ(engine.getRecordingBackend()->getCommands()[0].texture,
                  engine.getRenderer().getAtlas().getWhite().page->id);
    }
}

TEST(EngineFactory, MakesObjectsByTypeAndName) {
    EngineFactory factory;
    EXPECT_EQ(EngineFactory::getSingletonPtr(), &factory);
    factory.registerCreator(scene::Node::TYPE, []() -> core::Object * { return new scene::Node(); });
    const core::SmartPtr<core::Object> made(factory.create("Node"));
    ASSERT_TRUE(made);
    EXPECT_TRUE(made->instanceOf(scene::Node::TYPE));
    EXPECT_EQ(factory.create("Nothing"), nullptr);
    EXPECT_THROW(EngineFactory(), core::IllegalStateException);
}

TEST(EngineFactory, IsGoneWithoutAnEngine) {
    try {
        EngineFactory::getSingleton();
        FAIL() << "no exception";
    } catch (const core::IllegalStateException &exception) {
        EXPECT_STREQ(exception.what(), "There is no engine factory: the engine is not running");
    }
}

} // namespace
} // namespace nurel
