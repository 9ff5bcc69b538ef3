// Focus, tab stops, and what the manager forgets.
#include "nui/ui/UIManager.h"

#include "nui/ui/ManagerTest.h"

#include "foundation/core/Exception.h"

#include <thread>

using namespace nurel::ui;

namespace {

class UIManagerFocusTest : public test::ManagerTest {
public:
    UIManagerFocusTest() {
        mWidget = addWidget("w");
        mRow = new Panel("row");
        mWidget->addChild(mRow.get());
        frame();
    }

    /// Children of the row, named a, b, c …, with these tab stops.
    void tabStops(std::initializer_list<int> stops) {
        mRow->clearChildren();
        mTabs.clear();
        for (const int stop : stops) {
            mTabs.emplace_back(new Panel(std::string(1, static_cast<char>('a' + mTabs.size())).c_str()));
            mTabs.back()->setTabStop(stop);
            mRow->addChild(mTabs.back().get());
        }
    }

    /// Where the focus goes from the child of this name.
    std::string from(char name, UIManager::TabStopDirection direction = UIManager::FORWARD) {
        manager().setFocus(mTabs[static_cast<std::size_t>(name - 'a')].get());
        manager().nextTabStop(direction);
        return focusName();
    }

    std::string back(char name) { return from(name, UIManager::BACKWARD); }

    static std::string focusName() { return manager().getFocus() ? manager().getFocus()->getName() : "-"; }

    core::SmartPtr<Panel> addTab(const char *name) {
        core::SmartPtr<Panel> panel(new Panel(name));
        panel->setTabStop(0);
        mRow->addChild(panel.get());
        return panel;
    }

    core::SmartPtr<Widget> mWidget;
    core::SmartPtr<Panel> mRow;
    std::vector<core::SmartPtr<Panel>> mTabs;
};

} // namespace

// --- setFocus ---

TEST_F(UIManagerFocusTest, TellsTheOldOneThenTheNewOne) {
    const auto a = addTab("a");
    const auto b = addTab("b");
    record();
    a->setFocus();
    EXPECT_EQ(events(), (Lines{"focus a>a"}));
    EXPECT_TRUE(a->hasState(Component::STATE_FOCUSED));
    EXPECT_TRUE(a->hasFocus());
    b->setFocus();
    EXPECT_EQ(events(), (Lines{"blur a>a", "focus b>b"}));
    EXPECT_FALSE(a->hasState(Component::STATE_FOCUSED));
    EXPECT_TRUE(b->hasState(Component::STATE_FOCUSED));
    b->setFocus();
    EXPECT_EQ(events(), (Lines{})); // it has it
    manager().setFocus(nullptr);
    EXPECT_EQ(events(), (Lines{"blur b>b"}));
    EXPECT_EQ(manager().getFocus(), nullptr);
}

TEST_F(UIManagerFocusTest, IsThereAlreadyInTheHandlers) {
    const auto a = addTab("a");
    std::string seen;
    a->FocusCallbacks::subscribeCallback([&](UIEventHandler *, const FocusEvent &event) {
        seen += event.getAction() == FocusEvent::FOCUS_GAINED ? "gained:" : "lost:";
        seen += a->hasFocus() ? "has " : "has not ";
        seen += a->hasState(Component::STATE_FOCUSED) ? "state " : "no state ";
        return false;
    });
    a->setFocus();
    manager().setFocus(nullptr);
    EXPECT_EQ(seen, "gained:has no state lost:has state ");
}

TEST_F(UIManagerFocusTest, GoesToWhoeverTakesTheEventInTheChain) {
    const auto a = addTab("a");
    a->disableEvents(UIEvent::ET_FOCUS_EVENT);
    mRow->setTabStop(0);
    a->setFocus();
    EXPECT_EQ(focusName(), "row");
    EXPECT_TRUE(mRow->hasState(Component::STATE_FOCUSED));
    EXPECT_FALSE(a->hasState(Component::STATE_FOCUSED));
}

TEST_F(UIManagerFocusTest, GoesToNobodyWhenNobodyTakesIt) {
    const auto a = addTab("a");
    const auto b = addTab("b");
    a->setFocus();
    b->setTabStop(-1);
    record();
    b->setFocus();
    EXPECT_EQ(events(), (Lines{"blur a>a", "focus b>-"}));
    EXPECT_EQ(manager().getFocus(), nullptr);
    EXPECT_FALSE(b->hasState(Component::STATE_FOCUSED));
}

TEST_F(UIManagerFocusTest, IsTakenAwayForAnInvisibleComponent) {
    const auto a = addTab("a");
    const auto b = addTab("b");
    a->setFocus();
    b->setVisible(false);
    record();
    b->setFocus();
    EXPECT_EQ(events(), (Lines{"blur a>a"}));
    EXPECT_EQ(manager().getFocus(), nullptr);
}

TEST_F(UIManagerFocusTest, StaysWhereAListenerRedirectsItTo) {
    const auto a = addTab("a");
    const auto b = addTab("b");
    a->FocusCallbacks::subscribeCallback([&](UIEventHandler *, const FocusEvent &event) {
        if (event.getAction() == FocusEvent::FOCUS_GAINED)
            b->setFocus();
        return false;
    });
    record();
    a->setFocus();
    EXPECT_EQ(focusName(), "b");
    EXPECT_EQ(events(), (Lines{"blur a>a", "focus b>b", "focus a>a"}));
    EXPECT_FALSE(a->hasState(Component::STATE_FOCUSED));
    EXPECT_TRUE(b->hasState(Component::STATE_FOCUSED));
}

TEST_F(UIManagerFocusTest, TakesTheFocusBackThatAListenerGaveOnTheWay) {
    const auto a = addTab("a");
    const auto b = addTab("b");
    const auto c = addTab("c");
    a->setFocus();
    a->FocusCallbacks::subscribeCallback([&](UIEventHandler *, const FocusEvent &event) {
        if (event.getAction() == FocusEvent::FOCUS_LOST && manager().getFocus() == a.get()) {
            static bool redirected = false;
            if (!std::exchange(redirected, true))
                b->setFocus();
        }
        return false;
    });
    c->setFocus();
    EXPECT_EQ(focusName(), "c");
    EXPECT_FALSE(b->hasState(Component::STATE_FOCUSED));
    EXPECT_TRUE(c->hasState(Component::STATE_FOCUSED));
}

TEST_F(UIManagerFocusTest, EndsWithListenersThatTossItToAndFro) {
    const auto a = addTab("a");
    const auto b = addTab("b");
    const auto toss = [](const core::SmartPtr<Panel> &to) {
        return [&to](UIEventHandler *, const FocusEvent &) {
            to->setFocus();
            return false;
        };
    };
    a->FocusCallbacks::subscribeCallback(toss(b));
    b->FocusCallbacks::subscribeCallback(toss(a));
    a->setFocus();
    EXPECT_NE(mLog.take(logging::Level::WARN).size(), 0u);
    EXPECT_NE(focusName(), "-");
    a->FocusCallbacks::removeCallbacks();
    b->FocusCallbacks::removeCallbacks();
    manager().setFocus(nullptr);
    EXPECT_EQ(focusName(), "-");
}

TEST_F(UIManagerFocusTest, SaysWhenListenersGoTooDeep) {
    const auto a = addTab("a");
    const auto b = addTab("b");
    a->setFocus();
    a->FocusCallbacks::subscribeCallback([&](UIEventHandler *, const FocusEvent &) {
        manager().setFocus(b.get());
        return false;
    });
    b->setFocus();
    EXPECT_EQ(mLog.takeOne(logging::Level::WARN), "Focus listeners set the focus inside one another, 16 deep: dropped");
    mLog.take(logging::Level::WARN);
    EXPECT_EQ(focusName(), "b");
}

TEST_F(UIManagerFocusTest, ForgetsAComponentThatItsListenerRemoves) {
    auto a = addTab("a");
    a->FocusCallbacks::subscribeCallback([&](UIEventHandler *, const FocusEvent &event) {
        if (event.getAction() == FocusEvent::FOCUS_GAINED)
            mRow->removeChild(a.get());
        return false;
    });
    a->setFocus();
    EXPECT_EQ(manager().getFocus(), nullptr);
    EXPECT_FALSE(a->hasState(Component::STATE_FOCUSED));
}

TEST_F(UIManagerFocusTest, IsLostOnceByAComponentThatItsListenerRemovesAgain) {
    auto a = addTab("a");
    a->setFocus();
    int lost = 0;
    a->FocusCallbacks::subscribeCallback([&](UIEventHandler *, const FocusEvent &) {
        ++lost;
        mRow->removeChild(a.get());
        return false;
    });
    mRow->removeChild(a.get());
    EXPECT_EQ(lost, 1);
    EXPECT_EQ(mRow->getChildCount(), 0u);
    EXPECT_EQ(manager().getFocus(), nullptr);
}

TEST_F(UIManagerFocusTest, MayBeSetFromOtherThreads) {
    const auto a = addTab("a");
    std::thread([&] { manager().setFocus(a.get()); }).join();
    EXPECT_EQ(focusName(), "a");
    mLog.take(logging::Level::WARN); // debug builds notice that the component is touched there
}

// --- tab stops ---

TEST_F(UIManagerFocusTest, GoesForwardToTheFirstStopThatIsNotLower) {
    tabStops({0, 5, 1, 0});
    EXPECT_EQ(from('a'), "b"); // in child order, not the nearest number
    EXPECT_EQ(from('b'), "a"); // past the end, from 0 again
    EXPECT_EQ(from('c'), "a");
    EXPECT_EQ(from('d'), "a");
}

TEST_F(UIManagerFocusTest, TakesEqualStopsInChildOrder) {
    tabStops({1, 1, 1});
    EXPECT_EQ(from('a'), "b");
    EXPECT_EQ(from('b'), "c");
    EXPECT_EQ(from('c'), "a");
}

TEST_F(UIManagerFocusTest, ReachesALowerStopOnlyPastTheWrap) {
    tabStops({2, 0, 1});
    EXPECT_EQ(from('a'), "b"); // nothing is as high; past the wrap the first one counts
    EXPECT_EQ(from('b'), "c");
    EXPECT_EQ(from('c'), "a");
}

TEST_F(UIManagerFocusTest, SkipsWhatIsDisabledOrHasNoStop) {
    tabStops({0, -1, 0, 0});
    mTabs[2]->setEnabled(false);
    EXPECT_EQ(from('a'), "d");
    mTabs[3]->setVisible(false);
    EXPECT_EQ(from('a'), "a");
}

TEST_F(UIManagerFocusTest, StaysAtTheOnlyStop) {
    tabStops({0, -1, -1});
    record();
    EXPECT_EQ(from('a'), "a");
    EXPECT_EQ(back('a'), "a");
    tabStops({3});
    EXPECT_EQ(from('a'), "a");
    EXPECT_EQ(back('a'), "a");
}

TEST_F(UIManagerFocusTest, GoesBackwardToTheFirstStopThatIsNotHigher) {
    tabStops({0, 1, 2});
    EXPECT_EQ(back('c'), "b");
    EXPECT_EQ(back('b'), "a");
    EXPECT_EQ(back('a'), "c"); // past the start, from the number of children
}

TEST_F(UIManagerFocusTest, PassesTheStartWithTheNumberOfChildrenForItsReference) {
    tabStops({0, 9, 3}); // three children: 9 is above the reference
    EXPECT_EQ(back('a'), "c");
    tabStops({0, 3, 9});
    EXPECT_EQ(back('a'), "b");
    tabStops({0, 9, 9});
    EXPECT_EQ(back('a'), "a"); // a backward search is not begun again
}

TEST_F(UIManagerFocusTest, CountsANegativeStopAs0) {
    tabStops({0, 0, 0});
    manager().setFocus(mTabs[1].get());
    mTabs[1]->setTabStop(-1);
    manager().nextTabStop(UIManager::FORWARD);
    EXPECT_EQ(focusName(), "c");
}

TEST_F(UIManagerFocusTest, LogsWhereItStarts) {
    tabStops({4, 7});
    manager().setFocus(mTabs[1].get());
    mLog.take(logging::Level::DEBUG);
    manager().prevTabStop();
    EXPECT_EQ(mLog.take(logging::Level::DEBUG), (Lines{"nextTabStop:1:7"}));
    EXPECT_EQ(focusName(), "a");
}

TEST_F(UIManagerFocusTest, HasNoNextStopWithoutParentFocusOrInput) {
    manager().nextTabStop(UIManager::FORWARD);
    EXPECT_EQ(focusName(), "-");
    mWidget->setTabStop(0);
    mWidget->setFocus();
    manager().nextTabStop(UIManager::FORWARD);
    manager().prevTabStop();
    EXPECT_EQ(focusName(), "w");
    tabStops({0, 0});
    manager().setEnabled(false);
    manager().setFocus(mTabs[0].get());
    manager().nextTabStop(UIManager::FORWARD);
    EXPECT_EQ(focusName(), "a");
}

TEST_F(UIManagerFocusTest, EndsTheHoverFirst) {
    tabStops({0, 0});
    moveTo(10, 10);
    ASSERT_EQ(manager().getComponentAtCursor(), mWidget.get());
    record();
    manager().setFocus(mTabs[0].get());
    manager().nextTabStop(UIManager::FORWARD);
    EXPECT_EQ(events(), (Lines{"focus a>a", "leave w>w", "blur a>a", "focus b>b"}));
    EXPECT_EQ(manager().getComponentAtCursor(), nullptr);
}

TEST_F(UIManagerFocusTest, FollowsTheTabKeyAndShift) {
    tabStops({0, 1, 2});
    mTabs[0]->enableEvents(UIEvent::ET_KEY_EVENT);
    mTabs[0]->setFocus();
    record();
    key(0x0f);
    EXPECT_EQ(events(), (Lines{"key:15+ a>a", "blur a>a", "focus b>b"}));
    key(0x0f, false);
    EXPECT_EQ(focusName(), "b");
    key(0x0e);
    EXPECT_EQ(focusName(), "b");
    nurel::input::InputSystem::getSingleton().setShiftPressed(true);
    key(0x0f);
    EXPECT_EQ(focusName(), "a");
    nurel::input::InputSystem::getSingleton().setShiftPressed(false);
    manager().setFocus(nullptr);
    key(0x0f);
    EXPECT_EQ(focusName(), "-"); // the keyboard gives no focus out of nothing
}

TEST_F(UIManagerFocusTest, TakesTheTabKeyFromWhereAKeyHandlerPutTheFocus) {
    tabStops({0, 1, 2});
    mTabs[0]->enableEvents(UIEvent::ET_KEY_EVENT);
    mTabs[0]->setFocus();
    mTabs[0]->KeyCallbacks::subscribeCallback([this](UIEventHandler *, const KeyEvent &) {
        mTabs[1]->setFocus();
        return false;
    });
    key(0x0f);
    EXPECT_EQ(focusName(), "c");
}

// --- checkEnabledValidity ---

TEST_F(UIManagerFocusTest, LetsGoOfWhatIsNoLongerEnabled) {
    const auto a = addPanel(*mWidget, "a", 100, 400, 200, 100);
    a->setTabStop(0);
    a->enableEvents(UIEvent::ET_DRAG_EVENT);
    frame();
    moveTo(150, 450);
    press();
    moveTo(170, 450);
    ASSERT_EQ(manager().getDragging(), a.get());
    ASSERT_EQ(manager().getFocus(), a.get());
    record();
    a->setEnabled(false);
    // The events go past the disabled component, to its parent.
    EXPECT_EQ(events(), (Lines{"leave a>w", "blur a>-"}));
    EXPECT_EQ(manager().getComponentAtCursor(), nullptr);
    EXPECT_EQ(manager().getFocus(), nullptr);
    EXPECT_EQ(manager().getDragging(), nullptr);
    EXPECT_FALSE(a->hasState(Component::STATE_FOCUSED));
    release();
    EXPECT_EQ(events(), (Lines{"release a>w"})); // what is pressed is not looked at
}

TEST_F(UIManagerFocusTest, LooksAllTheWayUp) {
    const auto a = addTab("a");
    a->setFocus();
    mRow->setVisible(false);
    EXPECT_EQ(manager().getFocus(), nullptr);
    mRow->setVisible(true);
    a->setFocus();
    mWidget->setEnabled(false);
    EXPECT_EQ(manager().getFocus(), nullptr);
}

TEST_F(UIManagerFocusTest, LeavesWhatIsEnabledAlone) {
    const auto a = addTab("a");
    const auto b = addTab("b");
    a->setFocus();
    record();
    b->setEnabled(false);
    manager().checkEnabledValidity();
    EXPECT_EQ(events(), (Lines{}));
    EXPECT_EQ(focusName(), "a");
}

// --- checkComponentRemoval ---

TEST_F(UIManagerFocusTest, ForgetsWhatLeavesTheTree) {
    const auto a = addPanel(*mWidget, "a", 100, 400, 200, 100);
    a->setTabStop(0);
    a->enableEvents(UIEvent::ET_DRAG_EVENT);
    frame();
    moveTo(150, 450);
    press();
    moveTo(170, 450);
    record();
    mWidget->removeChild(a.get());
    EXPECT_EQ(events(), (Lines{"blur a>a"})); // the rest in silence
    EXPECT_EQ(manager().getComponentAtCursor(), nullptr);
    EXPECT_EQ(manager().getFocus(), nullptr);
    EXPECT_EQ(manager().getDragging(), nullptr);
    release();
    EXPECT_EQ(events(), (Lines{}));
    manager().checkComponentRemoval(nullptr);
}

TEST_F(UIManagerFocusTest, KeepsTheFocusInsideAPanelThatLeavesTheTree) {
    const auto a = addTab("a");
    a->setFocus();
    mWidget->removeChild(mRow.get());
    EXPECT_EQ(focusName(), "a"); // a class derived from Container is not walked
}

TEST_F(UIManagerFocusTest, IsForgottenByADestructor) {
    std::string told;
    {
        Panel onStack("stack");
        onStack.setTabStop(0);
        onStack.setFocus();
        ASSERT_EQ(focusName(), "stack");
        onStack.FocusCallbacks::subscribeCallback([&](UIEventHandler *handler, const FocusEvent &) {
            told = handler->getName();
            const core::SmartPtr<Component> held(static_cast<Component *>(handler)); // must not delete it again
            return false;
        });
    }
    EXPECT_EQ(manager().getFocus(), nullptr);
    core::SmartPtr<Panel> counted(new Panel("counted"));
    counted->setTabStop(0);
    counted->setFocus();
    ASSERT_EQ(focusName(), "counted");
    counted = nullptr;
    EXPECT_EQ(manager().getFocus(), nullptr);
}

TEST_F(UIManagerFocusTest, IsForgottenForTheChildrenOfADyingContainer) {
    auto row = core::SmartPtr<Panel>(new Panel("dying"));
    const auto child = core::SmartPtr<Panel>(new Panel("child"));
    row->addChild(child.get());
    child->setTabStop(0);
    child->setFocus();
    ASSERT_EQ(focusName(), "child");
    row = nullptr;
    EXPECT_EQ(manager().getFocus(), nullptr);
    EXPECT_EQ(child->getRefCount(), 1u);
}

TEST_F(UIManagerFocusTest, SurvivesAChildThatLeavesItsDyingContainerWhileItsFocusGoes) {
    core::SmartPtr<Panel> dying(new Panel("dying"));
    auto *child = new Panel("child");
    child->setTabStop(0);
    dying->addChild(child);
    child->setFocus();
    ASSERT_EQ(focusName(), "child");
    Panel *container = dying.get();
    child->FocusCallbacks::subscribeCallback([container, child](UIEventHandler *, const FocusEvent &) {
        container->removeChild(child);
        return true;
    });
    dying = nullptr;
    EXPECT_EQ(focusName(), "-");
}

TEST_F(UIManagerFocusTest, IsGoneAlsoWhenAListenerFails) {
    const auto a = addTab("a");
    a->setFocus();
    a->FocusCallbacks::subscribeCallback(
        [](UIEventHandler *, const FocusEvent &) -> bool { throw core::IllegalStateException("not now"); });
    EXPECT_THROW(manager().setEnabled(false), core::IllegalStateException);
    EXPECT_EQ(focusName(), "-");
    manager().setEnabled(true);
}

// --- Listeners that throw ---

namespace {

/// A panel at 100, 400 of 200 x 100 pixels whose listeners throw where they are told to.
class UIManagerThrowingTest : public UIManagerFocusTest {
public:
    UIManagerThrowingTest() : mPanel(addPanel(*mWidget, "p", 100, 400, 200, 100)) {
        mPanel->setTabStop(0);
        mPanel->enableEvents(UIEvent::ET_DRAG_EVENT);
        frame();
    }

    static bool fail() { throw core::IllegalStateException("not now"); }

    void throwAt(int action) {
        mPanel->MouseCallbacks::subscribeCallback(
            [action](UIEventHandler *, const MouseEvent &event) { return event.getAction() == action && fail(); });
    }

    core::SmartPtr<Panel> mPanel;
};

} // namespace

TEST_F(UIManagerThrowingTest, NothingIsPressedOrFocusedByAPressThatFails) {
    throwAt(MouseEvent::MOUSE_PRESS);
    moveTo(150, 450);
    EXPECT_THROW(press(), core::IllegalStateException);
    EXPECT_EQ(focusName(), "-");
    record();
    moveTo(190, 450);
    EXPECT_EQ(manager().getDragging(), nullptr);
    EXPECT_EQ(events(), (Lines{"move p>p"})); // no drag begins
    release();
    EXPECT_EQ(events(), (Lines{})); // and there is nothing to release
}

TEST_F(UIManagerThrowingTest, NothingStaysPressedAfterAReleaseThatFails) {
    throwAt(MouseEvent::MOUSE_RELEASE);
    moveTo(150, 450);
    press();
    EXPECT_THROW(release(), core::IllegalStateException);
    record();
    moveTo(190, 450);
    EXPECT_EQ(manager().getDragging(), nullptr);
    EXPECT_EQ(events(), (Lines{"move p>p"}));
    release();
    EXPECT_EQ(events(), (Lines{}));
}

TEST_F(UIManagerThrowingTest, NothingStaysDraggedAfterAnEndOfADragThatFails) {
    mPanel->DragCallbacks::subscribeCallback(
        [](UIEventHandler *, const DragEvent &event) { return event.getAction() == DragEvent::DRAG_END && fail(); });
    moveTo(150, 450);
    press();
    moveTo(190, 450);
    ASSERT_EQ(manager().getDragging(), mPanel.get());
    EXPECT_THROW(release(), core::IllegalStateException);
    EXPECT_EQ(manager().getDragging(), nullptr);
    record();
    moveTo(195, 450);
    EXPECT_EQ(events(), (Lines{"move p>p"}));
}

TEST_F(UIManagerThrowingTest, NothingStaysHoveredAfterALeavingThatFails) {
    mPanel->HoverCallbacks::subscribeCallback([](UIEventHandler *, const HoverEvent &event) {
        return event.getAction() == HoverEvent::HOVER_LEAVE && fail();
    });
    moveTo(150, 450);
    ASSERT_EQ(manager().getComponentAtCursor(), mPanel.get());
    EXPECT_THROW(manager().nextTabStop(UIManager::FORWARD), core::IllegalStateException);
    EXPECT_EQ(manager().getComponentAtCursor(), nullptr);
}

TEST_F(UIManagerThrowingTest, InputStaysDisabledWhenTheLossOfTheFocusFails) {
    mPanel->setFocus();
    mPanel->FocusCallbacks::subscribeCallback([](UIEventHandler *, const FocusEvent &event) {
        return event.getAction() == FocusEvent::FOCUS_LOST && fail();
    });
    EXPECT_THROW(manager().setEnabled(false), core::IllegalStateException);
    EXPECT_FALSE(manager().isEnabled());
    EXPECT_EQ(focusName(), "-");
    record();
    moveTo(150, 450);
    press();
    EXPECT_EQ(events(), (Lines{}));
    manager().setEnabled(true);
    release();
    EXPECT_EQ(manager().getDragging(), nullptr);
}
