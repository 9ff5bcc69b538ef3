#include "nui/ui/AnimationContext.h"

#include "nui/ui/Component.h"

#include <cmath>
#include <functional>

namespace nurel::ui {

namespace {

constexpr double MICROSECONDS_A_SECOND = 1e6;
constexpr float DEFAULT_DURATION = 0.5f;

/// So many animations are searched one by one.
constexpr std::size_t MOST_UNINDEXED = 16;

/// Longer than any run; sums of a few of these stay within the type.
constexpr std::int64_t LONGEST = std::int64_t(1) << 60;

/// Whole microseconds of a length in seconds; one that is above 0 stays above 0. What is no number counts as 0.
std::int64_t toMicroseconds(float seconds) {
    const double microseconds = static_cast<double>(seconds) * MICROSECONDS_A_SECOND;
    if (std::isnan(microseconds))
        return 0;
    if (std::abs(microseconds) >= static_cast<double>(LONGEST))
        return microseconds > 0 ? LONGEST : -LONGEST;
    const std::int64_t rounded = std::llround(microseconds);
    return rounded == 0 && microseconds > 0 ? 1 : rounded;
}

float toSeconds(std::int64_t microseconds) {
    return static_cast<float>(static_cast<double>(microseconds) / MICROSECONDS_A_SECOND);
}

} // namespace

AnimationContext::AnimationContext() {
    mTimeInfo.duration = DEFAULT_DURATION;
}

AnimationContext::AnimationContext(const AnimationContext &) = default;

AnimationContext &AnimationContext::operator=(const AnimationContext &) = default;

AnimationContext::~AnimationContext() = default;

void AnimationContext::addAnimation(Animation *animation) {
    if (!animation)
        return;
    mAnimations.insert(animation);
    if (!mIndex.empty())
        addToIndex(*animation);
}

Animation *AnimationContext::getAnimation(const Component *target, const core::Type &type) const {
    for (const core::SmartPtr<Animation> &animation : mAnimations) {
        if (animation->getTarget() == target && animation->instanceOf(type))
            return animation.get();
    }
    return nullptr;
}

void AnimationContext::addToIndex(Animation &animation) {
    Animation *&first = mIndex[Key(animation.getTarget(), &animation.getType())];
    if (!first || std::less<>()(&animation, first))
        first = &animation;
}

void AnimationContext::updateIndex() {
    if (!mIndex.empty() && mIndexedChanges == Animation::getTargetChanges())
        return;
    mIndex.clear();
    mIndexedChanges = Animation::getTargetChanges();
    for (const core::SmartPtr<Animation> &animation : mAnimations)
        addToIndex(*animation);
}

Animation *AnimationContext::findExact(const Component *target, const core::Type &type) {
    if (mAnimations.size() > MOST_UNINDEXED) {
        updateIndex();
        const auto found = mIndex.find(Key(target, &type));
        return found == mIndex.end() ? nullptr : found->second;
    }
    for (const core::SmartPtr<Animation> &animation : mAnimations) {
        if (animation->getTarget() == target && &animation->getType() == &type)
            return animation.get();
    }
    return nullptr;
}

void AnimationContext::committed() {
    mStatus = COMMITTED;
    mIndex.clear(); // nothing is recorded as a rule from here on
}

void AnimationContext::started(Microseconds now) {
    if (mStatus != COMMITTED)
        return;
    mStart = now + toMicroseconds(mDelay);
    mLastUpdate = mStart;
    mTimeInfo.start = toSeconds(mStart);
    mTimeInfo.progress = mReverse ? 1.0f : 0.0f;
    triggerCallbacks(this, AnimationEvent(AnimationEvent::STARTED));
    mStatus = RUNNING;
}

bool AnimationContext::update(Microseconds now) {
    mTimeInfo.time = toSeconds(now);
    const Microseconds elapsed = now - mStart;
    mTimeInfo.elapsed = toSeconds(elapsed);
    if (elapsed < 0)
        return false; // the delay still runs
    mTimeInfo.delta = toSeconds(now - mLastUpdate);
    const Microseconds duration = toMicroseconds(mTimeInfo.duration);
    if (elapsed < duration) {
        const float part = static_cast<float>(static_cast<double>(elapsed) / static_cast<double>(duration));
        mTimeInfo.progress = mReverse ? 1 - part : part;
        updateAnimations();
        triggerCallbacks(this, AnimationEvent(AnimationEvent::STEP));
        mLastUpdate = now;
        return false;
    }
    mTimeInfo.progress = mReverse ? 0.0f : 1.0f;
    updateAnimations();
    triggerCallbacks(this, AnimationEvent(AnimationEvent::FINISHED));
    mStatus = FINISHED;
    return true;
}

void AnimationContext::updateAnimations() {
    for (const core::SmartPtr<Animation> &animation : mAnimations)
        animation->update(mTimeInfo);
}

} // namespace nurel::ui
