#pragma once

#include "nmain/math/Vector4.h"

namespace nurel::math {

/// The part of space that a camera sees, as six planes.
class Frustum {
public:
    enum EFrustumResult { OUTSIDE, INSIDE, INTERSECT };

    /// From world to clip space: the camera's view times its projection.
    explicit Frustum(const Matrix4 &viewProjection) noexcept;

    /// Where a box lies whose corners are given. A box near an edge of the frustum may give INTERSECT although it lies
    /// just outside, never the other way round.
    EFrustumResult test(const Vector3 &minimum, const Vector3 &maximum) const noexcept;

private:
    Vector4 mPlanes[6]; ///< x, y, z point inward; a point is inside where x·px + y·py + z·pz + w >= 0
};

} // namespace nurel::math
