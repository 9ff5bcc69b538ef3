#pragma once

namespace nurel::ui {

/// What an `AnimationContext` tells its subscribers.
class AnimationEvent {
public:
    enum Type {
        STARTED = 0,  ///< the first update after the commit, before the delay runs
        STEP = 1,     ///< the values of this moment are applied, and there are more to come
        FINISHED = 2, ///< the final values are applied
    };

    explicit AnimationEvent(Type type) : mType(type) {}

    Type getType() const { return mType; }

private:
    Type mType;
};

} // namespace nurel::ui
