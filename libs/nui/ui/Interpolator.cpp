#include "nui/ui/Interpolator.h"

namespace nurel::ui {

math::Vector2 Interpolator::interpolate(float t, const math::Vector2 &a, const math::Vector2 &b) const {
    return math::Vector2(_interpolate(t, a.x, b.x), _interpolate(t, a.y, b.y));
}

void Interpolator::interpolate(float t, const math::Vector2 &a, const math::Vector2 &b, math::Vector2 &result) const {
    result = interpolate(t, a, b);
}

math::Vector3 Interpolator::interpolate(float t, const math::Vector3 &a, const math::Vector3 &b) const {
    return math::Vector3(_interpolate(t, a.x, b.x), _interpolate(t, a.y, b.y), _interpolate(t, a.z, b.z));
}

void Interpolator::interpolate(float t, const math::Vector3 &a, const math::Vector3 &b, math::Vector3 &result) const {
    result = interpolate(t, a, b);
}

} // namespace nurel::ui
