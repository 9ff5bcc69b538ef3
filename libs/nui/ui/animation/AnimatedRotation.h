#pragma once

#include "nmain/math/Matrix3.h"
#include "nmain/math/Quaternion.h"
#include "nui/ui/Animation.h"

namespace nurel::ui::animation {

/// Turns a component the short way, at an even speed: the interpolator plays no part.
/// The source is what the component has when the animation is made, and so is the target until it is set.
class AnimatedRotation : public Animation {
public:
    static const core::Type TYPE;
    static const core::Type &type() { return TYPE; }
    const core::Type &getType() const override { return TYPE; }

    explicit AnimatedRotation(Component *target);

    /// The rotation to reach.
    void setRotation(const math::Matrix3 &rotation);

    void update(const TimeInfo &time) override;

private:
    math::Quaternion mSourceRotation;
    math::Quaternion mTargetRotation;
};

} // namespace nurel::ui::animation
