#include "foundation/core/Runnable.h"
#include "foundation/core/Event.h"
#include "foundation/core/Exception.h"

#include "support/LogCapture.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

core::Process *makeProcess(std::function<void()> function) {
    return new core::GenericProcess(std::move(function));
}

/// Tells when it goes.
class Mortal : public core::Process {
public:
    explicit Mortal(bool &alive) : mAlive(alive) { mAlive = true; }
    ~Mortal() override { mAlive = false; }
    void run() override {}

private:
    bool &mAlive;
};

template <class Call>
std::string getRaised(Call call) {
    try {
        call();
    } catch (const core::Exception &exception) {
        return exception.what();
    }
    return "nothing";
}

} // namespace

TEST(Runnable, RunsATaskOnItsOwnThread) {
    core::Runnable runnable("worker");
    EXPECT_FALSE(runnable.isOwnThread());
    bool own = false;
    runnable.postTask(makeProcess([&] { own = runnable.isOwnThread(); })).wait();
    EXPECT_TRUE(own);
    EXPECT_FALSE(runnable.isOwnThread());
}

TEST(Runnable, TakesHigherPrioritiesFirstAndEqualOnesInOrder) {
    core::Runnable runnable;
    core::Event go;
    std::string order;
    runnable.postTask(makeProcess([&] { go.wait(); }), 100);
    runnable.postTask(makeProcess([&] { order += 'a'; }));
    runnable.postTask(makeProcess([&] { order += 'b'; }), -1);
    runnable.postTask(makeProcess([&] { order += 'c'; }), 5);
    runnable.postTask(makeProcess([&] { order += 'd'; }));
    runnable.postTask(makeProcess([&] { order += 'e'; }), 5);
    go.set();
    runnable.stop();
    EXPECT_EQ(order, "ceadb");
}

TEST(Runnable, ATaskMayPostAnother) {
    core::Runnable runnable;
    bool ran = false;
    core::Future<void> inner;
    runnable.postTask(makeProcess([&] { inner = runnable.postTask(makeProcess([&] { ran = true; })); })).wait();
    inner.wait();
    EXPECT_TRUE(ran);
}

TEST(Runnable, DeletesATaskBeforeItsFutureIsSet) {
    core::Runnable runnable;
    bool alive = false;
    runnable.postTask(new Mortal(alive)).wait();
    EXPECT_FALSE(alive);
}

TEST(Runnable, RunsWhatIsQueuedWhenItIsStopped) {
    core::Runnable runnable;
    int runs = 0;
    for (int i = 0; i < 100; ++i)
        runnable.postTask(makeProcess([&] { ++runs; }));
    runnable.stop();
    EXPECT_EQ(runs, 100);
    runnable.stop();
}

TEST(Runnable, TakesNothingOnceItIsStopped) {
    core::Runnable runnable("worker");
    runnable.stop();
    bool alive = false;
    EXPECT_EQ(getRaised([&] { runnable.postTask(new Mortal(alive)); }), "Runnable worker has been stopped");
    EXPECT_FALSE(alive);
}

TEST(Runnable, TakesNoNullProcess) {
    core::Runnable runnable("worker");
    EXPECT_EQ(getRaised([&] { runnable.postTask(nullptr); }), "No process given to runnable worker");
}

TEST(Runnable, CannotBeStoppedByItsOwnThread) {
    core::Runnable runnable("worker");
    std::string raised;
    runnable.postTask(makeProcess([&] { raised = getRaised([&] { runnable.stop(); }); })).wait();
    EXPECT_EQ(raised, "Runnable worker cannot be stopped by its own thread");
    bool ran = false;
    runnable.postTask(makeProcess([&] { ran = true; })).wait();
    EXPECT_TRUE(ran);
}

TEST(Runnable, LogsAnExceptionAndGoesOn) {
    test::LogCapture log;
    core::Runnable runnable("worker");
    runnable.postTask(makeProcess([] { throw core::IOException("no such file"); })).wait();
    runnable.postTask(makeProcess([] { throw 1; })).wait();
    bool ran = false;
    runnable.postTask(makeProcess([&] { ran = true; })).wait();
    EXPECT_TRUE(ran);
    EXPECT_EQ(log.take(logging::Level::ERROR),
              (std::vector<std::string>{"A task of runnable worker failed: no such file",
                                        "A task of runnable worker failed with an unknown exception"}));
}
