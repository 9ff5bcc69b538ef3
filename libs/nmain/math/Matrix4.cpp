#include "nmain/math/Matrix4.h"

#include <numbers>

namespace nurel::math {

namespace {

/// Below this share of the largest volume that vectors of their lengths can span, axes count as lying in one plane.
constexpr double FLATNESS = 1e-14;

double getRowLength(const float *row, unsigned count) {
    double sum = 0;
    for (unsigned i = 0; i < count; ++i)
        sum += static_cast<double>(row[i]) * row[i];
    return std::sqrt(sum);
}

bool isInvertible(double determinant, double largest) {
    return std::isfinite(determinant) && std::isfinite(largest) && std::fabs(determinant) > FLATNESS * largest;
}

bool isFinite(const Matrix4 &matrix) {
    for (unsigned i = 0; i < 16; ++i) {
        if (!std::isfinite(matrix[i]))
            return false;
    }
    return true;
}

/// A matrix without projection: the inverse of its 3 by 3 part, and the translation taken back through that.
bool invertAffine(const Matrix4 &m, Matrix4 &out) {
    const double a = m[0], b = m[1], c = m[2], d = m[4], e = m[5], f = m[6], g = m[8], h = m[9], i = m[10];
    const double determinant = a * (e * i - f * h) - b * (d * i - f * g) + c * (d * h - e * g);
    const float *rows = m.data();
    if (!isInvertible(determinant, getRowLength(rows, 3) * getRowLength(rows + 4, 3) * getRowLength(rows + 8, 3)))
        return false;
    const double inverse[3][3] = {
        {(e * i - f * h) / determinant, (c * h - b * i) / determinant, (b * f - c * e) / determinant},
        {(f * g - d * i) / determinant, (a * i - c * g) / determinant, (c * d - a * f) / determinant},
        {(d * h - e * g) / determinant, (b * g - a * h) / determinant, (a * e - b * d) / determinant}};
    for (unsigned column = 0; column < 3; ++column) {
        for (unsigned row = 0; row < 3; ++row)
            out(row, column) = static_cast<float>(inverse[row][column]);
        out(3, column) =
            static_cast<float>(-(m[12] * inverse[0][column] + m[13] * inverse[1][column] + m[14] * inverse[2][column]));
    }
    return true;
}

/// Any matrix, by the 2 by 2 minors of its upper (s) and lower (c) half.
bool invertGeneral(const Matrix4 &source, Matrix4 &out) {
    double m[16];
    for (unsigned i = 0; i < 16; ++i)
        m[i] = source[i];
    const double s0 = m[0] * m[5] - m[4] * m[1], s1 = m[0] * m[6] - m[4] * m[2], s2 = m[0] * m[7] - m[4] * m[3];
    const double s3 = m[1] * m[6] - m[5] * m[2], s4 = m[1] * m[7] - m[5] * m[3], s5 = m[2] * m[7] - m[6] * m[3];
    const double c5 = m[10] * m[15] - m[14] * m[11], c4 = m[9] * m[15] - m[13] * m[11];
    const double c3 = m[9] * m[14] - m[13] * m[10], c2 = m[8] * m[15] - m[12] * m[11];
    const double c1 = m[8] * m[14] - m[12] * m[10], c0 = m[8] * m[13] - m[12] * m[9];
    const double determinant = s0 * c5 - s1 * c4 + s2 * c3 + s3 * c2 - s4 * c1 + s5 * c0;
    const float *rows = source.data();
    if (!isInvertible(determinant, getRowLength(rows, 4) * getRowLength(rows + 4, 4) * getRowLength(rows + 8, 4) *
                                       getRowLength(rows + 12, 4)))
        return false;
    const double adjugate[16] = {m[5] * c5 - m[6] * c4 + m[7] * c3,     -m[1] * c5 + m[2] * c4 - m[3] * c3,
                                 m[13] * s5 - m[14] * s4 + m[15] * s3,  -m[9] * s5 + m[10] * s4 - m[11] * s3,
                                 -m[4] * c5 + m[6] * c2 - m[7] * c1,    m[0] * c5 - m[2] * c2 + m[3] * c1,
                                 -m[12] * s5 + m[14] * s2 - m[15] * s1, m[8] * s5 - m[10] * s2 + m[11] * s1,
                                 m[4] * c4 - m[5] * c2 + m[7] * c0,     -m[0] * c4 + m[1] * c2 - m[3] * c0,
                                 m[12] * s4 - m[13] * s2 + m[15] * s0,  -m[8] * s4 + m[9] * s2 - m[11] * s0,
                                 -m[4] * c3 + m[5] * c1 - m[6] * c0,    m[0] * c3 - m[1] * c1 + m[2] * c0,
                                 -m[12] * s3 + m[13] * s1 - m[14] * s0, m[8] * s3 - m[9] * s1 + m[10] * s0};
    for (unsigned i = 0; i < 16; ++i)
        out[i] = static_cast<float>(adjugate[i] / determinant);
    return true;
}

} // namespace

Matrix4 &Matrix4::perspective(float degrees, float aspect, float nearPlane, float farPlane) noexcept {
    const float depth = farPlane - nearPlane;
    if (!(degrees > 0) || !(degrees < 180) || aspect == 0 || depth == 0)
        return *this;
    const float factor = 1 / std::tan(degrees * std::numbers::pi_v<float> / 360);
    identity();
    m[0] = factor / aspect;
    m[5] = factor;
    m[10] = (farPlane + nearPlane) / depth;
    m[11] = 1;
    m[14] = -2 * farPlane * nearPlane / depth;
    m[15] = 0;
    return *this;
}

Matrix4 &Matrix4::orthographic(float width, float height, float nearPlane, float farPlane) noexcept {
    const float depth = farPlane - nearPlane;
    if (width == 0 || height == 0 || depth == 0)
        return *this;
    identity();
    m[0] = 2 / width;
    m[5] = 2 / height;
    m[10] = 2 / depth;
    m[14] = -(farPlane + nearPlane) / depth;
    return *this;
}

Vector3 Matrix4::getScale() const noexcept {
    return {Vector3(m[0], m[1], m[2]).length(), Vector3(m[4], m[5], m[6]).length(),
            Vector3(m[8], m[9], m[10]).length()};
}

void Matrix4::setScale(const Vector3 &scale) noexcept {
    const Matrix3 rotation = getRotation();
    for (unsigned row = 0; row < 3; ++row) {
        for (unsigned column = 0; column < 3; ++column)
            m[row * 4 + column] = scale[row] * rotation(row, column);
    }
}

Matrix3 Matrix4::getRotation() const noexcept {
    Matrix3 rotation;
    const Vector3 scale = getScale();
    for (unsigned row = 0; row < 3; ++row) {
        if (!(scale[row] > 0))
            continue;
        for (unsigned column = 0; column < 3; ++column)
            rotation(row, column) = m[row * 4 + column] / scale[row];
    }
    return rotation;
}

Matrix4 Matrix4::transpose() const noexcept {
    Matrix4 t;
    for (unsigned row = 0; row < 4; ++row) {
        for (unsigned column = 0; column < 4; ++column)
            t(column, row) = (*this)(row, column);
    }
    return t;
}

Matrix4 Matrix4::inverse() const noexcept {
    Matrix4 inverted;
    inverse(inverted);
    return inverted;
}

bool Matrix4::inverse(Matrix4 &out) const noexcept {
    Matrix4 inverted;
    const bool found =
        (isAffine() ? invertAffine(*this, inverted) : invertGeneral(*this, inverted)) && isFinite(inverted);
    out = found ? inverted : Matrix4();
    return found;
}

} // namespace nurel::math
