#pragma once

#include <functional>

namespace core {

/// A piece of work that something else runs.
class Process {
public:
    virtual ~Process() = default;
    virtual void run() = 0;
};

/// A process made of anything that can be called.
class GenericProcess : public Process {
public:
    explicit GenericProcess(std::function<void()> function);
    void run() override;

private:
    std::function<void()> mFunction;
};

} // namespace core
