#pragma once

#include "nmain/math/Vector2.h"
#include "nui/ui/Animation.h"

namespace nurel::ui::animation {

/// Leads a component's declared position in a straight line: the interpolator plays no part.
/// The source is what the component has when the animation is made, and so is the target until it is set.
class AnimatedPosition : public Animation {
public:
    static const core::Type TYPE;
    static const core::Type &type() { return TYPE; }
    const core::Type &getType() const override { return TYPE; }

    explicit AnimatedPosition(Component *target);

    /// The position to reach: pixels, and a factor of the parent's size.
    void setPosition(const math::Vector2 &absolute, const math::Vector2 &relative);

    // Sets the source's pixels but the target's factor: the source's factor stays what it was.
    void setSourcePosition(const math::Vector2 &absolute, const math::Vector2 &relative);

    /// Takes the source from the component's position of now.
    void syncSourcePosition();

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
