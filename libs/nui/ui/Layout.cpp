#include "nui/ui/Layout.h"

#include "nmain/core/CloningOptions.h"
#include "nmain/json/JSObject.h"
#include "nui/ui/Container.h"

#include <algorithm>

namespace nurel::ui {

constinit const core::Type Layout::TYPE("Layout", &core::Object::TYPE);

constinit Layout *Layout::mSTRANGERS = nullptr;

Layout::~Layout() {
    forgetStrangers();
}

void Layout::_clone(core::Object *target, core::CloningOptions &options) const {
    core::Object::_clone(target, options);
    if (!target || !target->instanceOf(TYPE))
        return;
    core::Object *owner = options.getCloned(mOwner);
    if (owner && owner->instanceOf(Container::TYPE))
        static_cast<Layout *>(target)->setOwner(static_cast<Container *>(owner));
}

void Layout::layout() const {
    if (mOwner)
        _layout(mOrdered);
}

void Layout::setParameters(const json::JSObject *parameters) {
    if (parameters && parameters->getType() == json::JSObject::T_OBJECT)
        _setParameters(parameters);
}

void Layout::_setParameters(const json::JSObject *) {}

void Layout::setOwner(Container *owner) {
    if (owner == mOwner)
        return;
    clearComponents();
    mOwner = owner;
    if (owner && owner->getLayout() != this)
        noteStranger();
}

void Layout::addComponent(Component *component) {
    if (!component || hasComponent(component))
        return;
    const auto isAbove = [=](const Component *other) { return other->getZIndex() > component->getZIndex(); };
    const auto place = isHighest(*component) ? mOrdered.end() : std::find_if(mOrdered.begin(), mOrdered.end(), isAbove);
    mManaged.emplace(component, mOrdered.insert(place, component));
    if (!mOwner || component->getParent() != mOwner)
        noteStranger();
}

void Layout::removeComponent(Component *component) {
    const auto found = mManaged.find(component);
    if (found == mManaged.end())
        return;
    mOrdered.erase(found->second);
    mManaged.erase(found);
}

/// Whether there is no need to look for a higher one. The scroll bars are not under the layout, as a rule.
bool Layout::isHighest(const Component &component) const {
    if (!mOwner)
        return false;
    if (mOwner->getZIndexMax() <= component.getZIndex())
        return true;
    return !mHasStrangers && mOwner->isBelowBarsOnly(component.getZIndex()) &&
           !hasComponent(mOwner->getScrollInfoH().bar) && !hasComponent(mOwner->getScrollInfoV().bar);
}

bool Layout::hasComponent(const Component *component) const {
    return mManaged.count(component) > 0;
}

void Layout::clearComponents() {
    mManaged.clear();
    mOrdered.clear();
    forgetStrangers();
}

unsigned int Layout::getIgnoreCount() const {
    const unsigned int children = mOwner ? mOwner->getChildCount() : 0;
    return children - std::min(children, getComponentCount());
}

void Layout::clearIgnores() {
    clearComponents();
    if (!mOwner)
        return;
    const unsigned int count = mOwner->getChildCount();
    for (unsigned int i = 0; i < count; ++i)
        addComponent(mOwner->getChildAt(i));
}

void Layout::componentDestroyed(Component *component) noexcept {
    for (Layout *layout = mSTRANGERS; layout; layout = layout->mNextStranger) {
        layout->removeComponent(component);
        if (layout->mOwner == component)
            layout->mOwner = nullptr;
    }
}

void Layout::noteStranger() {
    if (mHasStrangers)
        return;
    mHasStrangers = true;
    mNextStranger = mSTRANGERS;
    if (mSTRANGERS)
        mSTRANGERS->mPreviousStranger = this;
    mSTRANGERS = this;
}

void Layout::forgetStrangers() {
    if (!mHasStrangers)
        return;
    mHasStrangers = false;
    (mPreviousStranger ? mPreviousStranger->mNextStranger : mSTRANGERS) = mNextStranger;
    if (mNextStranger)
        mNextStranger->mPreviousStranger = mPreviousStranger;
    mPreviousStranger = mNextStranger = nullptr;
}

} // namespace nurel::ui
