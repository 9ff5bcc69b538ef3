#include "foundation/core/Exception.h"
#include "nui/ui/handlers/NavigationFixture.h"
#include "nui/ui/handlers/NavigationHandler.h"

#include <functional>
#include <limits>

using namespace nurel::ui;
using namespace nurel::ui::handlers;

namespace {

/// What comes in that makes no sense, and callbacks that change what is under way.
class NavigationHandlerBadInputTest : public test::NavigationTest {
public:
    /// Runs it when the handler tells of the body and the action for the first time.
    void once(const core::SmartPtr<Panel> &body, Action action, std::function<void()> run) {
        mHandler->Handler::NavigationCallbacks::subscribeCallback(
            [body, action, run = std::move(run), done = false](Handler *, Component *of, Action what, int) mutable {
                if (done || of != body.get() || what != action)
                    return done;
                done = true;
                run();
                return true;
            });
    }

    static std::string messageOf(const std::function<void()> &run) {
        try {
            run();
        } catch (const core::IllegalStateException &e) {
            return e.getMessage();
        }
        return "nothing was raised";
    }

    core::SmartPtr<Panel> elsewhere(const char *name) { return addPanel(*mWidget, name, 0, 0, 10, 10); }
};

constexpr const char *HAS_A_PARENT = "Component already has a parent";

} // namespace

TEST_F(NavigationHandlerBadInputTest, ANullBodyIsNotPushed) {
    push(a);
    told();
    const core::SmartPtr<AnimationContext> animation(new AnimationContext);
    mHandler->pushBody(nullptr, "x", "y", nullptr, animation.get());
    EXPECT_EQ(mHandler->pushBody(nullptr, nullptr, nullptr, nullptr, 1, SLIDE), nullptr);
    EXPECT_EQ(told(), Lines());
    EXPECT_FALSE(mHandler->isAnimating());
    EXPECT_EQ(stack(), "a");
    EXPECT_EQ(animation->getRefCount(), 1U);
}

TEST_F(NavigationHandlerBadInputTest, SettingANullBodyOnlyTakesTheTopOff) {
    push(a);
    push(b);
    told();
    EXPECT_EQ(mHandler->setBody(nullptr, nullptr, nullptr, nullptr, 1, SLIDE), nullptr);
    EXPECT_EQ(told(), (Lines{"b pop-begin 0"}));
    EXPECT_EQ(stack(), "a");
    EXPECT_EQ(shown(), "b");
    mHandler->setBody(nullptr, nullptr, nullptr, nullptr, nullptr);
    mHandler->setBody(nullptr, nullptr, nullptr, nullptr, nullptr);
    EXPECT_EQ(stack(), "");
    push(c);
    EXPECT_EQ(shown(), "c");
    EXPECT_EQ(b->getRefCount(), 1U);
}

TEST_F(NavigationHandlerBadInputTest, ANullBodyThatWaitsDoesNotHoldUpTheOthers) {
    push(a);
    slide(b);
    mHandler->setBody(nullptr, nullptr, nullptr, nullptr, nullptr);
    push(c);
    EXPECT_EQ(stack(), "a b");
    settle();
    EXPECT_EQ(stack(), "a c");
    EXPECT_EQ(shown(), "c");
    EXPECT_FALSE(mHandler->isAnimating());
}

TEST_F(NavigationHandlerBadInputTest, NobodyIsNotAnimated) {
    slide(a);
    EXPECT_FALSE(mHandler->isAnimating(nullptr));
    EXPECT_FALSE(mHandler->containsBody(nullptr));
    mHandler->popBody(nullptr); // waits, and has no body
    EXPECT_FALSE(mHandler->isAnimating(nullptr));
}

TEST_F(NavigationHandlerBadInputTest, ABodyThatIsElsewhereLeavesTheStackAsItWas) {
    push(a);
    told();
    const core::SmartPtr<Panel> other = elsewhere("other");
    const auto push = [&] { mHandler->pushBody(other.get(), nullptr, nullptr, nullptr, nullptr); };
    const auto slide = [&] { mHandler->pushBody(other.get(), nullptr, nullptr, nullptr, 0.1f, SLIDE); };
    const auto set = [&] { mHandler->setBody(other.get(), nullptr, nullptr, nullptr, nullptr); };
    const auto fade = [&] {
        mHandler->setBody(other.get(), nullptr, nullptr, nullptr, 0.1f, Transition::T_CROSS_FADE);
    };
    for (const std::function<void()> &run : std::initializer_list<std::function<void()>>{push, slide, set, fade}) {
        EXPECT_EQ(messageOf(run), HAS_A_PARENT);
        EXPECT_EQ(stack(), "a");
        EXPECT_EQ(shown(), "a");
        EXPECT_EQ(told(), Lines());
        EXPECT_FALSE(mHandler->isAnimating());
        EXPECT_EQ(other->getParent(), mWidget.get());
        EXPECT_EQ(other->getComponentPosition().relative, nurel::math::Vector2(0, 0));
        EXPECT_EQ(other->getOpacity(), 1);
    }
}

TEST_F(NavigationHandlerBadInputTest, TheHandlersOwnPartsAreNoBodies) {
    push(a);
    const auto raises = [&](Component *body) {
        return messageOf([&] { mHandler->pushBody(body, nullptr, nullptr, nullptr, nullptr); });
    };
    EXPECT_EQ(raises(&bar()), HAS_A_PARENT);
    EXPECT_EQ(raises(mHandler->getTarget()), HAS_A_PARENT);
    EXPECT_EQ(raises(mHandler->getBodyContainer()), HAS_A_PARENT);
    EXPECT_EQ(raises(mWidget.get()), "Component widget cannot be put into itself or its own descendant ");
    EXPECT_EQ(stack(), "a");
}

TEST_F(NavigationHandlerBadInputTest, ARightElementThatIsElsewhereLeavesTheStackAsItWas) {
    push(a);
    const core::SmartPtr<Panel> other = elsewhere("other");
    EXPECT_EQ(messageOf([&] { mHandler->pushBody(b.get(), nullptr, nullptr, other.get(), nullptr); }), HAS_A_PARENT);
    EXPECT_EQ(messageOf([&] { mHandler->setBody(b.get(), nullptr, nullptr, other.get(), nullptr); }), HAS_A_PARENT);
    EXPECT_EQ(stack(), "a");
    EXPECT_EQ(shown(), "a");
    EXPECT_FALSE(b->hasParent());
}

TEST_F(NavigationHandlerBadInputTest, ABodyIsNotMovedForARightElementThatIsElsewhere) {
    push(a);
    const core::SmartPtr<Panel> other = elsewhere("other");
    const auto fade = [&] {
        mHandler->pushBody(b.get(), nullptr, nullptr, other.get(), 0.1f, Transition::T_CROSS_FADE);
    };
    EXPECT_EQ(messageOf(fade), HAS_A_PARENT);
    EXPECT_EQ(b->getOpacity(), 1);
    EXPECT_FALSE(b->hasParent());
    EXPECT_EQ(stack(), "a");
}

TEST_F(NavigationHandlerBadInputTest, ARightElementThatIsPutElsewhereLaterIsNotShown) {
    push(a);
    const core::SmartPtr<Panel> right = newBody("right");
    mHandler->pushBody(b.get(), nullptr, nullptr, right.get(), 0.1f, SLIDE);
    mWidget->addChild(right.get());
    settle();
    EXPECT_EQ(title(), "b");
    EXPECT_EQ(bar().isElementEnabled(2), 0U);
    EXPECT_EQ(right->getParent(), mWidget.get());
}

TEST_F(NavigationHandlerBadInputTest, ABodyBelowThatWasPutElsewhereStopsThePop) {
    push(a);
    push(b);
    mWidget->addChild(a.get());
    told();
    EXPECT_EQ(messageOf([&] { mHandler->popBody(nullptr); }), HAS_A_PARENT);
    EXPECT_EQ(stack(), "a b");
    EXPECT_EQ(shown(), "b");
    EXPECT_EQ(told(), Lines());
    mWidget->removeChild(a.get());
    mHandler->popBody(nullptr);
    EXPECT_EQ(shown(), "a");
}

TEST_F(NavigationHandlerBadInputTest, AWaitingBodyThatIsElsewhereDoesNotHoldUpTheOthers) {
    push(a);
    slide(b);
    const core::SmartPtr<Panel> other = elsewhere("other");
    mHandler->pushBody(other.get(), nullptr, nullptr, nullptr, nullptr);
    push(c);
    frame();
    EXPECT_EQ(messageOf([&] { after(100); }), HAS_A_PARENT);
    EXPECT_EQ(stack(), "a b c");
    EXPECT_EQ(shown(), "c");
    EXPECT_FALSE(mHandler->isAnimating());
    told();
    frame(); // the animation that could not end then
    frame();
    EXPECT_EQ(told(), Lines());
    EXPECT_EQ(shown(), "c");
}

TEST_F(NavigationHandlerBadInputTest, ABodyMayBePushedTwice) {
    push(a);
    push(b);
    push(a);
    EXPECT_EQ(stack(), "a b a");
    EXPECT_EQ(shown(), "a");
    EXPECT_EQ(back(), "b");
    told();
    mHandler->popBody(nullptr);
    EXPECT_EQ(told(), (Lines{"a pop-begin 0", "b pop-begin 1", "a pop-end 1", "b pop-end 0"})); // it has not left
    push(b);
    EXPECT_EQ(stack(), "a b b");
    EXPECT_EQ(shown(), "b");
    mHandler->popBody(nullptr);
    EXPECT_EQ(shown(), "b");
    mHandler->popBody(nullptr);
    EXPECT_EQ(shown(), "a");
}

TEST_F(NavigationHandlerBadInputTest, LengthsThatAreNoneEndAtOnce) {
    push(a);
    for (const float length : {-1.0f, std::numeric_limits<float>::quiet_NaN()}) {
        mHandler->pushBody(b.get(), nullptr, nullptr, nullptr, length, SLIDE);
        frame();
        EXPECT_EQ(shown(), "b");
        mHandler->popBody(nullptr);
        frame();
        EXPECT_EQ(shown(), "a");
    }
}

TEST_F(NavigationHandlerBadInputTest, AnUnknownTransitionIsOnlyAPause) {
    push(a);
    mHandler->pushBody(b.get(), nullptr, nullptr, nullptr, 0.1f, static_cast<Transition::Type>(8));
    EXPECT_EQ(mLog.takeOne(logging::Level::ERROR), "Unknown transition type: UNKNOWN (8)");
    EXPECT_TRUE(mHandler->isAnimating());
    settle();
    EXPECT_EQ(shown(), "b");
}

TEST_F(NavigationHandlerBadInputTest, SurvivesThatItsPartsAreTakenOut) {
    push(a);
    slide(b);
    static_cast<Panel *>(mHandler->getTarget())->clearChildren();
    mHandler->getBodyContainer()->clearChildren();
    bar().clearChildren();
    settle();
    EXPECT_EQ(title(), "b");
    EXPECT_EQ(mHandler->getBody(), b.get());
    mHandler->popBody(nullptr);
    settle();
    EXPECT_EQ(shown(), "a");
    bar().setElement(Bar::ELEMENT_LEFT, newBody("left").get()); // no button
    push(c);
    mHandler->setBodyBackText(c.get(), "x");
    EXPECT_EQ(stack(), "a c");
}

TEST_F(NavigationHandlerBadInputTest, AnotherTargetIsNotEmptied) {
    push(a);
    const core::SmartPtr<Panel> other = elsewhere("other");
    addPanel(*other, "inner", 0, 0, 1, 1);
    mHandler->setTarget(other.get());
    push(b);
    EXPECT_EQ(shown(), "b");
    mHandler->setTarget(nullptr);
    EXPECT_EQ(mHandler->nextHandler(), nullptr);
    mHandler->setTarget(other.get());
    mHandler = nullptr;
    EXPECT_EQ(other->getChildCount(), 1U);
    EXPECT_EQ(other->getHandler(), nullptr);
    EXPECT_FALSE(b->hasParent());
}

// --- Callbacks that change what is under way

TEST_F(NavigationHandlerBadInputTest, ACallbackMayPushAtTheEndOfAPush) {
    push(a);
    once(b, NAVIGATION_PUSH_END, [&] { push(c); });
    slide(b);
    told();
    settle();
    EXPECT_EQ(stack(), "a b c");
    EXPECT_EQ(shown(), "c");
    EXPECT_EQ(title(), "c");
    EXPECT_EQ(told(), (Lines{"a push-end 1", "b push-end 0", "b push-begin 0", "c push-begin -1", "b push-end 1",
                             "c push-end 0"}));
}

TEST_F(NavigationHandlerBadInputTest, ACallbackMayPopAtTheEndOfAPush) {
    push(a);
    once(b, NAVIGATION_PUSH_END, [&] { mHandler->popBody(nullptr); });
    slide(b);
    frame();
    told();
    after(100);
    // The way back begins, with the animation that has just brought the body in
    EXPECT_EQ(told(), (Lines{"a push-end 1", "b push-end 0", "b pop-begin 0", "a pop-begin 1"}));
    EXPECT_TRUE(mHandler->isAnimating());
    EXPECT_EQ(shown(), "b a");
    frame();
    after(25);
    EXPECT_EQ(place(*a) + " " + place(*b), "-600,0 200,0");
    after(75);
    EXPECT_EQ(told(), (Lines{"b pop-end -1", "a pop-end 0"}));
    EXPECT_EQ(shown(), "a");
    EXPECT_EQ(place(*a), "0,0");
    EXPECT_FALSE(mHandler->isAnimating());
}

TEST_F(NavigationHandlerBadInputTest, AnAnimationMayServeTwoRequestsInARow) {
    const core::SmartPtr<AnimationContext> both(new AnimationContext);
    both->setDuration(0.1f);
    mHandler->pushBody(a.get(), nullptr, nullptr, nullptr, both.get());
    mHandler->pushBody(b.get(), nullptr, nullptr, nullptr, both.get());
    settle();
    EXPECT_EQ(mHandler->getBody(), a.get());
    EXPECT_EQ(shown(), "a b");
    EXPECT_TRUE(mHandler->isAnimating());
    settle();
    EXPECT_EQ(mHandler->getBody(), b.get());
    EXPECT_FALSE(mHandler->isAnimating());
}

TEST_F(NavigationHandlerBadInputTest, ACallbackMayTakeTheTargetAndTheWidgetAway) {
    push(a);
    once(b, NAVIGATION_PUSH_BEGIN, [&] { mWidget->removeChild(mHandler->getTarget()); });
    once(b, NAVIGATION_PUSH_END, [&] {
        manager().clearWidgets();
        mWidget = nullptr;
    });
    slide(b);
    settle();
    EXPECT_EQ(shown(), "b");
    EXPECT_EQ(title(), "b");
    mHandler->popBody(nullptr); // nobody sees it
    settle();
    EXPECT_EQ(shown(), "a");
    EXPECT_FALSE(mHandler->isAnimating());
}

TEST_F(NavigationHandlerBadInputTest, MayGoWhenItAsksWhetherToPop) {
    push(a);
    push(b);
    const core::SmartPtr<Component> button(&left());
    mHandler->Handler::PopQueryCallbacks::subscribeCallback([this](Handler *, Component *, PopQueryResult &) {
        mHandler = nullptr;
        return false;
    });
    clickOn(*button);
    EXPECT_EQ(a->getRefCount(), 1U);
    EXPECT_EQ(b->getRefCount(), 1U);
    clickOn(*button);
}

TEST_F(NavigationHandlerBadInputTest, WorksOutsideOfAnyWidgetAndBesideAnother) {
    const core::SmartPtr<Handler> first = std::exchange(mHandler, new Handler(0, 0));
    slide(a);
    first->pushBody(c.get(), nullptr, nullptr, nullptr, nullptr);
    EXPECT_FALSE(first->isAnimating());
    EXPECT_TRUE(mHandler->isAnimating());
    EXPECT_EQ(messageOf([&] { first->pushBody(a.get(), nullptr, nullptr, nullptr, nullptr); }), HAS_A_PARENT);
    settle();
    EXPECT_EQ(shown(), "a");
    mHandler->popBody(nullptr);
    settle();
    EXPECT_EQ(shown(), "");
    first->pushBody(a.get(), nullptr, nullptr, nullptr, nullptr);
    EXPECT_EQ(first->getBody(), a.get());
}

TEST_F(NavigationHandlerBadInputTest, ACallbackMayPopWhatIsBeingPushed) {
    push(a);
    once(b, NAVIGATION_PUSH_BEGIN, [&] { mHandler->popBody(nullptr); });
    push(b);
    EXPECT_EQ(stack(), "a");
    EXPECT_EQ(shown(), "a");
    EXPECT_EQ(mHandler->getBody(), a.get());
    EXPECT_FALSE(mHandler->isAnimating());
    EXPECT_EQ(b->getRefCount(), 1U);
}

TEST_F(NavigationHandlerBadInputTest, ACallbackMayPopWhileAPopBegins) {
    push(a);
    push(b);
    push(c);
    once(c, NAVIGATION_POP_BEGIN, [&] { mHandler->popBody(nullptr); });
    mHandler->popBody(nullptr);
    EXPECT_EQ(stack(), "a b"); // taken off once
    EXPECT_EQ(shown(), "b");
    EXPECT_EQ(back(), "a");
}

TEST_F(NavigationHandlerBadInputTest, ACallbackMayPushWhileABodyLeaves) {
    push(a);
    push(b);
    once(b, NAVIGATION_POP_END, [&] {
        EXPECT_EQ(mHandler->getBody(), a.get());
        push(c);
    });
    mHandler->popBody(nullptr);
    EXPECT_EQ(stack(), "a c");
    EXPECT_EQ(shown(), "c");
    EXPECT_EQ(mHandler->getBody(), c.get());
    EXPECT_EQ(title(), "c");
    EXPECT_EQ(back(), "a");
    EXPECT_EQ(b->getRefCount(), 1U);
}

TEST_F(NavigationHandlerBadInputTest, ACallbackMayStartATransitionWhileABodyLeaves) {
    push(a);
    push(b);
    once(b, NAVIGATION_POP_END, [&] { slide(c); });
    mHandler->popBody(nullptr);
    EXPECT_TRUE(mHandler->isAnimating());
    EXPECT_EQ(shown(), "a c");
    settle();
    EXPECT_EQ(shown(), "c");
    EXPECT_FALSE(mHandler->isAnimating());
}

TEST_F(NavigationHandlerBadInputTest, ACallbackMayTakeTheNeighboursOffWhileABodyIsRemoved) {
    push(a);
    push(b);
    push(c);
    once(b, NAVIGATION_POP_BEGIN, [&] {
        mHandler->removeBodyAt(2, true);
        mHandler->popBody(nullptr);
    });
    mHandler->removeBodyAt(1, true);
    EXPECT_EQ(stack(), "");
    once(d, NAVIGATION_POP_BEGIN, [&] { mHandler->removeBodyAt(1, true); });
    push(c);
    push(d);
    push(a);
    mHandler->removeBodyAt(1, true); // the callback removes it first
    EXPECT_EQ(stack(), "c a");
}

TEST_F(NavigationHandlerBadInputTest, AListenerOfTheFocusMayNavigateWhileABodyLeaves) {
    push(a);
    b->setTabStop(0);
    push(b);
    frame();
    b->setFocus();
    ASSERT_TRUE(b->hasFocus());
    b->FocusCallbacks::subscribeCallback([this](UIEventHandler *, const FocusEvent &) {
        push(d);
        return true;
    });
    push(c);
    EXPECT_EQ(stack(), "a b c d");
    EXPECT_EQ(shown(), "d");
    EXPECT_EQ(title(), "d");
    EXPECT_EQ(mHandler->getBody(), d.get());
}

TEST_F(NavigationHandlerBadInputTest, AListenerOfTheFocusMayNavigateWhileARightElementLeaves) {
    const core::SmartPtr<Panel> right = newBody("right");
    right->setTabStop(0);
    mHandler->pushBody(a.get(), nullptr, nullptr, right.get(), nullptr);
    frame();
    right->setFocus();
    ASSERT_TRUE(right->hasFocus());
    const core::SmartPtr<Panel> other = newBody("other");
    right->FocusCallbacks::subscribeCallback([this, other](UIEventHandler *, const FocusEvent &) {
        mHandler->pushBody(c.get(), nullptr, nullptr, other.get(), nullptr);
        return true;
    });
    push(b);
    EXPECT_EQ(stack(), "a b c");
    EXPECT_EQ(title(), "c");
    EXPECT_EQ(back(), "b");
    EXPECT_EQ(bar().getElement(Bar::ELEMENT_RIGHT), other.get());
    EXPECT_EQ(bar().isElementEnabled(2), 2U);
}

TEST_F(NavigationHandlerBadInputTest, ASubscriberThatFailsDoesNotKeepTheTransitionRunning) {
    push(a);
    once(b, NAVIGATION_PUSH_END, [] { throw core::IllegalStateException("no"); });
    slide(b);
    frame();
    EXPECT_EQ(messageOf([&] { after(100); }), "no");
    EXPECT_FALSE(mHandler->isAnimating());
    EXPECT_EQ(mHandler->getBody(), b.get());
    told();
    frame();
    EXPECT_EQ(told(), Lines());
    mHandler->popBody(nullptr);
    settle();
    EXPECT_EQ(shown(), "a");
}
