#pragma once

#include "nengine/scene/Camera.h"
#include "nengine/scene/Culler.h"
#include "nengine/scene/Frame.h"

namespace nurel::renderer {

/// One scene as one camera sees it. It holds culler, camera and root by counted references; the culler's visibility set
/// must outlive the last `prepare`.
class RenderView : public core::Object {
public:
    static const ::core::Type TYPE;
    static const ::core::Type &type() { return TYPE; }
    const ::core::Type &getType() const override { return TYPE; }

    /// Each may be null. Without a camera world space is clip space; without a culler or a root nothing is seen.
    RenderView(scene::Culler *culler, scene::Camera *camera, scene::Frame *root);
    ~RenderView() override;

    scene::Culler *getCuller() const { return mCuller.get(); }
    scene::Camera *getCamera() const { return mCamera.get(); }
    void setCamera(scene::Camera *camera) { mCamera = camera; }
    scene::Frame *getRoot() const { return mRoot.get(); }
    scene::VisibilitySet *getVisibilitySet() const;

    /// Fills the visibility set.
    void prepare();

private:
    core::SmartPtr<scene::Culler> mCuller;
    core::SmartPtr<scene::Camera> mCamera;
    core::SmartPtr<scene::Frame> mRoot;
};

} // namespace nurel::renderer
