#include "foundation/core/CriticalSection.h"
#include "foundation/core/Lock.h"

#include <gtest/gtest.h>

#include <thread>
#include <vector>

namespace {

constinit core::CriticalSection staticSection;

bool canEnterFromAnotherThread(core::CriticalSection &section) {
    bool entered = false;
    std::thread([&] {
        entered = section.tryEnter();
        if (entered)
            section.leave();
    }).join();
    return entered;
}

} // namespace

TEST(CriticalSection, IsSmallEnoughForEverySubscriber) {
    EXPECT_LE(sizeof(core::CriticalSection), 16u);
}

TEST(CriticalSection, CanBeAConstantInitialisedStatic) {
    const core::Lock lock(staticSection);
    EXPECT_FALSE(canEnterFromAnotherThread(staticSection));
}

TEST(CriticalSection, IsFreeOnlyAfterAsManyLeavesAsEnters) {
    core::CriticalSection section;
    section.enter();
    section.enter();
    EXPECT_TRUE(section.tryEnter());
    EXPECT_FALSE(canEnterFromAnotherThread(section));
    section.leave();
    section.leave();
    EXPECT_FALSE(canEnterFromAnotherThread(section));
    section.leave();
    EXPECT_TRUE(canEnterFromAnotherThread(section));
}

TEST(CriticalSection, TryEnterTakesAFreeSection) {
    core::CriticalSection section;
    EXPECT_TRUE(section.tryEnter());
    EXPECT_FALSE(canEnterFromAnotherThread(section));
    section.leave();
    EXPECT_TRUE(canEnterFromAnotherThread(section));
}

TEST(CriticalSection, LetsOneThreadInAtATime) {
    constexpr int THREADS = 4;
    constexpr int ROUNDS = 5000;
    core::CriticalSection section;
    int counter = 0;
    std::vector<std::thread> threads;
    for (int i = 0; i < THREADS; ++i) {
        threads.emplace_back([&] {
            for (int round = 0; round < ROUNDS; ++round) {
                const core::Lock outer(section);
                const core::Lock inner(section);
                ++counter;
            }
        });
    }
    for (std::thread &thread : threads)
        thread.join();
    EXPECT_EQ(counter, THREADS * ROUNDS);
}

TEST(CriticalSection, WakesEveryThreadThatSleepsAtIt) {
    core::CriticalSection section;
    int entered = 0;
    std::vector<std::thread> threads;
    {
        const core::Lock lock(section);
        for (int i = 0; i < 3; ++i) {
            threads.emplace_back([&] {
                const core::Lock own(section);
                ++entered;
            });
        }
        EXPECT_EQ(entered, 0);
    }
    for (std::thread &thread : threads)
        thread.join();
    EXPECT_EQ(entered, 3);
}

TEST(Lock, LeavesWhenAnExceptionEndsTheScope) {
    core::CriticalSection section;
    try {
        const core::Lock lock(section);
        throw 1;
    } catch (int) {
    }
    EXPECT_TRUE(canEnterFromAnotherThread(section));
}
