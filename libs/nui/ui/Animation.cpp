#include "nui/ui/Animation.h"

#include "nui/ui/Component.h"
#include "nui/ui/HermiteInterpolator.h"

namespace nurel::ui {

constinit const core::Type Animation::TYPE("Animation", &core::Object::TYPE);

constinit std::uint64_t Animation::mTargetChanges = 0;

Animation::Animation(Component *target) : mTarget(target), mInterpolator(new HermiteInterpolator) {}

Animation::~Animation() = default;

void Animation::setTarget(Component *target) {
    ++mTargetChanges;
    mTarget = target;
}

void Animation::setInterpolator(Interpolator *interpolator) {
    mInterpolator = interpolator;
}

float Animation::interpolate(float t, float a, float b) const {
    return mInterpolator ? mInterpolator->interpolate(t, a, b) : (b - a) * t + a;
}

math::Vector2 Animation::interpolate(float t, const math::Vector2 &a, const math::Vector2 &b) const {
    return mInterpolator ? mInterpolator->interpolate(t, a, b) : (b - a) * t + a;
}

void Animation::interpolate(float t, const math::Vector2 &a, const math::Vector2 &b, math::Vector2 &result) const {
    result = interpolate(t, a, b);
}

math::Vector3 Animation::interpolate(float t, const math::Vector3 &a, const math::Vector3 &b) const {
    return mInterpolator ? mInterpolator->interpolate(t, a, b) : (b - a) * t + a;
}

void Animation::interpolate(float t, const math::Vector3 &a, const math::Vector3 &b, math::Vector3 &result) const {
    result = interpolate(t, a, b);
}

} // namespace nurel::ui
