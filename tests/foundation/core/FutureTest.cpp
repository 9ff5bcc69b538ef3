#include "foundation/core/Future.h"

#include <gtest/gtest.h>

#include <string>
#include <thread>

TEST(Future, IsNotSetAtFirst) {
    const core::Future<int> future;
    EXPECT_FALSE(future.isSet());
    EXPECT_FALSE(future.wait(0));
    EXPECT_FALSE(future.wait(1));
}

TEST(Future, CopiesShareOneValue) {
    core::Future<std::string> future;
    const core::Future<std::string> copy = future;
    EXPECT_TRUE(future.set("done"));
    EXPECT_TRUE(copy.isSet());
    EXPECT_EQ(copy.get(), "done");
    EXPECT_EQ(future.get(), "done");
}

TEST(Future, OnlyTheFirstValueCounts) {
    core::Future<int> future;
    EXPECT_TRUE(future.set(1));
    EXPECT_FALSE(future.set(2));
    EXPECT_EQ(future.get(), 1);
}

TEST(Future, OfNothingKnowsOnlyThatItIsSet) {
    core::Future<void> future;
    EXPECT_FALSE(future.isSet());
    EXPECT_TRUE(future.set());
    EXPECT_FALSE(future.set());
    EXPECT_TRUE(future.wait(0));
    future.get();
}

TEST(Future, GivesItsValueToWaitersOnOtherThreads) {
    core::Future<std::string> future;
    std::string got;
    bool inTime = false;
    std::thread getter([&got, future] { got = future.get(); });
    std::thread waiter([&inTime, future] { inTime = future.wait(600'000); });
    future.set("done");
    getter.join();
    waiter.join();
    EXPECT_EQ(got, "done");
    EXPECT_TRUE(inTime);
}

TEST(Future, MayDieAsSoonAsItsWaiterIsThrough) {
    for (int round = 0; round < 200; ++round) {
        auto future = std::make_unique<core::Future<int>>();
        std::thread setter([copy = *future]() mutable { copy.set(3); });
        EXPECT_EQ(future->get(), 3);
        future.reset();
        setter.join();
    }
}
