#pragma once

#include "nmain/math/Matrix3.h"
#include "nui/ui/Component.h"

#include <cstdio>

/// What the items of a cover flow look like, wherever they are.
namespace nurel::ui::handlers::detail {

constexpr float SIDE_ROTATION = 1.2217295f; ///< radians: 70 degrees
constexpr float SIDE_SCALE = 0.7f;
constexpr float HALF_TURN = 3.14159f; ///< of an item beyond the outermost slot

/// Places an item upright on the middle line of the carousel.
inline void place(Component &item, float x, float rotation, float scale) {
    item.setPosition(math::Vector2(x, 0), math::Vector2::ZERO);
    item.setScale(math::Vector2(scale, scale));
    item.setRotation(math::Matrix3(rotation, math::Vector3::AXIS_Y));
}

/// Names an item by its number and two words around it, of at most 11 letters in all.
inline void setNumberedName(Component &item, const char *before, int number, const char *after) {
    char name[24];
    std::snprintf(name, sizeof name, "%s%d%s", before, number, after);
    item.setName(name);
}

} // namespace nurel::ui::handlers::detail
