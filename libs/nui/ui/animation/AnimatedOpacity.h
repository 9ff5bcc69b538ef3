#pragma once

#include "nui/ui/Animation.h"

namespace nurel::ui::animation {

/// Leads a component's opacity along the interpolator's curve.
/// The source is what the component has when the animation is made, and so is the target until it is set.
class AnimatedOpacity : public Animation {
public:
    static const core::Type TYPE;
    static const core::Type &type() { return TYPE; }
    const core::Type &getType() const override { return TYPE; }

    explicit AnimatedOpacity(Component *target);

    /// The opacity to reach, and whether it goes through the whole subtree.
    void setOpacity(float opacity, bool recursive);

    float getOpacity() const { return mTargetOpacity; }

    void update(const TimeInfo &time) override;

private:
    float mSourceOpacity = 1;
    float mTargetOpacity = 1;
    float mCurrentOpacity = 1;
    bool mRecursive = false;
};

} // namespace nurel::ui::animation
