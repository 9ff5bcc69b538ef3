#pragma once

#include "foundation/core/Future.h"
#include "foundation/core/Process.h"

#include <condition_variable>
#include <cstdint>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace core {

/// A thread that works off a queue of tasks, one at a time: higher priorities first, in order of posting within one
/// priority. The thread starts with the first task.
class Runnable {
public:
    /// One entry of the queue.
    struct RunnableTask {
        std::unique_ptr<Process> process;
        Future<void> done;
        int priority;
        std::uint64_t sequence;
    };

    /// The name is for messages.
    explicit Runnable(const char *name = "");

    /// Stops.
    ~Runnable();

    Runnable(const Runnable &) = delete;
    Runnable &operator=(const Runnable &) = delete;

    /// Queues a process, which the runnable owns from here on, whatever happens. The future is set when the process has
    /// run and has been deleted. An exception that leaves the process is logged and ends there. May be called from any
    /// thread, this runnable's own included. Raises IllegalStateException once the runnable has been stopped or if its
    /// thread cannot be started, and IllegalArgumentException for a null process.
    Future<void> postTask(Process *owned, int priority = 0);

    /// Whether the caller runs on this runnable's thread.
    bool isOwnThread() const;

    /// Runs the tasks that are queued, takes no more, and waits for the thread to end. Raises IllegalStateException on
    /// the runnable's own thread, which cannot wait for itself. A second call does nothing.
    void stop();

private:
    void startThread();
    void work();
    void runTask(RunnableTask &task) const;

    const std::string mName;
    mutable std::mutex mMutex;
    std::condition_variable mChanged;
    std::vector<RunnableTask> mQueue; ///< a heap, the next task in front
    std::uint64_t mNextSequence = 0;
    bool mStopped = false;
    std::thread mThread;
    std::thread::id mThreadId; ///< none before the first task; stays when the thread has ended
};

} // namespace core
