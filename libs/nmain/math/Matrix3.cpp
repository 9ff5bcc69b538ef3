#include "nmain/math/Matrix3.h"

namespace nurel::math {

Matrix3::Matrix3(float radians, const Vector3 &axis) noexcept : Matrix3() {
    if (!(axis.lengthSquared() > 0))
        return;
    const Vector3 a = Vector3(axis).normalize();
    const float c = std::cos(radians);
    const float s = std::sin(radians);
    const Vector3 t = a * (1 - c);
    *this = Matrix3({t.x * a.x + c, t.x * a.y + s * a.z, t.x * a.z - s * a.y},
                    {t.y * a.x - s * a.z, t.y * a.y + c, t.y * a.z + s * a.x},
                    {t.z * a.x + s * a.y, t.z * a.y - s * a.x, t.z * a.z + c});
}

} // namespace nurel::math
