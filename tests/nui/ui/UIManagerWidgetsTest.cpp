// The manager's list of widgets and the queue through which they come and go.
#include "nui/ui/UIManager.h"

#include "nui/ui/ManagerTest.h"

#include "foundation/core/Exception.h"

#include <thread>

using namespace nurel::ui;
using nurel::math::Vector2;

namespace {

using UIManagerWidgetsTest = test::ManagerTest;

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

TEST_F(UIManagerWidgetsTest, PlacesAWidgetAtTheNextUpdateEvents) {
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

TEST_F(UIManagerWidgetsTest, RunsAnAddAheadOfTheRemoveBehindIt) {
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

TEST_F(UIManagerWidgetsTest, StacksWidgetsInTheOrderOfTheirArrival) {
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

TEST_F(UIManagerWidgetsTest, FindsWidgetsByNameLiveOnesFirst) {
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

TEST_F(UIManagerWidgetsTest, FindsTheWidgetOfAComponent) {
    const core::SmartPtr<Widget> widget(new Widget("w"));
    const auto panel = addPanel(*widget, "p", 0, 0, 10, 10);
    const auto inner = addPanel(*panel, "i", 0, 0, 10, 10);
    const core::SmartPtr<Panel> stray(new Panel("stray"));
    EXPECT_EQ(manager().getWidget(inner.get()), widget.get());
    EXPECT_EQ(manager().getWidget(widget.get()), widget.get());
    EXPECT_EQ(manager().getWidget(stray.get()), nullptr);
    EXPECT_EQ(manager().getWidget(nullptr), nullptr);
}

TEST_F(UIManagerWidgetsTest, FindsTheWidgetAtTheCursor) {
    EXPECT_EQ(manager().getWidgetAtCursor(), nullptr);
    const auto widget = addWidget();
    const auto panel = addPanel(*widget, "p", 0, 0, 100, 100);
    frame();
    moveTo(50, 50);
    EXPECT_EQ(manager().getComponentAtCursor(), panel.get());
    EXPECT_EQ(manager().getWidgetAtCursor(), widget.get());
}

TEST_F(UIManagerWidgetsTest, IgnoresNullAndStrangeWidgets) {
    const core::SmartPtr<Widget> stranger(new Widget("stranger"));
    manager().addWidget(nullptr);
    manager().removeWidget(nullptr);
    manager().removeWidget(stranger.get());
    frame();
    EXPECT_EQ(manager().getWidgetCount(), 0u);
    EXPECT_EQ(stranger->getRefCount(), 1u);
}

TEST_F(UIManagerWidgetsTest, TakesTheViewsOfAWholeRemovedTree) {
    const auto widget = addWidget();
    const auto panel = addPanel(*widget, "p", 0, 0, 10, 10);
    ASSERT_TRUE(panel->hasView());
    manager().removeWidget(widget.get());
    manager().updateEvents();
    EXPECT_FALSE(widget->hasView());
    EXPECT_FALSE(panel->hasView());
    EXPECT_EQ(manager().getRoot()->getChildCount(), 0u);
}

TEST_F(UIManagerWidgetsTest, ForgetsARemovedWidgetButNotWhatIsInsideIt) {
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

TEST_F(UIManagerWidgetsTest, ClearsTheWidgetsWithoutTheirViews) {
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

TEST_F(UIManagerWidgetsTest, ClearingTellsTheFocusAndForgetsTheRestInSilence) {
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

TEST_F(UIManagerWidgetsTest, KeepsClearedWidgetsUntilTheirFocusEventIsOut) {
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

TEST_F(UIManagerWidgetsTest, RefusesAWidgetWithoutASkinAndRunsTheRestLater) {
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

TEST_F(UIManagerWidgetsTest, QuotesAnEmptySkinName) {
    SkinManager::getSingleton().setDefaultSkin(nullptr);
    manager().addWidget(new Widget("w"));
    EXPECT_EQ(messageOf([] { manager().updateEvents(); }), "No Skin '' could be resolved for widget 'w'");
}

TEST_F(UIManagerWidgetsTest, KeepsAViewOfTheRightSkinAndReplacesOneOfAnother) {
    const core::SmartPtr<test::BlankSkin> other(new test::BlankSkin("other"));
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

TEST_F(UIManagerWidgetsTest, SetViewNeedsAComponentAndADefaultSkin) {
    manager().setView(nullptr);
    SkinManager::getSingleton().setDefaultSkin(nullptr);
    const core::SmartPtr<Widget> widget(new Widget("w"));
    manager().setView(widget.get());
    EXPECT_FALSE(widget->hasView());
}

TEST_F(UIManagerWidgetsTest, QueuesWhatHandlersAddForTheNextTime) {
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

TEST_F(UIManagerWidgetsTest, EndsWhatGoesOnWhenAWidgetComesUpUnderTheCursor) {
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
    EXPECT_EQ(events(),
              (Lines{"blur below>below", "dragcancel below>below", "leave below>below", "release* below>below"}));
    EXPECT_EQ(manager().getFocus(), nullptr);
    EXPECT_EQ(manager().getDragging(), nullptr);
    EXPECT_EQ(manager().getComponentAtCursor(), nullptr);
    release();
    EXPECT_EQ(events(), (Lines{})); // the press is forgotten
}

TEST_F(UIManagerWidgetsTest, LetsAWidgetComeUpBesideTheCursor) {
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

TEST_F(UIManagerWidgetsTest, GoesOnWhenTheCursorMeetsAnotherWidgetThanTheNewOne) {
    const auto below = addWidget("below");
    moveTo(100, 100);
    ASSERT_EQ(manager().getComponentAtCursor(), below.get());
    const core::SmartPtr<Widget> clear(new Widget("clear"));
    clear->disableEvents(UIEvent::EVENT_MASK_HITTABLE);
    manager().addWidget(clear.get());
    frame();
    EXPECT_EQ(manager().getComponentAtCursor(), below.get());
}

TEST_F(UIManagerWidgetsTest, TakesWidgetsFromOtherThreads) {
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
