#include "foundation/core/Timer.h"

#include <gtest/gtest.h>

#include <limits>
#include <thread>

TEST(Timer, RunsByItselfAndNeverBack) {
    const core::Timer timer;
    EXPECT_FALSE(timer.isManual());
    const std::uint64_t before = timer.getMilliseconds();
    const double seconds = timer.getSeconds();
    EXPECT_GE(seconds * 1000, static_cast<double>(before));
    while (timer.getMilliseconds() == before)
        std::this_thread::yield();
    EXPECT_GT(timer.getMilliseconds(), before);
    EXPECT_GT(timer.getSeconds(), seconds);
}

TEST(Timer, EveryRunningClockShowsTheAgeOfTheProcess) {
    const core::Timer first;
    const core::Timer second;
    const double a = first.getSeconds();
    const double b = second.getSeconds();
    const double c = first.getSeconds();
    EXPECT_LE(a, b);
    EXPECT_LE(b, c);
}

TEST(Timer, AManualClockStartsAtZeroAndMovesOnlyByHand) {
    core::Timer timer(true);
    EXPECT_TRUE(timer.isManual());
    EXPECT_EQ(timer.getMilliseconds(), 0u);
    timer.advance(1.5);
    EXPECT_EQ(timer.getMilliseconds(), 1500u);
    EXPECT_EQ(timer.getSeconds(), 1.5);
}

TEST(Timer, SmallStepsAddUpWithoutLoss) {
    for (const int rate : {24, 30, 60, 90, 144, 999, 100'000}) {
        core::Timer timer(true);
        for (int second = 1; second <= 20; ++second) {
            for (int step = 0; step < rate; ++step)
                timer.advance(1.0 / rate);
            ASSERT_EQ(timer.getMilliseconds(), 1000u * static_cast<unsigned>(second)) << rate;
        }
    }
}

TEST(Timer, CutsToWholeMilliseconds) {
    core::Timer timer(true);
    timer.advance(0.0009);
    EXPECT_EQ(timer.getMilliseconds(), 0u);
    timer.advance(0.0001);
    EXPECT_EQ(timer.getMilliseconds(), 1u);
    timer.advance(0.0019);
    EXPECT_EQ(timer.getMilliseconds(), 2u);
}

TEST(Timer, IgnoresStepsThatLeadNowhere) {
    core::Timer timer(true);
    timer.advance(1);
    timer.advance(0);
    timer.advance(-1);
    timer.advance(std::numeric_limits<double>::quiet_NaN());
    timer.advance(std::numeric_limits<double>::infinity());
    EXPECT_EQ(timer.getMilliseconds(), 1000u);
}

TEST(Timer, AHugeStepEndsAtTheLastMomentThatCanBeCounted) {
    core::Timer timer(true);
    timer.advance(1e300);
    timer.advance(1);
    EXPECT_EQ(timer.getMilliseconds(), 9'000'000'000'000u);
}

TEST(Timer, ARunningClockCannotBeAdvanced) {
    core::Timer timer;
    timer.advance(1e6);
    EXPECT_LT(timer.getSeconds(), 1e6);
}

TEST(Timer, HoldsWhereItIsWhenItBecomesManual) {
    core::Timer timer;
    const double before = timer.getSeconds();
    timer.setManual(true);
    const double held = timer.getSeconds();
    EXPECT_GE(held, before);
    const core::Timer other;
    while (other.getSeconds() <= held)
        std::this_thread::yield();
    EXPECT_EQ(timer.getSeconds(), held);
    timer.advance(0.25);
    EXPECT_EQ(timer.getSeconds(), held + 0.25);
}

TEST(Timer, RunsOnFromWhereItWasHeld) {
    core::Timer timer(true);
    timer.advance(5000);
    timer.setManual(false);
    EXPECT_FALSE(timer.isManual());
    const double first = timer.getSeconds();
    EXPECT_GE(first, 5000 - 1e-6);
    EXPECT_LT(first, 6000);
    while (timer.getSeconds() == first)
        std::this_thread::yield();
    timer.setManual(false);
    EXPECT_GE(timer.getSeconds(), first);
}

TEST(Timer, MayBeReadByOtherThreads) {
    core::Timer timer(true);
    std::uint64_t last = 0;
    bool wentBack = false;
    std::thread reader([&] {
        while (last < 1000) {
            const std::uint64_t now = timer.getMilliseconds();
            wentBack |= now < last;
            last = now;
        }
    });
    for (int i = 0; i < 1000; ++i)
        timer.advance(0.001);
    reader.join();
    EXPECT_FALSE(wentBack);
}
