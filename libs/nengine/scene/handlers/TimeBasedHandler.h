#pragma once

#include "nengine/scene/ObjectHandler.h"

namespace nurel::scene::handlers {

/// A handler whose effect depends on the time since it started: a range of seconds that repeats without end.
class TimeBasedHandler : public ObjectHandler {
public:
    static const ::core::Type TYPE;
    static const ::core::Type &type() { return TYPE; }
    const ::core::Type &getType() const override { return TYPE; }

    explicit TimeBasedHandler(float duration);

    /// Seconds of one range; what is not positive becomes the shortest one that can be told apart, a millisecond.
    void setDuration(float seconds);
    float getDuration() const { return mDuration; }

    /// The range starts anew with the next update.
    void resetTimeRange();

    void handle(float time) override;

protected:
    /// What the handler does: `position` runs from 0 to below 1 over the range.
    virtual void handleRange(float position) = 0;

private:
    float mDuration;
    float mStart = 0.0f;
    bool mStarted = false;
};

} // namespace nurel::scene::handlers
