#pragma once

#include "nmain/math/Vector2.h"
#include "nui/ui/Component.h"

#include <cmath>

namespace nurel::ui::detail {

/// How far the inside of the box lies off its middle, in whole pixels: text and what is clipped to it stand there.
inline math::Vector2 getInnerOffset(const Component &component) {
    const math::Vector4 &padding = component.getPadding();
    const math::Vector4 &border = component.getBorder();
    return math::Vector2(std::floor((padding.w + border.w - border.y - padding.y) * 0.5f),
                         std::floor((padding.x + border.x - border.z - padding.z) * 0.5f));
}

} // namespace nurel::ui::detail
