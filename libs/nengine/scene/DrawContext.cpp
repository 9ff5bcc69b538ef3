#include "nengine/scene/DrawContext.h"

#include <cmath>

namespace nurel::scene {

namespace {

/// Length on the screen of one unit along a direction, both in clip space: the derivative of the projected origin.
float getLength(const math::Vector4 &origin, const math::Vector4 &direction, float halfWidth, float halfHeight) {
    const float x = (direction.x * origin.w - origin.x * direction.w) * halfWidth;
    const float y = (direction.y * origin.w - origin.y * direction.w) * halfHeight;
    return std::sqrt(x * x + y * y) / (origin.w * origin.w);
}

} // namespace

math::Vector2 DrawContext::getPixelsPerUnit(const math::Matrix4 &world) const {
    const math::Matrix4 toClip = world * viewProjection;
    const math::Vector4 origin(toClip[12], toClip[13], toClip[14], toClip[15]);
    if (!(origin.w > 0.0f) || width == 0 || height == 0)
        return math::Vector2::ONE;
    const float halfWidth = static_cast<float>(width) * 0.5f;
    const float halfHeight = static_cast<float>(height) * 0.5f;
    return {getLength(origin, {toClip[0], toClip[1], toClip[2], toClip[3]}, halfWidth, halfHeight),
            getLength(origin, {toClip[4], toClip[5], toClip[6], toClip[7]}, halfWidth, halfHeight)};
}

} // namespace nurel::scene
