#pragma once

#include "foundation/core/IRefCount.h"
#include "foundation/core/SmartPtr.h"
#include "nui/core/CallbackSubscriptor.h"
#include "nui/ui/Animation.h"
#include "nui/ui/AnimationEvent.h"

#include <cstdint>
#include <map>
#include <set>
#include <utility>

namespace nurel::ui {

/// A group of animations that share one clock: the transaction of the toolkit. While a context is the `UIManager`'s
/// current one, the setters of position, size, rotation, scale, opacity and visibility of every component record
/// targets in it instead of acting. Committed, it moves forward once a frame until its duration is over.
///
/// It publishes started, step and finished; a subscriber that returns true is unsubscribed. Used on the thread that
/// drives the `UIManager`.
class AnimationContext
    : public core::IRefCount,
      public core::CallbackSubscriptor<AnimationContext, 1, bool, AnimationContext *, const AnimationEvent &> {
public:
    enum Status { CREATED = 0, COMMITTED = 1, RUNNING = 2, FINISHED = 3 };

    /// In the order of their addresses, which nothing may rely on.
    using Animations = std::set<core::SmartPtr<Animation>>;

    AnimationContext();
    AnimationContext(const AnimationContext &);
    AnimationContext &operator=(const AnimationContext &);
    ~AnimationContext() override;

    const Animation::TimeInfo &getTimeInfo() const { return mTimeInfo; }

    /// Seconds; 0.5 at first. With 0 or less the run jumps to its end at its first update after the delay.
    float getDuration() const { return mTimeInfo.duration; }
    void setDuration(float seconds) { mTimeInfo.duration = seconds; }

    /// Seconds between the first update after the commit and the start. Read when the context starts.
    float getDelay() const { return mDelay; }
    void setDelay(float seconds) { mDelay = seconds; }

    /// Runs from progress 1 to 0: every property ends at its source.
    bool isResverse() const { return mReverse; }
    void setReverse(bool reverse) { mReverse = reverse; }

    Status getStatus() const { return mStatus; }

    const Animations &getAnimations() const { return mAnimations; }

    /// Adds an animation; null is ignored. Several of one class for one component all run, in no particular order.
    void addAnimation(Animation *animation);

    /// The first animation of that component which is of the type or of one derived from it; null when there is none.
    Animation *getAnimation(const Component *target, const core::Type &type) const;

    /// The animation of exactly this class for the component, which is made and added when there is none yet.
    template <class Animated>
    Animated &record(Component *target) {
        Animation *found = findExact(target, Animated::TYPE);
        if (!found) {
            found = new Animated(target);
            addAnimation(found);
        }
        return static_cast<Animated &>(*found);
    }

protected:
    /// Points of time and lengths in whole microseconds: they add up without loss, however long the clock has been
    /// running.
    using Microseconds = std::int64_t;

    void committed();

    /// Sets the start behind the delay and tells the subscribers. Only a committed context does anything.
    void started(Microseconds now);

    /// One frame of a context that has been started; true when it has finished.
    bool update(Microseconds now);

    /// Brings all animations to the time info's progress.
    void updateAnimations();

private:
    friend class UIManager;

    /// Component and class of an animation.
    using Key = std::pair<const Component *, const core::Type *>;

    Animation *findExact(const Component *target, const core::Type &type);
    void addToIndex(Animation &animation);
    void updateIndex();

    Animation::TimeInfo mTimeInfo;
    Animations mAnimations;
    std::map<Key, Animation *> mIndex; ///< the first animation of each key; empty until it is worth it
    std::uint64_t mIndexedChanges = 0; ///< the changes of targets that the index knows
    float mDelay = 0;
    Microseconds mStart = 0;
    Microseconds mLastUpdate = 0;
    bool mReverse = false;
    Status mStatus = CREATED;
};

} // namespace nurel::ui
