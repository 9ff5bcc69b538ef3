#include "nengine/scene/Culler.h"

#include "nengine/scene/Mesh.h"
#include "nengine/scene/VisibilitySet.h"
#include "nengine/scene/properties/StencilProperty.h"

namespace nurel::scene {

constinit const ::core::Type Culler::TYPE("Culler", &core::Object::TYPE);

namespace {

bool writesStencil(const Mesh &mesh) {
    using properties::StencilProperty;
    const auto &stencil = static_cast<const StencilProperty &>(*mesh.getPropertySet().getEffective(Property::STENCIL));
    return stencil.isEnabled() && stencil.getPassOperation() != StencilProperty::KEEP;
}

} // namespace

Culler::Culler(VisibilitySet *set) : mSet(set) {}

void Culler::cull(const Camera *camera, Frame *root) {
    if (mSet)
        mSet->clear();
    mCamera = camera;
    mBackSeen = false;
    process(root, math::Frustum::INSIDE);
    mCamera = nullptr;
}

void Culler::process(Frame *frame, math::Frustum::EFrustumResult result) {
    if (frame && !frame->isHidden())
        frame->onVisible(this, result);
}

void Culler::insert(Mesh *mesh) {
    if (mSet && mesh && (!mBackSeen || writesStencil(*mesh)))
        mSet->append(mesh);
}

} // namespace nurel::scene
