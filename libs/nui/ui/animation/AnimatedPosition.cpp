#include "nui/ui/animation/AnimatedPosition.h"

#include "nui/ui/Component.h"

namespace nurel::ui::animation {

constinit const core::Type AnimatedPosition::TYPE("AnimatedPosition", &Animation::TYPE);

AnimatedPosition::AnimatedPosition(Component *target) : Animation(target) {
    syncSourcePosition();
    mTargetAbsolute = mCurrentAbsolute = mSourceAbsolute;
    mTargetRelative = mCurrentRelative = mSourceRelative;
}

void AnimatedPosition::setPosition(const math::Vector2 &absolute, const math::Vector2 &relative) {
    mTargetAbsolute = absolute;
    mTargetRelative = relative;
}

void AnimatedPosition::setSourcePosition(const math::Vector2 &absolute, const math::Vector2 &relative) {
    mSourceAbsolute = absolute;
    mTargetRelative = relative; // the target's, not the source's
}

void AnimatedPosition::syncSourcePosition() {
    if (const Component *component = getTarget()) {
        mSourceAbsolute = component->getComponentPosition().absolute;
        mSourceRelative = component->getComponentPosition().relative;
    }
}

void AnimatedPosition::update(const TimeInfo &time) {
    if (time.progress < 1) {
        mCurrentAbsolute = (mTargetAbsolute - mSourceAbsolute) * time.progress + mSourceAbsolute;
        mCurrentRelative = (mTargetRelative - mSourceRelative) * time.progress + mSourceRelative;
    } else {
        mCurrentAbsolute = mTargetAbsolute;
        mCurrentRelative = mTargetRelative;
    }
    if (Component *component = getTarget())
        component->setPosition(mCurrentAbsolute, mCurrentRelative);
}

} // namespace nurel::ui::animation
