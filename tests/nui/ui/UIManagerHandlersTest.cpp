// Text, keys and disabled input, and what handlers may do while they are called.
#include "nui/ui/UIManager.h"

#include "nui/ui/ManagerTest.h"

#include "foundation/core/Exception.h"

#include <thread>

using namespace nurel::ui;
using nurel::input::Mouse;

namespace {

class UIManagerHandlersTest : public test::ManagerTest {
public:
    UIManagerHandlersTest() {
        mWidget = addWidget("w");
        mLeft = addPanel(*mWidget, "left", 100, 100, 200, 200);
        mRight = addPanel(*mWidget, "right", 400, 100, 200, 200);
        frame();
    }

    static void queue(Mouse::MouseButton button, Mouse::ButtonState state) { manager().setMouseButton(button, state); }

    core::SmartPtr<Widget> mWidget;
    core::SmartPtr<Panel> mLeft;  ///< around (200, 200)
    core::SmartPtr<Panel> mRight; ///< around (500, 200)
};

} // namespace

// --- text and keys ---

TEST_F(UIManagerHandlersTest, SendsTextToTheFocusOnce) {
    mLeft->setTabStop(0);
    mLeft->enableEvents(UIEvent::ET_TEXT_EVENT);
    manager().textInput("lost");
    mLeft->setFocus();
    manager().textInput("a");
    manager().textInput(nullptr);
    manager().textInput("\xc3\xa4");
    record();
    frame();
    frame();
    EXPECT_EQ(events(), (Lines{"text:a\xc3\xa4 left>left"}));
}

TEST_F(UIManagerHandlersTest, LosesTextWhenTheFocusChanges) {
    mLeft->setTabStop(0);
    mRight->setTabStop(0);
    mRight->enableEvents(UIEvent::ET_TEXT_EVENT);
    mLeft->setFocus();
    manager().textInput("for left");
    mRight->setFocus();
    record();
    frame();
    EXPECT_EQ(events(), (Lines{}));
}

TEST_F(UIManagerHandlersTest, KeepsTextThatATextHandlerAddsForTheNextTime) {
    mLeft->setTabStop(0);
    mLeft->enableEvents(UIEvent::ET_TEXT_EVENT);
    mLeft->setFocus();
    mLeft->TextCallbacks::subscribeCallback([](UIEventHandler *, const TextEvent &event) {
        if (std::string(event.getText()) == "a")
            manager().textInput("more");
        return false;
    });
    manager().textInput("a");
    record();
    frame();
    EXPECT_EQ(events(), (Lines{"text:a left>left"}));
    frame();
    EXPECT_EQ(events(), (Lines{"text:more left>left"}));
    frame();
    EXPECT_EQ(events(), (Lines{}));
}

TEST_F(UIManagerHandlersTest, KeepsTextForTheComponentThatATextHandlerFocuses) {
    for (Panel *panel : {mLeft.get(), mRight.get()}) {
        panel->setTabStop(0);
        panel->enableEvents(UIEvent::ET_TEXT_EVENT);
    }
    mLeft->setFocus();
    mLeft->TextCallbacks::subscribeCallback([&](UIEventHandler *, const TextEvent &) {
        mRight->setFocus();
        manager().textInput("long enough to be more than was sent");
        return true;
    });
    manager().textInput("a");
    frame();
    record();
    frame();
    EXPECT_EQ(events(), (Lines{"text:long enough to be more than was sent right>right"}));
}

TEST_F(UIManagerHandlersTest, SendsKeysToTheFocusOrElseToTheTopmostWidget) {
    const auto above = addWidget("above");
    above->setEventMask(UIEvent::ET_KEY_EVENT); // not hittable
    record();
    key(0x1e);
    EXPECT_EQ(events(), (Lines{"key:30+ above>above"}));
    mLeft->setTabStop(0);
    mLeft->enableEvents(UIEvent::ET_KEY_EVENT);
    mLeft->setFocus();
    events();
    key(0x1e, false);
    EXPECT_EQ(events(), (Lines{"key:30- left>left"}));
    manager().clearWidgets();
    frame();
    events();
    key(0x1e);
    EXPECT_EQ(events(), (Lines{}));
}

// --- enabling ---

TEST_F(UIManagerHandlersTest, TakesNoInputWhileItIsDisabled) {
    moveTo(200, 200);
    queue(Mouse::LEFT, Mouse::PRESS);
    manager().setEnabled(false);
    EXPECT_FALSE(manager().isEnabled());
    queue(Mouse::LEFT, Mouse::PRESS);
    record();
    point(500, 200);
    frame();
    key(0x1e);
    EXPECT_EQ(events(), (Lines{}));
    EXPECT_EQ(manager().getComponentAtCursor(), mLeft.get());
    manager().setEnabled(true);
    frame();
    EXPECT_EQ(events(), (Lines{"move right>right", "leave left>left", "enter right>right"})); // no press is left
}

TEST_F(UIManagerHandlersTest, DropsTheFocusButNotItsStateWhenItIsDisabled) {
    mLeft->setTabStop(0);
    mLeft->setFocus();
    record();
    manager().setEnabled(false);
    EXPECT_EQ(events(), (Lines{"blur left>left"}));
    EXPECT_EQ(manager().getFocus(), nullptr);
    EXPECT_TRUE(mLeft->hasState(Component::STATE_FOCUSED));
    manager().setEnabled(false);
    manager().setEnabled(true);
    EXPECT_EQ(events(), (Lines{}));
    EXPECT_EQ(manager().getFocus(), nullptr);
}

TEST_F(UIManagerHandlersTest, StillSendsPendingTextWhileItIsDisabled) {
    mLeft->setTabStop(0);
    mLeft->enableEvents(UIEvent::ET_TEXT_EVENT);
    manager().setEnabled(false);
    mLeft->setFocus();
    manager().textInput("a");
    point(500, 200);
    record();
    frame();
    EXPECT_EQ(events(), (Lines{"text:a left>left"}));
}

// --- what handlers may do ---

TEST_F(UIManagerHandlersTest, SurvivesAComponentThatRemovesItselfInItsPress) {
    bool died = false;
    struct Mortal : Panel {
        explicit Mortal(bool &died) : Panel("mortal"), mDied(died) {}
        ~Mortal() override { mDied = true; }
        bool &mDied;
    };
    auto *mortal = new Mortal(died);
    place(*mortal, 300, 400, 100, 100);
    mortal->setTabStop(0);
    mWidget->addChild(mortal);
    frame();
    mortal->MouseCallbacks::subscribeCallback([&](UIEventHandler *, const MouseEvent &) {
        mWidget->removeChild(mortal);
        EXPECT_FALSE(died); // until the pass is over
        return false;
    });
    moveTo(350, 450);
    record();
    press();
    EXPECT_EQ(events(), (Lines{"press mortal>mortal", "focus mortal>mortal", "blur mortal>mortal"}));
    EXPECT_TRUE(died);
    EXPECT_EQ(manager().getComponentAtCursor(), nullptr);
    EXPECT_EQ(manager().getFocus(), nullptr);
    release();
    EXPECT_EQ(events(), (Lines{})); // nothing is pressed
}

TEST_F(UIManagerHandlersTest, SurvivesComponentsThatDieInEachOfTheirHandlers) {
    const auto run = [&](const char *what, auto subscribe, auto cause) {
        SCOPED_TRACE(what);
        auto *mortal = new Panel("mortal");
        place(*mortal, 300, 400, 100, 100);
        mortal->enableEvents(0x3ff);
        mortal->setTabStop(0);
        mWidget->addChild(mortal);
        frame();
        subscribe(*mortal, [this, mortal](UIEventHandler *, const auto &) {
            if (mWidget->hasChild(mortal))
                mWidget->removeChild(mortal);
            return false;
        });
        cause();
        EXPECT_EQ(mWidget->getChildCount(), 2u);
        EXPECT_EQ(manager().getFocus(), nullptr);
        EXPECT_EQ(manager().getDragging(), nullptr);
        point(0, 0);
        release();
        frame();
    };
    const auto mouse = [](Panel &panel, auto callback) { panel.MouseCallbacks::subscribeCallback(callback); };
    const auto hover = [](Panel &panel, auto callback) { panel.HoverCallbacks::subscribeCallback(callback); };
    const auto onClick = [](Panel &panel, auto callback) { panel.ClickCallbacks::subscribeCallback(callback); };
    const auto dragging = [](Panel &panel, auto callback) { panel.DragCallbacks::subscribeCallback(callback); };
    const auto wheel = [](Panel &panel, auto callback) { panel.WheelCallbacks::subscribeCallback(callback); };
    const auto focusing = [](Panel &panel, auto callback) { panel.FocusCallbacks::subscribeCallback(callback); };
    const auto text = [](Panel &panel, auto callback) { panel.TextCallbacks::subscribeCallback(callback); };
    const auto keys = [](Panel &panel, auto callback) { panel.KeyCallbacks::subscribeCallback(callback); };
    run("press", mouse, [] {
        moveTo(350, 450);
        press();
    });
    run("hover", hover, [] { moveTo(350, 450); });
    run("click", onClick, [] { click(350, 450); });
    run("drag", dragging, [] {
        moveTo(350, 450);
        press();
        moveTo(360, 460);
        moveTo(370, 470);
        release();
    });
    run("wheel", wheel, [] {
        moveTo(350, 450);
        manager().setMouseWheel(1);
        frame();
    });
    run("focus", focusing, [] { click(350, 450); });
    run("text", text, [] {
        click(350, 450);
        manager().textInput("a");
        frame();
    });
    run("key", keys, [] {
        click(350, 450);
        key(0x1e);
    });
}

TEST_F(UIManagerHandlersTest, LeavesOnceThoughTheListenerFails) {
    moveTo(200, 200);
    mLeft->HoverCallbacks::subscribeCallback([](UIEventHandler *, const HoverEvent &event) -> bool {
        if (event.getAction() == HoverEvent::HOVER_LEAVE)
            throw core::IllegalStateException("not now");
        return false;
    });
    EXPECT_THROW(moveTo(500, 200), core::IllegalStateException);
    EXPECT_EQ(manager().getComponentAtCursor(), nullptr);
}

TEST_F(UIManagerHandlersTest, SurvivesANestedPass) {
    int depth = 0;
    mLeft->MouseCallbacks::subscribeCallback([&](UIEventHandler *, const MouseEvent &event) {
        if (event.getAction() == MouseEvent::MOUSE_PRESS && ++depth < 3) {
            queue(Mouse::LEFT, Mouse::RELEASE);
            queue(Mouse::LEFT, Mouse::PRESS);
            manager().updateEvents();
            manager().updateEvents();
        }
        return false;
    });
    moveTo(200, 200);
    press();
    EXPECT_EQ(depth, 3);
    release();
    record();
    click(200, 201);
    EXPECT_EQ(events().back(), "click:200,201 left>left");
}

TEST_F(UIManagerHandlersTest, MovesOnceThoughHandlersRunAnotherPass) {
    for (Panel *panel : {mLeft.get(), mRight.get()}) {
        panel->HoverCallbacks::subscribeCallback([](UIEventHandler *, const HoverEvent &) {
            manager().updateEvents();
            return false;
        });
    }
    moveTo(200, 200);
    record();
    moveTo(500, 200);
    EXPECT_EQ(events(), (Lines{"move right>right", "leave left>left", "enter right>right"}));
    EXPECT_EQ(manager().getComponentAtCursor(), mRight.get());
}

TEST_F(UIManagerHandlersTest, LeavesTheHoverToThePassThatAHandlerRanLast) {
    moveTo(200, 200);
    mLeft->HoverCallbacks::subscribeCallback([](UIEventHandler *, const HoverEvent &event) {
        if (event.getAction() == HoverEvent::HOVER_LEAVE && manager().getMousePos().x == 500)
            moveTo(20, 20);
        return false;
    });
    record();
    moveTo(500, 200);
    EXPECT_EQ(events(), (Lines{"move right>right", "move w>w", "leave left>left", "enter w>w", "leave left>left"}));
    EXPECT_EQ(manager().getComponentAtCursor(), mWidget.get());
}

TEST_F(UIManagerHandlersTest, DoesNotClickWhatItsReleaseHandlerRemoved) {
    // So large that its view is still under the cursor when it has no parent any more.
    const auto large = addPanel(*mWidget, "large", 50, 50, 700, 500);
    frame();
    moveTo(200, 200);
    press();
    large->MouseCallbacks::subscribeCallback([&](UIEventHandler *, const MouseEvent &) {
        mWidget->removeChild(large.get());
        return false;
    });
    record();
    release();
    EXPECT_EQ(events(), (Lines{"release large>large"}));
}

TEST_F(UIManagerHandlersTest, TakesInputFromOtherThreads) {
    std::thread other([] {
        for (int i = 0; i < 2000; ++i) {
            manager().setMousePos({i % 800, i % 600});
            manager().setMouseWheel(i);
            queue(Mouse::LEFT, i % 2 == 0 ? Mouse::PRESS : Mouse::RELEASE);
            manager().textInput("x");
        }
    });
    for (int i = 0; i < 200; ++i) {
        frame();
        mEngine->resize(800, i % 2 == 0 ? 600 : 601);
    }
    other.join();
    frame();
    EXPECT_EQ(manager().getMousePos(), (CursorPosition{1999 % 800, 1999 % 600}));
}
