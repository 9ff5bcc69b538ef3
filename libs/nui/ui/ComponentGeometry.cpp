#include "nmain/math/Matrix4.h"
#include "nui/ui/Component.h"
#include "nui/ui/Container.h"
#include "nui/ui/animation/AnimatedPosition.h"
#include "nui/ui/animation/AnimatedRotation.h"
#include "nui/ui/animation/AnimatedScale.h"
#include "nui/ui/animation/AnimatedSize.h"
#include "nui/ui/detail/ManagerAccess.h"

namespace nurel::ui {

void Component::setPosition(const math::Vector3 &position) {
    setPosition(math::Vector2(position.x, position.y), math::Vector2(0, 0));
}

void Component::setPosition(const math::Vector2 &absolute, const math::Vector2 &relative) {
    if (AnimationContext *open = detail::findOpenAnimation()) {
        open->record<animation::AnimatedPosition>(this).setPosition(absolute, relative);
        return;
    }
    if (absolute == mDeclaredPosition.absolute && relative == mDeclaredPosition.relative)
        return;
    mDeclaredPosition.absolute = absolute;
    mDeclaredPosition.relative = relative;
    setDirty(DIRTY_POSITION);
}

void Component::setDepth(float depth) {
    mDeclaredPosition.depth = depth;
    setDirty(DIRTY_POSITION);
}

void Component::setSize(const math::Vector2 &size) {
    setSize(size, math::Vector2(0, 0));
}

void Component::setSize(const math::Vector2 &absolute, const math::Vector2 &relative) {
    if (absolute == mDeclaredSize.absolute && relative == mDeclaredSize.relative)
        return;
    if (AnimationContext *open = detail::findOpenAnimation()) {
        open->record<animation::AnimatedSize>(this).setSize(absolute, relative);
        return;
    }
    mDeclaredSize.absolute = absolute;
    mDeclaredSize.relative = relative;
    setDirty(DIRTY_POSITION);
}

void Component::setWidth(float absolute, float relative) {
    setSize(math::Vector2(absolute, mDeclaredSize.absolute.y), math::Vector2(relative, mDeclaredSize.relative.y));
}

void Component::setHeight(float absolute, float relative) {
    setSize(math::Vector2(mDeclaredSize.absolute.x, absolute), math::Vector2(mDeclaredSize.relative.x, relative));
}

void Component::setPositionData(const math::Vector2 &absolutePosition, const math::Vector2 &relativePosition,
                                const math::Vector2 &absoluteSize, const math::Vector2 &relativeSize, Anchor anchor) {
    if (AnimationContext *open = detail::findOpenAnimation()) {
        open->record<animation::AnimatedPosition>(this).setPosition(absolutePosition, relativePosition);
        open->record<animation::AnimatedSize>(this).setSize(absoluteSize, relativeSize);
        return;
    }
    mDeclaredPosition.absolute = absolutePosition;
    mDeclaredPosition.relative = relativePosition;
    mDeclaredSize.absolute = absoluteSize;
    mDeclaredSize.relative = relativeSize;
    mAnchor = anchor;
    setDirty(DIRTY_POSITION);
}

void Component::setMinimumSize(const math::Vector2 &size) {
    mDeclaredSize.minimum = size;
    setDirty(DIRTY_POSITION);
}

void Component::setMinimumWidth(float width) {
    setMinimumSize(math::Vector2(width, mDeclaredSize.minimum.y));
}

void Component::setMinimumHeight(float height) {
    setMinimumSize(math::Vector2(mDeclaredSize.minimum.x, height));
}

void Component::setMaximumSize(const math::Vector2 &size) {
    mDeclaredSize.maximum = size;
    setDirty(DIRTY_POSITION);
}

void Component::setMaximumWidth(float width) {
    setMaximumSize(math::Vector2(width, mDeclaredSize.maximum.y));
}

void Component::setMaximumHeight(float height) {
    setMaximumSize(math::Vector2(mDeclaredSize.maximum.x, height));
}

void Component::setFixedAspectRatio(float ratio) {
    mDeclaredSize.fixedAspectRatio = ratio;
    setDirty(DIRTY_POSITION);
}

void Component::setAutoSize(unsigned int flags, const math::Vector2 &offset) {
    if (flags == mDeclaredSize.autoSize && offset == mDeclaredSize.autoSizeOffset)
        return;
    mDeclaredSize.autoSize = flags;
    mDeclaredSize.autoSizeOffset = offset;
    setDirty(DIRTY_POSITION);
}

void Component::setAnchor(Anchor anchor) {
    if (anchor == mAnchor)
        return;
    mAnchor = anchor;
    setDirty(DIRTY_POSITION);
}

void Component::setMargin(const math::Vector4 &margin) {
    if (margin == mBox.margin)
        return;
    mBox.margin = margin;
    setDirty(DIRTY_POSITION);
}

void Component::setBorder(const math::Vector4 &border) {
    if (border == mBox.border)
        return;
    mBox.border = border;
    setDirty(DIRTY_POSITION);
}

void Component::setPadding(const math::Vector4 &padding) {
    if (padding == mBox.padding)
        return;
    mBox.padding = padding;
    setDirty(DIRTY_POSITION);
}

void Component::setBox(const BoxModel &box) {
    setMargin(box.margin);
    setBorder(box.border);
    setPadding(box.padding);
}

void Component::setRotation(const math::Matrix3 &rotation) {
    if (AnimationContext *open = detail::findOpenAnimation()) {
        open->record<animation::AnimatedRotation>(this).setRotation(rotation);
        return;
    }
    mRotation = rotation;
    setDirty(DIRTY_POSITION);
}

void Component::setScale(const math::Vector2 &scale) {
    if (AnimationContext *open = detail::findOpenAnimation()) {
        open->record<animation::AnimatedScale>(this).setScale(scale);
        return;
    }
    mScale = scale;
    setDirty(DIRTY_POSITION);
}

void Component::setTransform(const math::Matrix4 &transform) {
    const math::Vector2 scale(transform.getScale());
    const math::Matrix3 rotation = transform.getRotation();
    const math::Vector2 absolute(transform.getTranslation());
    if (AnimationContext *open = detail::findOpenAnimation()) {
        open->record<animation::AnimatedScale>(this).setScale(scale);
        open->record<animation::AnimatedRotation>(this).setRotation(rotation);
        open->record<animation::AnimatedPosition>(this).setPosition(absolute, mDeclaredPosition.relative);
        return;
    }
    mScale = scale;
    mRotation = rotation;
    mDeclaredPosition.absolute = absolute;
    setDirty(DIRTY_POSITION);
}

bool Component::hasCursor(const math::Vector2 &point) const {
    return point.x >= mMinBound.x && point.x <= mMaxBound.x && point.y >= mMinBound.y && point.y <= mMaxBound.y;
}

void Component::ensureVisibility() {
    if (!mParent)
        return;
    const math::Vector2 half = mSize * 0.5f;
    mParent->ensureChildVisibility(this, math::Vector3(-half.x, -half.y, 0), math::Vector3(half.x, half.y, 0));
}

} // namespace nurel::ui
