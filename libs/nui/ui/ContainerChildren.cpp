#include "foundation/core/Exception.h"
#include "nui/ui/ComponentView.h"
#include "nui/ui/Container.h"
#include "nui/ui/Layout.h"
#include "nui/ui/Skin.h"
#include "nui/ui/detail/ManagerAccess.h"

#include <algorithm>
#include <cassert>

namespace nurel::ui {

namespace {

bool isBelow(const core::SmartPtr<Component> &a, const core::SmartPtr<Component> &b) {
    return a->getZIndex() < b->getZIndex();
}

/// What is leaving the tree loses focus, hover and the like. Callbacks run here.
void announceRemoval(Component &child) {
    if (UIManager *manager = detail::findManager())
        manager->checkComponentRemoval(&child);
}

} // namespace

void Container::_addChild(Component *child, bool useLayout) {
    if (!child)
        return;
    // 1. and 2.
    if (child->mParent == this)
        return;
    if (child->mParent)
        throw core::IllegalStateException("Component already has a parent");
    if (isDescendantOf(child))
        throw core::IllegalStateException("Component %s cannot be put into itself or its own descendant %s",
                                          child->getName(), getName());
    // 3. and 4.
    insertByZIndex(child);
    child->setParent(this);
    // 5.
    if (useLayout && mLayout)
        mLayout->addComponent(child);
    // 6. A skin sees the tree below a view, so the child gets its view at once. A view made by this went in by
    // setView().
    if (ComponentView *view = getView()) {
        const bool hadView = child->hasView();
        ComponentView *childView = child->visit(view->getSkin());
        if (hadView || (childView && childView->getParent() != view->getContent()))
            view->insertView(childView);
    }
    // 7. and 8.
    updateZIndexRangeAfterInsertion(child->mZIndex);
    setDirty(DIRTY_VIEW | DIRTY_CONTENT);
}

void Container::insertByZIndex(Component *child) {
    auto position = mChildren.end();
    if (child->mZIndex >= mZIndexMax) {
        if (!mChildren.empty() && mChildren.back()->mZIndex > child->mZIndex)
            mIsUnsorted = true;
    } else {
        const auto isAbove = [child](const core::SmartPtr<Component> &other) {
            return other->mZIndex > child->mZIndex;
        };
        position = isDirty(DIRTY_ZORDER) || mIsUnsorted
                       ? std::find_if(mChildren.begin(), mChildren.end(), isAbove)
                       : std::partition_point(mChildren.begin(), mChildren.end(),
                                              [&](const auto &other) { return !isAbove(other); });
    }
    mChildren.insert(position, core::SmartPtr<Component>(child));
}

void Container::removeChild(Component *child) {
    if (!child)
        return;
    if (mLayout)
        mLayout->removeComponent(child);
    if (!hasChild(child))
        return;
    const Keeper self(this);
    const core::SmartPtr<Component> kept(child);
    announceRemoval(*child);
    if (!hasChild(child)) // a callback was faster
        return;
    detachView(*child);
    detachAt(static_cast<std::size_t>(getChildIndex(child)));
    setDirty(DIRTY_VIEW | DIRTY_CONTENT);
    updateZIndexRangeAfterRemoval(child->mZIndex);
}

void Container::removeChildAt(unsigned int index) {
    if (index >= getChildCount())
        return;
    const Keeper self(this);
    const core::SmartPtr<Component> child = mChildren[index];
    announceRemoval(*child);
    if (!hasChild(child.get()))
        return;
    detachView(*child);
    detachAt(static_cast<std::size_t>(getChildIndex(child.get())));
    updateZIndexRangeAfterRemoval(child->mZIndex);
    setDirty(DIRTY_VIEW | DIRTY_CONTENT);
}

void Container::clearChildren() {
    if (mLayout)
        mLayout->clearComponents();
    const Keeper self(this);
    // They leave one by one. What a callback adds meanwhile is a child like any other and stays.
    std::vector<core::SmartPtr<Component>> leaving;
    leaving.swap(mChildren);
    mIsUnsorted = false;
    mZIndexBound = std::numeric_limits<int>::min();
    for (const auto &child : leaving) {
        announceRemoval(*child);
        if (child->mParent == this)
            child->setParent(nullptr);
    }
    for (auto child = leaving.rbegin(); child != leaving.rend(); ++child) {
        if (!(*child)->mParent)
            detachView(**child); // the last first: nothing has to move up
    }
    setScrollOffset(math::Vector2(0, 0));
    mScrollInfoH.bar = nullptr;
    mScrollInfoV.bar = nullptr;
    mZIndexMin = 0; // the maximum keeps its value
    setDirty(DIRTY_VIEW | DIRTY_CONTENT);
}

void Container::detachView(Component &child) {
    if (hasView() && child.hasView())
        getView()->removeView(child.getView());
}

void Container::detachAt(std::size_t index) {
    const core::SmartPtr<Component> child = mChildren[index];
    if (mLayout) // a callback may have put it back
        mLayout->removeComponent(child.get());
    // A bar with children of its own z-index behind it can be removed as they can
    for (ScrollInfo *info : {&mScrollInfoH, &mScrollInfoV}) {
        if (info->bar == child.get())
            info->bar = nullptr;
    }
    child->setParent(nullptr);
    mChildren.erase(mChildren.begin() + static_cast<std::ptrdiff_t>(index));
}

unsigned int Container::getChildCount() const {
    // The bars have the highest z-index and so stand at the end.
    std::size_t count = mChildren.size();
    for (int bars = 0; bars < 2 && count > 0 && isBar(mChildren[count - 1].get()); ++bars)
        --count;
    return static_cast<unsigned int>(count);
}

Component *Container::getChildAt(unsigned int index) const {
    assert(index < mChildren.size());
    return mChildren[index].get();
}

int Container::getChildIndex(const Component *child) const {
    const auto found = std::find(mChildren.begin(), mChildren.end(), child);
    return found == mChildren.end() ? -1 : static_cast<int>(found - mChildren.begin());
}

bool Container::hasChild(const Component *child) const {
    const auto end = mChildren.begin() + static_cast<std::ptrdiff_t>(getChildCount());
    return std::find(mChildren.begin(), end, child) != end;
}

void Container::updateZIndexRangeAfterInsertion(int zIndex) {
    if (zIndex < mZIndexMin)
        mZIndexMin = zIndex;
    else if (zIndex > mZIndexMax)
        mZIndexMax = zIndex;
    mZIndexBound = std::max(mZIndexBound, zIndex);
}

void Container::updateZIndexRangeAfterRemoval(int zIndex) {
    if (mChildren.empty()) {
        mZIndexMin = 0;
        mZIndexMax = 0;
        return;
    }
    if (isDirty(DIRTY_ZORDER))
        applyZIndex();
    if (zIndex == mZIndexMin)
        mZIndexMin = mChildren.front()->mZIndex;
    else if (zIndex == mZIndexMax)
        mZIndexMax = mChildren.back()->mZIndex;
    if (zIndex == mZIndexBound && !mIsUnsorted) {
        const unsigned int count = getChildCount();
        mZIndexBound = count > 0 ? mChildren[count - 1]->mZIndex : std::numeric_limits<int>::min();
    }
}

void Container::applyZIndex() {
    std::stable_sort(mChildren.begin(), mChildren.end(), isBelow);
    mIsUnsorted = false;
    setClean(DIRTY_ZORDER);
    if (hasView())
        getView()->applyZIndex();
}

} // namespace nurel::ui
