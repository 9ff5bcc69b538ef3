#include "nui/ui/Transition.h"

#include "nui/ui/AnimationContext.h"
#include "nui/ui/Scenario.h"
#include "nui/ui/animation/AnimatedOpacity.h"
#include "nui/ui/animation/AnimatedPosition.h"
#include "nui/ui/animation/AnimatedRotation.h"

using namespace nurel::ui;
using nurel::math::Vector2;

namespace {

/// Two panels of 400 x 300 in the middle of a frame of that size.
class TransitionTest : public test::ScenarioTest {
public:
    TransitionTest() {
        mWidget = addWidget();
        mFrame = addPanel(*mWidget, "frame", 0, 0, 400, 300);
        mFrom = addBody("from");
        mTo = addBody("to");
        frame();
    }

    core::SmartPtr<Panel> addBody(const char *name) {
        core::SmartPtr<Panel> body(new Panel(name));
        body->setSize(Vector2(0, 0), Vector2(1, 1));
        mFrame->addChild(body.get());
        return body;
    }

    core::SmartPtr<AnimationContext> build(Transition::Type type) {
        return Transition::build(type, mFrom.get(), mTo.get(), 1, nullptr);
    }

    /// Builds and commits it, which takes one second, and has the first frame behind it.
    void start(Transition::Type type) {
        manager().commitAnimation(build(type).get());
        frame();
    }

    /// The places of both at 0, 25, 50, 75 and 100 %.
    Lines slide(Transition::Type type) {
        start(type);
        Lines places{place(*mFrom) + " " + place(*mTo)};
        for (int quarter = 1; quarter <= 4; ++quarter) {
            after(250);
            places.push_back(place(*mFrom) + " " + place(*mTo));
        }
        return places;
    }

    core::SmartPtr<Widget> mWidget;
    core::SmartPtr<Panel> mFrame;
    core::SmartPtr<Panel> mFrom;
    core::SmartPtr<Panel> mTo;
};

struct Word {
    int value;
    const char *text;
};

class TransitionWordTest : public testing::TestWithParam<Word> {};

constexpr auto UNKNOWN = static_cast<Transition::Type>(8);

} // namespace

TEST_P(TransitionWordTest, IsThatOfItsValue) {
    EXPECT_STREQ(Transition::unparse(static_cast<Transition::Type>(GetParam().value)), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(Transition, TransitionWordTest,
                         testing::Values(Word{0, "T_NONE"}, Word{1, "T_SLIDEIN_HORIZONTAL_RIGHT_TO_LEFT"},
                                         Word{2, "T_SLIDEIN_HORIZONTAL_LEFT_TO_RIGHT"},
                                         Word{3, "T_SLIDEIN_VERTICAL_BOTTOM_TO_TOP"},
                                         Word{4, "T_SLIDEIN_VERTICAL_TOP_TO_BOTTOM"}, Word{5, "T_FLIP_HORIZONTAL"},
                                         Word{6, "T_FLIP_VERTICAL"}, Word{7, "T_CROSS_FADE"}, Word{8, "UNKNOWN"},
                                         Word{-1, "UNKNOWN"}),
                         [](const auto &word) {
                             const int value = word.param.value;
                             return value < 0 ? std::string("Below") : "Value" + std::to_string(value);
                         });

TEST_F(TransitionTest, NoneGivesBackTheContextAndDoesNothing) {
    EXPECT_EQ(Transition::build(Transition::T_NONE, mFrom.get(), mTo.get(), 1, nullptr), nullptr);
    const core::SmartPtr<AnimationContext> context(new AnimationContext);
    EXPECT_EQ(Transition::build(Transition::T_NONE, mFrom.get(), mTo.get(), 1, context.get()), context.get());
    EXPECT_TRUE(context->getAnimations().empty());
    EXPECT_EQ(context->getDuration(), 0.5f);
}

TEST_F(TransitionTest, MakesAContextOfThatDurationWhichBelongsToTheCaller) {
    AnimationContext *context = Transition::build(Transition::T_CROSS_FADE, mFrom.get(), mTo.get(), 0.75f, nullptr);
    ASSERT_NE(context, nullptr);
    EXPECT_EQ(context->getRefCount(), 0U);
    const core::SmartPtr<AnimationContext> kept(context);
    EXPECT_EQ(context->getDuration(), 0.75f);
    EXPECT_EQ(context->getStatus(), AnimationContext::CREATED);
    EXPECT_EQ(manager().getCurrentAnimation(), nullptr);
    EXPECT_EQ(context->getAnimations().size(), 2U);
}

TEST_F(TransitionTest, AContextThatIsGivenKeepsItsDuration) {
    const core::SmartPtr<AnimationContext> context(new AnimationContext);
    context->setDuration(0.25f);
    EXPECT_EQ(Transition::build(Transition::T_FLIP_VERTICAL, mFrom.get(), mTo.get(), 1, context.get()), context.get());
    EXPECT_EQ(context->getDuration(), 0.25f);
    EXPECT_EQ(context->getAnimations().size(), 2U);
}

TEST_F(TransitionTest, AnUnknownTypeIsLoggedAndAddsNoAnimations) {
    const core::SmartPtr<AnimationContext> context(Transition::build(UNKNOWN, mFrom.get(), mTo.get(), 2, nullptr));
    ASSERT_TRUE(context);
    EXPECT_TRUE(context->getAnimations().empty());
    EXPECT_EQ(context->getDuration(), 2);
    EXPECT_EQ(mLog.takeOne(logging::Level::ERROR), "Unknown transition type: UNKNOWN (8)");
}

TEST_F(TransitionTest, EitherHalfMayBeLeftOut) {
    for (int type = 1; type <= 7; ++type) {
        const auto value = static_cast<Transition::Type>(type);
        const core::SmartPtr<AnimationContext> out(Transition::build(value, mFrom.get(), nullptr, 1, nullptr));
        ASSERT_EQ(out->getAnimations().size(), 1U);
        EXPECT_EQ((*out->getAnimations().begin())->getTarget(), mFrom.get());
        const core::SmartPtr<AnimationContext> in(Transition::build(value, nullptr, mTo.get(), 1, nullptr));
        ASSERT_EQ(in->getAnimations().size(), 1U);
        EXPECT_EQ((*in->getAnimations().begin())->getTarget(), mTo.get());
    }
}

TEST_F(TransitionTest, WithoutAnyComponentItOnlySendsItsEvents) {
    const core::SmartPtr<AnimationContext> context(
        Transition::build(Transition::T_CROSS_FADE, nullptr, nullptr, 0.1f, nullptr));
    EXPECT_TRUE(context->getAnimations().empty());
    std::string told;
    context->subscribeCallback([&told](AnimationContext *, const AnimationEvent &event) {
        told += std::to_string(event.getType());
        return false;
    });
    manager().commitAnimation(context.get());
    frame();
    after(100);
    EXPECT_EQ(told, "012");
}

TEST_F(TransitionTest, MakesTheManagerWhenThereIsNone) {
    UIManager::shutdown();
    const core::SmartPtr<AnimationContext> context(
        Transition::build(Transition::T_CROSS_FADE, nullptr, nullptr, 1, nullptr));
    EXPECT_TRUE(context);
    EXPECT_TRUE(UIManager::isSingletonCreated());
}

TEST_F(TransitionTest, SlidesFromRightToLeft) {
    EXPECT_EQ(slide(Transition::T_SLIDEIN_HORIZONTAL_RIGHT_TO_LEFT),
              (Lines{"0,0 400,0", "-100,0 300,0", "-200,0 200,0", "-300,0 100,0", "-400,0 0,0"}));
}

TEST_F(TransitionTest, SlidesFromLeftToRight) {
    EXPECT_EQ(slide(Transition::T_SLIDEIN_HORIZONTAL_LEFT_TO_RIGHT),
              (Lines{"0,0 -400,0", "100,0 -300,0", "200,0 -200,0", "300,0 -100,0", "400,0 0,0"}));
}

TEST_F(TransitionTest, SlidesFromBottomToTop) {
    EXPECT_EQ(slide(Transition::T_SLIDEIN_VERTICAL_BOTTOM_TO_TOP),
              (Lines{"0,0 0,300", "0,-75 0,225", "0,-150 0,150", "0,-225 0,75", "0,-300 0,0"}));
}

TEST_F(TransitionTest, SlidesFromTopToBottom) {
    EXPECT_EQ(slide(Transition::T_SLIDEIN_VERTICAL_TOP_TO_BOTTOM),
              (Lines{"0,0 0,-300", "0,75 0,-225", "0,150 0,-150", "0,225 0,-75", "0,300 0,0"}));
}

TEST_F(TransitionTest, ASlideTakesAnOffsetAway) {
    mFrom->setPosition(Vector2(40, 20), Vector2(0, 0));
    mTo->setPosition(Vector2(10, 10), Vector2(0, 0));
    // Half way: half of the offset, and half a parent
    start(Transition::T_SLIDEIN_HORIZONTAL_RIGHT_TO_LEFT);
    EXPECT_EQ(place(*mFrom), "40,20");
    EXPECT_EQ(place(*mTo), "400,0");
    after(500);
    EXPECT_EQ(place(*mFrom), "-180,10");
    EXPECT_EQ(place(*mTo), "200,0");
    after(500);
    EXPECT_EQ(place(*mFrom), "-400,0");
    EXPECT_EQ(place(*mTo), "0,0");
    EXPECT_EQ(mTo->getComponentPosition().absolute, Vector2(0, 0));
}

TEST_F(TransitionTest, PutsWhatComesInAtItsStartAtOnceAndLeavesTheOtherAlone) {
    const core::SmartPtr<AnimationContext> slide = build(Transition::T_SLIDEIN_VERTICAL_BOTTOM_TO_TOP);
    EXPECT_EQ(mTo->getComponentPosition().relative, Vector2(0, 1));
    EXPECT_EQ(mFrom->getComponentPosition().relative, Vector2(0, 0));
    const core::SmartPtr<AnimationContext> fade = build(Transition::T_CROSS_FADE);
    EXPECT_EQ(mTo->getOpacity(), 0);
    EXPECT_EQ(mFrom->getOpacity(), 1);
}

TEST_F(TransitionTest, FlipsAroundTheVerticalAxis) {
    start(Transition::T_FLIP_HORIZONTAL);
    const float from[] = {0, -45, -90, -135, -180};
    const float to[] = {180, 135, 90, 45, 0};
    for (int quarter = 0; quarter <= 4; ++quarter) {
        // Short of half a turn by 0.00015 degrees
        EXPECT_NEAR(turnY(*mFrom), from[quarter], 1e-2) << quarter;
        EXPECT_NEAR(turnY(*mTo), to[quarter], 1e-2) << quarter;
        EXPECT_NEAR(turnX(*mFrom), 0, 1e-2) << quarter;
        after(250);
    }
}

TEST_F(TransitionTest, FlipsAroundTheHorizontalAxis) {
    start(Transition::T_FLIP_VERTICAL);
    const float from[] = {0, -45, -90, -135, -180};
    const float to[] = {180, 135, 90, 45, 0};
    for (int quarter = 0; quarter <= 4; ++quarter) {
        EXPECT_NEAR(turnX(*mFrom), from[quarter], 1e-2) << quarter;
        EXPECT_NEAR(turnX(*mTo), to[quarter], 1e-2) << quarter;
        EXPECT_NEAR(turnY(*mFrom), 0, 1e-2) << quarter;
        after(250);
    }
}

TEST_F(TransitionTest, AFlipIsShortOfHalfATurn) {
    const core::SmartPtr<AnimationContext> context = build(Transition::T_FLIP_HORIZONTAL);
    const nurel::math::Matrix3 expected(3.14159f, nurel::math::Vector3(0, 1, 0));
    EXPECT_EQ(mTo->getRotation(), expected);
    EXPECT_GT(mTo->getRotation()(2, 0), 2e-6f); // at half a turn this would be below 0
}

TEST_F(TransitionTest, FadesAcross) {
    // The ease of a third degree: 0.15625 at a quarter
    const float to[] = {0, 0.15625f, 0.5f, 0.84375f, 1};
    start(Transition::T_CROSS_FADE);
    for (int quarter = 0; quarter <= 4; ++quarter) {
        EXPECT_NEAR(mTo->getOpacity(), to[quarter], 1e-6) << quarter;
        EXPECT_NEAR(mFrom->getOpacity(), 1 - to[quarter], 1e-6) << quarter;
        after(250);
    }
}

TEST_F(TransitionTest, AFadeGoesThroughTheWholeSubtree) {
    const core::SmartPtr<Panel> inner = addPanel(*mFrom, "inner", 0, 0, 10, 10);
    inner->setOpacity(0.5f, false);
    start(Transition::T_CROSS_FADE);
    after(500);
    EXPECT_EQ(inner->getOpacity(), 0.5f); // it is drawn with 0.25, but keeps its own
    const core::SmartPtr<AnimationContext> context = build(Transition::T_CROSS_FADE);
    const auto *fade = context->getAnimation(mFrom.get(), animation::AnimatedOpacity::TYPE);
    ASSERT_NE(fade, nullptr);
    EXPECT_EQ(static_cast<const animation::AnimatedOpacity *>(fade)->getOpacity(), 0);
}

TEST_F(TransitionTest, TouchesNoVisibility) {
    start(Transition::T_SLIDEIN_HORIZONTAL_LEFT_TO_RIGHT);
    after(1000);
    EXPECT_TRUE(mFrom->isVisible());
    EXPECT_TRUE(mTo->isVisible());
    EXPECT_EQ(children(*mFrame), "from to");
}

TEST_F(TransitionTest, RunBackwardsItEndsWhereItBegan) {
    const core::SmartPtr<AnimationContext> context = build(Transition::T_SLIDEIN_HORIZONTAL_RIGHT_TO_LEFT);
    context->setReverse(true);
    manager().commitAnimation(context.get());
    frame();
    EXPECT_EQ(place(*mFrom) + " " + place(*mTo), "-400,0 0,0");
    after(250);
    EXPECT_EQ(place(*mFrom) + " " + place(*mTo), "-300,0 100,0");
    after(750);
    EXPECT_EQ(place(*mFrom) + " " + place(*mTo), "0,0 400,0");
}

TEST_F(TransitionTest, InsideAnOpenAnimationTheStartIsOnlyRecorded) {
    AnimationContext *open = manager().beginAnimation();
    const core::SmartPtr<AnimationContext> context = build(Transition::T_SLIDEIN_HORIZONTAL_RIGHT_TO_LEFT);
    EXPECT_EQ(mTo->getComponentPosition().relative, Vector2(0, 0));
    EXPECT_EQ(manager().getCurrentAnimation(), open);
    EXPECT_NE(open->getAnimation(mTo.get(), animation::AnimatedPosition::TYPE), nullptr);
    EXPECT_EQ(context->getAnimations().size(), 2U);
    manager().cancelAnimation();
}

TEST_F(TransitionTest, OneComponentMayBeBothHalves) {
    for (int type = 1; type <= 7; ++type) {
        const core::SmartPtr<AnimationContext> context(
            Transition::build(static_cast<Transition::Type>(type), mTo.get(), mTo.get(), 0.1f, nullptr));
        EXPECT_EQ(context->getAnimations().size(), 2U);
        manager().commitAnimation(context.get());
        frame();
        after(100);
        EXPECT_EQ(context->getStatus(), AnimationContext::FINISHED);
    }
}
