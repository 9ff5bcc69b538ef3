#pragma once

#include "nmain/math/Vector4.h"

namespace nurel::ui::css::detail {

/// The values of a property with four sides, which stand in its vector in this order.
enum Side { TOP_SIDE = 0, RIGHT_SIDE = 1, BOTTOM_SIDE = 2, LEFT_SIDE = 3, SIDE_COUNT = 4 };

inline bool isSide(int index) {
    return index >= TOP_SIDE && index < SIDE_COUNT;
}

/// Whether the word at the index is for a side: the first word is for all sides, the second for right and left, the
/// others for their own side.
inline bool isForSide(int index, int side) {
    return index == TOP_SIDE || index == side || (index == RIGHT_SIDE && side == LEFT_SIDE);
}

/// Writes the word at the index into all sides that it is for.
inline void setSides(math::Vector4 &sides, int index, float value) {
    for (int side = TOP_SIDE; side < SIDE_COUNT; ++side) {
        if (isForSide(index, side))
            sides[static_cast<unsigned int>(side)] = value;
    }
}

/// False for an index that is no side.
inline bool copySide(const math::Vector4 &from, int index, math::Vector4 &to) {
    if (!isSide(index))
        return false;
    to[static_cast<unsigned int>(index)] = from[static_cast<unsigned int>(index)];
    return true;
}

} // namespace nurel::ui::css::detail
