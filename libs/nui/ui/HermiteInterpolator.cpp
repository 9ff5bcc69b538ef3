#include "nui/ui/HermiteInterpolator.h"

namespace nurel::ui {

float HermiteInterpolator::_interpolate(float t, float a, float b) const {
    const float t2 = t * t;
    const float t3 = t2 * t;
    return (2 * t3 - 3 * t2 + 1) * a + (3 * t2 - 2 * t3) * b + (t3 - 2 * t2 + t) * mTangentOut + (t3 - t2) * mTangentIn;
}

} // namespace nurel::ui
