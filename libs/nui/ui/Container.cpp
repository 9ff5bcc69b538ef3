#include "nui/ui/Container.h"

#include "foundation/core/Type.h"
#include "nmain/core/CloningOptions.h"
#include "nui/ui/ComponentView.h"
#include "nui/ui/Layout.h"
#include "nui/ui/detail/CloneTarget.h"

namespace nurel::ui {

constinit const core::Type Container::TYPE("Container", &Component::TYPE);

Container::Container(const char *name, const char *element) : Component(name, element) {
    mIsContainer = true;
    enableEvents(UIEvent::ET_CLICK_EVENT);
}

Container::Container(const Container &) = default;
Container &Container::operator=(const Container &) = default;

Container::~Container() {
    addRef(); // as in ~Component()
    leaveManager();
    for (const auto &child : mChildren) {
        if (child->mParent == this) // the children of a copy belong to its source
            child->mParent = nullptr;
    }
    if (mLayout && mLayout->getOwner() == this)
        mLayout->setOwner(nullptr);
    // What goes with them may still look at this container, which has none by then.
    std::vector<core::SmartPtr<Component>> released;
    released.swap(mChildren);
}

void Container::setEnabled(bool enabled) {
    const Keeper self(this);
    const bool before = mEnabled;
    Component::setEnabled(enabled);
    if (enabled == before)
        return;
    const bool passedOn = isEnabled();
    for (const auto &child : mChildren)
        child->setParentEnabled(passedOn);
}

void Container::setParentEnabled(bool enabled) {
    Component::setParentEnabled(enabled);
    const bool passedOn = isEnabled();
    for (const auto &child : mChildren)
        child->setParentEnabled(passedOn);
}

void Container::setVisible(bool visible) {
    if (visible == mVisible)
        return;
    const Keeper self(this);
    Component::setVisible(visible);
    // The children follow at once, also when an open animation shows or hides the container itself only later.
    for (const auto &child : mChildren)
        child->setParentVisible(visible);
}

void Container::setParentVisible(bool visible) {
    Component::setParentVisible(visible);
    const bool passedOn = isVisible();
    for (const auto &child : mChildren)
        child->setParentVisible(passedOn);
}

void Container::applyOpacity(float value, bool recursive) {
    Component::applyOpacity(value, recursive);
    if (!recursive)
        return;
    for (const auto &child : mChildren)
        child->applyOpacity(child->mOpacity * value, recursive);
}

void Container::clearView() {
    const unsigned int count = getChildCount();
    for (unsigned int index = 0; index < count; ++index)
        mChildren[index]->clearView();
    Component::clearView();
}

Component *Container::hitTest(const Ray &ray, math::Vector3 &point) {
    if (!hasView() || !Component::hitTest(ray, point))
        return nullptr;
    for (std::size_t index = mChildren.size(); index-- > 0;) {
        Component *hit = mChildren[index]->hitTest(ray, point);
        if (hit && hit->isEventEnabled(EVENT_MASK_HITTABLE))
            return hit;
    }
    // A second test, which gives the point back that the children wrote over.
    return isEventEnabled(EVENT_MASK_HITTABLE) ? Component::hitTest(ray, point) : nullptr;
}

void Container::_clone(core::Object *object, core::CloningOptions &options) const {
    detail::requireCloneTarget(*this, object, TYPE);
    if (object == this)
        return;
    Container &target = *static_cast<Container *>(object);
    // 1.
    Component::_clone(object, options);
    // 2. The layout's copy finds its owner by the options
    if (mLayout) {
        const core::SmartPtr<core::Object> copy(mLayout->clone(options));
        if (copy && copy->instanceOf(Layout::TYPE)) {
            const core::SmartPtr<Layout> old = target.mLayout;
            target.mLayout = static_cast<Layout *>(copy.get());
            if (old && old->getOwner() == &target)
                old->setOwner(nullptr);
            target.mLayout->forgetStrangers();
        }
    }
    // 3.
    target.mScrollMask = mScrollMask;
    target.mScrollInfoH = mScrollInfoH;
    target.mScrollInfoH.bar = nullptr;
    target.mScrollInfoV = mScrollInfoV;
    target.mScrollInfoV.bar = nullptr;
    // 4. A child that the layout does not manage stays unmanaged
    for (const auto &child : mChildren) {
        if (isBar(child.get()))
            continue;
        const core::SmartPtr<core::Object> copy(child->clone(options));
        if (copy && copy->instanceOf(Component::TYPE))
            target._addChild(static_cast<Component *>(copy.get()), mLayout && mLayout->hasComponent(child.get()));
    }
    // 5.
    target.mContainerSize = mContainerSize;
    target.mBaseScrollOffset = mBaseScrollOffset;
    target.mScrollOffset = mScrollOffset;
    target.mClipChildren = mClipChildren;
    target.mScrollMin = mScrollMin;
    target.mScrollMax = mScrollMax;
    target.mContentExtentMin = mContentExtentMin;
    target.mContentExtentMax = mContentExtentMax;
}

} // namespace nurel::ui
