#include "nengine/scene/Culler.h"

#include "nengine/scene/Frame.h"
#include "nengine/scene/VisibilitySet.h"

namespace nurel::scene {

constinit const ::core::Type Culler::TYPE("Culler", &core::Object::TYPE);

Culler::Culler(VisibilitySet *set) : mSet(set) {}

void Culler::cull(const Camera *camera, Frame *root) {
    if (mSet)
        mSet->clear();
    mCamera = camera;
    process(root, math::Frustum::INSIDE);
    mCamera = nullptr;
}

void Culler::process(Frame *frame, math::Frustum::EFrustumResult result) {
    if (frame && !frame->isHidden())
        frame->onVisible(this, result);
}

void Culler::insert(Mesh *mesh) {
    if (mSet && mesh)
        mSet->append(mesh);
}

} // namespace nurel::scene
