#pragma once

#include "foundation/core/IRefCount.h"
#include "nmain/core/Names.h"
#include "nmain/math/Vector2.h"
#include "nmain/math/Vector3.h"

namespace nurel::ui {

/// A curve between two values: turns a progress t into a value, 0 standing for the first end and 1 for the second.
/// Vectors go through it axis by axis with the same t. Progress outside 0 to 1 is not clamped.
class Interpolator : public core::IRefCount {
public:
    float interpolate(float t, float a, float b) const { return _interpolate(t, a, b); }
    math::Vector2 interpolate(float t, const math::Vector2 &a, const math::Vector2 &b) const;
    void interpolate(float t, const math::Vector2 &a, const math::Vector2 &b, math::Vector2 &result) const;
    math::Vector3 interpolate(float t, const math::Vector3 &a, const math::Vector3 &b) const;
    void interpolate(float t, const math::Vector3 &a, const math::Vector3 &b, math::Vector3 &result) const;

protected:
    virtual float _interpolate(float t, float a, float b) const = 0;
};

} // namespace nurel::ui
