#include "foundation/core/Timer.h"

#include <algorithm>
#include <chrono>
#include <cmath>

namespace core {

namespace {

constexpr double NANOSECONDS_A_SECOND = 1e9;
constexpr std::int64_t NANOSECONDS_A_MILLISECOND = 1'000'000;
constexpr double LONGEST = 9e9; ///< seconds that still fit into 64 bits of nanoseconds

std::chrono::steady_clock::time_point getProcessStart() {
    static const std::chrono::steady_clock::time_point START = std::chrono::steady_clock::now();
    return START;
}

/// Takes the time at load; a timer that is read even earlier takes it then.
[[maybe_unused]] const std::chrono::steady_clock::time_point TAKEN_AT_LOAD = getProcessStart();

std::int64_t getProcessAge() {
    const auto age = std::chrono::steady_clock::now() - getProcessStart();
    return std::chrono::duration_cast<std::chrono::nanoseconds>(age).count();
}

std::int64_t toNanoseconds(double seconds) {
    return std::llround(seconds * NANOSECONDS_A_SECOND);
}

} // namespace

Timer::Timer(bool manual) : mManual(manual), mHeld(0) {}

std::uint64_t Timer::getMilliseconds() const {
    const std::int64_t nanoseconds = mManual ? toNanoseconds(mHeld) : getProcessAge() + mOffset;
    return static_cast<std::uint64_t>(nanoseconds / NANOSECONDS_A_MILLISECOND);
}

double Timer::getSeconds() const {
    return mManual ? mHeld.load() : static_cast<double>(getProcessAge() + mOffset) / NANOSECONDS_A_SECOND;
}

void Timer::setManual(bool manual) {
    if (manual == mManual)
        return;
    if (manual) {
        mHeld = getSeconds();
        mLost = 0;
    } else {
        mOffset = toNanoseconds(mHeld) - getProcessAge();
    }
    mManual = manual;
}

bool Timer::isManual() const {
    return mManual;
}

void Timer::advance(double seconds) {
    if (!mManual || !std::isfinite(seconds) || seconds <= 0)
        return;
    // Compensated summation: what the rounding of one step takes away goes into the next.
    const double held = mHeld;
    const double step = seconds - mLost;
    const double sum = std::min(held + step, LONGEST);
    mLost = sum < LONGEST ? (sum - held) - step : 0;
    mHeld = sum;
}

} // namespace core
