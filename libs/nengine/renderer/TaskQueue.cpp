#include "nengine/renderer/TaskQueue.h"

#include "foundation/logging/Logger.h"

#include <exception>

namespace nurel::renderer {

TaskQueue::TaskQueue() : mThread(std::this_thread::get_id()) {}

TaskQueue::~TaskQueue() {
    for (;;) {
        {
            const std::lock_guard guard(mMutex);
            if (mTasks.empty())
                return;
        }
        pump();
    }
}

void TaskQueue::pump() {
    std::vector<std::unique_ptr<Task>> tasks;
    {
        const std::lock_guard guard(mMutex);
        tasks.swap(mTasks);
    }
    for (const auto &task : tasks)
        run(*task);
}

void TaskQueue::runOrQueue(std::unique_ptr<Task> task) {
    if (isOwnThread()) {
        run(*task);
        return;
    }
    const std::lock_guard guard(mMutex);
    mTasks.push_back(std::move(task));
}

void TaskQueue::run(Task &task) {
    try {
        task.call();
        return;
    } catch (const std::exception &exception) {
        logging::Logger::mROOT_LOGGER.error("Task on the render thread failed", exception);
    } catch (...) {
        logging::Logger::mROOT_LOGGER.error("Task on the render thread failed: unknown exception");
    }
    task.giveUp();
}

} // namespace nurel::renderer
