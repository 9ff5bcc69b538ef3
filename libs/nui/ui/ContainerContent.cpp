#include "nui/ui/ComponentView.h"
#include "nui/ui/Container.h"
#include "nui/ui/Layout.h"

#include <algorithm>
#include <cmath>

/// Laying out, measuring, and the container's own size.
namespace nurel::ui {

namespace {

float horizontalFrame(const BoxModel &box) {
    return box.padding.y + box.border.y + box.border.w + box.padding.w;
}

float verticalFrame(const BoxModel &box) {
    return box.padding.x + box.border.x + box.border.z + box.padding.z;
}

} // namespace

void Container::setLayout(Layout *layout) {
    const Keeper self(this);
    const core::SmartPtr<Layout> old = mLayout;
    mLayout = layout;
    if (old && old != layout && old->getOwner() == this)
        old->setOwner(nullptr);
    if (layout && layout->getOwner() != this) {
        layout->clearComponents();
        layout->setOwner(this);
    }
    updateContent();
}

void Container::updateLayout() {
    if (!mLayout)
        return;
    const core::SmartPtr<Layout> layout = mLayout;
    layout->layout();
    // What it moved takes its place now, so that the extents measured next are those of the new positions.
    for (std::size_t index = 0; index < mChildren.size(); ++index) {
        const core::SmartPtr<Component> child = mChildren[index];
        if (child->isDirty(DIRTY_POSITION)) {
            child->updatePosition();
            child->updateView();
        }
    }
}

math::Vector2 Container::calculateContainerSize() {
    const BoxModel &box = getBox();
    return getNaturalSize() - math::Vector2(horizontalFrame(box), verticalFrame(box));
}

math::Vector2 Container::getAutoSize(const math::Vector2 &) {
    const BoxModel &box = getBox();
    const float margins = box.margin.y + box.margin.w;
    const math::Vector2 extents = getContentExtents();
    math::Vector2 size(0, 0);
    if (getAutoSizeFlags() & AUTO_SIZE_WIDTH)
        size.x = extents.x + 2 * margins + horizontalFrame(box); // the margins count twice
    if (getAutoSizeFlags() & AUTO_SIZE_HEIGHT)
        size.y = extents.y + margins + verticalFrame(box); // and here it is the horizontal ones too
    return size;
}

void Container::updatePosition() {
    // 1.
    Component::updatePosition();
    // 2.
    const math::Vector2 containerSize = calculateContainerSize();
    if (containerSize != mContainerSize) {
        mContainerSize = containerSize;
        if (getAutoSizeFlags() != 0) {
            for (std::size_t index = 0; index < mChildren.size(); ++index) {
                mChildren[index]->setDirty(DIRTY_POSITION);
                mChildren[index]->updatePosition();
            }
        }
    }
    // 3. and 4. The vertical minimum serves both axes
    if (mScrollInfoH.scrollable)
        mScrollInfoH.position = (-mScrollOffset.x - mScrollMin.y) * mScrollInfoH.scale;
    else
        mScrollOffset.x = mBaseScrollOffset.x;
    if (mScrollInfoV.scrollable)
        mScrollInfoV.position = (-mScrollOffset.y - mScrollMin.y) * mScrollInfoV.scale;
    else
        mScrollOffset.y = mBaseScrollOffset.y;
}

void Container::updateContent() {
    // 1.
    if (!isSelfVisible())
        return;
    // 2.
    for (std::size_t index = 0; index < mChildren.size(); ++index)
        mChildren[index]->update();
    // 3.
    if (isDirty(DIRTY_ZORDER))
        applyZIndex();
    // 4. and 5.
    if (!isDirty(DIRTY_CONTENT))
        return;
    const Keeper self(this); // a layout that hides components runs callbacks, and so do the bars
    setClean(DIRTY_CONTENT | DIRTY_ZORDER);
    updateLayout();
    // 6. to 8.
    measureContent();
    measureScrollRoom();
    // 9. to 11.
    updateBar(HORIZONTAL);
    updateBar(VERTICAL);
    if (getAutoSizeFlags() != 0)
        updatePosition();
}

void Container::measureContent() {
    math::Vector2 low(0, 0); // the origin always lies within
    math::Vector2 high(0, 0);
    const unsigned int count = getChildCount();
    for (unsigned int index = 0; index < count; ++index) {
        const Component &child = *mChildren[index];
        if (isBar(&child) || !child.isVisible())
            continue;
        const math::Vector4 &margin = child.getMargin();
        const math::Vector3 &position = child.getPosition();
        const math::Vector2 half = child.getSize() * 0.5f;
        low.x = std::min(low.x, position.x - half.x - margin.w);
        low.y = std::min(low.y, position.y - half.y - margin.x);
        high.x = std::max(high.x, position.x + half.x + margin.y);
        high.y = std::max(high.y, position.y + half.y + margin.z);
    }
    mContainerSize = calculateContainerSize();
    mContentExtentMin = math::Vector2(std::floor(low.x), std::floor(low.y));
    mContentExtentMax = math::Vector2(std::floor(high.x), std::floor(high.y));
}

void Container::measureScrollRoom() {
    const float halfWidth = std::floor((mContainerSize.x + 1) * 0.5f);
    const float halfHeight = std::floor((mContainerSize.y + 1) * 0.5f);
    const BoxModel &box = getBox();
    const float left = box.border.w + box.padding.w;
    const float right = box.border.y + box.padding.y;
    const float top = box.border.x + box.padding.x;
    const float bottom = box.border.z + box.padding.z;
    mScrollMin.x = halfWidth - std::floor((left - right) * 0.5f) + mContentExtentMin.x;
    mScrollMax.x = halfWidth - std::floor((right - left) * 0.5f) - mContentExtentMax.x;
    mScrollMin.y = halfHeight - std::floor((top - bottom) * 0.5f) + mContentExtentMin.y;
    mScrollMax.y = halfHeight - std::floor((bottom - top) * 0.5f) - mContentExtentMax.y;
}

} // namespace nurel::ui
