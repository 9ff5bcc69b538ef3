#include "nui/ui/UIManager.h"

#include "foundation/core/Lock.h"
#include "foundation/logging/Logger.h"
#include "nui/ui/Container.h"
#include "nui/ui/KeyboardOverlay.h"
#include "nui/ui/UIEvent.h"
#include "nui/ui/detail/UIManagerScopes.h"

#include <utility>

namespace nurel::ui {

namespace {

/// How deep focus listeners may set the focus inside one another.
constexpr unsigned int MAXIMUM_FOCUS_DEPTH = 16;

class DepthScope {
public:
    explicit DepthScope(unsigned int &depth) : mDepth(depth) { ++mDepth; }
    ~DepthScope() { --mDepth; }
    DepthScope(const DepthScope &) = delete;
    DepthScope &operator=(const DepthScope &) = delete;

private:
    unsigned int &mDepth;
};

/// Enabled and visible all the way up.
bool isValid(const Component *component) {
    for (; component; component = component->getParent()) {
        if (!component->isEnabled())
            return false;
    }
    return true;
}

/// The component to which tabbing goes from the one at the index: the first in the direction whose tab stop does not
/// lie behind the reference. Passing the end starts the reference anew, backward at the number of children and not at
/// the highest stop.
Component *findTabStop(const Container &container, int index, int reference, int step) {
    const int count = static_cast<int>(container.getChildCount());
    int position = index + step;
    for (int tries = 1; tries < count; ++tries, position += step) {
        if (step > 0 && position == count)
            reference = 0;
        if (step < 0 && position == -1)
            reference = count;
        Component *child = container.getChildAt(static_cast<unsigned int>((position + count) % count));
        const int tabStop = child->getTabStop();
        if (child->isEnabled() && tabStop >= 0 && (step > 0 ? tabStop >= reference : tabStop <= reference))
            return child;
    }
    return nullptr;
}

} // namespace

void UIManager::setFocus(Component *component) {
    const Activity activity(*this);
    const core::Lock lock(mLock);
    if (component == mFocus)
        return;
    if (mFocusDepth >= MAXIMUM_FOCUS_DEPTH) {
        logging::Logger::mROOT_LOGGER.warn("Focus listeners set the focus inside one another, %u deep: dropped",
                                           mFocusDepth);
        return;
    }
    const DepthScope depth(mFocusDepth);
    keepForPass(component);
    mTextBuffer.clear();
    takeFocusAway(component);
    if (!component || mFocus == component || !component->isVisible())
        return;
    mFocus = component; // it has the focus already while it is told
    Component *taker = handleEvent(component, FocusEvent(FocusEvent::FOCUS_GAINED));
    if (mFocus != component)
        return; // a listener has set the focus anew, or the component has gone
    mFocus = taker;
    if (taker)
        taker->enableState(Component::STATE_FOCUSED);
}

/// Tells the component in focus, and whichever gets the focus from a listener meanwhile, unless that is the successor.
void UIManager::takeFocusAway(Component *successor) {
    for (unsigned int rounds = 0; rounds < MAXIMUM_FOCUS_DEPTH; ++rounds) {
        Component *focus = mFocus;
        if (!focus || focus == successor)
            return;
        const detail::ForgetScope loss(mFocus);
        handleEvent(focus, FocusEvent(FocusEvent::FOCUS_LOST));
        focus->disableState(Component::STATE_FOCUSED);
    }
    mFocus = nullptr;
}

void UIManager::setEnabled(bool enabled) {
    const Activity activity(*this);
    const core::Lock lock(mLock);
    if (enabled == mEnabled)
        return;
    mEnabled = enabled;
    if (enabled)
        return;
    mButtonQueue.clear();
    if (Component *focus = mFocus) {
        // The component keeps STATE_FOCUSED, though it has the focus no more.
        const detail::ForgetScope loss(mFocus);
        handleEvent(focus, FocusEvent(FocusEvent::FOCUS_LOST));
    }
}

void UIManager::nextTabStop(TabStopDirection direction) {
    const Activity activity(*this);
    if (!mEnabled)
        return;
    cancelMouseAction();
    if (Component *focus = mFocus)
        nextTabStop(focus, direction);
}

void UIManager::nextTabStop(Component *component, TabStopDirection direction) {
    nextTabStop(component, component->getParent(), direction);
}

void UIManager::nextTabStop(Component *component, Container *container, TabStopDirection direction) {
    if (!container || container->getChildCount() == 0)
        return;
    const int index = container->getChildIndex(component);
    if (index < 0)
        return;
    const int tabStop = component->getTabStop();
    logging::Logger::mROOT_LOGGER.debug("nextTabStop:%d:%d", index, tabStop);
    const int reference = tabStop < 0 ? 0 : tabStop;
    Component *candidate = findTabStop(*container, index, reference, direction == FORWARD ? 1 : -1);
    if (!candidate && direction == FORWARD)
        candidate = findTabStop(*container, index, 0, 1); // past the wrap
    if (candidate)
        setFocus(candidate);
}

KeyboardOverlay *UIManager::acquireKeyboard(Component *component, const char *text, unsigned int options) {
    const Activity activity(*this);
    if (!mKeyboardOverlay) {
        if (mEnding)
            return nullptr;
        mKeyboardOverlay = std::make_unique<KeyboardOverlay>();
    }
    mKeyboardOverlay->acquire(component, text, options);
    return mKeyboardOverlay.get();
}

void UIManager::setKeyboardOverlay(std::unique_ptr<KeyboardOverlay> overlay) {
    const Activity activity(*this);
    const std::unique_ptr<KeyboardOverlay> previous = std::exchange(mKeyboardOverlay, std::move(overlay));
}

void UIManager::checkEnabledValidity() {
    const Activity activity(*this);
    if (!isValid(mHovered))
        leaveHovered(takePointer());
    if (!isValid(mFocus))
        setFocus(nullptr);
    if (!isValid(mDragging))
        mDragging = nullptr;
}

void UIManager::checkComponentRemoval(Component *component) {
    if (!component)
        return;
    const Activity activity(*this);
    const core::Lock lock(mLock);
    if (mRemovals && mRemovals->contains(component))
        return; // a listener removes once more what is being removed
    const Removal removal(*this, component);
    if (mPressed == component)
        mPressed = nullptr;
    if (mHovered == component)
        mHovered = nullptr;
    if (mDragging == component)
        mDragging = nullptr;
    if (mFocus == component)
        setFocus(nullptr);
    // A class derived from Container is not walked: what has the focus inside a panel that is removed keeps it. So only
    // a container in its destructor tells for its children.
    if (&component->getType() == &Container::TYPE) {
        const Container *container = static_cast<Container *>(component);
        for (unsigned int i = 0; i < container->getChildCount(); ++i) {
            const core::SmartPtr<Component> child(container->getChildAt(i)); // its listener may remove it
            checkComponentRemoval(child.get());
        }
    }
}

} // namespace nurel::ui
