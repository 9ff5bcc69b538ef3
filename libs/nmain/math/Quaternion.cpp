#include "nmain/math/Quaternion.h"

namespace nurel::math {

namespace {

/// Above this cosine of half the angle between two rotations, the straight way between them is taken.
constexpr float NEARLY_EQUAL = 0.9995f;

} // namespace

Quaternion::Quaternion(const Matrix3 &r) noexcept : Quaternion() {
    // Starts from the largest of the four components, so that nothing small is divided by.
    const float trace = r(0, 0) + r(1, 1) + r(2, 2);
    if (trace > 0) {
        *this = {r(1, 2) - r(2, 1), r(2, 0) - r(0, 2), r(0, 1) - r(1, 0), 1 + trace};
    } else if (r(0, 0) >= r(1, 1) && r(0, 0) >= r(2, 2)) {
        *this = {1 + r(0, 0) - r(1, 1) - r(2, 2), r(0, 1) + r(1, 0), r(0, 2) + r(2, 0), r(1, 2) - r(2, 1)};
    } else if (r(1, 1) >= r(2, 2)) {
        *this = {r(0, 1) + r(1, 0), 1 + r(1, 1) - r(0, 0) - r(2, 2), r(1, 2) + r(2, 1), r(2, 0) - r(0, 2)};
    } else {
        *this = {r(0, 2) + r(2, 0), r(1, 2) + r(2, 1), 1 + r(2, 2) - r(0, 0) - r(1, 1), r(0, 1) - r(1, 0)};
    }
    normalize();
}

Matrix3 Quaternion::buildMatrix() const noexcept {
    return Matrix3({1 - 2 * (y * y + z * z), 2 * (x * y + w * z), 2 * (x * z - w * y)},
                   {2 * (x * y - w * z), 1 - 2 * (x * x + z * z), 2 * (y * z + w * x)},
                   {2 * (x * z + w * y), 2 * (y * z - w * x), 1 - 2 * (x * x + y * y)});
}

Quaternion Quaternion::slerp(const Quaternion &other, float t) const noexcept {
    const float cosine = dot(other);
    const float sign = cosine < 0 ? -1.0f : 1.0f; // the negative is the same rotation, on the shorter way
    float a = 1 - t;
    float b = t;
    if (std::fabs(cosine) < NEARLY_EQUAL) {
        const float angle = std::acos(std::fabs(cosine));
        const float sine = std::sin(angle);
        a = std::sin(a * angle) / sine;
        b = std::sin(b * angle) / sine;
    }
    b *= sign;
    Quaternion q(a * x + b * other.x, a * y + b * other.y, a * z + b * other.z, a * w + b * other.w);
    return q.normalize();
}

Quaternion &Quaternion::normalize() noexcept {
    const float length = std::sqrt(dot(*this));
    if (!(length > 0))
        return *this = Quaternion();
    x /= length;
    y /= length;
    z /= length;
    w /= length;
    return *this;
}

} // namespace nurel::math
