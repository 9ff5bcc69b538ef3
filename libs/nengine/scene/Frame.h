#pragma once

#include "nengine/scene/HandledObject.h"
#include "nengine/scene/PropertySet.h"
#include "nmain/math/Frustum.h"
#include "nmain/math/Matrix3.h"
#include "nmain/math/Matrix4.h"

#include <cstdint>
#include <memory>

namespace nurel::scene {

class Culler;
class Node;
class Property;

/// A place in the scene: a transform relative to its parent, a hidden flag and properties. Base of nodes, meshes and
/// cameras.
///
/// Setters only note a change. `update` on a root brings world transforms and inherited properties up to date, top
/// down, and does no work below what did not change. A frame that was never moved keeps no transform of its own and
/// costs little.
///
/// A parent holds its children by counted references; a child looks at its parent. Used on the render thread.
class Frame : public HandledObject {
public:
    static const ::core::Type TYPE;
    static const ::core::Type &type() { return TYPE; }
    const ::core::Type &getType() const override { return TYPE; }

    explicit Frame(const char *name = "");
    ~Frame() override;
    Frame(const Frame &) = delete;
    Frame &operator=(const Frame &) = delete;

    /// A clone has no parent; its properties are shared or copied as `PropertyCO` says.
    using HandledObject::clone;
    core::Object *clone(core::CloningOptions &options) const override;
    void _clone(core::Object *target, core::CloningOptions &options) const override;

    Node *getParent() const { return mParent; }

    // Transform. A point of this frame is scaled, then rotated, then translated into its parent's space.

    const math::Vector3 &getTranslation() const;
    void setTranslation(const math::Vector3 &translation);

    const math::Matrix3 &getRotation() const;

    /// `animated` tells that the rotation will change again with the next frames; `isAnimated` gives it back, for
    /// whatever prefers speed to precision meanwhile.
    void setRotation(const math::Matrix3 &rotation, bool animated = false);
    bool isAnimated() const { return hasFlag(ANIMATED); }

    const math::Vector3 &getScale() const;
    void setScale(const math::Vector3 &scale);
    void setScale(const math::Vector2 &scale, float z);

    /// Where the frame's origin is in the world. Current, whether or not the frame was updated.
    math::Vector3 getPosition() const;

    /// As of the last update.
    const math::Matrix4 &getWorldTransform() const;

    /// World to frame. Current on demand through the parents, whether or not they were updated; a transform that has no
    /// inverse gives the identity.
    math::Matrix4 getWorldInverseTransform() const;

    // Drawing

    /// A hidden frame is out of drawing, with everything below it. It is updated all the same.
    bool isHidden() const { return hasFlag(HIDDEN); }
    void setHidden(bool hidden);

    /// The frame's own property of this index, else its parents', else the shared default. Current, whether or not the
    /// frame was updated. Never null for the indexes in use; null for others.
    Property *getProperty(unsigned int index) const;

    /// Makes the property this frame's own in place of the one with the same index; null is ignored. A property that
    /// has an index in use but is not of that index's class raises `core::IllegalArgumentException`
    /// "%s cannot be property %u".
    void setProperty(Property *property);

    /// Takes the frame's own property of this index away; nothing happens when it has none.
    void removeProperty(unsigned int index);

    /// The own ones alone can be read by index.
    PropertySet &getPropertySet() { return mProperties; }
    const PropertySet &getPropertySet() const { return mProperties; }

    // The frame's rounds

    /// Brings this frame up to date under its parent as that one stands. With `recursive` also everything below;
    /// otherwise that is left to the next update. `time` is the frame clock's, in seconds.
    void update(float time, bool recursive);

    /// One step of the walk: runs the handlers, then the transform (when it or `parentChanged` asks for it) and the
    /// inherited properties. Returns whether the world transform of this frame or of one below changed. It is called
    /// for every frame in every update and allocates nothing while nothing changes.
    virtual bool updateInternal(float time, bool parentChanged);

    /// For frames with effects of their own that a walk has to start; this one does nothing.
    virtual void updateFX();

    /// Takes over what the parents' properties say now, theirs first. Frames below follow with the next update, and at
    /// once where `getProperty` is asked.
    virtual void updateProperties();

    /// Tells the parents that the space taken by this frame changed.
    virtual void updateBoundUpward();

    /// Called after the world transform was computed from the parent's: a derived class may put another in its place
    /// with `setWorldTransform`. This one does nothing.
    virtual void customWorldTransform();

    /// The culler's visit: a frame gives the culler what it draws. Not called for a hidden frame.
    virtual void onVisible(Culler *culler, math::Frustum::EFrustumResult result);

protected:
    void setWorldTransform(const math::Matrix4 &world);

    /// Frame to world, through the parents where these were not updated.
    math::Matrix4 getCurrentWorldTransform() const;

    enum Flag : std::uint16_t {
        HIDDEN = 0x01,
        ANIMATED = 0x02,
        TRANSFORM_CHANGED = 0x04,    ///< set by setters and by a new parent, cleared by the update that takes it over
        WORLD_CHANGED = 0x08,        ///< set by updates, cleared by whoever follows the world transform (a mesh)
        GEOMETRY_CHANGED = 0x10,     ///< set by a mesh's setters, cleared when the geometry was built
        PROPERTIES_CHANGED = 0x20,   ///< set by setters and by a new parent, cleared by the update that takes it over
        PROPERTIES_PASSED_ON = 0x40, ///< stands while an update walks the children of a node whose properties changed
        FIRST_FREE_FLAG = 0x80
    };
    bool hasFlag(unsigned int flag) const { return (mFlags & flag) != 0; }
    void setFlag(unsigned int flag, bool on) {
        mFlags = static_cast<std::uint16_t>(on ? mFlags | flag : mFlags & ~flag);
    }

private:
    friend class Node;
    struct Transform;

    Transform &needTransform();
    void computeWorldTransform();
    bool isWorldTransformCurrent() const;
    void cloneProperties(Frame &target, core::CloningOptions &options) const;
    void setParent(Node *parent);
    void inheritProperties();

    Node *mParent = nullptr;
    std::unique_ptr<Transform> mTransform;
    PropertySet mProperties;
    std::uint16_t mFlags = TRANSFORM_CHANGED | WORLD_CHANGED | GEOMETRY_CHANGED | PROPERTIES_CHANGED;
};

} // namespace nurel::scene
