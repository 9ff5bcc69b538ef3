#pragma once

#include "nmain/core/Object.h"
#include "nmain/math/Frustum.h"

namespace nurel::scene {

class Camera;
class Frame;
class Mesh;
class VisibilitySet;

/// Walks a scene and collects what is to be drawn in a visibility set, which it looks at.
class Culler : public core::Object {
public:
    static const ::core::Type TYPE;
    static const ::core::Type &type() { return TYPE; }
    const ::core::Type &getType() const override { return TYPE; }

    /// A null set is legal: nothing is collected.
    explicit Culler(VisibilitySet *set);

    VisibilitySet *getVisibilitySet() const { return mSet; }

    /// Starts anew with everything that is not hidden at and below the root. A null root gives an empty set. The
    /// camera, which may be null, is what frames and derived classes may cull by; this one takes all.
    virtual void cull(const Camera *camera, Frame *root);

    /// The camera of the pass that is under way; null without one.
    const Camera *getCamera() const { return mCamera; }

    /// Visits one frame, unless it is hidden.
    virtual void process(Frame *frame, math::Frustum::EFrustumResult result);

    /// Whether the camera looks at the back of what is being visited, which is then left out: all but the meshes that
    /// write to the stencil, on which others may depend. A frame that knows better sets it while its children are
    /// visited, and puts it back.
    bool isBackSeen() const { return mBackSeen; }
    void setBackSeen(bool seen) { mBackSeen = seen; }

    /// Called by a mesh that is to be drawn.
    virtual void insert(Mesh *mesh);

private:
    VisibilitySet *mSet;
    const Camera *mCamera = nullptr;
    bool mBackSeen = false;
};

} // namespace nurel::scene
