#pragma once

#include "nmain/math/Vector4.h"

namespace nurel::ui {

/// The frames around a component's content, outermost first, in pixels. Each is (x = top, y = right, z = bottom, w =
/// left).
struct BoxModel {
    math::Vector4 margin = math::Vector4(0, 0, 0, 0);
    math::Vector4 border = math::Vector4(0, 0, 0, 0);
    math::Vector4 padding = math::Vector4(0, 0, 0, 0);

    constexpr bool operator==(const BoxModel &other) const = default;
};

} // namespace nurel::ui
