#include "nengine/renderer/TaskQueue.h"

#include "foundation/core/Exception.h"
#include "support/LogCapture.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace {

using nurel::renderer::TaskQueue;

/// Runs something on another thread and waits for it.
template <class Callable>
void elsewhere(Callable &&callable) {
    std::thread(std::forward<Callable>(callable)).join();
}

TEST(TaskQueue, KnowsItsOwnThread) {
    TaskQueue queue;
    EXPECT_TRUE(queue.isOwnThread());
    bool own = true;
    elsewhere([&] { own = queue.isOwnThread(); });
    EXPECT_FALSE(own);
}

TEST(TaskQueue, ATaskOfTheOwnThreadRunsAtOnce) {
    TaskQueue queue;
    bool done = false;
    const core::Future<int> future = queue.post(
        [&done](int a, int b) {
            done = true;
            return a * b;
        },
        6, 7);
    EXPECT_TRUE(done);
    EXPECT_TRUE(future.isSet());
    EXPECT_EQ(future.get(), 42);
}

TEST(TaskQueue, ATaskOfAnotherThreadWaitsForThePump) {
    TaskQueue queue;
    bool done = false;
    core::Future<void> future;
    elsewhere([&] { future = queue.post([&] { done = true; }); });
    EXPECT_FALSE(done);
    EXPECT_FALSE(future.isSet());
    queue.pump();
    EXPECT_TRUE(done);
    EXPECT_TRUE(future.isSet());
}

TEST(TaskQueue, TasksRunInTheirOrder) {
    TaskQueue queue;
    std::string seen;
    elsewhere([&] {
        for (char name = 'a'; name < 'f'; ++name)
            queue.post([&seen, name] { seen += name; });
    });
    queue.pump();
    EXPECT_EQ(seen, "abcde");
}

TEST(TaskQueue, APumpRunsOnlyWhatWasQueuedBefore) {
    TaskQueue queue;
    int runs = 0;
    elsewhere([&] {
        queue.post([&] {
            ++runs;
            elsewhere([&] { queue.post([&] { ++runs; }); });
        });
    });
    queue.pump();
    EXPECT_EQ(runs, 1);
    queue.pump();
    EXPECT_EQ(runs, 2);
    queue.pump();
    EXPECT_EQ(runs, 2);
}

TEST(TaskQueue, ArgumentsAreMovedIntoTheTask) {
    TaskQueue queue;
    int seen = 0;
    core::Future<void> future;
    elsewhere(
        [&] { future = queue.post([&seen](std::unique_ptr<int> value) { seen = *value; }, std::make_unique<int>(5)); });
    queue.pump();
    EXPECT_EQ(seen, 5);
}

TEST(TaskQueue, AnExceptionIsLoggedAndItsWaiterGoesOn) {
    test::LogCapture log;
    TaskQueue queue;
    core::Future<int> value;
    core::Future<void> nothing;
    elsewhere([&] {
        value = queue.post([]() -> int { throw core::IllegalStateException("no %s", "luck"); });
        nothing = queue.post([] { throw 5; });
    });
    queue.pump();
    EXPECT_EQ(value.get(), 0);
    EXPECT_TRUE(nothing.isSet());
    EXPECT_EQ(log.takeOne(logging::Level::ERROR), "Task on the render thread failed: no luck");
    EXPECT_EQ(log.takeOne(logging::Level::ERROR), "Task on the render thread failed: unknown exception");
    queue.post([] { throw core::IllegalStateException("here"); });
    EXPECT_EQ(log.takeOne(logging::Level::ERROR), "Task on the render thread failed: here");
}

TEST(TaskQueue, ItsEndRunsWhatIsLeft) {
    core::Future<int> future;
    {
        TaskQueue queue;
        elsewhere([&] { future = queue.post([] { return 3; }); });
    }
    ASSERT_TRUE(future.isSet());
    EXPECT_EQ(future.get(), 3);
}

TEST(TaskQueue, TakesTasksFromManyThreads) {
    TaskQueue queue;
    int runs = 0;
    std::vector<std::thread> threads;
    threads.reserve(4);
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([&] {
            for (int k = 0; k < 100; ++k)
                queue.post([&runs] { ++runs; });
        });
    }
    for (int i = 0; i < 50; ++i)
        queue.pump();
    for (std::thread &thread : threads)
        thread.join();
    queue.pump();
    EXPECT_EQ(runs, 400);
}

} // namespace
