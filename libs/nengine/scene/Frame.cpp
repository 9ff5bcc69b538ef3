#include "nengine/scene/Frame.h"

#include "nengine/scene/Node.h"
#include "nengine/scene/Property.h"
#include "nengine/scene/PropertyCO.h"

#include "foundation/core/Exception.h"

namespace nurel::scene {

constinit const ::core::Type Frame::TYPE("Frame", &HandledObject::TYPE);

/// What a frame that was moved keeps. A frame without one stands where its parent does.
struct Frame::Transform {
    math::Vector3 translation = math::Vector3::ZERO;
    math::Vector3 scale = math::Vector3::ONE;
    math::Matrix3 rotation;
    math::Matrix4 world; ///< as of the last update

    math::Matrix4 getLocal() const { return math::Matrix4(scale, rotation, translation); }
};

Frame::Frame(const char *name) : HandledObject(name) {}

Frame::~Frame() = default;

core::Object *Frame::clone(core::CloningOptions &options) const {
    auto *copy = new Frame(getName());
    _clone(copy, options);
    return copy;
}

void Frame::_clone(core::Object *target, core::CloningOptions &options) const {
    HandledObject::_clone(target, options);
    if (!target || target == this || !target->instanceOf(TYPE))
        return;
    auto &frame = *static_cast<Frame *>(target);
    frame.mTransform = mTransform ? std::make_unique<Transform>(*mTransform) : nullptr;
    frame.setFlag(HIDDEN, isHidden());
    frame.setFlag(ANIMATED, isAnimated());
    frame.setFlag(TRANSFORM_CHANGED, true);
    cloneProperties(frame, options);
}

void Frame::cloneProperties(Frame &target, core::CloningOptions &options) const {
    const PropertyCO *const option = PropertyCO::find(options);
    for (unsigned int index = 0; index < Property::INDEX_COUNT; ++index) {
        Property *const property = mProperties[index];
        if (!property) {
            target.removeProperty(index);
        } else if (option && option->isCopied(index)) {
            // Two frames that share a property share its copy too.
            core::Object *const known = options.getCloned(property);
            target.setProperty(static_cast<Property *>(known ? known : property->clone(options)));
        } else {
            target.setProperty(property);
        }
    }
}

void Frame::setParent(Node *parent) {
    mParent = parent;
    setFlag(TRANSFORM_CHANGED | PROPERTIES_CHANGED, true);
}

// Transform

Frame::Transform &Frame::needTransform() {
    if (!mTransform) {
        auto transform = std::make_unique<Transform>();
        transform->world = getWorldTransform();
        mTransform = std::move(transform);
    }
    return *mTransform;
}

const math::Vector3 &Frame::getTranslation() const {
    return mTransform ? mTransform->translation : math::Vector3::ZERO;
}

void Frame::setTranslation(const math::Vector3 &translation) {
    if (getTranslation() == translation)
        return;
    needTransform().translation = translation;
    setFlag(TRANSFORM_CHANGED, true);
}

const math::Matrix3 &Frame::getRotation() const {
    return mTransform ? mTransform->rotation : math::Matrix3::IDENTITY;
}

void Frame::setRotation(const math::Matrix3 &rotation, bool animated) {
    setFlag(ANIMATED, animated);
    if (getRotation() == rotation)
        return;
    needTransform().rotation = rotation;
    setFlag(TRANSFORM_CHANGED, true);
}

const math::Vector3 &Frame::getScale() const {
    return mTransform ? mTransform->scale : math::Vector3::ONE;
}

void Frame::setScale(const math::Vector3 &scale) {
    if (getScale() == scale)
        return;
    needTransform().scale = scale;
    setFlag(TRANSFORM_CHANGED, true);
}

void Frame::setScale(const math::Vector2 &scale, float z) {
    setScale(math::Vector3(scale, z));
}

math::Vector3 Frame::getPosition() const {
    return getCurrentWorldTransform().getTranslation();
}

const math::Matrix4 &Frame::getWorldTransform() const {
    for (const Frame *frame = this; frame; frame = frame->mParent) {
        if (frame->mTransform)
            return frame->mTransform->world;
    }
    return math::Matrix4::IDENTITY;
}

void Frame::setWorldTransform(const math::Matrix4 &world) {
    needTransform().world = world;
}

math::Matrix4 Frame::getWorldInverseTransform() const {
    return getCurrentWorldTransform().inverse();
}

bool Frame::isWorldTransformCurrent() const {
    for (const Frame *frame = this; frame; frame = frame->mParent) {
        if (frame->hasFlag(TRANSFORM_CHANGED))
            return false;
    }
    return true;
}

math::Matrix4 Frame::getCurrentWorldTransform() const {
    if (isWorldTransformCurrent())
        return getWorldTransform();
    if (!mParent)
        return mTransform ? mTransform->getLocal() : math::Matrix4::IDENTITY;
    const math::Matrix4 above = mParent->getCurrentWorldTransform();
    return mTransform ? mTransform->getLocal() * above : above;
}

void Frame::computeWorldTransform() {
    if (mTransform)
        mTransform->world = mParent ? mTransform->getLocal() * mParent->getWorldTransform() : mTransform->getLocal();
    customWorldTransform();
}

// Drawing

void Frame::setHidden(bool hidden) {
    setFlag(HIDDEN, hidden);
}

Property *Frame::getProperty(unsigned int index) const {
    for (const Frame *frame = this; frame; frame = frame->mParent) {
        if (Property *const property = frame->mProperties[index])
            return property;
    }
    return Property::getDefault(index);
}

void Frame::setProperty(Property *property) {
    if (!property)
        return;
    const core::SmartPtr<Property> guard(property);
    const Property *const standard = Property::getDefault(property->getIndex());
    if (standard && !property->instanceOf(standard->getType()))
        throw core::IllegalArgumentException("%s cannot be property %u", property->getType().getName(),
                                             property->getIndex());
    mProperties.set(property);
    setFlag(PROPERTIES_CHANGED, true);
}

void Frame::removeProperty(unsigned int index) {
    if (!mProperties.remove(index))
        return;
    setFlag(PROPERTIES_CHANGED, true);
    updateProperties();
}

// The frame's rounds

void Frame::update(float time, bool recursive) {
    if (recursive) {
        updateInternal(time, false);
        return;
    }
    // What is below still has to hear of the changes that this update takes over.
    const unsigned int changes = mFlags & PROPERTIES_CHANGED;
    if (Frame::updateInternal(time, false))
        setFlag(TRANSFORM_CHANGED, true);
    setFlag(changes, true);
    setFlag(PROPERTIES_PASSED_ON, false);
}

bool Frame::updateInternal(float time, bool parentChanged) {
    if (hasHandlers())
        runHandlers(time);
    const bool changed = parentChanged || hasFlag(TRANSFORM_CHANGED);
    if (changed) {
        computeWorldTransform();
        setFlag(TRANSFORM_CHANGED, false);
        setFlag(WORLD_CHANGED, true);
    }
    if (hasFlag(PROPERTIES_CHANGED) || (mParent && mParent->hasFlag(PROPERTIES_PASSED_ON))) {
        mProperties.inherit(mParent ? &mParent->mProperties : nullptr);
        setFlag(PROPERTIES_CHANGED, false);
        setFlag(PROPERTIES_PASSED_ON, true);
    }
    return changed;
}

void Frame::updateFX() {}

void Frame::inheritProperties() {
    if (mParent)
        mParent->inheritProperties();
    mProperties.inherit(mParent ? &mParent->mProperties : nullptr);
}

void Frame::updateProperties() {
    inheritProperties();
}

void Frame::updateBoundUpward() {
    if (mParent)
        mParent->updateBoundUpward();
}

void Frame::customWorldTransform() {}

void Frame::onVisible(Culler *, math::Frustum::EFrustumResult) {}

} // namespace nurel::scene
