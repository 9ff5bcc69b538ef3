#pragma once

#include "nmain/math/Vector3.h"
#include "nmain/math/Vector4.h"

namespace nurel::ui {

/// A half line in world space: what lies under the cursor is what it meets.
struct Ray {
    math::Vector3 origin = math::Vector3(0, 0, 0);
    math::Vector4 direction = math::Vector4(0, 0, 1, 0); ///< w is 0: a direction, not a point
};

} // namespace nurel::ui
