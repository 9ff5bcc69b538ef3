#include "nui/ui/animation/AnimatedSize.h"

#include "nui/ui/Component.h"

namespace nurel::ui::animation {

constinit const core::Type AnimatedSize::TYPE("AnimatedSize", &Animation::TYPE);

AnimatedSize::AnimatedSize(Component *target) : Animation(target) {
    if (target) {
        mSourceAbsolute = mTargetAbsolute = mCurrentAbsolute = target->getComponentSize().absolute;
        mSourceRelative = mTargetRelative = mCurrentRelative = target->getComponentSize().relative;
    }
}

void AnimatedSize::setSize(const math::Vector2 &absolute, const math::Vector2 &relative) {
    mTargetAbsolute = absolute;
    mTargetRelative = relative;
}

void AnimatedSize::update(const TimeInfo &time) {
    if (time.progress < 1) {
        mCurrentAbsolute = (mTargetAbsolute - mSourceAbsolute) * time.progress + mSourceAbsolute;
        mCurrentRelative = (mTargetRelative - mSourceRelative) * time.progress + mSourceRelative;
    } else {
        mCurrentAbsolute = mTargetAbsolute;
        mCurrentRelative = mTargetRelative;
    }
    if (Component *component = getTarget())
        component->setSize(mCurrentAbsolute, mCurrentRelative);
}

} // namespace nurel::ui::animation
