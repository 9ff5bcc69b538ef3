#include "nui/ui/ComponentView.h"
#include "nui/ui/Container.h"
#include "nui/ui/Layout.h"
#include "nui/ui/components/Panel.h"

#include "foundation/logging/Logger.h"

#include <atomic>
#include <cmath>

namespace nurel::ui {

namespace {

/// A bar is a panel, which has bars itself when nothing fits into it, as inside a padding that is wider than the bar.
/// The bars of a bar have none themselves.
constexpr unsigned int MAXIMUM_NESTED_BARS = 2;

} // namespace

/// What differs between the two axes.
struct Container::AxisTraits {
    unsigned int maskBit;
    const char *barName; ///< and class
    Anchor barAnchor;
    float math::Vector2::*along;
    float math::Vector2::*across;
    ScrollInfo Container::*info;

    static const AxisTraits &of(Axis axis);
};

const Container::AxisTraits &Container::AxisTraits::of(Axis axis) {
    static constexpr AxisTraits TRAITS[] = {
        {SCROLL_HORIZONTAL, "scroll-h", ANCHOR_BOTTOM_LEFT, &math::Vector2::x, &math::Vector2::y,
         &Container::mScrollInfoH},
        {SCROLL_VERTICAL, "scroll-v", ANCHOR_TOP_RIGHT, &math::Vector2::y, &math::Vector2::x, &Container::mScrollInfoV},
    };
    return TRAITS[axis];
}

void Container::setScrollMask(unsigned int mask) {
    mScrollMask = mask;
    if (mask != 0)
        enableEvents(UIEvent::ET_DRAG_EVENT);
}

unsigned int Container::getScrollEnabled() const {
    unsigned int enabled = 0;
    if (mContainerSize.x * 0.5f < mContentExtentMax.x)
        enabled |= mScrollMask & SCROLL_HORIZONTAL;
    if (mContainerSize.y * 0.5f < mContentExtentMax.y)
        enabled |= mScrollMask & SCROLL_VERTICAL;
    return enabled;
}

void Container::markScrolled() {
    setDirty(DIRTY_POSITION | DIRTY_CONTENT | DIRTY_VIEW);
}

void Container::setScrollOffset(const math::Vector2 &offset) {
    mScrollOffset = offset;
    mBaseScrollOffset = mScrollOffset;
    markScrolled();
}

void Container::scrollHorizontalAbsolute(float distance) {
    setScrollOffset(math::Vector2(std::floor(mScrollMin.x - distance), mScrollOffset.y));
}

void Container::scrollVerticalAbsolute(float distance) {
    setScrollOffset(math::Vector2(mScrollOffset.x, std::floor(mScrollMin.y - distance)));
}

void Container::scrollAbsolute(const math::Vector2 &distance) {
    setScrollOffset(math::Vector2(std::floor(mScrollMin.x - distance.x), std::floor(mScrollMin.y - distance.y)));
}

void Container::scrollHorizontalPercent(float fraction) {
    setScrollOffset(
        math::Vector2(std::floor((mScrollMax.x - mScrollMin.x) * fraction + mScrollMin.x), mScrollOffset.y));
}

void Container::scrollVerticalPercent(float fraction) {
    setScrollOffset(
        math::Vector2(mScrollOffset.x, std::floor((mScrollMax.y - mScrollMin.y) * fraction + mScrollMin.y)));
}

void Container::scrollPercent(const math::Vector2 &fraction) {
    const math::Vector2 offset = (mScrollMax - mScrollMin) * fraction + mScrollMin;
    setScrollOffset(math::Vector2(std::floor(offset.x), std::floor(offset.y)));
}

math::Vector2 Container::getScrollAbsolute() const {
    return mScrollMin - mScrollOffset;
}

math::Vector2 Container::getScrollPercent() const {
    const math::Vector2 room = mScrollMax + mScrollMin;
    const math::Vector2 done = mScrollOffset + mScrollMin;
    return math::Vector2(room.x != 0 ? done.x / room.x : 0, room.y != 0 ? done.y / room.y : 0);
}

math::Vector2 Container::getContentExtents() const {
    return mContentExtentMax - mContentExtentMin;
}

bool Container::isContentOutside() const {
    return mScrollMin.x < 0 || mScrollMin.y < 0 || mScrollMax.x < 0 || mScrollMax.y < 0;
}

bool Container::isContentInside() const {
    return mScrollMin.x >= 0 && mScrollMin.y >= 0 && mScrollMax.x >= 0 && mScrollMax.y >= 0;
}

bool Container::isClientArea(const math::Vector2 &local) const {
    const BoxModel &box = getBox();
    const math::Vector2 half = getSize() * 0.5f;
    return local.x >= -half.x + box.border.w + box.padding.w && local.x <= half.x - box.border.y - box.padding.y &&
           local.y >= -half.y + box.border.x + box.padding.x && local.y <= half.y - box.border.z - box.padding.z;
}

void Container::setClipChildren(bool clip) {
    if (clip == mClipChildren)
        return;
    mClipChildren = clip;
    setDirty(DIRTY_VIEW);
    setDirty__(DIRTY_VIEW, DIRTY_DOWN);
}

void Container::ensureChildVisibility(Component *, const math::Vector3 &, const math::Vector3 &) {
    ensureVisibility();
}

void Container::dragAxis(const ScrollInfo &info, float delta, float minimum, float maximum, float &offset) const {
    if (!info.scrollable)
        return;
    offset -= delta;
    if (offset > -minimum)
        offset = -std::floor(minimum);
    else if (offset < maximum)
        offset = std::floor(maximum);
}

void Container::onDragMove(const math::Vector2 &delta, const CursorPosition &) {
    if (!hasView())
        return;
    dragAxis(mScrollInfoH, delta.x, mScrollMin.x, mScrollMax.x, mScrollOffset.x);
    dragAxis(mScrollInfoV, delta.y, mScrollMin.y, mScrollMax.y, mScrollOffset.y);
    markScrolled();
}

Component *Container::createBar(Axis axis) {
    const AxisTraits &traits = AxisTraits::of(axis);
    const core::SmartPtr<Component> bar(new components::Panel(traits.barName));
    bar->setZIndex(SCROLL_BAR_Z_INDEX);
    bar->addClass(traits.barName);
    bar->setAnchor(traits.barAnchor);
    const int bound = mZIndexBound;
    _addChild(bar.get(), false);
    mZIndexBound = bound;
    return bar.get();
}

bool Container::isBarInBars() const {
    unsigned int depth = 0;
    for (const Container *bar = this; bar->getParent() && bar->getParent()->isBar(bar); bar = bar->getParent())
        ++depth;
    if (depth < MAXIMUM_NESTED_BARS)
        return false;
    static std::atomic<bool> reported(false);
    if (!reported.exchange(true))
        logging::Logger::mROOT_LOGGER.error("Scroll bars have scroll bars without end: is there a padding or a border "
                                            "on %s?",
                                            getName());
    return true;
}

void Container::updateBar(Axis axis) {
    const AxisTraits &traits = AxisTraits::of(axis);
    ScrollInfo &info = this->*traits.info;
    const float size = mContainerSize.*traits.along;
    const float extent = getContentExtents().*traits.along;
    const bool scrollable =
        (mScrollMask & traits.maskBit) && (mScrollMax.*traits.along < 0 || mScrollMin.*traits.along < 0);
    info.scale = extent > 0 ? size / extent : 0;
    const float length = std::floor(size * info.scale);
    if (scrollable != info.scrollable || length != info.length)
        setDirty(DIRTY_VIEW);
    info.scrollable = scrollable;
    info.length = length;
    if (!scrollable) {
        if (info.bar) {
            const core::SmartPtr<Component> bar(info.bar);
            bar->setVisible(false);
            bar->update();
        }
        return;
    }
    if (!info.bar && isBarInBars()) {
        info.scrollable = false;
        return;
    }
    if (!info.bar)
        info.bar = createBar(axis);
    const core::SmartPtr<Component> bar(info.bar);
    // One that was made before there were views gets its view now; one that was left out while nothing was to be
    // scrolled comes back.
    if (hasView() && (!bar->hasView() || bar->getView()->getParent() != getView()->getContent()))
        getView()->componentAdded(bar.get());
    bar->setVisible(true);
    math::Vector2 barSize = bar->getNaturalSize();
    barSize.*traits.along = info.length;
    bar->setSize(barSize);
    // Takes back the scrolling that the bar gets as a child.
    math::Vector2 position = -mScrollOffset;
    position.*traits.along += info.position;
    bar->setPosition(position, math::Vector2(0, 0));
    bar->update();
}

} // namespace nurel::ui
