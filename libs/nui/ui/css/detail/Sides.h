#pragma once

#include "nmain/math/Vector4.h"

namespace nurel::ui::css::detail {

/// The values of a property with four sides, which stand in its vector in this order.
enum Side { TOP_SIDE = 0, RIGHT_SIDE = 1, BOTTOM_SIDE = 2, LEFT_SIDE = 3, SIDE_COUNT = 4 };

inline bool isSide(int index) {
    return index >= TOP_SIDE && index < SIDE_COUNT;
}

/// Writes a word that stands at the index: the first one is for all sides, the second for right and left, the others
/// for their own side.
inline void setSides(math::Vector4 &sides, int index, float value) {
    if (index == TOP_SIDE)
        sides = math::Vector4(value, value, value, value);
    else if (index == RIGHT_SIDE)
        sides.y = sides.w = value;
    else
        sides[static_cast<unsigned int>(index)] = value;
}

/// False for an index that is no side.
inline bool copySide(const math::Vector4 &from, int index, math::Vector4 &to) {
    if (!isSide(index))
        return false;
    to[static_cast<unsigned int>(index)] = from[static_cast<unsigned int>(index)];
    return true;
}

} // namespace nurel::ui::css::detail
