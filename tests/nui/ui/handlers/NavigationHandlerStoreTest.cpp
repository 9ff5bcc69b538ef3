#include "nui/ui/animation/AnimatedOpacity.h"
#include "nui/ui/animation/AnimatedPosition.h"
#include "nui/ui/handlers/NavigationFixture.h"
#include "nui/ui/handlers/NavigationHandler.h"

using namespace nurel::ui;
using namespace nurel::ui::handlers;

namespace {

using animation::AnimatedOpacity;
using animation::AnimatedPosition;

/// What is stored for the way back, and how it is kept right when bodies are replaced and removed.
class NavigationHandlerStoreTest : public test::NavigationTest {
public:
    /// Pushes with a transition of a tenth of a second, and lets it end.
    core::SmartPtr<AnimationContext> bring(const core::SmartPtr<Panel> &body, Transition::Type type = SLIDE) {
        core::SmartPtr<AnimationContext> animation(
            mHandler->pushBody(body.get(), nullptr, nullptr, nullptr, 0.1f, type));
        settle();
        return animation;
    }

    void set(const core::SmartPtr<Panel> &body) { mHandler->setBody(body.get(), nullptr, nullptr, nullptr, nullptr); }

    /// Whether the animation has one of that kind for the body.
    template <class Animated>
    static bool moves(const core::SmartPtr<AnimationContext> &animation, const core::SmartPtr<Panel> &body) {
        return animation->getAnimation(body.get(), Animated::TYPE) != nullptr;
    }
};

} // namespace

TEST_F(NavigationHandlerStoreTest, SettingTheFirstBodyIsAPush) {
    set(a);
    EXPECT_EQ(told(), (Lines{"a push-begin -1", "a push-end 0"}));
    EXPECT_EQ(stack(), "a");
    EXPECT_EQ(shown(), "a");
}

TEST_F(NavigationHandlerStoreTest, SettingReplacesTheTop) {
    push(a);
    push(b);
    told();
    mHandler->setBody(c.get(), "New", nullptr, nullptr, nullptr);
    EXPECT_EQ(told(), (Lines{"b pop-begin 0", "c push-begin -1", "b pop-end -1", "c push-end 0"}));
    EXPECT_EQ(stack(), "a c");
    EXPECT_EQ(shown(), "c");
    EXPECT_EQ(title(), "New");
    EXPECT_EQ(back(), "a");
    EXPECT_EQ(b->getRefCount(), 1U);
}

TEST_F(NavigationHandlerStoreTest, SettingWithATransitionTellsOfTheEndLater) {
    push(a);
    push(b);
    told();
    EXPECT_NE(mHandler->setBody(c.get(), nullptr, nullptr, nullptr, 0.1f, Transition::T_CROSS_FADE), nullptr);
    EXPECT_EQ(told(), (Lines{"b pop-begin 0", "c push-begin -1"}));
    EXPECT_EQ(shown(), "b c");
    frame();
    after(50);
    EXPECT_EQ(b->getOpacity(), 0.5f);
    EXPECT_EQ(c->getOpacity(), 0.5f);
    after(50);
    EXPECT_EQ(told(), (Lines{"b pop-end -1", "c push-end 0"}));
    EXPECT_EQ(shown(), "c");
}

TEST_F(NavigationHandlerStoreTest, TheReplacementGoesTheWayThatTheReplacedBodyCame) {
    push(a);
    const core::SmartPtr<AnimationContext> animation = bring(b);
    set(c);
    EXPECT_EQ(mHandler->getBodyAnimation(c.get()), animation.get());
    EXPECT_TRUE(moves<AnimatedPosition>(animation, a));
    EXPECT_TRUE(moves<AnimatedPosition>(animation, c));
    EXPECT_FALSE(moves<AnimatedPosition>(animation, b));
    EXPECT_EQ(b->getRefCount(), 1U);
    mHandler->popBody(nullptr);
    frame();
    EXPECT_EQ(place(*a) + " " + place(*c), "-800,0 0,0");
    after(50);
    EXPECT_EQ(place(*a) + " " + place(*c), "-400,0 400,0");
    after(50);
    EXPECT_EQ(place(*a), "0,0");
    EXPECT_EQ(shown(), "a");
}

TEST_F(NavigationHandlerStoreTest, AReplacementWithItsOwnTransitionStillGoesTheOldWay) {
    push(a);
    const core::SmartPtr<AnimationContext> animation = bring(b);
    const core::SmartPtr<AnimationContext> fade(
        mHandler->setBody(c.get(), nullptr, nullptr, nullptr, 0.1f, Transition::T_CROSS_FADE));
    EXPECT_EQ(mHandler->getBodyAnimation(c.get()), fade.get());
    settle();
    EXPECT_EQ(mHandler->getBodyAnimation(c.get()), animation.get());
    // And once more
    set(d);
    EXPECT_EQ(mHandler->getBodyAnimation(d.get()), animation.get());
    EXPECT_TRUE(moves<AnimatedPosition>(animation, d));
    EXPECT_FALSE(moves<AnimatedPosition>(animation, c));
}

TEST_F(NavigationHandlerStoreTest, WithoutAnAnimationToRestoreTheReplacementKeepsItsOwn) {
    push(a);
    push(b);
    const core::SmartPtr<AnimationContext> fade(
        mHandler->setBody(c.get(), nullptr, nullptr, nullptr, 0.1f, Transition::T_CROSS_FADE));
    settle();
    EXPECT_EQ(mHandler->getBodyAnimation(c.get()), fade.get());
}

TEST_F(NavigationHandlerStoreTest, NothingIsRestoredIntoAnEmptyStack) {
    bring(a);
    mHandler->setBody(nullptr, nullptr, nullptr, nullptr, nullptr); // remembers how a came
    EXPECT_EQ(stack(), "");
    set(b); // and forgets it
    EXPECT_EQ(mHandler->getBodyAnimation(b.get()), nullptr);
}

TEST_F(NavigationHandlerStoreTest, SettingTheSameBodyKeepsItOnShow) {
    push(a);
    const core::SmartPtr<AnimationContext> animation = bring(b);
    told();
    mHandler->setBody(b.get(), "Anew", nullptr, nullptr, nullptr);
    EXPECT_EQ(told(), (Lines{"b pop-begin 0", "b push-begin -1", "b push-end 0"}));
    EXPECT_EQ(stack(), "a b");
    EXPECT_EQ(shown(), "b");
    EXPECT_EQ(title(), "Anew");
    EXPECT_EQ(mHandler->getBodyAnimation(b.get()), animation.get());
}

TEST_F(NavigationHandlerStoreTest, StoresAnimationsWithBodies) {
    push(a);
    push(b);
    const core::SmartPtr<AnimationContext> first(new AnimationContext);
    const core::SmartPtr<AnimationContext> second(new AnimationContext);
    mHandler->setBodyAnimation(a.get(), first.get());
    mHandler->setBodyAnimation(nullptr, second.get());
    EXPECT_EQ(mHandler->getBodyAnimation(a.get()), first.get());
    EXPECT_EQ(mHandler->getBodyAnimation(b.get()), second.get());
    EXPECT_EQ(mHandler->getBodyAnimation(nullptr), second.get());
    EXPECT_EQ(mHandler->getBodyAnimation(c.get()), nullptr);
    mHandler->popBody(nullptr);
    EXPECT_TRUE(second->isResverse());
    EXPECT_TRUE(mHandler->isAnimating());
}

TEST_F(NavigationHandlerStoreTest, AStrangersAnimationIsNotStored) {
    const core::SmartPtr<AnimationContext> animation(new AnimationContext);
    mHandler->setBodyAnimation(nullptr, animation.get());
    mHandler->setBodyAnimation(a.get(), animation.get());
    push(b);
    mHandler->setBodyAnimation(a.get(), animation.get());
    EXPECT_EQ(animation->getRefCount(), 1U);
    EXPECT_EQ(mHandler->getBodyAnimation(b.get()), nullptr);
}

TEST_F(NavigationHandlerStoreTest, WithoutAStoredAnimationAPopIsAtOnce) {
    push(a);
    bring(b);
    mHandler->setBodyAnimation(b.get(), nullptr);
    mHandler->popBody(nullptr);
    EXPECT_FALSE(mHandler->isAnimating());
    EXPECT_EQ(shown(), "a");
}

// --- Removing from below

TEST_F(NavigationHandlerStoreTest, TheBodyAboveAHoleComesBackToTheOneBelow) {
    push(a);
    const core::SmartPtr<AnimationContext> toB = bring(b);
    const core::SmartPtr<AnimationContext> toC = bring(c);
    mHandler->removeBodyAt(1, true);
    EXPECT_TRUE(moves<AnimatedPosition>(toC, a));
    EXPECT_TRUE(moves<AnimatedPosition>(toC, c));
    EXPECT_FALSE(moves<AnimatedPosition>(toC, b));
    EXPECT_EQ(toC->getAnimations().size(), 2U); // there was one for that already
    mHandler->popBody(nullptr);
    frame();
    after(75);
    EXPECT_EQ(place(*a) + " " + place(*c), "-200,0 600,0");
    after(25);
    EXPECT_EQ(shown(), "a");
    EXPECT_EQ(place(*a), "0,0");
}

TEST_F(NavigationHandlerStoreTest, TakesOverWhatWouldHaveBroughtTheBodyBelowBack) {
    push(a);
    const core::SmartPtr<AnimationContext> toB = bring(b, Transition::T_CROSS_FADE);
    const core::SmartPtr<AnimationContext> toC = bring(c);
    mHandler->removeBodyAt(1, false);
    EXPECT_EQ(toC->getAnimations().size(), 3U);
    EXPECT_TRUE(moves<AnimatedPosition>(toC, a));
    EXPECT_TRUE(moves<AnimatedOpacity>(toC, a));
    EXPECT_FALSE(moves<AnimatedOpacity>(toC, b));
    EXPECT_EQ(a->getOpacity(), 0);
    mHandler->popBody(nullptr);
    settle();
    EXPECT_EQ(a->getOpacity(), 1);
    EXPECT_EQ(place(*a), "0,0");
}

TEST_F(NavigationHandlerStoreTest, WithoutAnAnimationAboveNothingIsTakenOver) {
    push(a);
    bring(b);
    push(c);
    mHandler->removeBodyAt(1, true);
    EXPECT_EQ(mHandler->getBodyAnimation(c.get()), nullptr);
    mHandler->popBody(nullptr);
    EXPECT_EQ(shown(), "a");
}

TEST_F(NavigationHandlerStoreTest, AnAnimationMayBeStoredTwice) {
    push(a);
    const core::SmartPtr<AnimationContext> both = bring(b);
    push(c);
    mHandler->setBodyAnimation(c.get(), both.get());
    mHandler->removeBodyAt(1, true);
    // Both halves lead to a now
    EXPECT_EQ(both->getAnimations().size(), 2U);
    EXPECT_FALSE(moves<AnimatedPosition>(both, b));
    EXPECT_EQ(b->getRefCount(), 1U);
}

TEST_F(NavigationHandlerStoreTest, TheBottomLeavesNoTrace) {
    push(a);
    const core::SmartPtr<AnimationContext> toB = bring(b);
    mHandler->removeBodyAt(1, true);
    EXPECT_TRUE(moves<AnimatedPosition>(toB, a)); // there is none to lead to instead
    mHandler->popBody(nullptr);
    settle();
    EXPECT_EQ(shown(), "");
    EXPECT_FALSE(mHandler->isAnimating());
}
