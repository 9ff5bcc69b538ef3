// How the manager drives animation contexts, and how setters record into the open one.
#include "nui/ui/UIManager.h"

#include "nui/ui/ManagerTest.h"

#include "foundation/core/Exception.h"
#include "nui/ui/AnimationContext.h"
#include "nui/ui/animation/AnimatedOpacity.h"
#include "nui/ui/animation/AnimatedPosition.h"
#include "nui/ui/animation/AnimatedRotation.h"
#include "nui/ui/animation/AnimatedScale.h"
#include "nui/ui/animation/AnimatedSize.h"
#include "nui/ui/animation/AnimatedVisibility.h"

using namespace nurel::ui;
using namespace nurel::ui::animation;
using nurel::math::Matrix3;
using nurel::math::Matrix4;
using nurel::math::Vector2;
using nurel::math::Vector3;

namespace {

class UIManagerAnimationTest : public test::ManagerTest {
public:
    UIManagerAnimationTest() : mPanel(new Panel("p")) {}

    using Context = core::SmartPtr<AnimationContext>;

    /// A context of half a second that writes "<name><event>" for each event and then acts.
    Context make(const char *name, std::function<void(AnimationContext *, int)> act = nullptr) {
        Context context(manager().newAnimation());
        context->subscribeCallback([this, name, act](AnimationContext *told, const AnimationEvent &event) {
            mTold += name + std::to_string(event.getType()) + " ";
            if (act)
                act(told, event.getType());
            return false;
        });
        return context;
    }

    std::string told() { return std::exchange(mTold, {}); }

    void after(double seconds) {
        if (seconds > 0)
            advance(seconds);
        manager().update();
    }

    core::SmartPtr<Panel> mPanel;
    std::string mTold;
};

} // namespace

TEST_F(UIManagerAnimationTest, NewAnimationBelongsToTheCallerAndIsNotOpened) {
    const Context context(manager().newAnimation());
    EXPECT_EQ(context->getRefCount(), 1u);
    EXPECT_EQ(manager().getCurrentAnimation(), nullptr);
}

TEST_F(UIManagerAnimationTest, BeginAnimationOpensOneAndDropsTheOneBefore) {
    const Context first(manager().beginAnimation());
    EXPECT_EQ(manager().getCurrentAnimation(), first.get());
    mPanel->setPosition(Vector2(100, 0), Vector2(0, 0));
    AnimationContext *second = manager().beginAnimation();
    EXPECT_EQ(manager().getCurrentAnimation(), second);
    EXPECT_EQ(first->getRefCount(), 1u);
    manager().commitAnimation();
    after(0);
    after(1);
    EXPECT_EQ(first->getStatus(), AnimationContext::CREATED);
    EXPECT_EQ(mPanel->getComponentPosition().absolute, Vector2(0, 0));
}

TEST_F(UIManagerAnimationTest, CommitAnimationClosesTheOpenOneAlone) {
    const Context other(manager().newAnimation());
    AnimationContext *open = manager().beginAnimation();
    manager().commitAnimation(other.get());
    EXPECT_EQ(manager().getCurrentAnimation(), open);
    manager().commitAnimation();
    EXPECT_EQ(manager().getCurrentAnimation(), nullptr);
    EXPECT_EQ(open->getStatus(), AnimationContext::COMMITTED);
}

TEST_F(UIManagerAnimationTest, IgnoresNullContexts) {
    manager().commitAnimation();
    manager().cancelAnimation();
    manager().commitAnimation(nullptr);
    manager().cancelAnimation(nullptr);
    after(0);
    EXPECT_EQ(manager().getCurrentAnimation(), nullptr);
}

TEST_F(UIManagerAnimationTest, LeavesTheUncommittedContextToItsOwner) {
    AnimationContext *mine = manager().newAnimation();
    manager().cancelAnimation(mine);
    EXPECT_EQ(mine->getRefCount(), 0u);
    const Context kept(mine);
}

TEST_F(UIManagerAnimationTest, HoldsARunningContextAndReleasesAFinishedOne) {
    const Context context(make("a"));
    manager().commitAnimation(context.get());
    EXPECT_EQ(context->getRefCount(), 2u);
    after(0);
    after(0.5);
    EXPECT_EQ(context->getStatus(), AnimationContext::FINISHED);
    EXPECT_EQ(context->getRefCount(), 1u);
}

TEST_F(UIManagerAnimationTest, RunsContextsInTheOrderOfTheirCommits) {
    const Context a(make("a")), b(make("b")), c(make("c"));
    b->setDuration(0);
    for (const Context &context : {a, b, c})
        manager().commitAnimation(context.get());
    after(0);
    EXPECT_EQ(told(), "a0 a1 b0 b2 c0 c1 ");
    after(0.1);
    EXPECT_EQ(told(), "a1 c1 ");
}

TEST_F(UIManagerAnimationTest, GivesAllContextsOneTime) {
    const Context a(make("a", [this](AnimationContext *, int) { advance(0.25); }));
    const Context b(make("b"));
    manager().commitAnimation(a.get());
    manager().commitAnimation(b.get());
    after(0);
    EXPECT_EQ(b->getTimeInfo().time, a->getTimeInfo().time);
}

TEST_F(UIManagerAnimationTest, CancelsWithoutAnEventWhereItIs) {
    AnimationContext *open = manager().beginAnimation();
    mPanel->setPosition(Vector2(100, 0), Vector2(0, 0));
    const Context context(open);
    int events = 0;
    context->subscribeCallback([&](AnimationContext *, const AnimationEvent &) {
        ++events;
        return false;
    });
    manager().commitAnimation();
    after(0);
    after(0.25);
    events = 0;
    manager().cancelAnimation(context.get());
    after(1);
    EXPECT_EQ(events, 0);
    EXPECT_EQ(context->getStatus(), AnimationContext::RUNNING);
    EXPECT_EQ(mPanel->getComponentPosition().absolute.x, 50);
    EXPECT_EQ(context->getRefCount(), 1u);
}

TEST_F(UIManagerAnimationTest, CancelAnimationClosesTheOpenOneAndLosesWhatItRecorded) {
    manager().beginAnimation();
    mPanel->setPosition(Vector2(100, 0), Vector2(0, 0));
    manager().cancelAnimation();
    EXPECT_EQ(manager().getCurrentAnimation(), nullptr);
    after(1);
    EXPECT_EQ(mPanel->getComponentPosition().absolute.x, 0);
    mPanel->setPosition(Vector2(5, 0), Vector2(0, 0));
    EXPECT_EQ(mPanel->getComponentPosition().absolute.x, 5);
}

TEST_F(UIManagerAnimationTest, StartsAContextThatACallbackCommitsOnTheNextFrame) {
    const Context second(make("b"));
    const Context first(make("a", [&](AnimationContext *, int event) {
        if (event != AnimationEvent::FINISHED)
            return;
        manager().commitAnimation(second.get());
        EXPECT_EQ(second->getStatus(), AnimationContext::CREATED);
    }));
    first->setDuration(0);
    manager().commitAnimation(first.get());
    after(0);
    EXPECT_EQ(told(), "a0 a2 ");
    EXPECT_EQ(second->getStatus(), AnimationContext::COMMITTED);
    after(0);
    EXPECT_EQ(told(), "b0 b1 ");
}

TEST_F(UIManagerAnimationTest, ErasesAContextThatItsOwnCallbackCancelsAtTheEndOfThePass) {
    const Context second(make("b"));
    const Context first(make("a", [&](AnimationContext *context, int) { manager().cancelAnimation(context); }));
    manager().commitAnimation(first.get());
    manager().commitAnimation(second.get());
    after(0);
    EXPECT_EQ(told(), "a0 a1 b0 b1 "); // the pass goes on
    EXPECT_EQ(first->getRefCount(), 1u);
    after(0.1);
    EXPECT_EQ(told(), "b1 ");
}

TEST_F(UIManagerAnimationTest, CommitsBeforeItCancelsAtTheEndOfThePass) {
    const Context second(make("b"));
    const Context first(make("a", [&](AnimationContext *, int event) {
        if (event == AnimationEvent::STARTED) {
            manager().cancelAnimation(second.get());
            manager().commitAnimation(second.get());
        }
    }));
    manager().commitAnimation(first.get());
    after(0);
    after(0.1);
    EXPECT_EQ(told(), "a0 a1 a1 ");
    EXPECT_EQ(second->getStatus(), AnimationContext::COMMITTED);
    EXPECT_EQ(second->getRefCount(), 1u);
}

TEST_F(UIManagerAnimationTest, MayCommitAContextAgainInItsOwnCallback) {
    const Context loop(make("a", [&](AnimationContext *context, int event) {
        if (event == AnimationEvent::FINISHED)
            manager().commitAnimation(context);
    }));
    manager().commitAnimation(loop.get());
    after(0);
    after(0.5);
    EXPECT_EQ(told(), "a0 a1 a2 ");
    EXPECT_EQ(loop->getStatus(), AnimationContext::COMMITTED);
    after(0);
    EXPECT_EQ(told(), "a0 a1 ");
}

TEST_F(UIManagerAnimationTest, RunsAContextTwiceThatWasCommittedTwice) {
    const Context twice(make("a"));
    manager().commitAnimation(twice.get());
    manager().commitAnimation(twice.get());
    EXPECT_EQ(twice->getRefCount(), 3u);
    after(0);
    EXPECT_EQ(told(), "a0 a1 a1 ");
    after(0.5);
    EXPECT_EQ(told(), "a2 a2 ");
    EXPECT_EQ(twice->getRefCount(), 1u);
}

TEST_F(UIManagerAnimationTest, DoesNotWalkTheContextsInsideTheWalk) {
    const Context nested(make("a", [&](AnimationContext *, int) { manager().update(); }));
    const Context resized(make("b", [&](AnimationContext *, int) { mEngine->resize(640, 480); }));
    const Context refreshed(make("c", [&](AnimationContext *, int) { manager().refresh(); }));
    for (const Context &context : {nested, resized, refreshed})
        manager().commitAnimation(context.get());
    after(0);
    EXPECT_EQ(told(), "a0 a1 b0 b1 c0 c1 ");
    after(0.5);
    EXPECT_EQ(told(), "a2 b2 c2 ");
}

TEST_F(UIManagerAnimationTest, GoesOnAfterACallbackThrows) {
    const Context second(make("b"));
    const Context first(make("a", [&](AnimationContext *, int event) {
        if (event == AnimationEvent::STARTED) {
            manager().commitAnimation(second.get());
            throw core::IllegalStateException("no");
        }
    }));
    manager().commitAnimation(first.get());
    EXPECT_THROW(manager().update(), core::IllegalStateException);
    manager().cancelAnimation(first.get());
    EXPECT_EQ(first->getRefCount(), 1u); // at once: no walk is under way
    after(0);
    EXPECT_EQ(second->getStatus(), AnimationContext::COMMITTED);
    after(0);
    EXPECT_EQ(told(), "a0 b0 b1 ");
}

TEST_F(UIManagerAnimationTest, SurvivesContextsWhoseComponentsDieWithThem) {
    auto *panel = new Panel("mortal");
    AnimationContext *context = manager().beginAnimation();
    panel->setScale({2, 2});
    context->setDuration(0);
    manager().commitAnimation();
    panel->setTabStop(0);
    panel->setFocus();
    panel->FocusCallbacks::subscribeCallback([this](UIEventHandler *, const FocusEvent &) {
        manager().commitAnimation(make("late").get());
        return false;
    });
    ASSERT_EQ(panel->getRefCount(), 1u); // the animation has the only reference
    manager().update();
    EXPECT_EQ(manager().getFocus(), nullptr);
    EXPECT_EQ(told(), "");
    manager().update();
    EXPECT_EQ(told(), "late0 late1 ");
}

TEST_F(UIManagerAnimationTest, RecordsTheSettersOfEachKind) {
    AnimationContext *context = manager().beginAnimation();
    mPanel->setPosition(Vector2(1, 2), Vector2(3, 4));
    mPanel->setSize(Vector2(5, 6), Vector2(7, 8));
    mPanel->setRotation(Matrix3(1, Vector3::AXIS_Z));
    mPanel->setScale(Vector2(2, 2));
    mPanel->setOpacity(0.5f, false);
    mPanel->setVisible(false);
    EXPECT_EQ(context->getAnimations().size(), 6u);
    for (const core::Type *type : {&AnimatedPosition::TYPE, &AnimatedSize::TYPE, &AnimatedRotation::TYPE,
                                   &AnimatedScale::TYPE, &AnimatedOpacity::TYPE, &AnimatedVisibility::TYPE})
        EXPECT_NE(context->getAnimation(mPanel.get(), *type), nullptr) << type->getName();
    // Nothing has happened so far.
    EXPECT_EQ(mPanel->getComponentPosition().absolute, Vector2(0, 0));
    EXPECT_EQ(mPanel->getComponentSize().absolute, Component::DEFAULT_SIZE);
    EXPECT_EQ(mPanel->getScale(), Vector2(1, 1));
    EXPECT_EQ(mPanel->getOpacity(), 1);
    EXPECT_TRUE(mPanel->isVisible());
    manager().commitAnimation();
    after(0);
    after(0.5);
    EXPECT_EQ(mPanel->getComponentPosition().absolute, Vector2(1, 2));
    EXPECT_EQ(mPanel->getComponentPosition().relative, Vector2(3, 4));
    EXPECT_EQ(mPanel->getComponentSize().absolute, Vector2(5, 6));
    EXPECT_EQ(mPanel->getComponentSize().relative, Vector2(7, 8));
    EXPECT_EQ(mPanel->getScale(), Vector2(2, 2));
    EXPECT_EQ(mPanel->getOpacity(), 0.5f);
    EXPECT_FALSE(mPanel->isVisible());
}

TEST_F(UIManagerAnimationTest, OverwritesTheTargetOfASetterThatRunsTwice) {
    mPanel->setPosition(Vector2(10, 0), Vector2(0, 0));
    AnimationContext *context = manager().beginAnimation();
    mPanel->setPosition(Vector2(1, 2), Vector2(3, 4));
    mPanel->setPosition(Vector2(30, 0), Vector2(0, 0));
    EXPECT_EQ(context->getAnimations().size(), 1u);
    manager().commitAnimation();
    after(0);
    after(0.25);
    EXPECT_EQ(mPanel->getComponentPosition().absolute, Vector2(20, 0));
}

TEST_F(UIManagerAnimationTest, RecordsNothingForValuesInForceWhereTheSetterCompares) {
    AnimationContext *context = manager().beginAnimation();
    mPanel->setOpacity(1, false);
    mPanel->setVisible(true);
    mPanel->setSize(Component::DEFAULT_SIZE, Vector2(0, 0));
    EXPECT_TRUE(context->getAnimations().empty());
    mPanel->setPosition(Vector2(0, 0), Vector2(0, 0)); // does not compare first
    mPanel->setScale(Vector2(1, 1));
    EXPECT_EQ(context->getAnimations().size(), 2u);
}

TEST_F(UIManagerAnimationTest, RecordsPositionDataWithoutTheAnchor) {
    AnimationContext *context = manager().beginAnimation();
    mPanel->setPositionData({1, 1}, {0, 0}, {2, 2}, {0, 0}, Component::ANCHOR_TOP_LEFT);
    EXPECT_EQ(context->getAnimations().size(), 2u);
    manager().commitAnimation();
    after(0);
    after(0.5);
    EXPECT_EQ(mPanel->getAnchor(), 0x12u);
    EXPECT_EQ(mPanel->getComponentSize().absolute, Vector2(2, 2));
}

TEST_F(UIManagerAnimationTest, RecordsATransformInThreeAnimationsAndKeepsTheRelativePosition) {
    mPanel->setPosition(Vector2(0, 0), Vector2(0.5f, 0.5f));
    AnimationContext *context = manager().beginAnimation();
    mPanel->setTransform(Matrix4(Vector3(2, 3, 1), Matrix3::IDENTITY, Vector3(10, 20, 30)));
    EXPECT_EQ(context->getAnimations().size(), 3u);
    manager().commitAnimation();
    after(0);
    after(0.5);
    EXPECT_EQ(mPanel->getComponentPosition().absolute, Vector2(10, 20));
    EXPECT_EQ(mPanel->getComponentPosition().relative, Vector2(0.5f, 0.5f));
    EXPECT_EQ(mPanel->getScale(), Vector2(2, 3));
}

TEST_F(UIManagerAnimationTest, RecordsIntoATransactionThatIsLeftOpenAcrossAFrame) {
    const Context running(manager().beginAnimation());
    mPanel->setPosition(Vector2(100, 0), Vector2(0, 0));
    running->setDuration(1);
    manager().commitAnimation();
    after(0);
    AnimationContext *open = manager().beginAnimation();
    after(0.5);
    EXPECT_EQ(mPanel->getComponentPosition().absolute.x, 0);
    EXPECT_NE(open->getAnimation(mPanel.get(), AnimatedPosition::TYPE), nullptr);
}
