#include "nui/ui/animation/AnimatedRotation.h"

#include "nui/ui/Component.h"

namespace nurel::ui::animation {

constinit const core::Type AnimatedRotation::TYPE("AnimatedRotation", &Animation::TYPE);

AnimatedRotation::AnimatedRotation(Component *target) : Animation(target) {
    if (target)
        mSourceRotation = mTargetRotation = math::Quaternion(target->getRotation());
}

void AnimatedRotation::setRotation(const math::Matrix3 &rotation) {
    mTargetRotation = math::Quaternion(rotation);
}

void AnimatedRotation::update(const TimeInfo &time) {
    const math::Quaternion current =
        time.progress < 1 ? mSourceRotation.slerp(mTargetRotation, time.progress) : mTargetRotation;
    if (Component *component = getTarget())
        component->setRotation(current.buildMatrix());
}

} // namespace nurel::ui::animation
