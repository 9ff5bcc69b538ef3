// What the manager owns: its life, the widgets, the frame, the screen.
#include "nui/ui/UIManager.h"

#include "nui/ui/ManagerTest.h"

#include "nengine/support/AllocationCounter.h"

#include "foundation/core/Exception.h"
#include "nengine/EngineFactory.h"
#include "nengine/font/FontManager.h"
#include "nengine/geometry/MeshDataAllocator.h"
#include "nengine/renderer/RenderPass.h"
#include "nengine/renderer/RenderView.h"
#include "nengine/renderer/Renderer.h"
#include "nengine/renderer/Sorter.h"
#include "nengine/scene/Camera.h"
#include "nui/ui/AnimationContext.h"
#include "nui/ui/UIComponentFactory.h"
#include "nui/ui/layouts/FlowLayout.h"

#include <cstring>
#include <thread>

using namespace nurel::ui;
using nurel::math::Matrix4;
using nurel::math::Vector2;
using nurel::math::Vector3;
using nurel::math::Vector4;
namespace renderer = nurel::renderer;
namespace scene = nurel::scene;

namespace {

using UIManagerTest = test::ManagerTest;

class WithoutInput : public test::ManagerTest {
public:
    static nurel::EngineConfig silent() {
        nurel::EngineConfig config = ManagerTest::config();
        config.input = false;
        return config;
    }
    WithoutInput() : ManagerTest(silent()) {}
};

class Minimised : public test::ManagerTest {
public:
    static nurel::EngineConfig none() {
        nurel::EngineConfig config = ManagerTest::config();
        config.width = config.height = 0;
        return config;
    }
    Minimised() : ManagerTest(none()) {}
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

template <class Function>
std::string messageOf(Function function) {
    try {
        function();
    } catch (const core::IllegalStateException &e) {
        return e.what();
    }
    return "no exception";
}

} // namespace

// --- life ---

TEST(UIManagerWithoutEngine, SaysThatItNeedsOne) {
    EXPECT_EQ(messageOf([] { UIManager::getSingleton(); }), "UIManager needs a running engine");
    EXPECT_FALSE(UIManager::isSingletonCreated());
    EXPECT_EQ(messageOf([] { UIManager::getSingletonPtr(); }), "UIManager needs a running engine");
    UIManager::shutdown();
}

TEST(UIManagerWithoutEngine, IsNotBroughtBackByADestructor) {
    core::SmartPtr<components::Panel> panel;
    {
        nurel::Engine engine(test::ManagerTest::config());
        panel = new components::Panel("p");
        UIManager::getSingleton();
        UIManager::shutdown();
    }
    panel = nullptr;
    EXPECT_FALSE(UIManager::isSingletonCreated());
}

TEST_F(UIManagerTest, IsMadeByItsFirstUse) {
    EXPECT_FALSE(UIManager::isSingletonCreated());
    UIManager &made = UIManager::getSingleton();
    EXPECT_TRUE(UIManager::isSingletonCreated());
    EXPECT_EQ(UIManager::getSingletonPtr(), &made);
}

TEST_F(UIManagerTest, StartsWithItsSceneAndItsDefaults) {
    EXPECT_STREQ(manager().getRoot()->getName(), "UI.root");
    EXPECT_STREQ(manager().getCamera()->getName(), "guiCamera");
    EXPECT_EQ(manager().getWidgetCount(), 0u);
    EXPECT_EQ(manager().getScale(), Vector2(1, 1));
    EXPECT_EQ(manager().getTime(), 0);
    EXPECT_EQ(manager().getCurrentAnimation(), nullptr);
    EXPECT_EQ(manager().getGeometryAllocator(), nullptr);
    EXPECT_EQ(manager().getFocus(), nullptr);
    EXPECT_EQ(manager().getComponentAtCursor(), nullptr);
    EXPECT_EQ(manager().getDragging(), nullptr);
    EXPECT_EQ(manager().getMousePos(), (CursorPosition{0, 0}));
    EXPECT_TRUE(manager().isEnabled());
    EXPECT_EQ(manager().getScreenWidth(), 800u);
    EXPECT_EQ(manager().getScreenHeight(), 600u);
    EXPECT_EQ(manager().getViewPort(), nurel::math::ViewPort(800, 600));
}

TEST_F(UIManagerTest, DrawsItsRootInNodeOrderOverWhatIsThere) {
    renderer::RenderPass *pass = manager().getRenderPass();
    ASSERT_NE(pass, nullptr);
    EXPECT_EQ(pass->clearMask, 0u);
    EXPECT_NE(pass->getSorter(), nullptr);
    EXPECT_EQ(pass->getFrameBuffer(), nullptr);
    ASSERT_NE(pass->getView(0), nullptr);
    EXPECT_EQ(pass->getView(0)->getRoot(), manager().getRoot());
    EXPECT_EQ(pass->getView(0)->getCamera(), manager().getCamera());
    EXPECT_EQ(pass->getView(1), nullptr);
}

TEST_F(UIManagerTest, RegistersTheCreatorsOfItsClassesForItsLife) {
    nurel::EngineFactory &factory = nurel::EngineFactory::getSingleton();
    manager();
    for (const char *name : {"Label", "Panel", "Image", "Widget", "FlowLayout"}) {
        const core::SmartPtr<nurel::core::Object> object(factory.create(name));
        ASSERT_TRUE(object) << name;
        EXPECT_STREQ(object->getType().getName(), name);
    }
    UIManager::shutdown();
    for (const char *name : {"Label", "Panel", "Image", "Widget", "FlowLayout"})
        EXPECT_EQ(factory.create(name), nullptr) << name;
}

TEST_F(UIManagerTest, ShutsDownOnceAndForAll) {
    manager();
    UIManager::shutdown();
    EXPECT_FALSE(UIManager::isSingletonCreated());
    UIManager::shutdown();
    EXPECT_FALSE(UIManager::isSingletonCreated());
}

TEST_F(UIManagerTest, EndsItsSkinsAndTemplatesWithItself) {
    manager();
    UIComponentFactory::getSingleton();
    SkinManager::getSingleton();
    UIManager::shutdown();
    EXPECT_FALSE(UIComponentFactory::isSingletonCreated());
    EXPECT_FALSE(SkinManager::isSingletonCreated());
}

TEST_F(UIManagerTest, TakesItsWidgetsFromTheSceneFromTheLastToTheFirst) {
    const auto first = addWidget("first");
    const auto second = addWidget("second");
    std::string lost;
    for (const auto &widget : {first, second}) {
        widget->setTabStop(0);
        widget->FocusCallbacks::subscribeCallback([&lost](UIEventHandler *handler, const FocusEvent &event) {
            if (event.getAction() == FocusEvent::FOCUS_LOST)
                lost += handler->getName();
            return false;
        });
    }
    manager().setFocus(first.get());
    UIManager::shutdown();
    EXPECT_EQ(lost, "first");
    EXPECT_FALSE(first->hasView());
    EXPECT_FALSE(second->hasView());
    EXPECT_EQ(first->getRefCount(), 1u);
    EXPECT_EQ(second->getRefCount(), 1u);
}

TEST_F(UIManagerTest, LeavesTheSkinToTheLastView) {
    const auto widget = addWidget();
    const core::SmartPtr<ComponentView> view(widget->getView());
    const unsigned int before = mSkin->getRefCount();
    UIManager::shutdown();
    EXPECT_EQ(view->getSkin(), mSkin.get());
    EXPECT_EQ(mSkin->getRefCount(), before - 1);
}

TEST_F(UIManagerTest, LetsTheEngineGoOnWithoutIt) {
    renderer::Renderer &renderer = renderer::Renderer::getSingleton();
    const std::size_t before = renderer.getResizeSubscriberCount();
    manager();
    EXPECT_EQ(renderer.getResizeSubscriberCount(), before + 1);
    UIManager::shutdown();
    EXPECT_EQ(renderer.getResizeSubscriberCount(), before);
    mEngine->resize(100, 100);
    key(0x1e);
    EXPECT_FALSE(UIManager::isSingletonCreated());
}

TEST_F(UIManagerTest, DumpsItsAllocatorAtItsEnd) {
    const core::SmartPtr<nurel::geometry::MeshDataAllocator> allocator(new nurel::geometry::MeshDataAllocator);
    manager().setGeometryAllocator(allocator.get());
    mLog.take(logging::Level::DEBUG);
    UIManager::shutdown();
    EXPECT_EQ(mLog.take(logging::Level::DEBUG), (Lines{"MeshDataAllocator: 0 meshes, 0 made in all"}));
    EXPECT_EQ(allocator->getRefCount(), 1u);
}

TEST_F(UIManagerTest, ShutsDownFromACallbackAfterTheOutermostOperation) {
    const auto widget = addWidget();
    bool during = false;
    manager().getStageCallbacks().subscribeCallback([&](UIManager::StageEvent stage) {
        if (stage == UIManager::STAGE_UPDATE)
            return false;
        UIManager::shutdown();
        during = UIManager::isSingletonCreated();
        manager().update(); // an operation inside does not end it
        during = during && UIManager::isSingletonCreated();
        return true;
    });
    manager().updateEvents();
    EXPECT_TRUE(during);
    EXPECT_FALSE(UIManager::isSingletonCreated());
    EXPECT_EQ(widget->getRefCount(), 1u);
}

TEST_F(UIManagerTest, ShutsDownFromEveryKindOfCallback) {
    const auto run = [&](const char *what, auto subscribe, auto cause) {
        SCOPED_TRACE(what);
        SkinManager::getSingleton().setDefaultSkin(mSkin.get());
        const auto widget = addWidget();
        widget->setTabStop(0);
        widget->enableEvents(UIEvent::ET_KEY_EVENT | UIEvent::ET_TEXT_EVENT);
        moveTo(10, 10);
        subscribe(*widget);
        cause(*widget);
        EXPECT_FALSE(UIManager::isSingletonCreated());
    };
    const auto end = [](UIEventHandler *, const auto &) {
        UIManager::shutdown();
        return false;
    };
    const auto pressed = [](Widget &) {
        manager().setMouseButton(nurel::input::Mouse::LEFT, nurel::input::Mouse::PRESS);
        manager().updateEvents();
    };
    const auto moved = [](Widget &) {
        point(20, 20);
        manager().updateEvents();
    };
    const auto typed = [](Widget &widget) {
        widget.setFocus();
        manager().textInput("a");
        manager().updateEvents();
    };
    run("press", [&](Widget &w) { w.MouseCallbacks::subscribeCallback(end); }, pressed);
    run("hover", [&](Widget &w) { w.HoverCallbacks::subscribeCallback(end); }, moved);
    run("key", [&](Widget &w) { w.KeyCallbacks::subscribeCallback(end); }, [](Widget &) { key(0x1e); });
    run("focus", [&](Widget &w) { w.FocusCallbacks::subscribeCallback(end); }, [](Widget &w) { w.setFocus(); });
    run("text", [&](Widget &w) { w.TextCallbacks::subscribeCallback(end); }, typed);
    run("leave on tabbing", [&](Widget &w) { w.HoverCallbacks::subscribeCallback(end); },
        [](Widget &) { manager().nextTabStop(UIManager::FORWARD); });
    run("animation",
        [&](Widget &) {
            AnimationContext *context = manager().newAnimation();
            context->subscribeCallback([](AnimationContext *, const AnimationEvent &) {
                UIManager::shutdown();
                return false;
            });
            manager().commitAnimation(context);
        },
        [&](Widget &) { mEngine->resize(640, 480); });
}

TEST_F(UIManagerTest, ToleratesCallbacksThatUseItWhileItEnds) {
    const auto widget = addWidget();
    widget->setTabStop(0);
    widget->setFocus();
    int calls = 0;
    widget->FocusCallbacks::subscribeCallback([&](UIEventHandler *, const FocusEvent &) {
        ++calls;
        UIManager::shutdown();
        manager().addWidget(new Widget("too late"));
        manager().beginAnimation();
        manager().commitAnimation(manager().newAnimation());
        manager().updateEvents();
        SkinManager::getSingleton().addSkin(mSkin.get());
        return false;
    });
    UIManager::shutdown();
    EXPECT_EQ(calls, 1);
    EXPECT_FALSE(UIManager::isSingletonCreated());
    EXPECT_FALSE(SkinManager::isSingletonCreated());
    EXPECT_EQ(mSkin->getRefCount(), 1u);
}

TEST_F(UIManagerTest, EndsThoughACallbackThrows) {
    const auto widget = addWidget("first");
    const auto second = addWidget("second");
    second->setTabStop(0);
    second->setFocus();
    second->FocusCallbacks::subscribeCallback([](UIEventHandler *, const FocusEvent &) -> bool {
        throw core::IllegalStateException("no way");
    });
    UIManager::shutdown();
    EXPECT_FALSE(UIManager::isSingletonCreated());
    EXPECT_EQ(widget->getRefCount(), 1u);
    EXPECT_EQ(mLog.takeOne(logging::Level::ERROR), "A callback failed while the UIManager ended: no way");
}

TEST_F(WithoutInput, LivesWithoutAKeyboard) {
    const auto widget = addWidget();
    click(10, 10);
    EXPECT_EQ(manager().getComponentAtCursor(), widget.get());
    UIManager::shutdown();
}

// --- widgets ---

TEST_F(UIManagerTest, PlacesAWidgetAtTheNextUpdateEvents) {
    const core::SmartPtr<Widget> widget(new Widget("w"));
    manager().addWidget(widget.get(), nullptr);
    EXPECT_FALSE(manager().hasWidget(widget.get()));
    EXPECT_EQ(manager().getWidgetCount(), 0u);
    manager().update();
    EXPECT_FALSE(manager().hasWidget(widget.get()));
    manager().updateEvents();
    EXPECT_TRUE(manager().hasWidget(widget.get()));
    ASSERT_TRUE(widget->hasView());
    EXPECT_EQ(widget->getView()->getSkin(), mSkin.get());
    EXPECT_EQ(widget->getView()->getParent(), manager().getRoot());
    EXPECT_EQ(widget->getSize(), Vector2(800, 600)); // updated at once
}

TEST_F(UIManagerTest, RunsAnAddAheadOfTheRemoveBehindIt) {
    const core::SmartPtr<Widget> widget(new Widget("w"));
    manager().addWidget(widget.get());
    manager().removeWidget(widget.get());
    manager().updateEvents();
    EXPECT_EQ(mSkin->mWidgetsVisited, 1);
    EXPECT_FALSE(manager().hasWidget(widget.get()));
    EXPECT_FALSE(widget->hasView());
    EXPECT_EQ(manager().getRoot()->getChildCount(), 0u);
    EXPECT_EQ(widget->getRefCount(), 1u);
}

TEST_F(UIManagerTest, StacksWidgetsInTheOrderOfTheirArrival) {
    const auto a = addWidget("a");
    const auto b = addWidget("b");
    b->setZIndex(-5); // plays no part
    const auto c = addWidget("c");
    EXPECT_EQ(names(manager()), "a b c ");
    EXPECT_EQ(manager().getRoot()->getChild(0), a->getView());
    EXPECT_EQ(manager().getRoot()->getChild(2), c->getView());
    manager().removeWidget(a.get());
    manager().addWidget(a.get());
    frame();
    EXPECT_EQ(names(manager()), "b c a ");
    EXPECT_EQ(manager().getRoot()->getChild(2), a->getView());
    EXPECT_EQ(manager().getWidgetAt(3), nullptr);
}

TEST_F(UIManagerTest, FindsWidgetsByNameLiveOnesFirst) {
    const core::SmartPtr<Widget> queued(new Widget("w"));
    manager().addWidget(queued.get());
    EXPECT_EQ(manager().getWidgetByName("w"), queued.get());
    manager().updateEvents();
    const core::SmartPtr<Widget> second(new Widget("w"));
    manager().addWidget(second.get());
    manager().removeWidget(second.get());
    EXPECT_EQ(manager().getWidgetByName("w"), queued.get());
    EXPECT_EQ(manager().getWidgetByName("unknown"), nullptr);
    EXPECT_EQ(manager().getWidgetByName(nullptr), nullptr);
}

TEST_F(UIManagerTest, FindsTheWidgetOfAComponent) {
    const core::SmartPtr<Widget> widget(new Widget("w"));
    const auto panel = addPanel(*widget, "p", 0, 0, 10, 10);
    const auto inner = addPanel(*panel, "i", 0, 0, 10, 10);
    const core::SmartPtr<Panel> stray(new Panel("stray"));
    EXPECT_EQ(manager().getWidget(inner.get()), widget.get());
    EXPECT_EQ(manager().getWidget(widget.get()), widget.get());
    EXPECT_EQ(manager().getWidget(stray.get()), nullptr);
    EXPECT_EQ(manager().getWidget(nullptr), nullptr);
}

TEST_F(UIManagerTest, FindsTheWidgetAtTheCursor) {
    EXPECT_EQ(manager().getWidgetAtCursor(), nullptr);
    const auto widget = addWidget();
    const auto panel = addPanel(*widget, "p", 0, 0, 100, 100);
    frame();
    moveTo(50, 50);
    EXPECT_EQ(manager().getComponentAtCursor(), panel.get());
    EXPECT_EQ(manager().getWidgetAtCursor(), widget.get());
}

TEST_F(UIManagerTest, IgnoresNullAndStrangeWidgets) {
    const core::SmartPtr<Widget> stranger(new Widget("stranger"));
    manager().addWidget(nullptr);
    manager().removeWidget(nullptr);
    manager().removeWidget(stranger.get());
    frame();
    EXPECT_EQ(manager().getWidgetCount(), 0u);
    EXPECT_EQ(stranger->getRefCount(), 1u);
}

TEST_F(UIManagerTest, TakesTheViewsOfAWholeRemovedTree) {
    const auto widget = addWidget();
    const auto panel = addPanel(*widget, "p", 0, 0, 10, 10);
    ASSERT_TRUE(panel->hasView());
    manager().removeWidget(widget.get());
    manager().updateEvents();
    EXPECT_FALSE(widget->hasView());
    EXPECT_FALSE(panel->hasView());
    EXPECT_EQ(manager().getRoot()->getChildCount(), 0u);
}

TEST_F(UIManagerTest, ForgetsARemovedWidgetButNotWhatIsInsideIt) {
    const auto widget = addWidget();
    auto panel = addPanel(*widget, "p", 0, 0, 100, 100);
    frame();
    moveTo(50, 50);
    press();
    manager().removeWidget(widget.get());
    manager().updateEvents();
    EXPECT_EQ(manager().getComponentAtCursor(), panel.get()); // a class derived from Container is not walked
    widget->removeChild(panel.get());
    EXPECT_EQ(manager().getComponentAtCursor(), nullptr);
}

TEST_F(UIManagerTest, ClearsTheWidgetsWithoutTheirViews) {
    const auto a = addWidget("a");
    const auto b = addWidget("b");
    manager().clearWidgets();
    EXPECT_EQ(manager().getWidgetCount(), 2u);
    manager().updateEvents();
    EXPECT_EQ(manager().getWidgetCount(), 0u);
    EXPECT_TRUE(a->hasView());
    EXPECT_TRUE(b->hasView());
    EXPECT_EQ(manager().getRoot()->getChildCount(), 0u);
}

TEST_F(UIManagerTest, ClearingTellsTheFocusAndForgetsTheRestInSilence) {
    const auto widget = addWidget();
    widget->setTabStop(0);
    widget->enableEvents(UIEvent::ET_DRAG_EVENT | UIEvent::ET_TEXT_EVENT);
    moveTo(10, 10);
    press();
    moveTo(100, 100);
    ASSERT_EQ(manager().getDragging(), widget.get());
    ASSERT_EQ(manager().getFocus(), widget.get());
    manager().textInput("lost");
    record();
    manager().clearWidgets();
    frame();
    EXPECT_EQ(events(), (Lines{"blur widget>widget"}));
    EXPECT_FALSE(widget->hasState(Component::STATE_FOCUSED));
    EXPECT_EQ(manager().getFocus(), nullptr);
    EXPECT_EQ(manager().getDragging(), nullptr);
    EXPECT_EQ(manager().getComponentAtCursor(), nullptr);
    release();
    EXPECT_EQ(events(), (Lines{}));
}

TEST_F(UIManagerTest, KeepsClearedWidgetsUntilTheirFocusEventIsOut) {
    auto widget = addWidget();
    auto *button = new Panel("button");
    widget->addChild(button);
    button->setTabStop(0);
    button->setFocus();
    std::string told;
    button->FocusCallbacks::subscribeCallback([&](UIEventHandler *handler, const FocusEvent &) {
        told = manager().getWidget(static_cast<Component *>(handler))->getName();
        return false;
    });
    widget = nullptr;
    manager().clearWidgets();
    manager().updateEvents();
    EXPECT_EQ(told, "widget");
    EXPECT_EQ(manager().getFocus(), nullptr);
}

TEST_F(UIManagerTest, RefusesAWidgetWithoutASkinAndRunsTheRestLater) {
    SkinManager::getSingleton().setDefaultSkin(nullptr);
    const core::SmartPtr<Widget> bad(new Widget("bad"));
    bad->setSkinName("missing");
    const core::SmartPtr<Widget> good(new Widget("good"));
    good->setSkinName("plain");
    manager().addWidget(bad.get());
    manager().addWidget(good.get());
    EXPECT_EQ(messageOf([] { manager().updateEvents(); }), "No Skin 'missing' could be resolved for widget 'bad'");
    EXPECT_TRUE(manager().hasWidget(bad.get())); // it stays in the list
    EXPECT_FALSE(manager().hasWidget(good.get()));
    manager().updateEvents();
    EXPECT_TRUE(manager().hasWidget(good.get()));
    EXPECT_EQ(names(manager()), "bad good ");
}

TEST_F(UIManagerTest, QuotesAnEmptySkinName) {
    SkinManager::getSingleton().setDefaultSkin(nullptr);
    manager().addWidget(new Widget("w"));
    EXPECT_EQ(messageOf([] { manager().updateEvents(); }), "No Skin '' could be resolved for widget 'w'");
}

TEST_F(UIManagerTest, KeepsAViewOfTheRightSkinAndReplacesOneOfAnother) {
    const core::SmartPtr<test::PlainSkin> other(new test::PlainSkin("other"));
    SkinManager::getSingleton().addSkin(other.get());
    const core::SmartPtr<Widget> widget(new Widget("w"));
    manager().setView(widget.get());
    const core::SmartPtr<ComponentView> first(widget->getView());
    ASSERT_TRUE(first);
    manager().setView(widget.get());
    EXPECT_EQ(widget->getView(), first.get());
    manager().addWidget(widget.get());
    frame();
    EXPECT_EQ(widget->getView(), first.get());
    manager().removeWidget(widget.get());
    frame();
    manager().setView(widget.get());
    widget->setSkinName("other");
    manager().addWidget(widget.get());
    frame();
    EXPECT_EQ(widget->getView()->getSkin(), other.get());
    EXPECT_EQ(manager().getRoot()->getChildCount(), 1u);
}

TEST_F(UIManagerTest, SetViewNeedsAComponentAndADefaultSkin) {
    manager().setView(nullptr);
    SkinManager::getSingleton().setDefaultSkin(nullptr);
    const core::SmartPtr<Widget> widget(new Widget("w"));
    manager().setView(widget.get());
    EXPECT_FALSE(widget->hasView());
}

TEST_F(UIManagerTest, QueuesWhatHandlersAddForTheNextTime) {
    const core::SmartPtr<Widget> second(new Widget("second"));
    const auto first = addWidget("first");
    first->setTabStop(0);
    first->setFocus();
    first->FocusCallbacks::subscribeCallback([&](UIEventHandler *, const FocusEvent &) {
        manager().addWidget(second.get());
        manager().updateEvents(); // the queue does not run inside itself
        EXPECT_FALSE(manager().hasWidget(second.get()));
        return true;
    });
    manager().removeWidget(first.get());
    manager().updateEvents();
    EXPECT_FALSE(manager().hasWidget(second.get()));
    manager().updateEvents();
    EXPECT_TRUE(manager().hasWidget(second.get()));
}

TEST_F(UIManagerTest, EndsWhatGoesOnWhenAWidgetComesUpUnderTheCursor) {
    const auto below = addWidget("below");
    below->setTabStop(0);
    below->enableEvents(UIEvent::ET_DRAG_EVENT);
    moveTo(100, 100);
    press();
    moveTo(200, 200);
    ASSERT_EQ(manager().getDragging(), below.get());
    record();
    const core::SmartPtr<Widget> above(new Widget("above"));
    manager().addWidget(above.get());
    frame();
    EXPECT_EQ(events(), (Lines{"blur below>below", "dragcancel below>below", "leave below>below",
                               "release* below>below"}));
    EXPECT_EQ(manager().getFocus(), nullptr);
    EXPECT_EQ(manager().getDragging(), nullptr);
    EXPECT_EQ(manager().getComponentAtCursor(), nullptr);
    release();
    EXPECT_EQ(events(), (Lines{})); // the press is forgotten
}

TEST_F(UIManagerTest, LetsAWidgetComeUpBesideTheCursor) {
    const auto below = addWidget("below");
    below->setTabStop(0);
    moveTo(100, 100);
    press();
    record();
    const core::SmartPtr<Widget> above(new Widget("above", {50, 50}, {0, 0}));
    manager().addWidget(above.get());
    frame();
    EXPECT_EQ(events(), (Lines{}));
    EXPECT_EQ(manager().getFocus(), below.get());
}

TEST_F(UIManagerTest, GoesOnWhenTheCursorMeetsAnotherWidgetThanTheNewOne) {
    const auto below = addWidget("below");
    moveTo(100, 100);
    ASSERT_EQ(manager().getComponentAtCursor(), below.get());
    const core::SmartPtr<Widget> clear(new Widget("clear"));
    clear->disableEvents(UIEvent::EVENT_MASK_HITTABLE);
    manager().addWidget(clear.get());
    frame();
    EXPECT_EQ(manager().getComponentAtCursor(), below.get());
}

TEST_F(UIManagerTest, TakesWidgetsFromOtherThreads) {
    const auto keep = addWidget("keep");
    std::thread other([&] {
        for (int i = 0; i < 200; ++i) {
            const core::SmartPtr<Widget> widget(new Widget("w", {10, 10}, {0, 0}));
            manager().addWidget(widget.get());
            manager().removeWidget(widget.get());
            manager().setMousePos({i, i});
            manager().setMouseWheel(i);
            manager().setMouseButton(nurel::input::Mouse::RIGHT, nurel::input::Mouse::PRESS);
            manager().textInput("x");
        }
    });
    for (int i = 0; i < 200; ++i)
        frame();
    other.join();
    frame();
    EXPECT_EQ(names(manager()), "keep ");
}

// --- the frame ---

TEST_F(UIManagerTest, TellsTheStagesOfAFrame) {
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

TEST_F(UIManagerTest, TellsTheStageBeforeItDoesAnything) {
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

TEST_F(UIManagerTest, UpdatesOnlyWidgetsWithADirtyBit) {
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

TEST_F(UIManagerTest, AllocatesNothingInAnIdleFrame) {
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

TEST_F(UIManagerTest, AllocatesNothingWhileItAnimates) {
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

TEST_F(UIManagerTest, BringsTheSceneUpToDate) {
    const auto widget = addWidget();
    const auto panel = addPanel(*widget, "p", 100, 200, 50, 20);
    manager().update();
    EXPECT_EQ(panel->getView()->getWorldTransform().getTranslation(), Vector3(125, 210, 0));
}

TEST_F(UIManagerTest, AnimatesAheadOfTheWidgets) {
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

TEST_F(UIManagerTest, SurvivesAQueueThatRunsInsideTheWalkOverTheWidgets) {
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

TEST_F(UIManagerTest, PlacesWidgetsWithARelativeSizeAnew) {
    const auto full = addWidget("full");
    const core::SmartPtr<Widget> fixed(new Widget("fixed", {50, 50}, {0, 0}));
    manager().addWidget(fixed.get());
    frame();
    int positions = 0;
    manager().getStageCallbacks().subscribeCallback([&](UIManager::StageEvent) {
        positions += (full->isDirty(Component::DIRTY_POSITION) ? 1 : 0) +
                     (fixed->isDirty(Component::DIRTY_POSITION) ? 10 : 0);
        return false;
    });
    manager().updateWidgetPositions();
    EXPECT_EQ(positions, 1);
}

TEST_F(UIManagerTest, RefreshesEverything) {
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

TEST_F(UIManagerTest, ProjectsOneUnitToOnePixelFromTheTopLeft) {
    EXPECT_EQ(manager().getCamera()->getProjection()[11], 1);
    expectNear(project({0, 0, 0}), {-1, 1});
    expectNear(project({400, 300, 0}), {0, 0});
    expectNear(project({800, 600, 0}), {1, -1});
    expectNear(project({401, 300, 0}), {1 / 400.0f, 0});
    EXPECT_EQ(manager().getCamera()->getPosition(), Vector3(400, 300, -1000));
}

TEST_F(UIManagerTest, ShowsDepthInPerspective) {
    // Twice as far away is half as large.
    expectNear(project({800, 600, 1000}), {0.5f, -0.5f});
}

TEST_F(UIManagerTest, FollowsTheScreensSizeAndStaysSubscribed) {
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

TEST_F(UIManagerTest, KeepsTheProjectionForAScreenWithoutArea) {
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

TEST_F(UIManagerTest, CountsUIPixelsByItsScale) {
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

TEST_F(UIManagerTest, TakesScalesThatAreNone) {
    const Matrix4 before = manager().getCamera()->getProjection();
    for (const float scale : {0.0f, -1.0f, std::numeric_limits<float>::quiet_NaN()}) {
        manager().setScale({scale, scale});
        EXPECT_EQ(manager().getScreenWidth(), 0u) << scale;
        EXPECT_EQ(manager().getCamera()->getProjection(), before) << scale;
        moveTo(10, 10);
    }
    manager().setScale({1e30f, 1e30f});
    moveTo(2000000000, -2000000000);
    EXPECT_EQ(manager().getMousePos(), (CursorPosition{std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}));
    manager().setScale({1, 1});
    EXPECT_EQ(manager().getCamera()->getProjection(), before);
}

TEST_F(UIManagerTest, SetsANewCameraUpForTheScreen) {
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

TEST_F(UIManagerTest, TakesOnlyAllocatorsThatDo) {
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
