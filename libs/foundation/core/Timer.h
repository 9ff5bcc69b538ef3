#pragma once

#include <atomic>
#include <cstdint>

namespace core {

/// A clock that never goes back. By itself it shows the time since the process started; a manual one shows only the
/// time that it was advanced by, which makes a program's run repeatable.
///
/// Reading is safe from any thread; setManual and advance belong to one thread.
class Timer {
public:
    /// A running clock, or a manual one that starts at 0.
    explicit Timer(bool manual = false);
    Timer(const Timer &) = delete;
    Timer &operator=(const Timer &) = delete;

    /// Whole milliseconds: the exact time, rounded to nanoseconds and then cut.
    std::uint64_t getMilliseconds() const;

    double getSeconds() const;

    /// Stops the clock where it is, or lets it run on from there.
    void setManual(bool manual);

    bool isManual() const;

    /// Moves a manual clock forward. Many small steps add up without loss: sixty times 1.0 / 60 make one second.
    /// A step that is not above 0, or not finite, is ignored, and so is every step of a running clock.
    void advance(double seconds);

private:
    std::atomic<bool> mManual;
    std::atomic<double> mHeld;            ///< what a manual clock shows
    std::atomic<std::int64_t> mOffset{0}; ///< nanoseconds that a running clock adds to the process's age
    double mLost = 0;                     ///< what rounding took from mHeld so far
};

} // namespace core
