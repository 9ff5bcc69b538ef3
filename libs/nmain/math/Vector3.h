#pragma once

#include "nmain/math/Vector2.h"

namespace nurel::math {

/// Three floats. Operators work by component; comparison is exact.
class Vector3 {
public:
    static const Vector3 ZERO;
    static const Vector3 ONE;
    static const Vector3 HALF;
    static const Vector3 AXIS_X;
    static const Vector3 AXIS_Y;
    static const Vector3 AXIS_Z;
    static const Vector3 WHITE;

    constexpr Vector3() noexcept : x(0), y(0), z(0) {}
    constexpr Vector3(float xValue, float yValue, float zValue) noexcept : x(xValue), y(yValue), z(zValue) {}
    constexpr Vector3(const Vector2 &v, float zValue = 0) noexcept : x(v.x), y(v.y), z(zValue) {}

    /// Drops w. Needs Vector4.h.
    constexpr explicit Vector3(const Vector4 &v) noexcept;

    /// Takes x and y; z stays as it is.
    constexpr Vector3 &operator=(const Vector2 &v) noexcept {
        x = v.x;
        y = v.y;
        return *this;
    }

    constexpr float &operator[](unsigned index) noexcept {
        assert(index < 3);
        return index == 0 ? x : index == 1 ? y : z;
    }
    constexpr float operator[](unsigned index) const noexcept {
        assert(index < 3);
        return index == 0 ? x : index == 1 ? y : z;
    }

    constexpr bool operator==(const Vector3 &other) const noexcept = default;

    constexpr Vector3 operator-() const noexcept { return {-x, -y, -z}; }
    constexpr Vector3 operator+(const Vector3 &v) const noexcept { return {x + v.x, y + v.y, z + v.z}; }
    constexpr Vector3 operator-(const Vector3 &v) const noexcept { return {x - v.x, y - v.y, z - v.z}; }
    constexpr Vector3 operator*(const Vector3 &v) const noexcept { return {x * v.x, y * v.y, z * v.z}; }
    constexpr Vector3 operator/(const Vector3 &v) const noexcept { return {x / v.x, y / v.y, z / v.z}; }
    constexpr Vector3 operator*(float f) const noexcept { return {x * f, y * f, z * f}; }
    constexpr Vector3 operator/(float f) const noexcept { return {x / f, y / f, z / f}; }
    friend constexpr Vector3 operator*(float f, const Vector3 &v) noexcept { return v * f; }

    constexpr Vector3 &operator+=(const Vector3 &v) noexcept { return *this = *this + v; }
    constexpr Vector3 &operator-=(const Vector3 &v) noexcept { return *this = *this - v; }
    constexpr Vector3 &operator*=(const Vector3 &v) noexcept { return *this = *this * v; }
    constexpr Vector3 &operator/=(const Vector3 &v) noexcept { return *this = *this / v; }
    constexpr Vector3 &operator*=(float f) noexcept { return *this = *this * f; }
    constexpr Vector3 &operator/=(float f) noexcept { return *this = *this / f; }

    constexpr float dot(const Vector3 &v) const noexcept { return x * v.x + y * v.y + z * v.z; }
    constexpr Vector3 cross(const Vector3 &v) const noexcept {
        return {y * v.z - z * v.y, z * v.x - x * v.z, x * v.y - y * v.x};
    }
    constexpr float lengthSquared() const noexcept { return dot(*this); }
    float length() const noexcept { return std::sqrt(lengthSquared()); }

    /// Makes the length 1; zero stays zero.
    Vector3 &normalize() noexcept {
        const float l = length();
        return l > 0 ? *this /= l : *this;
    }

    float x, y, z;
};

inline constexpr Vector3 Vector3::ZERO(0, 0, 0);
inline constexpr Vector3 Vector3::ONE(1, 1, 1);
inline constexpr Vector3 Vector3::HALF(0.5f, 0.5f, 0.5f);
inline constexpr Vector3 Vector3::AXIS_X(1, 0, 0);
inline constexpr Vector3 Vector3::AXIS_Y(0, 1, 0);
inline constexpr Vector3 Vector3::AXIS_Z(0, 0, 1);
inline constexpr Vector3 Vector3::WHITE(1, 1, 1);

constexpr Vector2::Vector2(const Vector3 &v) noexcept : x(v.x), y(v.y) {}

} // namespace nurel::math
