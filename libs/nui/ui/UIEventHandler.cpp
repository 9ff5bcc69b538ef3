#include "nui/ui/UIEventHandler.h"

#include "foundation/core/Type.h"
#include "nui/ui/detail/CloneTarget.h"

#include <utility>

namespace nurel::ui {

constinit const core::Type UIEventHandler::TYPE("UIEventHandler", &core::NamedObject::TYPE);

thread_local UIEventHandler::Keeper *UIEventHandler::Keeper::mInnermost = nullptr;

bool UIEventHandler::Keeper::isHeldByKeepersOnly(const core::IRefCount *object) {
    for (const Keeper *keeper = mInnermost; keeper; keeper = keeper->mOuter) {
        if (static_cast<const core::IRefCount *>(keeper->mHandler) == object)
            return true;
    }
    return false;
}

UIEventHandler::Keeper::Keeper(UIEventHandler *handler)
    : mHandler(handler), mCounted(handler && handler->getRefCount() != 0 && !isHeldByKeepersOnly(handler)) {
    if (!mHandler)
        return;
    mHandler->addRef();
    if (!mCounted)
        mOuter = std::exchange(mInnermost, this);
}

UIEventHandler *UIEventHandler::Keeper::release() {
    if (mHandler && !mCounted) {
        Keeper **link = &mInnermost;
        while (*link != this)
            link = &(*link)->mOuter;
        *link = mOuter;
    }
    UIEventHandler *handler = std::exchange(mHandler, nullptr);
    if (handler && handler->decRef() == 0 && mCounted) {
        handler->dispose();
        return nullptr;
    }
    return handler;
}

UIEventHandler *UIEventHandler::handleEvent(const UIEvent &event) {
    UIEventHandler *next = nextHandler();
    return next ? next->handleEvent(event) : nullptr;
}

UIEventHandler *UIEventHandler::filterEvent(const UIEvent &event, UIEventHandler *handler) {
    const Keeper self(this);
    triggerCallbacks(this, event, handler);
    UIEventHandler *next = nextHandler();
    return next ? next->filterEvent(event, handler) : handler;
}

void UIEventHandler::_clone(core::Object *target, core::CloningOptions &options) const {
    detail::requireCloneTarget(*this, target, TYPE);
    core::NamedObject::_clone(target, options);
    static_cast<UIEventHandler *>(target)->mEventMask = mEventMask;
}

template <class Event>
UIEventHandler *UIEventHandler::passOn(const Event &event) {
    UIEventHandler *next = nextHandler();
    return next ? next->processEvent(event) : nullptr;
}

UIEventHandler *UIEventHandler::processEvent(const TextEvent &event) {
    return passOn(event);
}
UIEventHandler *UIEventHandler::processEvent(const KeyEvent &event) {
    return passOn(event);
}
UIEventHandler *UIEventHandler::processEvent(const DragEvent &event) {
    return passOn(event);
}
UIEventHandler *UIEventHandler::processEvent(const WheelEvent &event) {
    return passOn(event);
}
UIEventHandler *UIEventHandler::processEvent(const ClickEvent &event) {
    return passOn(event);
}
UIEventHandler *UIEventHandler::processEvent(const MouseEvent &event) {
    return passOn(event);
}
UIEventHandler *UIEventHandler::processEvent(const HoverEvent &event) {
    return passOn(event);
}
UIEventHandler *UIEventHandler::processEvent(const FocusEvent &event) {
    return passOn(event);
}

} // namespace nurel::ui
