#pragma once

#include "foundation/core/Future.h"

#include <memory>
#include <mutex>
#include <thread>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

namespace nurel::renderer {

/// The road into the render thread: tasks posted by other threads wait until that thread pumps the queue, at the start
/// of a frame; a task posted by the render thread itself runs at once.
///
/// `post` and `isOwnThread` may be called from any thread, everything else from the render thread. Whoever waits for a
/// future of a task must not be the one that the render thread waits for.
class TaskQueue {
public:
    /// The render thread is the one that makes the queue.
    TaskQueue();

    /// Runs what is still queued, so that nobody waits for ever.
    ~TaskQueue();
    TaskQueue(const TaskQueue &) = delete;
    TaskQueue &operator=(const TaskQueue &) = delete;

    bool isOwnThread() const { return std::this_thread::get_id() == mThread; }

    /// Runs `callable(arguments...)` on the render thread; callable and arguments are copied or moved into the task. An
    /// exception that leaves the task is logged; the future then gets a default value where its type has one, so that
    /// waiters go on.
    template <class Callable, class... Arguments>
    auto post(Callable &&callable, Arguments &&...arguments) {
        using Result = std::invoke_result_t<std::decay_t<Callable>, std::decay_t<Arguments>...>;
        auto task = std::make_unique<CallTask<Result, std::decay_t<Callable>, std::decay_t<Arguments>...>>(
            std::forward<Callable>(callable), std::forward<Arguments>(arguments)...);
        core::Future<Result> future = task->future;
        runOrQueue(std::move(task));
        return future;
    }

    /// Runs the tasks that were queued when it was called, in the order in which they came; what they post from other
    /// threads waits for the next time.
    void pump();

private:
    class Task {
    public:
        virtual ~Task() = default;
        virtual void call() = 0;
        virtual void giveUp() = 0;
    };

    template <class Result, class Callable, class... Arguments>
    class CallTask final : public Task {
    public:
        template <class C, class... A>
        explicit CallTask(C &&callable, A &&...arguments)
            : mCallable(std::forward<C>(callable)), mArguments(std::forward<A>(arguments)...) {}

        void call() override {
            if constexpr (std::is_void_v<Result>) {
                std::apply(std::move(mCallable), std::move(mArguments));
                future.set();
            } else {
                future.set(std::apply(std::move(mCallable), std::move(mArguments)));
            }
        }

        void giveUp() override {
            if constexpr (std::is_void_v<Result>)
                future.set();
            else if constexpr (std::is_default_constructible_v<Result>)
                future.set(Result());
        }

        core::Future<Result> future;

    private:
        Callable mCallable;
        std::tuple<Arguments...> mArguments;
    };

    void runOrQueue(std::unique_ptr<Task> task);
    static void run(Task &task);

    const std::thread::id mThread;
    std::mutex mMutex;
    std::vector<std::unique_ptr<Task>> mTasks;
};

} // namespace nurel::renderer
