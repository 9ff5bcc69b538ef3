#include "nui/ui/animation/AnimatedOpacity.h"

#include "nui/ui/Component.h"

namespace nurel::ui::animation {

constinit const core::Type AnimatedOpacity::TYPE("AnimatedOpacity", &Animation::TYPE);

AnimatedOpacity::AnimatedOpacity(Component *target) : Animation(target) {
    if (target)
        mSourceOpacity = mTargetOpacity = mCurrentOpacity = target->getOpacity();
}

void AnimatedOpacity::setOpacity(float opacity, bool recursive) {
    mTargetOpacity = opacity;
    mRecursive = recursive;
}

void AnimatedOpacity::update(const TimeInfo &time) {
    mCurrentOpacity = time.progress < 1 ? interpolate(time.progress, mSourceOpacity, mTargetOpacity) : mTargetOpacity;
    if (Component *component = getTarget())
        component->setOpacity(mCurrentOpacity, mRecursive);
}

} // namespace nurel::ui::animation
