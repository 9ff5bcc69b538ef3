#pragma once

#include "nmain/math/Vector3.h"

namespace nurel::math {

/// A 3 by 3 matrix, as a rule a rotation. Vectors are rows: a vector is transformed as v·M, and row i is the image of
/// axis i. Comparison is exact.
class Matrix3 {
public:
    static const Matrix3 IDENTITY;

    /// The identity.
    constexpr Matrix3() noexcept : m{1, 0, 0, 0, 1, 0, 0, 0, 1} {}

    /// From the images of the three axes; with rows false the vectors become the columns.
    constexpr Matrix3(const Vector3 &a, const Vector3 &b, const Vector3 &c, bool rows = true) noexcept
        : m{a.x, a.y, a.z, b.x, b.y, b.z, c.x, c.y, c.z} {
        if (!rows)
            *this = transpose();
    }

    /// The rotation by an angle in radians around an axis of any length, from x towards y around the z axis. An axis of
    /// length 0 gives the identity.
    Matrix3(float radians, const Vector3 &axis) noexcept;

    constexpr float &operator()(unsigned row, unsigned column) noexcept {
        assert(row < 3 && column < 3);
        return m[row * 3 + column];
    }
    constexpr float operator()(unsigned row, unsigned column) const noexcept {
        assert(row < 3 && column < 3);
        return m[row * 3 + column];
    }

    /// Elements row by row.
    constexpr float &operator[](unsigned index) noexcept {
        assert(index < 9);
        return m[index];
    }
    constexpr float operator[](unsigned index) const noexcept {
        assert(index < 9);
        return m[index];
    }

    constexpr bool operator==(const Matrix3 &other) const noexcept = default;

    constexpr Vector3 getRow(unsigned row) const noexcept {
        return {(*this)(row, 0), (*this)(row, 1), (*this)(row, 2)};
    }

    /// This one first, then the other.
    constexpr Matrix3 operator*(const Matrix3 &other) const noexcept {
        Matrix3 product;
        for (unsigned row = 0; row < 3; ++row) {
            const float *a = m + row * 3;
            for (unsigned column = 0; column < 3; ++column)
                product.m[row * 3 + column] =
                    a[0] * other.m[column] + a[1] * other.m[3 + column] + a[2] * other.m[6 + column];
        }
        return product;
    }

    /// The vector transformed: v·M.
    constexpr Vector3 operator*(const Vector3 &v) const noexcept {
        return {v.x * m[0] + v.y * m[3] + v.z * m[6], v.x * m[1] + v.y * m[4] + v.z * m[7],
                v.x * m[2] + v.y * m[5] + v.z * m[8]};
    }

    /// The inverse of a rotation.
    constexpr Matrix3 transpose() const noexcept {
        Matrix3 t;
        for (unsigned row = 0; row < 3; ++row) {
            for (unsigned column = 0; column < 3; ++column)
                t.m[column * 3 + row] = m[row * 3 + column];
        }
        return t;
    }

private:
    float m[9];
};

inline constexpr Matrix3 Matrix3::IDENTITY;

} // namespace nurel::math
