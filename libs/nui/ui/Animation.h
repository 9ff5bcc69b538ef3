#pragma once

#include "foundation/core/SmartPtr.h"
#include "nmain/core/Object.h"
#include "nmain/math/Vector2.h"
#include "nmain/math/Vector3.h"
#include "nui/ui/Fwd.h"

#include <cstdint>

namespace nurel::ui {

/// One animated property of one component. It never runs by itself: an `AnimationContext` holds it and gives it the
/// time. The component stays alive for as long as an animation refers to it.
class Animation : public core::Object {
public:
    static const core::Type TYPE;
    static const core::Type &type() { return TYPE; }
    const core::Type &getType() const override { return TYPE; }

    /// The clock that a context passes down; seconds, except the progress.
    struct TimeInfo {
        float start = 0;    ///< when the run begins, the delay included
        float duration = 0; ///< length of the run
        float time = 0;     ///< now
        float elapsed = 0;  ///< since the start; below 0 during the delay
        float delta = 0;    ///< since the update before
        float progress = 0; ///< 0 to 1, or 1 to 0 when the context is reversed
    };

    ~Animation() override;

    Component *getTarget() const { return mTarget.get(); }
    void setTarget(Component *target);

    /// A `HermiteInterpolator` with tangents of 0 unless another one was set.
    Interpolator *getInterpolator() const { return mInterpolator.get(); }

    /// Null makes the curve a straight line.
    void setInterpolator(Interpolator *interpolator);

    /// Applies the property's value at that time to the target. Does nothing without a target.
    virtual void update(const TimeInfo &time) = 0;

    /// How often any animation has changed its target: who remembers targets looks here whether they still hold.
    static std::uint64_t getTargetChanges() { return mTargetChanges; }

protected:
    explicit Animation(Component *target);

    float interpolate(float t, float a, float b) const;
    math::Vector2 interpolate(float t, const math::Vector2 &a, const math::Vector2 &b) const;
    void interpolate(float t, const math::Vector2 &a, const math::Vector2 &b, math::Vector2 &result) const;
    math::Vector3 interpolate(float t, const math::Vector3 &a, const math::Vector3 &b) const;
    void interpolate(float t, const math::Vector3 &a, const math::Vector3 &b, math::Vector3 &result) const;

private:
    static std::uint64_t mTargetChanges;

    core::SmartPtr<Component> mTarget;
    core::SmartPtr<Interpolator> mInterpolator;
};

} // namespace nurel::ui
