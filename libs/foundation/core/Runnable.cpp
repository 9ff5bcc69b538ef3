#include "foundation/core/Runnable.h"

#include "foundation/core/Exception.h"
#include "foundation/logging/Logger.h"

#include <algorithm>
#include <system_error>

namespace core {

namespace {

/// Heap order: the task that runs next is the greatest.
bool runsLater(const Runnable::RunnableTask &a, const Runnable::RunnableTask &b) {
    return a.priority != b.priority ? a.priority < b.priority : a.sequence > b.sequence;
}

} // namespace

Runnable::Runnable(const char *name) : mName(name ? name : "") {}

Runnable::~Runnable() {
    stop();
}

Future<void> Runnable::postTask(Process *owned, int priority) {
    RunnableTask task{std::unique_ptr<Process>(owned), {}, priority, 0};
    if (!owned)
        throw IllegalArgumentException("No process given to runnable %s", mName.c_str());
    Future<void> done = task.done;
    {
        std::lock_guard guard(mMutex);
        if (mStopped)
            throw IllegalStateException("Runnable %s has been stopped", mName.c_str());
        startThread();
        task.sequence = mNextSequence++;
        mQueue.push_back(std::move(task));
        std::push_heap(mQueue.begin(), mQueue.end(), runsLater);
    }
    mChanged.notify_one();
    return done;
}

bool Runnable::isOwnThread() const {
    std::lock_guard guard(mMutex);
    return mThreadId == std::this_thread::get_id();
}

void Runnable::stop() {
    std::thread ending;
    {
        std::lock_guard guard(mMutex);
        if (mThreadId == std::this_thread::get_id())
            throw IllegalStateException("Runnable %s cannot be stopped by its own thread", mName.c_str());
        mStopped = true;
        ending = std::move(mThread);
    }
    mChanged.notify_one();
    if (ending.joinable())
        ending.join();
}

void Runnable::startThread() {
    if (mThreadId != std::thread::id())
        return;
    try {
        mThread = std::thread(&Runnable::work, this);
        mThreadId = mThread.get_id();
    } catch (const std::system_error &error) {
        throw IllegalStateException("The thread of runnable %s cannot be started: %s", mName.c_str(), error.what());
    }
}

void Runnable::work() {
    std::unique_lock guard(mMutex);
    for (;;) {
        mChanged.wait(guard, [this] { return mStopped || !mQueue.empty(); });
        if (mQueue.empty())
            return;
        std::pop_heap(mQueue.begin(), mQueue.end(), runsLater);
        RunnableTask task = std::move(mQueue.back());
        mQueue.pop_back();
        guard.unlock();
        runTask(task);
        guard.lock();
    }
}

void Runnable::runTask(RunnableTask &task) const {
    try {
        task.process->run();
    } catch (const std::exception &exception) {
        logging::Logger::mROOT_LOGGER.error("A task of runnable %s failed", exception, mName.c_str());
    } catch (...) {
        logging::Logger::mROOT_LOGGER.error("A task of runnable %s failed with an unknown exception", mName.c_str());
    }
    task.process.reset();
    task.done.set();
}

} // namespace core
