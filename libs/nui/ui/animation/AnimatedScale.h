#pragma once

#include "nmain/math/Vector2.h"
#include "nui/ui/Animation.h"

namespace nurel::ui::animation {

/// Leads a component's own scale along the interpolator's curve, axis by axis.
/// The source is what the component has when the animation is made, and so is the target until it is set.
class AnimatedScale : public Animation {
public:
    static const core::Type TYPE;
    static const core::Type &type() { return TYPE; }
    const core::Type &getType() const override { return TYPE; }

    explicit AnimatedScale(Component *target);

    /// The scale to reach.
    void setScale(const math::Vector2 &scale);

    void update(const TimeInfo &time) override;

private:
    math::Vector2 mSourceScale = math::Vector2(1, 1);
    math::Vector2 mTargetScale = math::Vector2(1, 1);
    math::Vector2 mCurrentScale = math::Vector2(1, 1);
};

} // namespace nurel::ui::animation
