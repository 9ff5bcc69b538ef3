#include "nui/ui/Component.h"
#include "nui/ui/Container.h"
#include "nui/ui/detail/ManagerAccess.h"

#include <cmath>

/// From declared to computed geometry.
namespace nurel::ui {

namespace {

bool isWhole(float value) {
    return value == std::floor(value);
}

math::Vector2 floorOf(const math::Vector2 &v) {
    return math::Vector2(std::floor(v.x), std::floor(v.y));
}

bool isZero(const math::Vector2 &v) {
    return v.x == 0 && v.y == 0;
}

/// Keeps a size within its limits, of which 0 is none. The minimum comes second and so wins.
void limit(float &size, float minimum, float maximum) {
    if (maximum != 0 && size > maximum)
        size = maximum;
    if (minimum != 0 && size < minimum)
        size = minimum;
}

/// What a component gets along one axis for its margins and its parent's frame. Both edge anchors add the leading
/// margin: a right-anchored component is kept off the edge by its left margin alone, a bottom-anchored one by its top
/// margin.
float marginOffset(Component::Anchor choice, Component::Anchor leading, Component::Anchor centre,
                   Component::Anchor trailing, float leadingMargin, float trailingMargin, float parentInset) {
    if (choice == leading || choice == trailing)
        return leadingMargin + parentInset;
    if (choice == centre)
        return (leadingMargin - trailingMargin) * 0.5f + parentInset;
    return 0;
}

/// Puts a rectangle of odd size on a half pixel and one of even size on a whole one. Says whether it moved.
bool correctAxis(float size, float correction, float &relative, float &world) {
    if (isWhole(size * 0.5f) == isWhole(world))
        return false;
    relative += correction;
    world += correction;
    return true;
}

} // namespace

math::Vector2 Component::calculateParentSize() const {
    if (!mParent) {
        const UIManager *manager = detail::findManager();
        return manager ? math::Vector2(static_cast<float>(manager->getScreenWidth()),
                                       static_cast<float>(manager->getScreenHeight()))
                       : math::Vector2(0, 0);
    }
    math::Vector2 size = mParent->getContainerSize();
    const ComponentSize &parent = mParent->mDeclaredSize;
    if ((parent.autoSize & AUTO_SIZE_WIDTH) && mDeclaredSize.relative.x > 0)
        size.x = parent.maximum.x; // 0 without a maximum: then the relative part contributes nothing
    if ((parent.autoSize & AUTO_SIZE_HEIGHT) && mDeclaredSize.relative.y > 0)
        size.y = parent.maximum.y;
    return size;
}

math::Vector2 Component::calculateSize(math::Vector2 &natural) {
    // 1. and 2. Pixels, and the part of the parent
    math::Vector2 size = mDeclaredSize.absolute;
    if (!isZero(mDeclaredSize.relative))
        size += mParentSize * mDeclaredSize.relative;
    // 3. The ratio only ever takes away
    const float ratio = mDeclaredSize.fixedAspectRatio;
    if (ratio != 0 && size.y != 0) {
        if (size.x / size.y > ratio)
            size.x = ratio * size.y;
        else
            size.y = size.x / ratio;
    }
    // 4. The content's own size, which replaces all of that in its axis
    if (mDeclaredSize.autoSize != 0) {
        const math::Vector2 content = getAutoSize(size);
        if (mDeclaredSize.autoSize & AUTO_SIZE_WIDTH)
            size.x = mDeclaredSize.autoSizeOffset.x + content.x;
        if (mDeclaredSize.autoSize & AUTO_SIZE_HEIGHT)
            size.y = mDeclaredSize.autoSizeOffset.y + content.y;
    }
    // 5. and 6.
    limit(size.x, mDeclaredSize.minimum.x, mDeclaredSize.maximum.x);
    limit(size.y, mDeclaredSize.minimum.y, mDeclaredSize.maximum.y);
    // 7.
    size.x -= mBox.margin.w + mBox.margin.y;
    size.y -= mBox.margin.x + mBox.margin.z;
    // 8. and 9. The half pixel comes before the scale: 100 at scale 2 is 201
    const math::Vector2 rounded = size + math::Vector2(0.5f, 0.5f);
    natural = floorOf(rounded);
    return floorOf(rounded * mScale);
}

math::Vector2 Component::getAutoSize(const math::Vector2 &current) {
    return current;
}

math::Vector3 Component::calculatePosition() const {
    // 1. and 2.
    math::Vector3 p(mDeclaredPosition.absolute.x, mDeclaredPosition.absolute.y, mDeclaredPosition.depth);
    if (!isZero(mDeclaredPosition.relative)) {
        const math::Vector2 part = mDeclaredPosition.relative * mParentSize;
        p.x += part.x;
        p.y += part.y;
    }
    // 3. and 4. Margins, and what the parent's frame moves its inside by
    math::Vector2 inset(0, 0);
    if (mParent) {
        const BoxModel &box = mParent->mBox;
        inset.x = ((box.padding.w + box.border.w) - (box.padding.y + box.border.y)) * 0.5f;
        inset.y = ((box.padding.x + box.border.x) - (box.padding.z + box.border.z)) * 0.5f;
    }
    p.x += marginOffset(mAnchor & ANCHOR_HORIZONTAL_MASK, ANCHOR_LEFT, ANCHOR_CENTER_HORIZONTAL, ANCHOR_RIGHT,
                        mBox.margin.w, mBox.margin.y, inset.x);
    p.y += marginOffset(mAnchor & ANCHOR_VERTICAL_MASK, ANCHOR_TOP, ANCHOR_MIDDLE, ANCHOR_BOTTOM, mBox.margin.x,
                        mBox.margin.z, inset.y);
    // 5.
    p.x = std::floor(p.x);
    p.y = std::floor(p.y);
    return p;
}

void Component::applyAnchor(math::Vector3 &position) const {
    if (mAnchor & ANCHOR_LEFT)
        position.x += mSize.x * 0.5f - mParentSize.x * 0.5f;
    else if (mAnchor & ANCHOR_RIGHT)
        position.x += (mParentSize.x - mSize.x) * 0.5f;
    if (mAnchor & ANCHOR_TOP)
        position.y += mSize.y * 0.5f - mParentSize.y * 0.5f;
    else if (mAnchor & ANCHOR_BOTTOM)
        position.y += (mParentSize.y - mSize.y) * 0.5f;
}

void Component::correctPixels() {
    // One flip for a component, whichever axes moved, so that the sign alternates down the tree.
    const bool movedX = correctAxis(mSize.x, mPixelCorrection, mParentRelativePosition.x, mWorldPosition.x);
    if (movedX)
        mPixelCorrection = -mPixelCorrection;
    const bool movedY = correctAxis(mSize.y, mPixelCorrection, mParentRelativePosition.y, mWorldPosition.y);
    if (movedY && !movedX)
        mPixelCorrection = -mPixelCorrection;
}

void Component::updatePosition() {
    // 1. A new parent size changes what lies inside only if the own size depends on it
    const math::Vector2 parentSize = calculateParentSize();
    if (parentSize != mParentSize) {
        if (!isZero(mDeclaredSize.relative))
            mDirty |= DIRTY_CONTENT;
        mParentSize = parentSize;
    }
    // 2.
    setClean(DIRTY_POSITION);
    // 3. Where positions count from
    math::Vector2 scroll = mParentSize * 0.5f;
    math::Vector3 origin(0, 0, 0);
    mPixelCorrection = 0.5f;
    if (mParent) {
        scroll = mParent->getScrollOffset();
        origin = mParent->mWorldPosition;
        mPixelCorrection = mParent->mPixelCorrection;
    }
    // 4. to 6.
    mSize = calculateSize(mNaturalSize);
    mPosition = calculatePosition();
    applyAnchor(mPosition);
    // 7. and 8.
    mParentRelativePosition = math::Vector3(mPosition.x + scroll.x, mPosition.y + scroll.y, mPosition.z);
    mWorldPosition = mParentRelativePosition + origin;
    // 9. The bounds stay without the pixel correction, and so may lie half a pixel beside what is drawn
    const math::Vector2 half = mSize * 0.5f;
    const math::Vector2 centre(mWorldPosition);
    mMinBound = centre - half;
    mMaxBound = centre + half;
    // 10.
    mWorldScale = mParent ? mScale * mParent->mWorldScale : mScale;
    // 11.
    correctPixels();
}

} // namespace nurel::ui
