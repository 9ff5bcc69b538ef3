#include "nui/ui/handlers/NavigationFixture.h"
#include "nui/ui/handlers/NavigationHandler.h"

using namespace nurel::ui;
using namespace nurel::ui::handlers;
using nurel::math::Vector2;

namespace {

class NavigationHandlerMotionTest : public test::NavigationTest {
public:
    /// The places of two bodies.
    static std::string places(const core::SmartPtr<Panel> &first, const core::SmartPtr<Panel> &second) {
        return place(*first) + " " + place(*second);
    }

    core::SmartPtr<AnimationContext> newAnimation() {
        core::SmartPtr<AnimationContext> animation(new AnimationContext);
        animation->setDuration(0.1f);
        return animation;
    }
};

} // namespace

TEST_F(NavigationHandlerMotionTest, APushSlidesStepByStep) {
    push(a);
    told();
    AnimationContext *animation = slide(b);
    ASSERT_NE(animation, nullptr);
    EXPECT_EQ(animation->getStatus(), AnimationContext::COMMITTED);
    EXPECT_EQ(mHandler->getBodyAnimation(b.get()), animation);
    EXPECT_EQ(told(), (Lines{"a push-begin 0", "b push-begin -1"}));
    EXPECT_TRUE(mHandler->isAnimating());
    EXPECT_EQ(mHandler->getBody(), a.get());
    EXPECT_EQ(stack(), "a b");
    EXPECT_EQ(shown(), "a b");
    EXPECT_EQ(title(), "a");

    frame();
    EXPECT_EQ(places(a, b), "0,0 800,0");
    after(25);
    EXPECT_EQ(places(a, b), "-200,0 600,0");
    after(25);
    EXPECT_EQ(places(a, b), "-400,0 400,0");
    after(25);
    EXPECT_EQ(places(a, b), "-600,0 200,0");
    EXPECT_EQ(shown(), "a b");
    EXPECT_EQ(told(), Lines());
    EXPECT_TRUE(mHandler->isAnimating());

    after(25);
    EXPECT_EQ(place(*b), "0,0");
    EXPECT_EQ(shown(), "b");
    EXPECT_EQ(told(), (Lines{"a push-end 1", "b push-end 0"}));
    EXPECT_FALSE(mHandler->isAnimating());
    EXPECT_EQ(mHandler->getBody(), b.get());
    EXPECT_EQ(title(), "b");
    EXPECT_EQ(back(), "a");
    EXPECT_EQ(mHandler->getBodyContainer()->getScrollInfoH().bar, nullptr);
}

TEST_F(NavigationHandlerMotionTest, APopPlaysThePushBackwards) {
    push(a);
    AnimationContext *animation = slide(b);
    settle();
    told();
    mHandler->popBody(nullptr);
    EXPECT_TRUE(animation->isResverse());
    EXPECT_EQ(told(), (Lines{"b pop-begin 0", "a pop-begin 1"}));
    EXPECT_EQ(stack(), "a");
    EXPECT_EQ(mHandler->getBody(), b.get());
    EXPECT_EQ(shown(), "b a");
    frame();
    EXPECT_EQ(places(a, b), "-800,0 0,0");
    after(25);
    EXPECT_EQ(places(a, b), "-600,0 200,0");
    after(50);
    EXPECT_EQ(places(a, b), "-200,0 600,0");
    after(25);
    EXPECT_EQ(place(*a), "0,0");
    EXPECT_EQ(shown(), "a");
    EXPECT_EQ(told(), (Lines{"b pop-end -1", "a pop-end 0"}));
    EXPECT_EQ(b->getRefCount(), 1U); // its record and the animation have gone
}

TEST_F(NavigationHandlerMotionTest, APopMayHaveAnAnimationOfItsOwn) {
    push(a);
    slide(b);
    settle();
    const core::SmartPtr<AnimationContext> own = newAnimation();
    Transition::build(Transition::T_CROSS_FADE, a.get(), b.get(), 0, own.get());
    mHandler->popBody(own.get());
    EXPECT_TRUE(own->isResverse());
    frame();
    EXPECT_EQ(b->getOpacity(), 1);
    EXPECT_EQ(a->getOpacity(), 0);
    after(50);
    EXPECT_EQ(b->getOpacity(), 0.5f);
    EXPECT_EQ(a->getOpacity(), 0.5f);
    after(50);
    EXPECT_EQ(a->getOpacity(), 1);
    EXPECT_EQ(shown(), "a");
}

TEST_F(NavigationHandlerMotionTest, TheLastBodySlidesOutToo) {
    slide(a);
    settle();
    told();
    mHandler->popBody(nullptr);
    EXPECT_TRUE(mHandler->isAnimating());
    EXPECT_FALSE(mHandler->isAnimating(nullptr));
    EXPECT_EQ(told(), (Lines{"a pop-begin 0"}));
    frame();
    after(50);
    EXPECT_EQ(place(*a), "400,0");
    after(50);
    EXPECT_EQ(told(), (Lines{"a pop-end -1", "null pop-end 0"}));
    EXPECT_EQ(shown(), "");
    EXPECT_EQ(mHandler->getBody(), nullptr);
}

TEST_F(NavigationHandlerMotionTest, FlipsAndFades) {
    push(a);
    mHandler->pushBody(b.get(), nullptr, nullptr, nullptr, 0.1f, Transition::T_FLIP_HORIZONTAL);
    frame();
    after(25);
    EXPECT_NEAR(turnY(*a), -45, 1e-2);
    EXPECT_NEAR(turnY(*b), 135, 1e-2);
    after(75);
    EXPECT_NEAR(turnY(*b), 0, 1e-2);
    mHandler->pushBody(c.get(), nullptr, nullptr, nullptr, 0.1f, Transition::T_CROSS_FADE);
    frame();
    after(25);
    EXPECT_NEAR(b->getOpacity(), 0.84375f, 1e-6);
    EXPECT_NEAR(c->getOpacity(), 0.15625f, 1e-6);
    after(75);
    EXPECT_EQ(c->getOpacity(), 1);
    // And back, each its own way
    mHandler->popBody(nullptr);
    frame();
    after(75);
    EXPECT_NEAR(b->getOpacity(), 0.84375f, 1e-6);
    after(25);
    mHandler->popBody(nullptr);
    frame();
    after(75);
    EXPECT_NEAR(turnY(*a), -45, 1e-2);
    EXPECT_NEAR(turnY(*b), 135, 1e-2);
    after(25);
    EXPECT_NEAR(turnY(*a), 0, 1e-2);
    EXPECT_EQ(shown(), "a");
}

TEST_F(NavigationHandlerMotionTest, WithoutATransitionTheFloatFormPushesAtOnce) {
    EXPECT_EQ(mHandler->pushBody(a.get(), nullptr, nullptr, nullptr, 1, Transition::T_NONE), nullptr);
    EXPECT_EQ(mHandler->getBody(), a.get());
    EXPECT_EQ(mHandler->setBody(b.get(), nullptr, nullptr, nullptr, 1, Transition::T_NONE), nullptr);
    EXPECT_EQ(mHandler->getBody(), b.get());
    EXPECT_EQ(stack(), "b");
}

TEST_F(NavigationHandlerMotionTest, ADelayBelongsToTheTransition) {
    push(a);
    const core::SmartPtr<AnimationContext> animation = newAnimation();
    animation->setDelay(0.1f);
    mHandler->pushBody(b.get(), nullptr, nullptr, nullptr, animation.get());
    for (int i = 0; i < 3; ++i) {
        EXPECT_TRUE(mHandler->isAnimating());
        frame();
        after(50);
    }
    EXPECT_TRUE(mHandler->isAnimating());
    after(50);
    EXPECT_FALSE(mHandler->isAnimating());
}

TEST_F(NavigationHandlerMotionTest, AnAnimationWithoutLengthEndsWithTheFirstFrame) {
    push(a);
    mHandler->pushBody(b.get(), nullptr, nullptr, nullptr, 0, SLIDE);
    EXPECT_EQ(shown(), "a b");
    frame();
    EXPECT_EQ(shown(), "b");
    EXPECT_EQ(place(*b), "0,0");
}

TEST_F(NavigationHandlerMotionTest, TheClockMayStandStillAndJump) {
    push(a);
    slide(b);
    for (int i = 0; i < 5; ++i)
        frame();
    EXPECT_EQ(places(a, b), "0,0 800,0");
    EXPECT_TRUE(mHandler->isAnimating());
    after(3600 * 1000);
    EXPECT_EQ(place(*b), "0,0");
    EXPECT_EQ(shown(), "b");
}

TEST_F(NavigationHandlerMotionTest, SlidesToTheMillisecondAfterThirtyDays) {
    advance(30 * 24 * 3600.0);
    push(a);
    slide(b);
    frame();
    after(1);
    EXPECT_EQ(places(a, b), "-8,0 792,0");
    after(24);
    EXPECT_EQ(places(a, b), "-200,0 600,0");
    after(75);
    EXPECT_EQ(shown(), "b");
}

// --- Events

TEST_F(NavigationHandlerMotionTest, ClicksAreFilteredOutWhileATransitionRuns) {
    push(a);
    push(b);
    slide(c);
    int clicks = 0;
    for (Component *component : {static_cast<Component *>(b.get()), static_cast<Component *>(&left())})
        component->ClickCallbacks::subscribeCallback([&clicks](UIEventHandler *, const ClickEvent &) {
            ++clicks;
            return false;
        });
    frame();
    record();
    click(60, 25);
    click(400, 300);
    clickOn(*b);
    EXPECT_EQ(clicks, 0);
    EXPECT_EQ(stack(), "a b c");
    for (const std::string &event : events())
        EXPECT_EQ(event.substr(event.size() - 2), ">-") << event;
    after(100);
    click(60, 25);
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(stack(), "a b");
}

TEST_F(NavigationHandlerMotionTest, FiltersAsEveryHandlerDoesAtOtherTimes) {
    push(a);
    int filtered = 0;
    mHandler->FilterCallbacks::subscribeCallback(
        [&filtered](UIEventHandler *, const UIEvent &, UIEventHandler *&handler) {
            ++filtered;
            handler = nullptr;
            return false;
        });
    const FocusEvent event(FocusEvent::FOCUS_GAINED);
    EXPECT_EQ(mHandler->filterEvent(event, a.get()), nullptr);
    EXPECT_EQ(filtered, 1);
    mHandler->FilterCallbacks::removeCallbacks();
    EXPECT_EQ(mHandler->filterEvent(event, a.get()), a.get());
    // What stands above has the last word
    mWidget->FilterCallbacks::subscribeCallback([this](UIEventHandler *, const UIEvent &, UIEventHandler *&handler) {
        EXPECT_EQ(handler, a.get());
        handler = b.get();
        return false;
    });
    EXPECT_EQ(mHandler->filterEvent(event, a.get()), b.get());
    slide(b);
    EXPECT_EQ(mHandler->filterEvent(event, a.get()), nullptr);
}

// --- Requests that wait

TEST_F(NavigationHandlerMotionTest, APushDuringATransitionWaits) {
    push(a);
    slide(b);
    told();
    EXPECT_TRUE(mHandler->isAnimating(b.get())); // it comes
    EXPECT_TRUE(mHandler->isAnimating(a.get())); // it goes
    EXPECT_FALSE(mHandler->isAnimating(c.get()));
    push(c);
    EXPECT_EQ(told(), Lines());
    EXPECT_FALSE(mHandler->containsBody(c.get()));
    EXPECT_TRUE(mHandler->isAnimating(c.get()));
    EXPECT_EQ(stack(), "a b");
    EXPECT_FALSE(c->hasParent());
    settle();
    EXPECT_EQ(told(), (Lines{"a push-end 1", "b push-end 0", "b push-begin 0", "c push-begin -1", "b push-end 1",
                             "c push-end 0"}));
    EXPECT_EQ(stack(), "a b c");
    EXPECT_EQ(shown(), "c");
    EXPECT_FALSE(mHandler->isAnimating());
    EXPECT_EQ(c->getRefCount(), 4U); // the test, the stack, the container and the handler
}

TEST_F(NavigationHandlerMotionTest, WhatHasNoAnimationRunsOnceInOneGo) {
    push(a);
    slide(b);
    push(c);
    mHandler->setBody(d.get(), nullptr, nullptr, nullptr, nullptr);
    const core::SmartPtr<Panel> e = newBody("e");
    push(e);
    told();
    settle();
    EXPECT_EQ(told(), (Lines{"a push-end 1", "b push-end 0",                                      //
                             "b push-begin 0", "c push-begin -1", "b push-end 1", "c push-end 0", //
                             "c pop-begin 0", "d push-begin -1", "c pop-end -1", "d push-end 0",  //
                             "d push-begin 0", "e push-begin -1", "d push-end 1", "e push-end 0"}));
    EXPECT_EQ(stack(), "a b d e");
    EXPECT_FALSE(mHandler->isAnimating());
}

TEST_F(NavigationHandlerMotionTest, AWaitingTransitionIsBuiltAnewFromTheBodyThatIsOnShow) {
    push(a);
    slide(b);
    AnimationContext *guessed = slide(c);
    ASSERT_NE(guessed, nullptr);
    EXPECT_NE(guessed->getAnimation(b.get(), Animation::TYPE), nullptr); // b will be on show by then
    AnimationContext *further = slide(d);
    EXPECT_NE(further->getAnimation(c.get(), Animation::TYPE), nullptr);
    const core::SmartPtr<AnimationContext> kept(guessed);
    settle();
    EXPECT_EQ(stack(), "a b c");
    AnimationContext *built = mHandler->getBodyAnimation(c.get());
    EXPECT_NE(built, guessed);
    EXPECT_EQ(guessed->getStatus(), AnimationContext::CREATED);
    EXPECT_EQ(built->getDuration(), 0.1f);
    frame();
    EXPECT_EQ(places(b, c), "0,0 800,0");
    after(25);
    EXPECT_EQ(places(b, c), "-200,0 600,0");
    after(75);
    frame();
    EXPECT_EQ(stack(), "a b c d");
    EXPECT_EQ(places(c, d), "0,0 800,0");
    after(100);
    EXPECT_EQ(shown(), "d");
    EXPECT_FALSE(mHandler->isAnimating());
}

TEST_F(NavigationHandlerMotionTest, AWaitingAnimationOfTheCallersOwnIsPlayedAsItIs) {
    push(a);
    slide(b);
    const core::SmartPtr<AnimationContext> own = newAnimation();
    mHandler->pushBody(c.get(), nullptr, nullptr, nullptr, own.get());
    settle();
    EXPECT_EQ(mHandler->getBodyAnimation(c.get()), own.get());
    EXPECT_EQ(own->getStatus(), AnimationContext::COMMITTED);
    settle();
    EXPECT_EQ(shown(), "c");
}

TEST_F(NavigationHandlerMotionTest, AWaitingSetReplacesTheBodyThatIsOnTopByThen) {
    push(a);
    slide(b);
    EXPECT_NE(mHandler->setBody(c.get(), "C", "Back", nullptr, 0.1f, Transition::T_CROSS_FADE), nullptr);
    EXPECT_TRUE(mHandler->isAnimating(c.get()));
    told();
    settle();
    EXPECT_EQ(told(), (Lines{"a push-end 1", "b push-end 0", "b pop-begin 0", "c push-begin -1"}));
    EXPECT_EQ(stack(), "a c");
    settle();
    EXPECT_EQ(told(), (Lines{"b pop-end -1", "c push-end 0"}));
    EXPECT_EQ(title(), "C");
    EXPECT_EQ(back(), "Back");
}

TEST_F(NavigationHandlerMotionTest, AWaitingPopNeverGetsItsTurn) {
    push(a);
    slide(b);
    mHandler->popBody(nullptr);
    push(c);
    told();
    settle();
    EXPECT_EQ(told(), (Lines{"a push-end 1", "b push-end 0"}));
    for (int i = 0; i < 5; ++i)
        after(100);
    EXPECT_EQ(told(), Lines());
    EXPECT_EQ(stack(), "a b");
    EXPECT_TRUE(mHandler->isAnimating());
    EXPECT_TRUE(mHandler->isAnimating(c.get()));
    // Events are not stopped by it
    const FocusEvent event(FocusEvent::FOCUS_GAINED);
    EXPECT_EQ(mHandler->filterEvent(event, a.get()), a.get());
    // Only the body that is the first in line passes
    push(d);
    EXPECT_FALSE(mHandler->containsBody(d.get()));
    push(c);
    EXPECT_EQ(told(), (Lines{"b push-begin 0", "c push-begin -1", "b push-end 1", "c push-end 0", "c push-begin 0",
                             "c push-begin -1", "c push-end 1", "c push-end 0"}));
    EXPECT_EQ(stack(), "a b c c"); // what waited has run as well
    EXPECT_EQ(shown(), "c");
    EXPECT_TRUE(mHandler->isAnimating(d.get())); // it stands behind the pop
}

TEST_F(NavigationHandlerMotionTest, AWaitingPopWithNothingToPopIsDoneWith) {
    slide(a);
    settle();
    mHandler->popBody(nullptr);
    mHandler->popBody(nullptr);
    push(b);
    told();
    settle();
    EXPECT_EQ(told(), (Lines{"a pop-end -1", "null pop-end 0", "b push-begin -1", "b push-end 0"}));
    EXPECT_FALSE(mHandler->isAnimating());
}

TEST_F(NavigationHandlerMotionTest, TheTypeGoesToTheLastRequestThatWaits) {
    push(a);
    slide(b);
    const core::SmartPtr<AnimationContext> own = newAnimation();
    mHandler->pushBody(c.get(), nullptr, nullptr, nullptr, own.get());
    // This one passes, since it is for the body that is the first in line; the type is noted with the one that waits
    mHandler->pushBody(c.get(), nullptr, nullptr, nullptr, 0.1f, Transition::T_CROSS_FADE);
    EXPECT_EQ(stack(), "a b c");
    for (int i = 0; i < 3; ++i)
        settle();
    EXPECT_EQ(stack(), "a b c c");
    EXPECT_EQ(own->getStatus(), AnimationContext::CREATED); // another was built in its place
    EXPECT_EQ(shown(), "c");
    EXPECT_FALSE(mHandler->isAnimating());
}

// --- Its end

TEST_F(NavigationHandlerMotionTest, MayGoWhileATransitionRuns) {
    push(a);
    const core::SmartPtr<AnimationContext> animation(slide(b));
    push(c);
    frame();
    after(50);
    told();
    mHandler = nullptr;
    EXPECT_FALSE(a->hasParent());
    EXPECT_EQ(c->getRefCount(), 1U);
    after(50);
    frame();
    EXPECT_EQ(animation->getStatus(), AnimationContext::FINISHED);
    EXPECT_EQ(told(), Lines());
    EXPECT_EQ(a->getRefCount(), 2U); // the animation's
}

TEST_F(NavigationHandlerMotionTest, MayGoInItsOwnCallback) {
    push(a);
    slide(b);
    push(c);
    mHandler->Handler::NavigationCallbacks::subscribeCallback([this](Handler *, Component *, Action action, int) {
        if (action == NAVIGATION_PUSH_END)
            mHandler = nullptr;
        return false;
    });
    settle();
    EXPECT_FALSE(mHandler);
    for (const Panel *body : {a.get(), b.get(), c.get()})
        EXPECT_EQ(body->getRefCount(), 1U);
}

TEST_F(NavigationHandlerMotionTest, OutlivesTheManagersAnimations) {
    push(a);
    const core::SmartPtr<AnimationContext> animation(slide(b));
    frame();
    manager().cancelAnimation(animation.get());
    after(1000);
    EXPECT_TRUE(mHandler->isAnimating()); // it never ends by itself
    manager().commitAnimation(animation.get());
    settle();
    EXPECT_FALSE(mHandler->isAnimating());
    EXPECT_EQ(shown(), "b");
}
