#include "nengine/renderer/RenderView.h"

namespace nurel::renderer {

constinit const ::core::Type RenderView::TYPE("RenderView", &core::Object::TYPE);

RenderView::RenderView(scene::Culler *culler, scene::Camera *camera, scene::Frame *root)
    : mCuller(culler), mCamera(camera), mRoot(root) {}

RenderView::~RenderView() = default;

scene::VisibilitySet *RenderView::getVisibilitySet() const {
    return mCuller ? mCuller->getVisibilitySet() : nullptr;
}

void RenderView::prepare() {
    if (mCuller)
        mCuller->cull(mCamera.get(), mRoot.get());
}

} // namespace nurel::renderer
