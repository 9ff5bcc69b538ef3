#pragma once

#include "nui/ui/Interpolator.h"

namespace nurel::ui {

/// The cubic Hermite curve. The tangents are the slopes at the two ends in units of the value, not scaled by the
/// distance between the ends. Both 0, the default, give an ease that starts and ends at rest.
class HermiteInterpolator : public Interpolator {
public:
    explicit HermiteInterpolator(float tangentOut = 0, float tangentIn = 0)
        : mTangentOut(tangentOut), mTangentIn(tangentIn) {}

    /// The slope where the curve leaves the first value.
    float getTangentOut() const { return mTangentOut; }
    void setTangentOut(float tangent) { mTangentOut = tangent; }

    /// The slope where the curve comes into the second value.
    float getTangentIn() const { return mTangentIn; }
    void setTangentIn(float tangent) { mTangentIn = tangent; }

protected:
    float _interpolate(float t, float a, float b) const override;

private:
    float mTangentOut;
    float mTangentIn;
};

} // namespace nurel::ui
