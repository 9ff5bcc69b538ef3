// Pictures that arrive after the style that names them.
#include "nengine/renderer/Renderer.h"
#include "nengine/scene/Mesh.h"
#include "nengine/scene/properties/MaterialProperty.h"
#include "nengine/texture/ImageFile.h"
#include "nengine/texture/TexturePool.h"
#include "nmain/vfs/MemoryFileSystem.h"
#include "nui/ui/css/StyleTest.h"

#include <algorithm>
#include <atomic>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <thread>

using namespace nurel::ui;
using nurel::texture::Texture;
using nurel::texture::TexturePool;

namespace {

std::string makePicture() {
    const std::string file = testing::TempDir() + "nui-style-picture.png";
    const std::vector<unsigned char> pixels(4U * 4U * 4U, 255);
    nurel::texture::savePng(file.c_str(), 4, 4, pixels.data());
    std::ifstream stream(file, std::ios::binary);
    std::string bytes{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
    stream.close();
    std::filesystem::remove(file);
    return bytes;
}

class CSSViewTextureTest : public test::StyleTest {
public:
    CSSViewTextureTest() : StyleTest("panel { background-image: a.png; } .b { background-image: b.png; }") {
        const std::string picture = makePicture();
        mFiles.add("a.png", picture);
        mFiles.add("b.png", picture);
        mFiles.add("broken.png", "no picture");
        TexturePool::getSingleton().setFileSystem(&mFiles);
        mWidget = addStyledWidget();
    }

    ~CSSViewTextureTest() override {
        if (TexturePool::isSingletonCreated())
            TexturePool::getSingleton().setFileSystem(nullptr);
    }

    core::SmartPtr<Panel> addPending(const char *name = "panel") {
        core::SmartPtr<Panel> panel = addPanel(*mWidget, name, 0, 0, 50, 50);
        manager().update();
        return panel;
    }

    static std::size_t pending() { return TexturePool::getSingleton().getPendingCount(); }

    nurel::vfs::MemoryFileSystem mFiles;
};

} // namespace

TEST_F(CSSViewTextureTest, TheMeshTakesTheTextureAtOnceAndTheComponentIsMarkedWhenItArrives) {
    const auto panel = addPending();
    Texture *texture = TexturePool::getSingleton()["a.png"];
    EXPECT_EQ(panel->getMeshTexture(0), texture);
    EXPECT_EQ(texture->getRenderData(), nullptr);
    EXPECT_EQ(panel->isDirty(Component::DIRTY_ALL), 0U);
    TexturePool::getSingleton().waitUntilLoaded();
    EXPECT_NE(texture->getRenderData(), nullptr);
    EXPECT_EQ(panel->isDirty(Component::DIRTY_ALL), static_cast<unsigned int>(Component::DIRTY_ALL));
}

TEST_F(CSSViewTextureTest, AnImageOfAutomaticSizeTakesThatOfAPictureWhenItArrives) {
    setSheet("image { width: auto; height: auto; background-image: a.png; }");
    const core::SmartPtr<components::Image> image(new components::Image("image"));
    mWidget->addChild(image.get());
    manager().update();
    EXPECT_EQ(image->getSize(), Vector2(0, 0));
    TexturePool::getSingleton().waitUntilLoaded();
    manager().update();
    EXPECT_EQ(image->getSize(), Vector2(4, 4));
}

TEST_F(CSSViewTextureTest, AllViewsThatWaitForATextureAreMarked) {
    const auto first = addPending("first");
    const auto second = addPending("second");
    TexturePool::getSingleton().waitUntilLoaded();
    EXPECT_TRUE(first->isDirty(Component::DIRTY_VIEW));
    EXPECT_TRUE(second->isDirty(Component::DIRTY_VIEW));
}

TEST_F(CSSViewTextureTest, AViewCanWaitForSeveralTextures) {
    const auto panel = addPending();
    panel->addClass("b");
    manager().update();
    TexturePool::getSingleton().waitUntilLoaded();
    EXPECT_TRUE(panel->isDirty(Component::DIRTY_VIEW));
    EXPECT_EQ(panel->getMeshTexture(0), TexturePool::getSingleton()["b.png"]);
}

TEST_F(CSSViewTextureTest, ATextureThatIsThereIsNotWaitedFor) {
    const auto first = addPending("first");
    TexturePool::getSingleton().waitUntilLoaded();
    manager().update();
    const auto second = addPending("second");
    EXPECT_EQ(second->isDirty(Component::DIRTY_ALL), 0U);
    TexturePool::getSingleton().reload("a.png");
    TexturePool::getSingleton().waitUntilLoaded();
    EXPECT_EQ(second->isDirty(Component::DIRTY_ALL), 0U);
}

TEST_F(CSSViewTextureTest, ViewsGoInEveryOrderWhileTheirTexturesAreOnTheWay) {
    std::vector<int> order{0, 1, 2};
    do {
        for (std::size_t destroyed = 0; destroyed <= order.size(); ++destroyed) {
            TexturePool::getSingleton().remove("a.png");
            TexturePool::getSingleton().remove("b.png");
            std::vector<core::SmartPtr<Panel>> panels;
            for (int i = 0; i < 3; ++i)
                panels.push_back(addPending());
            panels[1]->addClass("b");
            manager().update();
            for (std::size_t i = 0; i < destroyed; ++i) {
                auto &panel = panels[static_cast<std::size_t>(order[i])];
                mWidget->removeChild(panel.get());
                panel = nullptr;
            }
            TexturePool::getSingleton().waitUntilLoaded();
            for (const auto &panel : panels) {
                EXPECT_TRUE(!panel || panel->isDirty(Component::DIRTY_VIEW)) << destroyed;
            }
            mWidget->clearChildren();
        }
    } while (std::next_permutation(order.begin(), order.end()));
}

TEST_F(CSSViewTextureTest, AViewWhoseComponentDiedIsPassedOver) {
    auto panel = addPending();
    const core::SmartPtr<ComponentView> view(panel->getView());
    mWidget->removeChild(panel.get());
    panel = nullptr;
    TexturePool::getSingleton().waitUntilLoaded();
    EXPECT_EQ(view->getComponent(), nullptr);
}

TEST_F(CSSViewTextureTest, WaitingCanBeGivenUp) {
    const auto panel = addPending();
    viewOf(*panel).cancelEnsureTexture();
    viewOf(*panel).cancelEnsureTexture();
    TexturePool::getSingleton().waitUntilLoaded();
    EXPECT_EQ(panel->isDirty(Component::DIRTY_ALL), 0U);
}

TEST_F(CSSViewTextureTest, TheNextWaitAfterTheLastOneEndedIsHeardToo) {
    auto first = addPending("first");
    mWidget->removeChild(first.get());
    first = nullptr;
    TexturePool::getSingleton().waitUntilLoaded();
    TexturePool::getSingleton().remove("a.png");
    const auto second = addPending("second");
    TexturePool::getSingleton().waitUntilLoaded();
    EXPECT_TRUE(second->isDirty(Component::DIRTY_VIEW));
}

TEST_F(CSSViewTextureTest, AViewMayOutliveTheEngine) {
    auto panel = addPending();
    core::SmartPtr<ComponentView> view(panel->getView());
    mWidget->removeChild(panel.get());
    panel = nullptr;
    TexturePool::getSingleton().setFileSystem(nullptr);
    mWidget = nullptr;
    mStyle = nullptr;
    mSkin = nullptr;
    UIManager::shutdown();
    SkinManager::deleteSingleton();
    mEngine.reset();
    EXPECT_EQ(view->getComponent(), nullptr);
    EXPECT_EQ(view->getRefCount(), 1U); // nobody else holds it, so that it goes here
    view = nullptr;
}

TEST_F(CSSViewTextureTest, AViewThatWaitsForNothingCanGoOnAnotherThread) {
    setSheet("");
    auto panel = addPending();
    core::SmartPtr<ComponentView> view(panel->getView());
    mWidget->removeChild(panel.get());
    panel = nullptr;
    EXPECT_EQ(nurel::renderer::Renderer::getSingleton().getTextureSubscriberCount(), 0U);
    ASSERT_EQ(view->getRefCount(), 1U);
    // The frame thread does not pump meanwhile: a view that asked it would never come back
    bool isGone = false;
    std::thread([&] {
        view = nullptr;
        isGone = true;
    }).join();
    EXPECT_TRUE(isGone);
}

TEST_F(CSSViewTextureTest, AViewThatWaitsCanGoOnAnotherThreadWhileTheFrameThreadPumps) {
    for (int round = 0; round < 20; ++round) {
        TexturePool::getSingleton().remove("a.png");
        auto gone = addPending("gone");
        const auto stays = addPending("stays");
        core::SmartPtr<ComponentView> view(gone->getView());
        mWidget->removeChild(gone.get());
        gone = nullptr;
        mWidget->getView()->updateInternal(0, false);
        std::atomic<bool> done(false);
        std::thread other([view = std::move(view), &done]() mutable {
            view = nullptr;
            done = true;
        });
        while (!done)
            mEngine->pump();
        other.join();
        TexturePool::getSingleton().waitUntilLoaded();
        EXPECT_TRUE(stays->isDirty(Component::DIRTY_VIEW));
        mWidget->clearChildren();
    }
}

TEST_F(CSSViewTextureTest, OtherListenersMayDestroyTheViewsAheadOfTheirTurnAndBehindIt) {
    for (const bool ahead : {true, false}) {
        TexturePool::getSingleton().remove("a.png");
        auto &renderer = nurel::renderer::Renderer::getSingleton();
        int calls = 0;
        const auto clear = [&](Texture *) {
            ++calls;
            mWidget->clearChildren();
            return true;
        };
        if (ahead)
            renderer.subscribeTextureRegistered(clear);
        addPending("first");
        addPending("second");
        if (!ahead)
            renderer.subscribeTextureRegistered(clear);
        TexturePool::getSingleton().waitUntilLoaded();
        EXPECT_EQ(calls, 1);
        EXPECT_EQ(mWidget->getChildCount(), 0U);
    }
    // And who waits later is heard.
    TexturePool::getSingleton().remove("a.png");
    const auto later = addPending("later");
    TexturePool::getSingleton().waitUntilLoaded();
    EXPECT_TRUE(later->isDirty(Component::DIRTY_VIEW));
}

TEST_F(CSSViewTextureTest, AViewThatBeginsToWaitWhileTheLastOneIsToldIsHeard) {
    for (const bool ahead : {true, false}) {
        TexturePool::getSingleton().remove("a.png");
        TexturePool::getSingleton().remove("b.png");
        core::SmartPtr<Panel> first;
        core::SmartPtr<Panel> second;
        const auto exchange = [&](Texture *) {
            mWidget->removeChild(first.get());
            first = nullptr;
            second = addPanel(*mWidget, "second", 0, 0, 50, 50);
            second->addClass("b");
            manager().update();
            return true;
        };
        auto &renderer = nurel::renderer::Renderer::getSingleton();
        if (ahead)
            renderer.subscribeTextureRegistered(exchange);
        first = addPending("first");
        if (!ahead)
            renderer.subscribeTextureRegistered(exchange);
        TexturePool::getSingleton().waitUntilLoaded();
        ASSERT_TRUE(second);
        TexturePool::getSingleton().waitUntilLoaded();
        EXPECT_EQ(second->getMeshTexture(0), TexturePool::getSingleton()["b.png"]);
        EXPECT_TRUE(second->isDirty(Component::DIRTY_VIEW)) << ahead;
        mWidget->clearChildren();
    }
}

TEST_F(CSSViewTextureTest, TheSubscriptionEndsWithTheLastWait) {
    auto &renderer = nurel::renderer::Renderer::getSingleton();
    const std::size_t none = renderer.getTextureSubscriberCount();
    auto panel = addPending();
    EXPECT_EQ(renderer.getTextureSubscriberCount(), none + 1);
    const auto other = addPending("other");
    EXPECT_EQ(renderer.getTextureSubscriberCount(), none + 1);
    viewOf(*other).cancelEnsureTexture();
    EXPECT_EQ(renderer.getTextureSubscriberCount(), none + 1);
    mWidget->removeChild(panel.get());
    panel = nullptr;
    EXPECT_EQ(renderer.getTextureSubscriberCount(), none);
    TexturePool::getSingleton().remove("a.png");
    const auto last = addPending("last");
    EXPECT_EQ(renderer.getTextureSubscriberCount(), none + 1);
    TexturePool::getSingleton().waitUntilLoaded();
    EXPECT_EQ(renderer.getTextureSubscriberCount(), none);
}

TEST_F(CSSViewTextureTest, AFrameThatGoesByTheLookOfItsParentGetsItsOwn) {
    const core::SmartPtr<nurel::scene::Node> parent(new nurel::scene::Node("parent"));
    auto *tint = new nurel::scene::properties::MaterialProperty("tint");
    tint->setColor(Vector4(1, 0, 0, 1));
    parent->setProperty(tint);
    auto *frame = new nurel::scene::Frame("frame");
    parent->appendChild(frame);
    EXPECT_EQ(CSSView::getColor(frame), Vector4(1, 0, 0, 1));
    EXPECT_TRUE(CSSView::setColor(frame, Vector4(0, 1, 0, -1)));
    EXPECT_EQ(CSSView::getColor(frame), Vector4(0, 1, 0, 1));
    EXPECT_EQ(tint->getColor(), Vector4(1, 0, 0, 1));
    EXPECT_TRUE(CSSView::setColor(frame, Vector4(-1, 5, 5, 0.5F)));
    EXPECT_EQ(CSSView::getColor(frame), Vector4(0, 1, 0, 0.5F));
}

TEST_F(CSSViewTextureTest, MissingAndBrokenPicturesLeaveTheMeshWithout) {
    setSheet("panel { background: red; background-image: missing.png; }");
    const auto panel = addPending();
    EXPECT_EQ(panel->getMeshTexture(0), nullptr);
    EXPECT_EQ(mLog.takeOne(logging::Level::WARN) + mLog.takeOne(logging::Level::ERROR),
              "Cannot find image missing.png");
    setSheet("panel { background-image: broken.png; }");
    const auto broken = addPending();
    TexturePool::getSingleton().waitUntilLoaded();
    (void)mLog.take(logging::Level::ERROR);
    const auto later = addPending();
    EXPECT_EQ(later->getMeshTexture(0), nullptr);
}

TEST_F(CSSViewTextureTest, SetTextureSaysWhetherThereIsOne) {
    const auto panel = addPending();
    EXPECT_FALSE(CSSView::setTexture(&viewOf(*panel), panel->getMesh(), nullptr));
    EXPECT_FALSE(CSSView::setTexture(&viewOf(*panel), panel->getMesh(), ""));
    EXPECT_TRUE(CSSView::setTexture(&viewOf(*panel), panel->getMesh(), "b.png"));
    EXPECT_EQ(TexturePool::getSingleton()["b.png"]->getWrapping(), 2U);
    TexturePool::getSingleton().waitUntilLoaded();
}
