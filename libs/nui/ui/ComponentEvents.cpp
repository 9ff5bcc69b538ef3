#include "nui/ui/Component.h"
#include "nui/ui/ComponentHandler.h"
#include "nui/ui/ComponentView.h"
#include "nui/ui/Container.h"

#include "nmain/math/Matrix4.h"

#include <type_traits>

namespace nurel::ui {

namespace {

/// How deep the events that filters redirect are nested on this thread.
thread_local unsigned int sRedirects = 0;

class Redirect {
public:
    Redirect() { ++sRedirects; }
    ~Redirect() { --sRedirects; }
    Redirect(const Redirect &) = delete;
    Redirect &operator=(const Redirect &) = delete;

    bool isTooDeep() const { return sRedirects > UIEventHandler::MAXIMUM_REDIRECTS; }
};

} // namespace

UIEventHandler *Component::nextHandler() {
    if (mHandler)
        return mHandler;
    return mParent;
}

UIEventHandler *Component::handleEvent(const UIEvent &event) {
    // 1. and 2. Events that are not for this component pass on
    if (!acceptsEvent(event.getType()) || !isEnabled()) {
        UIEventHandler *next = nextHandler();
        return next ? next->handleEvent(event) : nullptr;
    }
    Keeper self(this);
    // 3. and 4. The chain may take the event away
    UIEventHandler *receiver = filterEvent(event, this);
    UIEventHandler *consumer = nullptr;
    if (receiver != this) {
        const Redirect redirect;
        if (receiver && !redirect.isTooDeep())
            consumer = receiver->handleEvent(event);
    } else {
        // 5. to 8.
        consumer = dispatchByType(event);
    }
    if (consumer == this)
        return self.release();
    Keeper kept(consumer);
    self.release();
    return kept.release();
}

UIEventHandler *Component::dispatchByType(const UIEvent &event) {
    switch (event.getType()) {
    case UIEvent::ET_FOCUS_EVENT:
        return dispatch(static_cast<const FocusEvent &>(event));
    case UIEvent::ET_HOVER_EVENT:
        return dispatch(static_cast<const HoverEvent &>(event));
    case UIEvent::ET_MOUSE_EVENT:
        return dispatch(static_cast<const MouseEvent &>(event));
    case UIEvent::ET_WHEEL_EVENT:
        return dispatch(static_cast<const WheelEvent &>(event));
    case UIEvent::ET_DRAG_EVENT:
        return dispatch(static_cast<const DragEvent &>(event));
    case UIEvent::ET_KEY_EVENT:
        return dispatch(static_cast<const KeyEvent &>(event));
    case UIEvent::ET_CLICK_EVENT:
        return dispatch(static_cast<const ClickEvent &>(event));
    case UIEvent::ET_TEXT_EVENT:
        return dispatch(static_cast<const TextEvent &>(event));
    case UIEvent::ET_NONE_EVENT:
        break;
    }
    return nullptr;
}

template <class Event>
UIEventHandler *Component::dispatch(const Event &event) {
    constexpr bool IS_FOCUS = std::is_same_v<Event, FocusEvent>;
    UIEventHandler *consumer = processEvent(event);
    if constexpr (IS_FOCUS)
        setDirty(DIRTY_VIEW);
    if (!consumer)
        return nullptr;
    Keeper kept(consumer);
    // Focus callbacks get the handler that took the focus, all others this component.
    EventCallbacks<Event>::triggerCallbacks(IS_FOCUS ? consumer : this, event);
    return kept.release();
}

UIEventHandler *Component::processEvent(const TextEvent &) {
    return this;
}

UIEventHandler *Component::processEvent(const KeyEvent &) {
    return this;
}

UIEventHandler *Component::processEvent(const ClickEvent &) {
    return this;
}

UIEventHandler *Component::processEvent(const FocusEvent &) {
    return mTabStop >= 0 ? this : nullptr;
}

UIEventHandler *Component::processEvent(const WheelEvent &event) {
    onMouseWheel(event.getCursor(), event.getDelta());
    return this;
}

UIEventHandler *Component::processEvent(const HoverEvent &event) {
    if (event.getAction() == HoverEvent::HOVER_ENTER) {
        mState |= STATE_HOVER;
        setDirty(DIRTY_VIEW);
        onMouseEnter(event.getCursor());
    } else if (event.getAction() == HoverEvent::HOVER_LEAVE) {
        mState &= ~(STATE_HOVER | STATE_ACTIVE);
        setDirty(DIRTY_VIEW);
        onMouseLeave();
    } else if (event.getAction() == HoverEvent::HOVER_MOVE) {
        onMouseMove(event.getCursor());
    }
    return this;
}

UIEventHandler *Component::processEvent(const MouseEvent &event) {
    if (event.getAction() == MouseEvent::MOUSE_PRESS) {
        mState = (mState & ~STATE_RELEASED) | STATE_ACTIVE;
        setDirty(DIRTY_VIEW);
        onMouseDown(event.getCursor());
    } else if (event.getAction() == MouseEvent::MOUSE_RELEASE) {
        mState = (mState & ~STATE_ACTIVE) | STATE_RELEASED;
        math::Vector3 point(0, 0, 0);
        if (!hitTest(event.getRay(), point) && hasState(STATE_HOVER)) {
            mState &= ~STATE_HOVER;
            // The overload alone: the manager's focus and STATE_FOCUSED stay as they are.
            if (hasFocus())
                processEvent(FocusEvent(FocusEvent::FOCUS_LOST));
        }
        setDirty(DIRTY_VIEW);
        onMouseUp(event.getCursor());
    }
    return this;
}

UIEventHandler *Component::processEvent(const DragEvent &event) {
    if (event.getAction() == DragEvent::DRAG_BEGIN)
        onDragBegin(event.getCursor());
    else if (event.getAction() == DragEvent::DRAG_END)
        onDragEnd();
    else if (event.getAction() == DragEvent::DRAG_MOVE)
        onDragMove(event.getDelta(), event.getCursor());
    else if (event.getAction() == DragEvent::DRAG_CANCEL)
        onDragCancel();
    return this;
}

void Component::onMouseUp(const CursorPosition &) {}
void Component::onMouseWheel(const CursorPosition &, int) {}
void Component::onMouseDown(const CursorPosition &) {}
void Component::onMouseEnter(const CursorPosition &) {}
void Component::onMouseMove(const CursorPosition &) {}
void Component::onMouseLeave() {}
void Component::onDragBegin(const CursorPosition &) {}
void Component::onDragMove(const math::Vector2 &, const CursorPosition &) {}
void Component::onDragEnd() {}
void Component::onDragCancel() {}

Component *Component::hitTest(const Ray &ray, math::Vector3 &point) {
    if (!mView || !isEnabled())
        return nullptr;
    if (mWorldScale.x == 0 || mWorldScale.y == 0) // it has no area, and no way back from the screen to it
        return nullptr;
    const math::Matrix4 toLocal = mView->getWorldInverseTransform();
    const math::Vector4 direction = toLocal * ray.direction;
    const math::Vector3 origin = toLocal * ray.origin;
    if (!(direction.z > 0)) // from behind, or along the plane
        return nullptr;
    const float t = -origin.z / direction.z;
    if (!(t >= 0))
        return nullptr;
    point = math::Vector3(direction.x, direction.y, direction.z) * t + origin;
    const math::Vector2 half = mNaturalSize * 0.5f;
    return point.x >= -half.x && point.x < half.x && point.y >= -half.y && point.y < half.y ? this : nullptr;
}

} // namespace nurel::ui
