#pragma once

#include "nengine/scene/Frame.h"

namespace nurel::scene {

/// Where the scene is seen from: it looks along its local +z, with x to the right of the screen and y to its top as the
/// projection has them.
class Camera : public Frame {
public:
    static const ::core::Type TYPE;
    static const ::core::Type &type() { return TYPE; }
    const ::core::Type &getType() const override { return TYPE; }

    explicit Camera(const char *name = "");

    using Frame::clone;
    core::Object *clone(core::CloningOptions &options) const override;
    void _clone(core::Object *target, core::CloningOptions &options) const override;

    /// The identity at first.
    const math::Matrix4 &getProjection() const { return mProjection; }
    void setProjection(const math::Matrix4 &projection) { mProjection = projection; }

    /// World to clip space: the inverse of the world transform, then the projection. Current on demand.
    math::Matrix4 getViewProjection() const;

    /// The point of the world, on the far plane, that is seen at a place of the screen. `screenPoint` counts pixels
    /// from the top left, y downward; its z is not used. The direction of the ray through that pixel is then `out -
    /// getPosition()`. Width and height are the screen's in pixels; with 0 for either, the renderer's present screen
    /// size stands in, or 1 where that is 0 too.
    void unproject(const math::Vector3 &screenPoint, math::Vector3 &out, unsigned int width, unsigned int height) const;

private:
    math::Matrix4 mProjection;
};

} // namespace nurel::scene
