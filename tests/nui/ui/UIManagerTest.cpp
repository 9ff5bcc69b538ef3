// How the manager starts and ends, and what it owns. Its other sides are tested in files of their own.
#include "nui/ui/UIManager.h"

#include "nui/ui/ManagerTest.h"

#include "foundation/core/Exception.h"
#include "nengine/EngineFactory.h"
#include "nengine/geometry/MeshDataAllocator.h"
#include "nengine/renderer/RenderPass.h"
#include "nengine/renderer/RenderView.h"
#include "nengine/renderer/Renderer.h"
#include "nengine/renderer/Sorter.h"
#include "nengine/scene/Camera.h"
#include "nui/ui/AnimationContext.h"
#include "nui/ui/UIComponentFactory.h"

using namespace nurel::ui;
using nurel::math::Vector2;
namespace renderer = nurel::renderer;

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
    const char *const names[] = {"Button", "Checkbox", "Image",  "Label",  "Panel",      "Progress",
                                 "Radio",  "Selector", "Slider", "Widget", "FlowLayout", "FormLayout"};
    for (const char *name : names) {
        const core::SmartPtr<nurel::core::Object> object(factory.create(name));
        ASSERT_TRUE(object) << name;
        EXPECT_STREQ(object->getType().getName(), name);
    }
    UIManager::shutdown();
    for (const char *name : names)
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
    run(
        "press", [&](Widget &w) { w.MouseCallbacks::subscribeCallback(end); }, pressed);
    run(
        "hover", [&](Widget &w) { w.HoverCallbacks::subscribeCallback(end); }, moved);
    run(
        "key", [&](Widget &w) { w.KeyCallbacks::subscribeCallback(end); }, [](Widget &) { key(0x1e); });
    run(
        "focus", [&](Widget &w) { w.FocusCallbacks::subscribeCallback(end); }, [](Widget &w) { w.setFocus(); });
    run(
        "text", [&](Widget &w) { w.TextCallbacks::subscribeCallback(end); }, typed);
    run(
        "leave on tabbing", [&](Widget &w) { w.HoverCallbacks::subscribeCallback(end); },
        [](Widget &) { manager().nextTabStop(UIManager::FORWARD); });
    run(
        "animation",
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
    second->FocusCallbacks::subscribeCallback(
        [](UIEventHandler *, const FocusEvent &) -> bool { throw core::IllegalStateException("no way"); });
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
