#pragma once

#include "nmain/math/Matrix3.h"
#include "nmain/math/Vector4.h"

namespace nurel::math {

/// A transformation or projection of space. Vectors are rows: a vector is transformed as v·M, the translation stands in
/// row 3, and A * B applies A first. Comparison is exact.
///
/// Projections map depth to -1 at the near plane and +1 at the far plane, and look along +z: element 11 is 1 in a
/// perspective, whose w is the depth, and 0 in everything else.
class Matrix4 {
public:
    static const Matrix4 IDENTITY;

    /// The identity.
    constexpr Matrix4() noexcept : m{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1} {}

    /// A rotation and a translation.
    constexpr explicit Matrix4(const Matrix3 &rotation, const Vector3 &translation = Vector3::ZERO) noexcept
        : m{rotation[0], rotation[1], rotation[2], 0, rotation[3],   rotation[4],   rotation[5],   0,
            rotation[6], rotation[7], rotation[8], 0, translation.x, translation.y, translation.z, 1} {}

    /// Scale first, then rotation, then translation: how a frame places its contents.
    constexpr Matrix4(const Vector3 &scale, const Matrix3 &rotation, const Vector3 &translation) noexcept
        : m{scale.x * rotation[0], scale.x * rotation[1], scale.x * rotation[2], 0,
            scale.y * rotation[3], scale.y * rotation[4], scale.y * rotation[5], 0,
            scale.z * rotation[6], scale.z * rotation[7], scale.z * rotation[8], 0,
            translation.x,         translation.y,         translation.z,         1} {}

    constexpr float &operator()(unsigned row, unsigned column) noexcept {
        assert(row < 4 && column < 4);
        return m[row * 4 + column];
    }
    constexpr float operator()(unsigned row, unsigned column) const noexcept {
        assert(row < 4 && column < 4);
        return m[row * 4 + column];
    }

    /// Elements row by row.
    constexpr float &operator[](unsigned index) noexcept {
        assert(index < 16);
        return m[index];
    }
    constexpr float operator[](unsigned index) const noexcept {
        assert(index < 16);
        return m[index];
    }

    /// The 16 elements row by row.
    constexpr const float *data() const noexcept { return m; }

    constexpr bool operator==(const Matrix4 &other) const noexcept = default;

    constexpr Matrix4 &identity() noexcept { return *this = Matrix4(); }

    /// Makes this a perspective projection. The angle is the vertical field of view in degrees, above 0 and below 180;
    /// aspect is width to height. Values that give no projection (aspect 0, near and far equal) leave the matrix alone.
    Matrix4 &perspective(float degrees, float aspect, float nearPlane, float farPlane) noexcept;

    /// Makes this a parallel projection of a box with the given width and height around the z axis. Values that give no
    /// projection leave the matrix alone.
    Matrix4 &orthographic(float width, float height, float nearPlane, float farPlane) noexcept;

    /// Whether column 3 is that of a transformation without projection.
    constexpr bool isAffine() const noexcept { return m[3] == 0 && m[7] == 0 && m[11] == 0 && m[15] == 1; }

    constexpr Vector3 getTranslation() const noexcept { return {m[12], m[13], m[14]}; }
    constexpr void setTranslation(const Vector3 &t) noexcept {
        m[12] = t.x;
        m[13] = t.y;
        m[14] = t.z;
    }

    /// The lengths of the images of the three axes.
    Vector3 getScale() const noexcept;

    /// Gives the images of the three axes these lengths and keeps their directions. An axis that was scaled to nothing
    /// has lost its direction and gets its own again. A negative length turns the axis round.
    void setScale(const Vector3 &scale) noexcept;

    /// The directions of the images of the three axes; an axis that is scaled to nothing keeps its own.
    Matrix3 getRotation() const noexcept;

    Matrix4 transpose() const noexcept;

    /// The identity for a matrix that has no inverse.
    Matrix4 inverse() const noexcept;

    /// Says whether there is an inverse. out is the identity otherwise, and may be this matrix.
    bool inverse(Matrix4 &out) const noexcept;

    /// This one first, then the other.
    constexpr Matrix4 operator*(const Matrix4 &b) const noexcept {
        Matrix4 product;
        for (unsigned row = 0; row < 16; row += 4) {
            const float x = m[row], y = m[row + 1], z = m[row + 2], w = m[row + 3];
            product.m[row] = x * b.m[0] + y * b.m[4] + z * b.m[8] + w * b.m[12];
            product.m[row + 1] = x * b.m[1] + y * b.m[5] + z * b.m[9] + w * b.m[13];
            product.m[row + 2] = x * b.m[2] + y * b.m[6] + z * b.m[10] + w * b.m[14];
            product.m[row + 3] = x * b.m[3] + y * b.m[7] + z * b.m[11] + w * b.m[15];
        }
        return product;
    }

    constexpr Matrix4 &operator*=(const Matrix4 &b) noexcept { return *this = *this * b; }

    /// The point transformed, v·M with w 1; the w of the result is dropped, nothing is divided by it.
    constexpr Vector3 operator*(const Vector3 &v) const noexcept {
        return {v.x * m[0] + v.y * m[4] + v.z * m[8] + m[12], v.x * m[1] + v.y * m[5] + v.z * m[9] + m[13],
                v.x * m[2] + v.y * m[6] + v.z * m[10] + m[14]};
    }

    /// The vector transformed: v·M.
    constexpr Vector4 operator*(const Vector4 &v) const noexcept {
        return {v.x * m[0] + v.y * m[4] + v.z * m[8] + v.w * m[12], v.x * m[1] + v.y * m[5] + v.z * m[9] + v.w * m[13],
                v.x * m[2] + v.y * m[6] + v.z * m[10] + v.w * m[14],
                v.x * m[3] + v.y * m[7] + v.z * m[11] + v.w * m[15]};
    }

private:
    float m[16];
};

inline constexpr Matrix4 Matrix4::IDENTITY;

} // namespace nurel::math
