// How a cover flow coasts and settles: every figure is worked out by hand.
#include "nui/ui/handlers/CoverFlowHandler.h"

#include "nui/ui/handlers/CoverFlowFixture.h"

namespace {

class CoverFlowCoastTest : public test::CoverFlowFixture {
public:
    CoverFlowCoastTest() { mFlow->setElasticRecoveryTime(0.25f); }

    int state() const { return mFlow->getState(); }

    /// The throw of 36 pixels to the left, step by step, until it has carried the carousel on by one.
    void expectThrow();
};

} // namespace

TEST_F(CoverFlowCoastTest, SettlesWithoutCoastingAfterARest) {
    fill(5);
    begin();
    tick(0.125);
    advance(0.125);
    move(-30);
    tick(0.40625);
    end();
    tick(0);
    EXPECT_EQ(state(), CoverFlowHandler::COVER_SETTLING);
    EXPECT_NEAR(progress(), 0.3f, 1e-5);
    tick(0.125);
    EXPECT_NEAR(progress(), 0.15f, 1e-5);
    tick(0.125);
    EXPECT_EQ(progress(), 0);
    EXPECT_EQ(state(), CoverFlowHandler::COVER_IDLE);
}

TEST_F(CoverFlowCoastTest, ThrowsWhenTheFingerHasRestedForAMomentOnly) {
    fill(5);
    begin();
    tick(0.125);
    advance(0.125);
    move(-30);
    tick(0.390625);
    end();
    tick(0);
    EXPECT_EQ(state(), CoverFlowHandler::COVER_COASTING);
}

TEST_F(CoverFlowCoastTest, SettlesOnTheNextEntryFromHalfTheWayOn) {
    for (const bool isHalf : {false, true}) {
        fill(5);
        mFlow->setCurrent(5, false);
        begin();
        move(isHalf ? -50.0f : -49.5f);
        tick(0.5);
        end();
        tick(0);
        tick(0.125);
        EXPECT_NEAR(progress(), isHalf ? 0.75f : 0.2475f, 1e-5);
        tick(0.125);
        EXPECT_EQ(state(), CoverFlowHandler::COVER_IDLE);
        EXPECT_EQ(centreX(), 0);
        EXPECT_EQ(mFlow->getCurrent(), isHalf ? 6u : 5u);
        EXPECT_EQ(selected(), isHalf ? Indexes{6} : Indexes{});
    }
}

TEST_F(CoverFlowCoastTest, StaysOnTheEntryThatTheFingerHasJustReached) {
    fill(5);
    begin();
    move(100);
    ASSERT_EQ(mFlow->getCurrent(), 4u);
    tick(0.5);
    end();
    EXPECT_TRUE(rest());
    EXPECT_EQ(mFlow->getCurrent(), 4u);
    expectPlace(4, 0, 0, 1);
    EXPECT_EQ(selected(), (Indexes{4}));
}

void CoverFlowCoastTest::expectThrow() {
    fling(-36); // 288 pixels a second
    EXPECT_NEAR(progress(), 0.36f, 1e-5);
    EXPECT_EQ(state(), CoverFlowHandler::COVER_RELEASED);
    tick(0);
    EXPECT_EQ(state(), CoverFlowHandler::COVER_COASTING);
    EXPECT_NEAR(progress(), 0.36f, 1e-5);
    tick(0.125); // 163 a second: 20.375 farther
    EXPECT_EQ(state(), CoverFlowHandler::COVER_COASTING);
    EXPECT_NEAR(progress(), 0.56375f, 1e-5);
    tick(0.125); // 38 a second, too slow: 4.75 farther, which is not shown yet
    EXPECT_EQ(state(), CoverFlowHandler::COVER_SETTLING);
    EXPECT_NEAR(progress(), 0.56375f, 1e-5);
    tick(0.125); // half of the way on from 0.61125
    EXPECT_NEAR(progress(), 0.805625f, 1e-5);
    EXPECT_EQ(selected(), Indexes());
    tick(0.125);
    EXPECT_EQ(state(), CoverFlowHandler::COVER_IDLE);
    EXPECT_EQ(progress(), 0);
    EXPECT_EQ(selected(), (Indexes{6}));
}

TEST_F(CoverFlowCoastTest, CoastsAndGoesOnToTheNextEntry) {
    fill(5);
    expectThrow();
}

TEST_F(CoverFlowCoastTest, CoastsTheSameAfterThirtyDays) {
    advance(30.0 * 24 * 60 * 60);
    fill(5);
    expectThrow();
}

TEST_F(CoverFlowCoastTest, CoastsAndGoesBackFromBelowHalfTheWay) {
    fill(5);
    fling(-28); // 224 a second
    tick(0);
    tick(0.125); // 99 a second: 12.375 farther
    EXPECT_NEAR(progress(), 0.40375f, 1e-5);
    tick(0.125);
    EXPECT_EQ(state(), CoverFlowHandler::COVER_SETTLING);
    tick(0.125); // half of the way back
    EXPECT_NEAR(progress(), 0.201875f, 1e-5);
    tick(0.125);
    EXPECT_EQ(mFlow->getCurrent(), 5u);
    EXPECT_EQ(progress(), 0);
    EXPECT_EQ(selected(), Indexes());
}

TEST_F(CoverFlowCoastTest, CoastsToTheRightAsToTheLeft) {
    fill(5);
    fling(36);
    tick(0);
    tick(0.125);
    EXPECT_NEAR(progress(), -0.56375f, 1e-5);
    tick(0.125);
    tick(0.25);
    EXPECT_EQ(state(), CoverFlowHandler::COVER_IDLE);
    EXPECT_EQ(selected(), (Indexes{4}));
}

TEST_F(CoverFlowCoastTest, LimitsTheSpeedOfAThrow) {
    fill(5);
    fling(-375); // 3000 a second
    tick(0);
    EXPECT_EQ(state(), CoverFlowHandler::COVER_COASTING);
    EXPECT_EQ(selected(), (Indexes{6}));
    tick(0.125); // 1000 less 125: 109.375 on, of 100 for a step
    EXPECT_EQ(selected(), (Indexes{7}));
    EXPECT_NEAR(progress(), 0.09375f, 1e-5);
    EXPECT_EQ(drawn().back(), "7");
}

TEST_F(CoverFlowCoastTest, LimitsTheSpeedToTheRight) {
    fill(5);
    fling(375);
    tick(0);
    tick(0.125);
    EXPECT_EQ(selected(), (Indexes{4, 3}));
    EXPECT_NEAR(progress(), -0.09375f, 1e-5);
}

TEST_F(CoverFlowCoastTest, SettlesAtOnceAtTheMinimumOfTheSpeed) {
    fill(5);
    fling(-6.25f); // 50 a second
    tick(0);
    EXPECT_EQ(state(), CoverFlowHandler::COVER_SETTLING);
    tick(0.25);
    EXPECT_EQ(state(), CoverFlowHandler::COVER_IDLE);
    fling(-6.5f);
    tick(0);
    EXPECT_EQ(state(), CoverFlowHandler::COVER_COASTING);
}

TEST_F(CoverFlowCoastTest, StopsCoastingBelowTheMinimumOfTheSpeed) {
    for (const float minimum : {115.0f, 115.5f}) {
        mFlow->setElasticSpeedMin(minimum);
        fill(5);
        mFlow->setCurrent(5, false);
        fling(-30);
        tick(0);
        tick(0.125); // 115 a second
        EXPECT_EQ(state(), minimum == 115 ? CoverFlowHandler::COVER_COASTING : CoverFlowHandler::COVER_SETTLING);
        EXPECT_TRUE(rest());
    }
}

TEST_F(CoverFlowCoastTest, ComparesTheMinimumWithTheSpeedAsItWasThrown) {
    mFlow->setElasticSpeed(100, 40);
    fill(5);
    fling(-15); // 120 a second, which becomes 40
    tick(0);
    EXPECT_EQ(state(), CoverFlowHandler::COVER_COASTING);
    tick(0.125);
    EXPECT_EQ(state(), CoverFlowHandler::COVER_SETTLING);
}

TEST_F(CoverFlowCoastTest, CoastsOverSeveralEntriesAndTellsOfTheLastOne) {
    fill(5);
    fling(-90); // 720 a second
    tick(0);
    tick(0.25); // 470 a second: 117.5 farther, which makes 207.5
    EXPECT_EQ(selected(), (Indexes{7}));
    EXPECT_NEAR(progress(), 0.075f, 1e-5);
    EXPECT_EQ(mFlow->getCurrentElement(), find(7));
    EXPECT_EQ(mEntries->updates(), (Indexes{8, 5, 6, 7, 8, 9}));
    EXPECT_TRUE(rest());
    expectPlace(static_cast<int>(mFlow->getCurrent()), 0, 0, 1);
}

TEST_F(CoverFlowCoastTest, RunsOnOverManyWideAndNarrowEntriesAndNeverBack) {
    mEntries->mCount = 10000;
    mFlow->setElasticSpeed(50, 4000);
    mFlow->setElasticDeceleration(1600);
    struct {
        const char *name;
        float even, odd; // widths
        unsigned int current;
        unsigned int steps; // of half the width of the one that was thrown, in 3025 pixels
        float ratio;
        unsigned int settled;
    } const throws[] = {
        {"wide", 200, 200, 5000, 30, 0.25f, 30},
        {"narrow", 80, 80, 5000, 75, 0.625f, 76},
        {"wide among narrow", 200, 80, 5000, 30, 0.25f, 30},
        {"narrow among wide", 200, 80, 5001, 75, 0.625f, 76},
    };
    for (const auto &row : throws) {
        for (const int side : {-1, 1}) {
            SCOPED_TRACE(std::string(row.name) + (side < 0 ? " to the left" : " to the right"));
            mEntries->mOnUpdate = [&row](unsigned int index, Component *item) {
                item->setSize({index % 2 ? row.odd : row.even, 100});
            };
            fill();
            mFlow->setCurrent(row.current, false);
            begin();
            tick(0.125);
            advance(1.0 / 128);
            move(25 * static_cast<float>(side)); // 3200 pixels a second
            end();
            tick(0);
            int way = 0;
            // 3000, 2800 … 200 a second, an eighth of a second each: 3000 pixels, and then it rests
            for (int i = 0; i < 16; ++i) {
                EXPECT_EQ(state(), CoverFlowHandler::COVER_COASTING);
                tick(0.125);
                const int now = -side * (static_cast<int>(mFlow->getCurrent()) - static_cast<int>(row.current));
                EXPECT_GE(now, way);
                way = now;
            }
            EXPECT_EQ(way, static_cast<int>(row.steps));
            EXPECT_EQ(state(), CoverFlowHandler::COVER_SETTLING);
            EXPECT_NEAR(progress() * static_cast<float>(-side), row.ratio, 1e-4);
            EXPECT_TRUE(rest());
            EXPECT_EQ(mFlow->getCurrent(), row.current - static_cast<unsigned int>(side) * row.settled);
        }
    }
}

TEST_F(CoverFlowCoastTest, StopsAtTheEndOfTheDataAndReturnsElastically) {
    fill(8);
    fling(-90);
    tick(0);
    tick(0.25); // two steps and 0.075
    EXPECT_EQ(state(), CoverFlowHandler::COVER_SETTLING);
    EXPECT_EQ(selected(), (Indexes{9}));
    tick(0.125);
    EXPECT_NEAR(progress(), 0.0375f, 1e-5);
    tick(0.125);
    EXPECT_EQ(progress(), 0);
    EXPECT_EQ(state(), CoverFlowHandler::COVER_IDLE);
    EXPECT_EQ(mFlow->getCurrent(), 9u);
}

TEST_F(CoverFlowCoastTest, StopsAtTheBeginningOfTheData) {
    fill(1);
    fling(90);
    tick(0);
    tick(0.25);
    EXPECT_EQ(state(), CoverFlowHandler::COVER_SETTLING);
    EXPECT_EQ(selected(), (Indexes{0}));
    EXPECT_TRUE(rest());
    EXPECT_EQ(progress(), 0);
    EXPECT_EQ(mFlow->getCurrent(), 0u);
}

TEST_F(CoverFlowCoastTest, GoesOnToTheEndOfTheDataWithoutDeceleration) {
    mFlow->setElasticDeceleration(0);
    fill(5);
    fling(-30);
    EXPECT_TRUE(rest());
    EXPECT_EQ(mFlow->getCurrent(), 9u);
    EXPECT_EQ(selected(), (Indexes{6, 7, 8, 9}));
}

TEST_F(CoverFlowCoastTest, ComesToRestWithoutAMinimumOfTheSpeed) {
    for (const float minimum : {0.0f, -1.0f}) {
        mFlow->setElasticSpeedMin(minimum);
        fill(5);
        mFlow->setCurrent(5, false);
        fling(-30);
        EXPECT_TRUE(rest());
        EXPECT_EQ(progress(), 0);
    }
}

TEST_F(CoverFlowCoastTest, KeepsTheSpeedBetweenMovesAtOneTime) {
    fill(5);
    begin();
    tick(0.125);
    move(-10); // no time has passed: nothing is known of the speed
    end();
    tick(0);
    EXPECT_EQ(state(), CoverFlowHandler::COVER_SETTLING);
    EXPECT_TRUE(rest());
    begin();
    tick(0.125);
    advance(0.125);
    move(-30);
    frame();
    move(-2);
    end();
    tick(0);
    EXPECT_EQ(state(), CoverFlowHandler::COVER_COASTING);
}

TEST_F(CoverFlowCoastTest, HasNoSpeedAfterAMoveOfOnePixel) {
    fill(5);
    begin();
    tick(0.125);
    advance(0.125);
    move(-30);
    tick(0.125);
    move(30); // back where it began
    end();
    tick(0);
    EXPECT_EQ(state(), CoverFlowHandler::COVER_SETTLING);
}
