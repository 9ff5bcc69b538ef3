#pragma once

#include "nmain/math/Vector2.h"
#include "nui/ui/Animation.h"

namespace nurel::ui::animation {

/// Leads a component's declared size in a straight line: the interpolator plays no part.
/// The source is what the component has when the animation is made, and so is the target until it is set.
class AnimatedSize : public Animation {
public:
    static const core::Type TYPE;
    static const core::Type &type() { return TYPE; }
    const core::Type &getType() const override { return TYPE; }

    explicit AnimatedSize(Component *target);

    /// The size to reach: pixels, and a factor of the parent's size.
    void setSize(const math::Vector2 &absolute, const math::Vector2 &relative);

    void update(const TimeInfo &time) override;

private:
    math::Vector2 mSourceAbsolute = math::Vector2(0, 0);
    math::Vector2 mSourceRelative = math::Vector2(0, 0);
    math::Vector2 mTargetAbsolute = math::Vector2(0, 0);
    math::Vector2 mTargetRelative = math::Vector2(0, 0);
    math::Vector2 mCurrentAbsolute = math::Vector2(0, 0);
    math::Vector2 mCurrentRelative = math::Vector2(0, 0);
};

} // namespace nurel::ui::animation
