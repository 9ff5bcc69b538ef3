#include "nui/ui/Component.h"
#include "nui/ui/Container.h"
#include "nui/ui/animation/AnimatedVisibility.h"
#include "nui/ui/detail/ManagerAccess.h"

namespace nurel::ui {

namespace {

void checkEnabledValidity() {
    if (UIManager *manager = detail::findManager())
        manager->checkEnabledValidity();
}

} // namespace

void Component::enableState(unsigned int mask) {
    setState(mState | mask);
}

void Component::disableState(unsigned int mask) {
    setState(mState & ~mask);
}

void Component::setState(unsigned int state) {
    if (state == mState)
        return;
    mState = state;
    setDirty(DIRTY_VIEW);
}

void Component::setEnabled(bool enabled) {
    if (enabled == mEnabled)
        return;
    mEnabled = enabled;
    if (enabled)
        disableState(STATE_DISABLED);
    else
        enableState(STATE_DISABLED);
    disableState(STATE_HOVER);
    checkEnabledValidity();
}

void Component::setParentEnabled(bool enabled) {
    if (enabled == mParentEnabled)
        return;
    mParentEnabled = enabled;
    if (isEnabled())
        disableState(STATE_DISABLED);
    else
        enableState(STATE_DISABLED);
}

void Component::setVisible(bool visible) {
    if (visible == mVisible)
        return;
    if (AnimationContext *open = detail::findOpenAnimation()) {
        open->record<animation::AnimatedVisibility>(this).setVisibility(visible);
        return;
    }
    applyVisibility(visible);
}

void Component::applyVisibility(bool visible) {
    if (visible == mVisible)
        return;
    const bool wasInUse = mEnabled && mVisible;
    mVisible = visible;
    setDirty(mIsContainer ? DIRTY_VIEW | DIRTY_CONTENT : DIRTY_VIEW);
    if (mParent)
        setDirty(DIRTY_CONTENT); // marks this component alone, not the parent
    if (wasInUse)
        checkEnabledValidity();
}

void Component::setParentVisible(bool visible) {
    // The enabled flag is stored without a word: a setParentEnabled() that follows sees no change, and STATE_DISABLED
    // stays as it was.
    const bool enabled = !mParent || mParent->isEnabled();
    if (visible == mParentVisible && enabled == mParentEnabled)
        return;
    mParentVisible = visible;
    mParentEnabled = enabled;
    if (mVisible && visible)
        setDirty(DIRTY_VIEW);
}

void Component::setFocus() {
    if (UIManager *manager = detail::findManager())
        manager->setFocus(this);
}

bool Component::hasFocus() const {
    const UIManager *manager = detail::findManager();
    return manager && manager->getFocus() == this;
}

void Component::setTabStop(int tabStop) {
    mTabStop = tabStop;
    setDirty(DIRTY_VIEW);
}

void Component::setElement(const char *element) {
    mElement = element ? element : "";
}

void Component::addClass(const char *name) {
    mClasses.put(name, true);
    setDirty(DIRTY_STYLE | DIRTY_VIEW);
}

void Component::removeClass(const char *name) {
    mClasses.remove(name);
    setDirty(DIRTY_STYLE | DIRTY_VIEW);
}

void Component::removeClasses() {
    mClasses.clear();
    setDirty(DIRTY_STYLE | DIRTY_VIEW);
}

void Component::setClass(const char *name) {
    addClass(name);
}

void Component::setClasses(const core::CKHashMapValue<bool> &classes) {
    if (&classes != &mClasses) { // its own set would be gone before it is added
        mClasses.clear();
        for (const auto &entry : classes)
            addClass(entry.first);
    }
    setDirty(DIRTY_STYLE | DIRTY_VIEW);
}

} // namespace nurel::ui
