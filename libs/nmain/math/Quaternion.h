#pragma once

#include "nmain/math/Matrix3.h"

namespace nurel::math {

/// A rotation that can be interpolated. A quaternion and its negative are the same rotation, but compare as different.
class Quaternion {
public:
    /// No rotation.
    constexpr Quaternion() noexcept : x(0), y(0), z(0), w(1) {}
    constexpr Quaternion(float xValue, float yValue, float zValue, float wValue) noexcept
        : x(xValue), y(yValue), z(zValue), w(wValue) {}

    /// The rotation of a matrix whose rows are at right angles and of length 1; of any other matrix, some rotation.
    explicit Quaternion(const Matrix3 &rotation) noexcept;

    Matrix3 buildMatrix() const noexcept;

    /// The rotation at t on the shorter way from this one (t 0) to the other (t 1); t may lie beyond both ends.
    Quaternion slerp(const Quaternion &other, float t) const noexcept;

    constexpr float dot(const Quaternion &q) const noexcept { return x * q.x + y * q.y + z * q.z + w * q.w; }

    /// Makes the length 1; zero becomes no rotation.
    Quaternion &normalize() noexcept;

    constexpr bool operator==(const Quaternion &other) const noexcept = default;

    float x, y, z, w;
};

} // namespace nurel::math
