#include "nengine/scene/Camera.h"

#include "nengine/renderer/Renderer.h"

#include <algorithm>

namespace nurel::scene {

constinit const ::core::Type Camera::TYPE("Camera", &Frame::TYPE);

Camera::Camera(const char *name) : Frame(name) {}

core::Object *Camera::clone(core::CloningOptions &options) const {
    auto *copy = new Camera(getName());
    _clone(copy, options);
    return copy;
}

void Camera::_clone(core::Object *target, core::CloningOptions &options) const {
    Frame::_clone(target, options);
    if (target && target->instanceOf(TYPE))
        static_cast<Camera *>(target)->mProjection = mProjection;
}

math::Matrix4 Camera::getViewProjection() const {
    return getWorldInverseTransform() * mProjection;
}

void Camera::unproject(const math::Vector3 &screenPoint, math::Vector3 &out, unsigned int width,
                       unsigned int height) const {
    if ((width == 0 || height == 0) && renderer::Renderer::isSingletonCreated()) {
        const renderer::ScreenSettings &screen = renderer::Renderer::getSingleton().getScreenSettings();
        width = screen.width;
        height = screen.height;
    }
    const auto screenWidth = static_cast<float>(std::max(width, 1u));
    const auto screenHeight = static_cast<float>(std::max(height, 1u));
    const math::Vector4 inClip(2.0f * screenPoint.x / screenWidth - 1.0f, 1.0f - 2.0f * screenPoint.y / screenHeight,
                               1.0f, 1.0f);
    // The projection alone is inverted, which keeps more digits than inverting view and projection together.
    const math::Vector4 inView = mProjection.inverse() * inClip;
    const float w = inView.w != 0.0f ? inView.w : 1.0f;
    out = getCurrentWorldTransform() * math::Vector3(inView.x / w, inView.y / w, inView.z / w);
}

} // namespace nurel::scene
