// The manager's frame, and how it follows the screen.
#include "nui/ui/UIManager.h"

#include "nui/ui/ManagerTest.h"

#include "nengine/font/FontManager.h"
#include "nengine/geometry/MeshDataAllocator.h"
#include "nengine/renderer/RenderPass.h"
#include "nengine/renderer/RenderView.h"
#include "nengine/renderer/ResizeEventData.h"
#include "nengine/scene/Camera.h"
#include "nengine/support/AllocationCounter.h"
#include "nui/ui/AnimationContext.h"

#include <functional>
#include <limits>

using namespace nurel::ui;
using nurel::math::Matrix4;
using nurel::math::Vector2;
using nurel::math::Vector3;
using nurel::math::Vector4;
namespace renderer = nurel::renderer;
namespace scene = nurel::scene;

namespace {

using UIManagerFrameTest = test::ManagerTest;

class Minimised : public test::ManagerTest {
public:
    static nurel::EngineConfig none() {
        nurel::EngineConfig config = ManagerTest::config();
        config.width = config.height = 0;
        return config;
    }
    Minimised() : ManagerTest(none()) {}
};

class PlacedPanel : public components::Panel {
public:
    int mPlaced = 0;

protected:
    void updatePosition() override {
        ++mPlaced;
        Panel::updatePosition();
    }
};

/// Where a point of the world is on the screen: -1 to 1, y up.
Vector2 project(const Vector3 &point) {
    const Vector4 clip = UIManager::getSingleton().getCamera()->getViewProjection() * Vector4(point, 1);
    return Vector2(clip.x / clip.w, clip.y / clip.w);
}

void expectNear(const Vector2 &actual, const Vector2 &expected) {
    EXPECT_NEAR(actual.x, expected.x, 1e-5f);
    EXPECT_NEAR(actual.y, expected.y, 1e-5f);
}

std::string names(UIManager &manager) {
    std::string text;
    for (unsigned int i = 0; i < manager.getWidgetCount(); ++i)
        text += std::string(manager.getWidgetAt(i)->getName()) + " ";
    return text;
}

} // namespace

// --- the frame ---

TEST_F(UIManagerFrameTest, TellsTheStagesOfAFrame) {
    std::vector<int> stages;
    const auto widget = addWidget();
    manager().getStageCallbacks().subscribeCallback([&](UIManager::StageEvent stage) {
        stages.push_back(stage);
        return false;
    });
    manager().updateEvents();
    manager().update();
    EXPECT_EQ(stages, (std::vector<int>{2, 1}));
}

TEST_F(UIManagerFrameTest, TellsTheStageBeforeItDoesAnything) {
    const core::SmartPtr<Widget> widget(new Widget("w"));
    manager().addWidget(widget.get());
    bool live = true;
    float time = -1;
    manager().getStageCallbacks().subscribeCallback([&](UIManager::StageEvent stage) {
        if (stage == UIManager::STAGE_EVENTS)
            live = manager().hasWidget(widget.get());
        else
            time = manager().getTime();
        return false;
    });
    advance(2);
    frame();
    EXPECT_FALSE(live);
    EXPECT_EQ(time, 0);
    EXPECT_EQ(manager().getTime(), 2);
}

TEST_F(UIManagerFrameTest, UpdatesOnlyWidgetsWithADirtyBit) {
    struct Counting : Widget {
        explicit Counting(const char *name) : Widget(name) {}
        void updateContent() override {
            ++mUpdates;
            Widget::updateContent();
        }
        int mUpdates = 0;
    };
    const core::SmartPtr<Counting> still(new Counting("still"));
    const core::SmartPtr<Counting> moving(new Counting("moving"));
    manager().addWidget(still.get());
    manager().addWidget(moving.get());
    frame();
    frame();
    still->mUpdates = moving->mUpdates = 0;
    moving->setPosition(Vector3(1, 1, 0));
    manager().update();
    EXPECT_EQ(still->mUpdates, 0);
    EXPECT_GT(moving->mUpdates, 0);
}

TEST_F(UIManagerFrameTest, AllocatesNothingInAnIdleFrame) {
    const auto widget = addWidget();
    for (int i = 0; i < 50; ++i)
        addPanel(*addPanel(*widget, "p", 0, static_cast<float>(i), 100, 10), "inner", 0, 0, 10, 10);
    moveTo(50, 5);
    const auto idle = [&] {
        manager().updateEvents();
        manager().update();
    };
    for (int i = 0; i < 3; ++i)
        idle();
    ASSERT_EQ(widget->isDirty(Component::DIRTY_ALL), 0u);
    const std::size_t before = test::getAllocationCount();
    for (int i = 0; i < 10; ++i)
        idle();
    EXPECT_EQ(test::getAllocationCount(), before);
}

TEST_F(UIManagerFrameTest, AllocatesNothingWhileItAnimates) {
    const auto widget = addWidget();
    const auto panel = addPanel(*widget, "p", 0, 0, 100, 10);
    AnimationContext *context = manager().beginAnimation();
    panel->setPosition(Vector2(100, 0), Vector2(0, 0));
    panel->setScale({2, 2});
    context->setDuration(10);
    manager().commitAnimation();
    for (int i = 0; i < 3; ++i) {
        advance(0.1);
        frame();
    }
    const std::size_t before = test::getAllocationCount();
    advance(0.1);
    frame();
    EXPECT_EQ(test::getAllocationCount(), before);
    EXPECT_NEAR(panel->getComponentPosition().absolute.x, 3, 1e-4f);
}

TEST_F(UIManagerFrameTest, PlacesAndAllocatesNothingBesideWhatAThousandAnimationsMove) {
    const auto widget = addWidget();
    const auto moving = addPanel(*widget, "moving", 0, 0, 800, 600);
    const auto still = addPanel(*widget, "still", 0, 0, 800, 600);
    std::vector<core::SmartPtr<PlacedPanel>> panels;
    for (int i = 0; i < 1000; ++i) {
        for (const auto &parent : {moving, still}) {
            panels.emplace_back(new PlacedPanel);
            parent->addChild(panels.back().get());
        }
    }
    frame();
    manager().beginAnimation()->setDuration(10);
    for (std::size_t i = 0; i < panels.size(); i += 2) {
        panels[i]->setPosition(Vector2(static_cast<float>(i), 100), Vector2(0, 0));
        panels[i]->setOpacity(0.5f, true);
    }
    manager().commitAnimation();
    for (int i = 0; i < 3; ++i) {
        advance(0.1);
        frame();
    }
    for (const auto &panel : panels)
        panel->mPlaced = 0;
    const std::size_t before = test::getAllocationCount();
    for (int i = 0; i < 10; ++i) {
        advance(0.1);
        frame();
    }
    EXPECT_EQ(test::getAllocationCount(), before);
    for (std::size_t i = 0; i < panels.size(); ++i)
        ASSERT_EQ(panels[i]->mPlaced, i % 2 == 0 ? 10 : 0) << i;
    EXPECT_NEAR(panels[1000]->getComponentPosition().absolute.x, 120, 0.1f);
    EXPECT_LT(panels[1000]->getOpacity(), 1);
}

TEST_F(UIManagerFrameTest, BringsTheSceneUpToDate) {
    const auto widget = addWidget();
    const auto panel = addPanel(*widget, "p", 100, 200, 50, 20);
    manager().update();
    EXPECT_EQ(panel->getView()->getWorldTransform().getTranslation(), Vector3(125, 210, 0));
}

TEST_F(UIManagerFrameTest, AnimatesAheadOfTheWidgets) {
    const auto widget = addWidget();
    const auto panel = addPanel(*widget, "p", 0, 0, 100, 100);
    frame();
    AnimationContext *context = manager().beginAnimation();
    panel->setPosition(Vector2(100, 0), Vector2(0, 0));
    context->setDuration(1);
    manager().commitAnimation();
    manager().update();
    advance(0.5);
    manager().update();
    EXPECT_EQ(panel->getWorldPosition(), Vector3(100, 50, 0));
}

TEST_F(UIManagerFrameTest, SurvivesAQueueThatRunsInsideTheWalkOverTheWidgets) {
    struct Nosy : Widget {
        Nosy() : Widget("nosy") {}
        void updateContent() override {
            Widget::updateContent();
            if (mAct)
                std::exchange(mAct, nullptr)();
        }
        std::function<void()> mAct;
    };
    const auto first = addWidget("first");
    core::SmartPtr<Nosy> nosy(new Nosy);
    Nosy *watched = nosy.get();
    manager().addWidget(nosy.get());
    const auto last = addWidget("last");
    nosy->mAct = [&] {
        manager().removeWidget(watched);
        manager().removeWidget(first.get());
        manager().updateEvents();
    };
    nosy->setPosition(Vector3(1, 0, 0));
    nosy = nullptr;
    last->setPosition(Vector3(2, 0, 0));
    manager().update();
    EXPECT_EQ(names(manager()), "last ");
    manager().update();
    EXPECT_EQ(last->getWorldPosition().x, 402);
}

TEST_F(UIManagerFrameTest, PlacesWidgetsWithARelativeSizeAnew) {
    const auto full = addWidget("full");
    const core::SmartPtr<Widget> fixed(new Widget("fixed", {50, 50}, {0, 0}));
    manager().addWidget(fixed.get());
    frame();
    int positions = 0;
    manager().getStageCallbacks().subscribeCallback([&](UIManager::StageEvent) {
        positions +=
            (full->isDirty(Component::DIRTY_POSITION) ? 1 : 0) + (fixed->isDirty(Component::DIRTY_POSITION) ? 10 : 0);
        return false;
    });
    manager().updateWidgetPositions();
    EXPECT_EQ(positions, 1);
}

TEST_F(UIManagerFrameTest, RefreshesEverything) {
    const auto widget = addWidget();
    const auto panel = addPanel(*widget, "p", 0, 0, 10, 10);
    frame();
    unsigned int seen = 0;
    manager().getStageCallbacks().subscribeCallback([&](UIManager::StageEvent) {
        seen |= panel->isDirty(0x7f);
        return false;
    });
    manager().refresh();
    EXPECT_EQ(seen, 0x7fu);
    EXPECT_EQ(panel->isDirty(0x7f) & Component::DIRTY_POSITION, 0u);
}

// --- screen ---

TEST_F(UIManagerFrameTest, ProjectsOneUnitToOnePixelFromTheTopLeft) {
    EXPECT_EQ(manager().getCamera()->getProjection()[11], 1);
    expectNear(project({0, 0, 0}), {-1, 1});
    expectNear(project({400, 300, 0}), {0, 0});
    expectNear(project({800, 600, 0}), {1, -1});
    expectNear(project({401, 300, 0}), {1 / 400.0f, 0});
    EXPECT_EQ(manager().getCamera()->getPosition(), Vector3(400, 300, -1000));
}

TEST_F(UIManagerFrameTest, ShowsDepthInPerspective) {
    // Twice as far away is half as large.
    expectNear(project({800, 600, 1000}), {0.5f, -0.5f});
}

TEST_F(UIManagerFrameTest, FollowsTheScreensSizeAndStaysSubscribed) {
    const auto widget = addWidget();
    EXPECT_FALSE(manager().resize({renderer::ResizeEventData::SCREEN, 800, 600, 800, 600}));
    mEngine->resize(400, 200);
    EXPECT_EQ(manager().getScreenWidth(), 400u);
    EXPECT_EQ(manager().getScreenHeight(), 200u);
    EXPECT_EQ(widget->getSize(), Vector2(400, 200));
    mEngine->resize(1000, 500);
    EXPECT_EQ(widget->getSize(), Vector2(1000, 500));
    expectNear(project({0, 0, 0}), {-1, 1});
    expectNear(project({1000, 500, 0}), {1, -1});
}

TEST_F(UIManagerFrameTest, KeepsTheProjectionForAScreenWithoutArea) {
    const Matrix4 before = manager().getCamera()->getProjection();
    for (const auto &[width, height] : {std::pair(0u, 600u), {800u, 0u}, {0u, 0u}}) {
        mEngine->resize(width, height);
        EXPECT_EQ(manager().getScreenWidth(), width);
        EXPECT_EQ(manager().getScreenHeight(), height);
        EXPECT_EQ(manager().getCamera()->getProjection(), before);
        moveTo(10, 10);
    }
    mEngine->resize(800, 600);
    EXPECT_EQ(manager().getCamera()->getProjection(), before);
}

TEST_F(Minimised, StartsOnAScreenWithoutArea) {
    const auto widget = addWidget();
    EXPECT_EQ(manager().getScreenWidth(), 0u);
    moveTo(5, 5);
    mEngine->resize(800, 600);
    expectNear(project({0, 0, 0}), {-1, 1});
    EXPECT_EQ(widget->getSize(), Vector2(800, 600));
}

TEST_F(UIManagerFrameTest, CountsUIPixelsByItsScale) {
    const auto widget = addWidget();
    nurel::font::FontManager::getSingleton().setRebuildFonts(false);
    manager().setScale({0.5f, 0.333f});
    EXPECT_EQ(manager().getScale(), Vector2(0.5f, 0.333f));
    EXPECT_EQ(manager().getScreenWidth(), 400u);
    EXPECT_EQ(manager().getScreenHeight(), 199u); // 199.8, cut
    EXPECT_EQ(widget->getSize(), Vector2(400, 199));
    expectNear(project({400, 199, 0}), {1, -1});
    EXPECT_TRUE(nurel::font::FontManager::getSingleton().isRebuildFonts());
    mEngine->resize(1000, 600);
    EXPECT_EQ(manager().getScreenWidth(), 500u);
}

TEST_F(UIManagerFrameTest, TakesScalesThatAreNone) {
    const Matrix4 before = manager().getCamera()->getProjection();
    for (const float scale : {0.0f, -1.0f, std::numeric_limits<float>::quiet_NaN()}) {
        manager().setScale({scale, scale});
        EXPECT_EQ(manager().getScreenWidth(), 0u) << scale;
        EXPECT_EQ(manager().getCamera()->getProjection(), before) << scale;
        moveTo(10, 10);
    }
    manager().setScale({1e30f, 1e30f});
    moveTo(2000000000, -2000000000);
    EXPECT_EQ(manager().getMousePos(),
              (CursorPosition{std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}));
    manager().setScale({1, 1});
    EXPECT_EQ(manager().getCamera()->getProjection(), before);
}

TEST_F(UIManagerFrameTest, SetsANewCameraUpForTheScreen) {
    const Matrix4 projection = manager().getCamera()->getProjection();
    const core::SmartPtr<scene::Camera> camera(new scene::Camera("mine"));
    Matrix4 orthographic;
    orthographic.orthographic(800, 600, 1, 100);
    camera->setProjection(orthographic);
    manager().setCamera(camera.get());
    EXPECT_EQ(manager().getCamera(), camera.get());
    EXPECT_EQ(manager().getRenderPass()->getView(0)->getCamera(), camera.get());
    EXPECT_EQ(camera->getProjection(), projection);
    manager().setCamera(nullptr);
    EXPECT_EQ(manager().getCamera(), camera.get());
}

TEST_F(UIManagerFrameTest, TakesOnlyAllocatorsThatDo) {
    using nurel::geometry::MeshData;
    using nurel::geometry::MeshDataAllocator;
    const core::SmartPtr<MeshDataAllocator> good(new MeshDataAllocator);
    manager().setGeometryAllocator(good.get());
    EXPECT_EQ(manager().getGeometryAllocator(), good.get());

    const core::SmartPtr<MeshDataAllocator> none(new MeshDataAllocator(new MeshData(0x6be)));
    manager().setGeometryAllocator(none.get());
    EXPECT_EQ(mLog.takeOne(logging::Level::ERROR), "Incompatible MeshDataAllocator: UI elements need AM_POSITION | "
                                                   "AM_INDEX | AM_TEXTURE0 vertex attributes");
    EXPECT_EQ(manager().getGeometryAllocator(), good.get());

    for (const MeshData::Attribute attribute : {MeshData::AM_POSITION, MeshData::AM_INDEX, MeshData::AM_TEXTURE0}) {
        auto *data = new MeshData;
        data->setStorage(attribute, MeshData::AS_DEVICE);
        const core::SmartPtr<MeshDataAllocator> away(new MeshDataAllocator(data));
        manager().setGeometryAllocator(away.get());
        EXPECT_EQ(mLog.takeOne(logging::Level::ERROR), "Incompatible MeshDataAllocator: UI elements need vertes "
                                                       "attributes to be have AS_HOST storage");
        EXPECT_EQ(manager().getGeometryAllocator(), good.get());
    }

    // Any one of the attributes is enough.
    const core::SmartPtr<MeshDataAllocator> lean(new MeshDataAllocator(new MeshData(MeshData::AM_INDEX)));
    manager().setGeometryAllocator(lean.get());
    EXPECT_EQ(manager().getGeometryAllocator(), lean.get());
    manager().setGeometryAllocator(nullptr);
    EXPECT_EQ(manager().getGeometryAllocator(), nullptr);
}
