#include "nui/ui/animation/AnimatedScale.h"

#include "nui/ui/Component.h"

namespace nurel::ui::animation {

constinit const core::Type AnimatedScale::TYPE("AnimatedScale", &Animation::TYPE);

AnimatedScale::AnimatedScale(Component *target) : Animation(target) {
    if (target)
        mSourceScale = mTargetScale = mCurrentScale = target->getScale();
}

void AnimatedScale::setScale(const math::Vector2 &scale) {
    mTargetScale = scale;
}

void AnimatedScale::update(const TimeInfo &time) {
    if (time.progress < 1) {
        mCurrentScale.y = interpolate(time.progress, mSourceScale.y, mTargetScale.y);
        mCurrentScale.x = interpolate(time.progress, mSourceScale.x, mTargetScale.x);
    } else {
        mCurrentScale = mTargetScale;
    }
    if (Component *component = getTarget())
        component->setScale(mCurrentScale);
}

} // namespace nurel::ui::animation
