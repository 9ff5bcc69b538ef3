#include "nui/ui/AnimationContext.h"

#include "nui/ui/ManagerTest.h"
#include "nui/ui/animation/AnimatedOpacity.h"
#include "nui/ui/animation/AnimatedPosition.h"
#include "nui/ui/animation/AnimatedRotation.h"
#include "nui/ui/animation/AnimatedScale.h"
#include "nui/ui/animation/AnimatedSize.h"

#include <random>

using namespace nurel::ui;
using nurel::math::Vector2;

namespace {

/// Notes the clock that it is given.
class Clock : public Animation {
public:
    explicit Clock(Component *target = nullptr) : Animation(target) {}
    void update(const TimeInfo &time) override { mTimes.push_back(time); }

    float progress() const { return mTimes.back().progress; }

    std::vector<TimeInfo> mTimes;
};

class AnimationContextTest : public test::ManagerTest {
public:
    AnimationContextTest() : mContext(new AnimationContext), mClock(new Clock) {
        mContext->addAnimation(mClock.get());
        mContext->subscribeCallback([this](AnimationContext *context, const AnimationEvent &event) {
            EXPECT_EQ(context, mContext.get());
            static const char *const NAMES[] = {"started ", "step ", "finished "};
            mTold += NAMES[event.getType()];
            return false;
        });
    }

    void commit() { manager().commitAnimation(mContext.get()); }

    /// Moves the clock by whole milliseconds and runs a frame.
    void after(int milliseconds) {
        if (milliseconds > 0)
            advance(milliseconds / 1000.0);
        manager().update();
    }

    std::string told() { return std::exchange(mTold, {}); }

    core::SmartPtr<AnimationContext> mContext;
    core::SmartPtr<Clock> mClock;
    std::string mTold;
};

} // namespace

TEST_F(AnimationContextTest, HasItsDefaults) {
    const core::SmartPtr<AnimationContext> context(new AnimationContext);
    EXPECT_EQ(context->getDuration(), 0.5f);
    EXPECT_EQ(context->getDelay(), 0);
    EXPECT_FALSE(context->isResverse());
    EXPECT_EQ(context->getStatus(), AnimationContext::CREATED);
    EXPECT_TRUE(context->getAnimations().empty());
    const Animation::TimeInfo &time = context->getTimeInfo();
    EXPECT_EQ(time.start, 0);
    EXPECT_EQ(time.duration, 0.5f);
    EXPECT_EQ(time.time, 0);
    EXPECT_EQ(time.elapsed, 0);
    EXPECT_EQ(time.delta, 0);
    EXPECT_EQ(time.progress, 0);
}

TEST_F(AnimationContextTest, NumbersItsStatesAndEvents) {
    EXPECT_EQ(AnimationContext::CREATED, 0);
    EXPECT_EQ(AnimationContext::COMMITTED, 1);
    EXPECT_EQ(AnimationContext::RUNNING, 2);
    EXPECT_EQ(AnimationContext::FINISHED, 3);
    EXPECT_EQ(AnimationEvent::STARTED, 0);
    EXPECT_EQ(AnimationEvent::STEP, 1);
    EXPECT_EQ(AnimationEvent::FINISHED, 2);
}

TEST_F(AnimationContextTest, FindsTheAnimationOfAComponentByItsTypeOrABaseOfIt) {
    const core::SmartPtr<Panel> a(new Panel("a"));
    const core::SmartPtr<Panel> b(new Panel("b"));
    auto *opacity = new animation::AnimatedOpacity(a.get());
    mContext->addAnimation(opacity);
    EXPECT_EQ(mContext->getAnimation(a.get(), animation::AnimatedOpacity::TYPE), opacity);
    EXPECT_EQ(mContext->getAnimation(a.get(), Animation::TYPE), opacity);
    EXPECT_EQ(mContext->getAnimation(a.get(), animation::AnimatedScale::TYPE), nullptr);
    EXPECT_EQ(mContext->getAnimation(b.get(), Animation::TYPE), nullptr);
}

TEST_F(AnimationContextTest, IgnoresANullAnimationAndOneThatItHas) {
    mContext->addAnimation(nullptr);
    mContext->addAnimation(mClock.get());
    EXPECT_EQ(mContext->getAnimations().size(), 1u);
}

TEST_F(AnimationContextTest, RunsAllAnimationsOfOneClassForOneComponent) {
    const core::SmartPtr<Panel> panel(new Panel("p"));
    const core::SmartPtr<Clock> first(new Clock(panel.get()));
    const core::SmartPtr<Clock> second(new Clock(panel.get()));
    mContext->addAnimation(first.get());
    mContext->addAnimation(second.get());
    commit();
    after(0);
    EXPECT_EQ(first->mTimes.size(), 1u);
    EXPECT_EQ(second->mTimes.size(), 1u);
}

TEST_F(AnimationContextTest, RecordsOneAnimationOfAClassForAComponent) {
    const core::SmartPtr<Panel> panel(new Panel("p"));
    auto &position = mContext->record<animation::AnimatedPosition>(panel.get());
    EXPECT_EQ(&mContext->record<animation::AnimatedPosition>(panel.get()), &position);
    mContext->record<animation::AnimatedSize>(panel.get());
    EXPECT_EQ(mContext->getAnimations().size(), 3u);
}

TEST_F(AnimationContextTest, RecordsByTheExactClass) {
    class Special : public animation::AnimatedPosition {
    public:
        using AnimatedPosition::AnimatedPosition;
        const core::Type &getType() const override {
            static constinit const core::Type SPECIAL("Special", &AnimatedPosition::TYPE);
            return SPECIAL;
        }
    };
    const core::SmartPtr<Panel> panel(new Panel("p"));
    auto *special = new Special(panel.get());
    mContext->addAnimation(special);
    EXPECT_NE(&mContext->record<animation::AnimatedPosition>(panel.get()), special);
}

TEST_F(AnimationContextTest, SendsStartedThenStepsThenFinished) {
    mContext->setDuration(0.5f);
    commit();
    EXPECT_EQ(mContext->getStatus(), AnimationContext::COMMITTED);
    EXPECT_EQ(told(), "");
    after(0);
    EXPECT_EQ(told(), "started step ");
    EXPECT_EQ(mContext->getStatus(), AnimationContext::RUNNING);
    EXPECT_EQ(mClock->progress(), 0);
    after(125);
    EXPECT_EQ(told(), "step ");
    EXPECT_EQ(mClock->progress(), 0.25f);
    EXPECT_EQ(mClock->mTimes.back().elapsed, 0.125f);
    EXPECT_EQ(mClock->mTimes.back().delta, 0.125f);
    EXPECT_EQ(mClock->mTimes.back().duration, 0.5f);
    after(374);
    EXPECT_EQ(told(), "step ");
    EXPECT_EQ(mClock->mTimes.back().delta, 0.374f);
    after(1);
    EXPECT_EQ(told(), "finished ");
    EXPECT_EQ(mClock->progress(), 1);
    EXPECT_EQ(mContext->getStatus(), AnimationContext::FINISHED);
    after(100);
    EXPECT_EQ(told(), "");
    EXPECT_EQ(mClock->mTimes.size(), 4u);
}

TEST_F(AnimationContextTest, AppliesTheValuesBeforeItTells) {
    const core::SmartPtr<Panel> panel(new Panel("p"));
    mContext->record<animation::AnimatedPosition>(panel.get()).setPosition({100, 0}, {0, 0});
    std::vector<float> seen;
    mContext->subscribeCallback([&](AnimationContext *, const AnimationEvent &) {
        seen.push_back(panel->getComponentPosition().absolute.x);
        return false;
    });
    commit();
    after(0);
    after(250);
    after(250);
    EXPECT_EQ(seen, (std::vector<float>{0, 0, 50, 100})); // started, step, step, finished
}

TEST_F(AnimationContextTest, JumpsToTheEndWithADurationOf0) {
    for (const float duration : {0.0f, -1.0f}) {
        mContext->setDuration(duration);
        commit();
        after(16);
        EXPECT_EQ(told(), "started finished ") << duration;
        EXPECT_EQ(mClock->progress(), 1);
    }
}

TEST_F(AnimationContextTest, DoesNotTakeTheShortestDurationFor0) {
    mContext->setDuration(1e-9f);
    commit();
    after(16);
    EXPECT_EQ(told(), "started step ");
    after(1);
    EXPECT_EQ(told(), "finished ");
}

TEST_F(AnimationContextTest, SendsStartedBeforeItsDelayAndMovesAfterIt) {
    mContext->setDelay(0.2f);
    mContext->setDuration(0.4f);
    after(300);
    commit();
    after(0);
    EXPECT_EQ(told(), "started ");
    EXPECT_EQ(mContext->getStatus(), AnimationContext::RUNNING);
    EXPECT_EQ(mContext->getTimeInfo().start, 0.5f);
    EXPECT_EQ(mContext->getTimeInfo().elapsed, -0.2f);
    after(199);
    EXPECT_EQ(told(), "");
    EXPECT_TRUE(mClock->mTimes.empty());
    after(1);
    EXPECT_EQ(told(), "step ");
    EXPECT_EQ(mClock->progress(), 0);
    after(100);
    EXPECT_EQ(mClock->progress(), 0.25f);
    after(300);
    EXPECT_EQ(told(), "step finished ");
}

TEST_F(AnimationContextTest, CountsTheFirstStepsDeltaFromTheEndOfTheDelay) {
    mContext->setDelay(0.2f);
    commit();
    after(0);
    after(250);
    EXPECT_EQ(mClock->mTimes.back().delta, 0.05f);
    EXPECT_EQ(mClock->mTimes.back().elapsed, 0.05f);
    EXPECT_EQ(mClock->progress(), 0.1f);
}

TEST_F(AnimationContextTest, ReadsTheDelayAtTheStart) {
    mContext->setDelay(0.2f);
    commit();
    after(0);
    mContext->setDelay(10);
    after(200);
    EXPECT_EQ(told(), "started step ");
}

TEST_F(AnimationContextTest, RunsBackwardFromTheTargetToTheSource) {
    const core::SmartPtr<Panel> panel(new Panel("p"));
    mContext->record<animation::AnimatedPosition>(panel.get()).setPosition({100, 0}, {0, 0});
    mContext->setReverse(true);
    EXPECT_TRUE(mContext->isResverse());
    commit();
    after(0);
    EXPECT_EQ(mClock->progress(), 1);
    EXPECT_EQ(panel->getComponentPosition().absolute.x, 100);
    after(125);
    EXPECT_EQ(mClock->progress(), 0.75f);
    EXPECT_EQ(panel->getComponentPosition().absolute.x, 75);
    after(375);
    EXPECT_EQ(mClock->progress(), 0);
    EXPECT_EQ(panel->getComponentPosition().absolute.x, 0);
    EXPECT_EQ(told(), "started step step finished ");
}

TEST_F(AnimationContextTest, ShowsAndHidesAtTheStartOfAReversedRun) {
    const core::SmartPtr<Panel> panel(new Panel("p"));
    manager().beginAnimation();
    panel->setVisible(false);
    AnimationContext *context = manager().getCurrentAnimation();
    context->setReverse(true);
    manager().commitAnimation();
    manager().update();
    EXPECT_FALSE(panel->isSelfVisible());
    panel->setVisible(true);
    after(600);
    EXPECT_TRUE(panel->isSelfVisible()); // not again at the end
}

TEST_F(AnimationContextTest, FinishesInTimeWithoutAnimations) {
    const core::SmartPtr<AnimationContext> empty(new AnimationContext);
    std::string told;
    empty->subscribeCallback([&](AnimationContext *, const AnimationEvent &event) {
        told += std::to_string(event.getType());
        return false;
    });
    manager().commitAnimation(empty.get());
    after(0);
    after(499);
    EXPECT_EQ(told, "011");
    after(1);
    EXPECT_EQ(told, "0112");
}

TEST_F(AnimationContextTest, UnsubscribesACallbackThatReturnsTrue) {
    int calls = 0;
    mContext->subscribeCallback([&](AnimationContext *, const AnimationEvent &) { return ++calls == 2; });
    commit();
    for (int i = 0; i < 6; ++i)
        after(100);
    EXPECT_EQ(calls, 2);
}

TEST_F(AnimationContextTest, RunsOnceMoreFromTheSameSources) {
    const core::SmartPtr<Panel> panel(new Panel("p"));
    mContext->record<animation::AnimatedPosition>(panel.get()).setPosition({100, 0}, {0, 0});
    commit();
    after(0);
    after(500);
    EXPECT_EQ(told(), "started step finished ");
    panel->setPosition({40, 0}, {0, 0});
    commit();
    EXPECT_EQ(mContext->getStatus(), AnimationContext::COMMITTED);
    after(1000);
    EXPECT_EQ(panel->getComponentPosition().absolute.x, 0);
    after(250);
    EXPECT_EQ(panel->getComponentPosition().absolute.x, 50);
}

TEST_F(AnimationContextTest, CopiesClockAnimationsAndCallbacks) {
    mContext->setDuration(2);
    mContext->setDelay(1);
    mContext->setReverse(true);
    commit();
    const core::SmartPtr<AnimationContext> copy(new AnimationContext(*mContext));
    EXPECT_EQ(copy->getDuration(), 2);
    EXPECT_EQ(copy->getDelay(), 1);
    EXPECT_TRUE(copy->isResverse());
    EXPECT_EQ(copy->getStatus(), AnimationContext::COMMITTED);
    EXPECT_EQ(copy->getAnimations(), mContext->getAnimations());
    EXPECT_EQ(copy->getRefCount(), 1u);
    AnimationContext assigned;
    assigned = *mContext;
    EXPECT_EQ(assigned.getDuration(), 2);
    EXPECT_EQ(assigned.getAnimations(), mContext->getAnimations());
}

TEST_F(AnimationContextTest, IsExactAfterThirtyDays) {
    // A float of so many seconds has steps of a quarter of a second.
    advance(30.0 * 24 * 60 * 60);
    mContext->setDelay(0.1f);
    mContext->setDuration(0.3f);
    commit();
    after(0);
    EXPECT_EQ(told(), "started ");
    EXPECT_EQ(mContext->getTimeInfo().elapsed, -0.1f);
    after(99);
    EXPECT_EQ(told(), "");
    after(1);
    EXPECT_EQ(told(), "step ");
    EXPECT_EQ(mClock->progress(), 0);
    after(75);
    EXPECT_EQ(mClock->progress(), 0.25f);
    EXPECT_EQ(mClock->mTimes.back().delta, 0.075f);
    EXPECT_EQ(mClock->mTimes.back().elapsed, 0.075f);
    after(224);
    EXPECT_EQ(told(), "step step ");
    after(1);
    EXPECT_EQ(told(), "finished ");
    EXPECT_EQ(mClock->progress(), 1);

    mContext->setDelay(0);
    mContext->setReverse(true);
    commit();
    after(0);
    EXPECT_EQ(mClock->progress(), 1);
    after(100);
    EXPECT_FLOAT_EQ(mClock->progress(), 2 / 3.0f);
    after(200);
    EXPECT_EQ(mClock->progress(), 0);
    EXPECT_EQ(told(), "started step step finished ");

    mContext->setDuration(0);
    commit();
    after(0);
    EXPECT_EQ(told(), "started finished ");
}

TEST_F(AnimationContextTest, TakesLengthsThatAreNoLengths) {
    const float infinite = std::numeric_limits<float>::infinity();
    mContext->setDuration(std::numeric_limits<float>::quiet_NaN());
    commit();
    after(0);
    EXPECT_EQ(told(), "started finished ");
    mContext->setDuration(infinite);
    commit();
    after(100);
    EXPECT_EQ(told(), "started step ");
    EXPECT_EQ(mClock->progress(), 0);
    manager().cancelAnimation(mContext.get());
    mContext->setDelay(infinite);
    commit();
    after(100);
    after(100000);
    EXPECT_EQ(told(), "started ");
    manager().cancelAnimation(mContext.get());
    mContext->setDelay(-infinite);
    mContext->setDuration(1);
    commit();
    after(0);
    EXPECT_EQ(told(), "started finished ");
}

TEST_F(AnimationContextTest, EndsAReversedRunAtTheSourceWhateverIsAnimated) {
    const core::SmartPtr<Panel> panel(new Panel("p"));
    panel->setSize({30, 40}, {0.25f, 0.5f});
    panel->setScale(Vector2(2, 3));
    panel->setOpacity(0.75f, false);
    const nurel::math::Matrix3 source(0.25f, nurel::math::Vector3(0, 0, 1));
    const nurel::math::Matrix3 target(1, nurel::math::Vector3(0, 0, 1));
    panel->setRotation(source);
    mContext->record<animation::AnimatedSize>(panel.get()).setSize({130, 140}, {1, 1});
    mContext->record<animation::AnimatedScale>(panel.get()).setScale({6, 7});
    mContext->record<animation::AnimatedRotation>(panel.get()).setRotation(target);
    mContext->record<animation::AnimatedOpacity>(panel.get()).setOpacity(0.25f, false);
    mContext->setReverse(true);
    commit();
    const auto differs = [&](const nurel::math::Matrix3 &rotation) {
        const nurel::math::Vector3 axis(1, 0, 0);
        return (panel->getRotation() * axis - rotation * axis).length();
    };
    after(0);
    EXPECT_EQ(panel->getComponentSize().absolute, Vector2(130, 140));
    EXPECT_EQ(panel->getComponentSize().relative, Vector2(1, 1));
    EXPECT_EQ(panel->getScale(), Vector2(6, 7));
    EXPECT_LT(differs(target), 1e-5f);
    EXPECT_EQ(panel->getOpacity(), 0.25f);
    after(500);
    EXPECT_EQ(panel->getComponentSize().absolute, Vector2(30, 40));
    EXPECT_EQ(panel->getComponentSize().relative, Vector2(0.25f, 0.5f));
    EXPECT_EQ(panel->getScale(), Vector2(2, 3));
    EXPECT_LT(differs(source), 1e-5f);
    EXPECT_EQ(panel->getOpacity(), 0.75f);
    EXPECT_EQ(mContext->getStatus(), AnimationContext::FINISHED);
}

TEST_F(AnimationContextTest, RecordsIntoTheFirstOfTwoOfOneClass) {
    const core::SmartPtr<Panel> panel(new Panel("p"));
    AnimationContext *open = manager().beginAnimation();
    open->addAnimation(new animation::AnimatedOpacity(panel.get()));
    open->addAnimation(new animation::AnimatedOpacity(panel.get()));
    ASSERT_EQ(open->getAnimations().size(), 2u);
    const auto opacityOf = [](const core::SmartPtr<Animation> &animation) {
        return static_cast<const animation::AnimatedOpacity &>(*animation).getOpacity();
    };
    const float untouched = opacityOf(*open->getAnimations().rbegin());
    panel->setOpacity(0.125f, false);
    EXPECT_EQ(open->getAnimations().size(), 2u);
    EXPECT_EQ(opacityOf(*open->getAnimations().begin()), 0.125f);
    EXPECT_EQ(opacityOf(*open->getAnimations().rbegin()), untouched);
    EXPECT_EQ(panel->getOpacity(), 1);
    manager().cancelAnimation();
}

TEST_F(AnimationContextTest, FindsAmongManyWhatOneByOneFinds) {
    using animation::AnimatedOpacity;
    using animation::AnimatedScale;
    std::mt19937 random(7);
    std::vector<core::SmartPtr<Panel>> panels;
    for (int i = 0; i < 20; ++i)
        panels.emplace_back(new Panel("p"));
    const auto any = [&] { return panels[random() % panels.size()].get(); };
    core::SmartPtr<AnimationContext> context(new AnimationContext);
    const auto findOneByOne = [&](const Component *target, const core::Type &type) -> Animation * {
        for (const core::SmartPtr<Animation> &animation : context->getAnimations()) {
            if (animation->getTarget() == target && &animation->getType() == &type)
                return animation.get();
        }
        return nullptr;
    };
    int found = 0;
    for (int i = 0; i < 2000; ++i) {
        const unsigned int action = random() % 16;
        if (action == 0) {
            context->addAnimation(new AnimatedOpacity(any()));
        } else if (action == 1 && !context->getAnimations().empty()) {
            (*context->getAnimations().begin())->setTarget(any());
        } else if (action == 2 && i % 100 == 0) {
            manager().commitAnimation(context.get());
            manager().cancelAnimation(context.get());
        } else if (action == 3 && i % 50 == 0) {
            context = new AnimationContext(*context);
        } else if (action == 4 && i % 20 == 0) {
            context = new AnimationContext;
        } else {
            Panel *panel = any();
            const bool isOpacity = action % 2 == 0;
            Animation *expected = findOneByOne(panel, isOpacity ? AnimatedOpacity::TYPE : AnimatedScale::TYPE);
            const std::size_t count = context->getAnimations().size();
            const Animation *recorded = isOpacity ? static_cast<Animation *>(&context->record<AnimatedOpacity>(panel))
                                                  : &context->record<AnimatedScale>(panel);
            if (expected) {
                ASSERT_EQ(recorded, expected) << i;
                ++found;
            }
            ASSERT_EQ(context->getAnimations().size(), expected ? count : count + 1) << i;
        }
    }
    EXPECT_GT(found, 500);
}
