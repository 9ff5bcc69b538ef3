#pragma once

#include "nmain/math/Matrix4.h"

#include <cstdint>

namespace nurel::texture {
class Atlas;
}

namespace nurel::scene {

/// What a mesh may know of the view that it is about to be drawn in.
struct DrawContext {
    math::Matrix4 viewProjection; ///< world to clip space
    unsigned int width = 0;       ///< of the target in pixels
    unsigned int height = 0;
    texture::Atlas *atlas = nullptr; ///< null only in tests that draw without textures
    std::uint32_t revision = 0;      ///< another number whenever one of the fields above changed

    /// How many pixels of the target one unit of a space takes, along its x axis (`x`) and its y axis (`y`), at its
    /// origin. 1 each where that cannot be said: behind the camera or with an empty target.
    math::Vector2 getPixelsPerUnit(const math::Matrix4 &world) const;
};

} // namespace nurel::scene
