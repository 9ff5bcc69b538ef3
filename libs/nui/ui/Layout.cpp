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
    if (!component || !mManaged.insert(component).second)
        return;
    const bool isHighest = mOwner && mOwner->getZIndexMax() <= component->getZIndex();
    const auto place =
        isHighest ? mOrdered.end() : std::find_if(mOrdered.begin(), mOrdered.end(), [=](const Component *other) {
            return other->getZIndex() > component->getZIndex();
        });
    mOrdered.insert(place, component);
    if (!mOwner || component->getParent() != mOwner)
        noteStranger();
}

void Layout::removeComponent(Component *component) {
    if (mManaged.erase(component) == 0)
        return;
    mOrdered.erase(std::find(mOrdered.begin(), mOrdered.end(), component));
}

bool Layout::hasComponent(const Component *component) const {
    return mManaged.find(component) != mManaged.end();
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
