#include "nmain/math/Frustum.h"

#include "nmain/math/Matrix4.h"

namespace nurel::math {

Frustum::Frustum(const Matrix4 &viewProjection) noexcept {
    const Matrix4 columns = viewProjection.transpose();
    const auto getColumn = [&](unsigned i) {
        return Vector4(columns(i, 0), columns(i, 1), columns(i, 2), columns(i, 3));
    };
    // A visible point has -w <= x, y, z <= w in clip space.
    const Vector4 w = getColumn(3);
    for (unsigned axis = 0; axis < 3; ++axis) {
        mPlanes[axis * 2] = w + getColumn(axis);
        mPlanes[axis * 2 + 1] = w - getColumn(axis);
    }
}

Frustum::EFrustumResult Frustum::test(const Vector3 &minimum, const Vector3 &maximum) const noexcept {
    EFrustumResult result = INSIDE;
    for (const Vector4 &plane : mPlanes) {
        // The corners that lie farthest along the plane's normal and farthest against it.
        const Vector4 farthest(plane.x > 0 ? maximum.x : minimum.x, plane.y > 0 ? maximum.y : minimum.y,
                               plane.z > 0 ? maximum.z : minimum.z, 1);
        const Vector4 nearest(plane.x > 0 ? minimum.x : maximum.x, plane.y > 0 ? minimum.y : maximum.y,
                              plane.z > 0 ? minimum.z : maximum.z, 1);
        if (plane.dot(farthest) < 0)
            return OUTSIDE;
        if (plane.dot(nearest) < 0)
            result = INTERSECT;
    }
    return result;
}

} // namespace nurel::math
