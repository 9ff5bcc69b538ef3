#include "nui/ui/Component.h"
#include "nui/ui/ComponentView.h"
#include "nui/ui/Container.h"

#ifndef NDEBUG
#include "foundation/core/Type.h"
#include "foundation/logging/Logger.h"
#include "nengine/renderer/Renderer.h"
#include "nengine/renderer/TaskQueue.h"

#include <atomic>
#endif

namespace nurel::ui {

void Component::checkThread() const {
#ifndef NDEBUG
    static std::atomic<bool> reported(false);
    if (!renderer::Renderer::isSingletonCreated() || renderer::Renderer::getSingleton().getTaskQueue().isOwnThread())
        return;
    if (!reported.exchange(true))
        logging::Logger::mROOT_LOGGER.warn("%s(%s) is used by another thread than the one that renders", getName(),
                                           getType().getName());
#endif
}

void Component::setDirty(unsigned int bits) {
    checkThread();
    unsigned int self = bits;
    unsigned int up = 0;
    unsigned int down = 0;
    if (bits & DIRTY_POSITION) {
        self |= DIRTY_VIEW;
        down = DIRTY_POSITION | DIRTY_VIEW;
        if (mParent && !mParent->isDirty(DIRTY_CONTENT))
            up |= DIRTY_CONTENT;
    }
    if ((self & DIRTY_VIEW) && mParent && !mParent->isDirty(DIRTY_CHILD_VIEW))
        up |= DIRTY_CHILD_VIEW;
    if (self)
        setDirty__(self, DIRTY_SELF);
    if (up)
        setDirty__(up, DIRTY_UP);
    if (down)
        setDirty__(down, DIRTY_DOWN);
}

void Component::setDirty__(unsigned int bits, unsigned int direction) {
    if (direction & DIRTY_SELF)
        mDirty |= bits;
    if (direction & DIRTY_UP) {
        if ((bits & DIRTY_CONTENT) && mParent && !mParent->isDirty(DIRTY_CHILD_CONTENT))
            bits |= DIRTY_CHILD_CONTENT; // carried on, downwards too
        if (mParent && mParent->isDirty(bits) != bits)
            mParent->setDirty__(bits, DIRTY_UP | DIRTY_SELF);
    }
    if ((direction & DIRTY_DOWN) && mIsContainer) {
        for (const auto &child : static_cast<Container *>(this)->mChildren)
            child->setDirty__(bits, DIRTY_SELF | DIRTY_DOWN);
    }
}

void Component::setClean(unsigned int bits) {
    mDirty &= ~bits;
    if (mDirty & DIRTY_POSITION)
        mDirty |= DIRTY_VIEW;
}

void Component::updateContent() {
    setClean(DIRTY_CONTENT | DIRTY_ZORDER);
}

void Component::updateView() {
    const core::SmartPtr<ComponentView> view = mView; // an override may drop it
    if (!view)
        return;
    view->updateView();
    setClean(DIRTY_STYLE | DIRTY_VIEW);
}

void Component::update() {
    const Keeper self(this);
    // Hidden: 0x04 and 0x20 stay, so that the work is done when it is shown. Only the own flag counts here.
    if (!mVisible) {
        if (isDirty(DIRTY_VIEW))
            updateView();
        return;
    }
    const math::Vector2 before = mSize;
    for (int pass = 0; pass < 3; ++pass) {
        if (isDirty(DIRTY_POSITION))
            updatePosition();
        updateContent();
        if (isDirty(DIRTY_VIEW))
            updateView();
        if (pass == 0 && mDeclaredSize.autoSize != 0 && mSize != before)
            setDirty(DIRTY_POSITION);
        if (!isDirty(DIRTY_POSITION))
            break;
    }
    setClean(DIRTY_CHILD_CONTENT | DIRTY_CHILD_VIEW);
}

} // namespace nurel::ui
