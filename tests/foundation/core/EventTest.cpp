#include "foundation/core/Event.h"

#include <gtest/gtest.h>

#include <thread>
#include <type_traits>

TEST(Event, IsNotSetAtFirst) {
    core::Event event;
    EXPECT_FALSE(event.wait(0));
}

TEST(Event, GivesUpAfterTheLimit) {
    core::Event event;
    EXPECT_FALSE(event.wait(1));
}

TEST(Event, StaysSetUntilItIsReset) {
    core::Event event;
    event.set();
    EXPECT_TRUE(event.wait(0));
    event.wait();
    EXPECT_TRUE(event.wait(0));
    event.reset();
    EXPECT_FALSE(event.wait(0));
}

TEST(Event, LetsEveryWaiterThrough) {
    core::Event event;
    int value = 0;
    int seen[2] = {};
    std::thread first([&] {
        event.wait();
        seen[0] = value;
    });
    std::thread second([&] { seen[1] = event.wait(600'000) ? value : -1; });
    value = 7;
    event.set();
    first.join();
    second.join();
    EXPECT_EQ(seen[0], 7);
    EXPECT_EQ(seen[1], 7);
}

TEST(Event, MayDieAsSoonAsItsWaiterIsThrough) {
    for (int round = 0; round < 200; ++round) {
        auto *event = new core::Event;
        std::thread setter([event] { event->set(); });
        event->wait();
        delete event;
        setter.join();
    }
}

TEST(Event, HasItsMultithreadedName) {
    EXPECT_TRUE((std::is_same_v<core::Event, core::Event_mthread>));
}
