#pragma once

#include "nmain/math/Fwd.h"

#include <cassert>
#include <cmath>

namespace nurel::math {

/// Two floats. Operators work by component; comparison is exact.
class Vector2 {
public:
    static const Vector2 ZERO;
    static const Vector2 ONE;
    static const Vector2 HALF;
    static const Vector2 AXIS_X;
    static const Vector2 AXIS_Y;

    constexpr Vector2() noexcept : x(0), y(0) {}
    constexpr Vector2(float xValue, float yValue) noexcept : x(xValue), y(yValue) {}

    /// Drops z. Needs Vector3.h.
    constexpr explicit Vector2(const Vector3 &v) noexcept;

    constexpr float &operator[](unsigned index) noexcept {
        assert(index < 2);
        return index == 0 ? x : y;
    }
    constexpr float operator[](unsigned index) const noexcept {
        assert(index < 2);
        return index == 0 ? x : y;
    }

    constexpr bool operator==(const Vector2 &other) const noexcept = default;

    constexpr Vector2 operator-() const noexcept { return {-x, -y}; }
    constexpr Vector2 operator+(const Vector2 &v) const noexcept { return {x + v.x, y + v.y}; }
    constexpr Vector2 operator-(const Vector2 &v) const noexcept { return {x - v.x, y - v.y}; }
    constexpr Vector2 operator*(const Vector2 &v) const noexcept { return {x * v.x, y * v.y}; }
    constexpr Vector2 operator/(const Vector2 &v) const noexcept { return {x / v.x, y / v.y}; }
    constexpr Vector2 operator*(float f) const noexcept { return {x * f, y * f}; }
    constexpr Vector2 operator/(float f) const noexcept { return {x / f, y / f}; }
    friend constexpr Vector2 operator*(float f, const Vector2 &v) noexcept { return v * f; }

    constexpr Vector2 &operator+=(const Vector2 &v) noexcept { return *this = *this + v; }
    constexpr Vector2 &operator-=(const Vector2 &v) noexcept { return *this = *this - v; }
    constexpr Vector2 &operator*=(const Vector2 &v) noexcept { return *this = *this * v; }
    constexpr Vector2 &operator/=(const Vector2 &v) noexcept { return *this = *this / v; }
    constexpr Vector2 &operator*=(float f) noexcept { return *this = *this * f; }
    constexpr Vector2 &operator/=(float f) noexcept { return *this = *this / f; }

    constexpr float dot(const Vector2 &v) const noexcept { return x * v.x + y * v.y; }
    constexpr float lengthSquared() const noexcept { return dot(*this); }
    float length() const noexcept { return std::sqrt(lengthSquared()); }

    /// Makes the length 1; zero stays zero.
    Vector2 &normalize() noexcept {
        const float l = length();
        return l > 0 ? *this /= l : *this;
    }

    float x, y;
};

inline constexpr Vector2 Vector2::ZERO(0, 0);
inline constexpr Vector2 Vector2::ONE(1, 1);
inline constexpr Vector2 Vector2::HALF(0.5f, 0.5f);
inline constexpr Vector2 Vector2::AXIS_X(1, 0);
inline constexpr Vector2 Vector2::AXIS_Y(0, 1);

} // namespace nurel::math
