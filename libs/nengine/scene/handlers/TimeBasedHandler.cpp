#include "nengine/scene/handlers/TimeBasedHandler.h"

#include <algorithm>
#include <cmath>

namespace nurel::scene::handlers {

namespace {
constexpr float SHORTEST_DURATION = 0.001f;
}

constinit const ::core::Type TimeBasedHandler::TYPE("TimeBasedHandler", &ObjectHandler::TYPE);

TimeBasedHandler::TimeBasedHandler(float duration) : mDuration(SHORTEST_DURATION) {
    setDuration(duration);
}

void TimeBasedHandler::setDuration(float seconds) {
    mDuration = seconds > SHORTEST_DURATION ? seconds : SHORTEST_DURATION;
}

void TimeBasedHandler::resetTimeRange() {
    mStarted = false;
}

void TimeBasedHandler::handle(float time) {
    if (!mStarted || time < mStart) {
        mStart = time;
        mStarted = true;
    }
    // The quotient of two floats just below a whole number of ranges may round up to it.
    const float position = std::fmod(time - mStart, mDuration) / mDuration;
    handleRange(position < 1.0f ? position : 0.0f);
}

} // namespace nurel::scene::handlers
