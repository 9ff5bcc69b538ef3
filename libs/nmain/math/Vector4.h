#pragma once

#include "nmain/math/Vector3.h"

namespace nurel::math {

/// Four floats: a point with w, a colour (red, green, blue, alpha), or the sides of a box (top, right, bottom, left).
/// Operators work by component; comparison is exact.
class Vector4 {
public:
    static const Vector4 ZERO;
    static const Vector4 ONE;
    static const Vector4 HALF;
    static const Vector4 WHITE;

    constexpr Vector4() noexcept : x(0), y(0), z(0), w(0) {}
    constexpr Vector4(float xValue, float yValue, float zValue, float wValue) noexcept
        : x(xValue), y(yValue), z(zValue), w(wValue) {}
    constexpr Vector4(const Vector3 &v, float wValue) noexcept : x(v.x), y(v.y), z(v.z), w(wValue) {}

    /// Takes x, y and z; w stays as it is.
    constexpr Vector4 &operator=(const Vector3 &v) noexcept {
        x = v.x;
        y = v.y;
        z = v.z;
        return *this;
    }

    constexpr float &operator[](unsigned index) noexcept {
        assert(index < 4);
        return index == 0 ? x : index == 1 ? y : index == 2 ? z : w;
    }
    constexpr float operator[](unsigned index) const noexcept {
        assert(index < 4);
        return index == 0 ? x : index == 1 ? y : index == 2 ? z : w;
    }

    constexpr bool operator==(const Vector4 &other) const noexcept = default;

    constexpr Vector4 operator-() const noexcept { return {-x, -y, -z, -w}; }
    constexpr Vector4 operator+(const Vector4 &v) const noexcept { return {x + v.x, y + v.y, z + v.z, w + v.w}; }
    constexpr Vector4 operator-(const Vector4 &v) const noexcept { return {x - v.x, y - v.y, z - v.z, w - v.w}; }
    constexpr Vector4 operator*(const Vector4 &v) const noexcept { return {x * v.x, y * v.y, z * v.z, w * v.w}; }
    constexpr Vector4 operator/(const Vector4 &v) const noexcept { return {x / v.x, y / v.y, z / v.z, w / v.w}; }
    constexpr Vector4 operator*(float f) const noexcept { return {x * f, y * f, z * f, w * f}; }
    constexpr Vector4 operator/(float f) const noexcept { return {x / f, y / f, z / f, w / f}; }
    friend constexpr Vector4 operator*(float f, const Vector4 &v) noexcept { return v * f; }

    constexpr Vector4 &operator+=(const Vector4 &v) noexcept { return *this = *this + v; }
    constexpr Vector4 &operator-=(const Vector4 &v) noexcept { return *this = *this - v; }
    constexpr Vector4 &operator*=(const Vector4 &v) noexcept { return *this = *this * v; }
    constexpr Vector4 &operator/=(const Vector4 &v) noexcept { return *this = *this / v; }
    constexpr Vector4 &operator*=(float f) noexcept { return *this = *this * f; }
    constexpr Vector4 &operator/=(float f) noexcept { return *this = *this / f; }

    constexpr float dot(const Vector4 &v) const noexcept { return x * v.x + y * v.y + z * v.z + w * v.w; }
    constexpr float lengthSquared() const noexcept { return dot(*this); }
    float length() const noexcept { return std::sqrt(lengthSquared()); }

    /// Makes the length 1; zero stays zero.
    Vector4 &normalize() noexcept {
        const float l = length();
        return l > 0 ? *this /= l : *this;
    }

    float x, y, z, w;
};

inline constexpr Vector4 Vector4::ZERO(0, 0, 0, 0);
inline constexpr Vector4 Vector4::ONE(1, 1, 1, 1);
inline constexpr Vector4 Vector4::HALF(0.5f, 0.5f, 0.5f, 0.5f);
inline constexpr Vector4 Vector4::WHITE(1, 1, 1, 1);

constexpr Vector3::Vector3(const Vector4 &v) noexcept : x(v.x), y(v.y), z(v.z) {}

} // namespace nurel::math
