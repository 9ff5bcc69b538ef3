#include "nui/ui/UIManager.h"

#include "foundation/core/Lock.h"
#include "nengine/scene/Camera.h"
#include "ninput/input/InputSystem.h"
#include "nui/ui/UIEvent.h"
#include "nui/ui/Widget.h"
#include "nui/ui/components/TextField.h"
#include "nui/ui/detail/UIManagerScopes.h"

#include <limits>

namespace nurel::ui {

float UIManager::MIN_DRAG_DISTANCE = 4;
float UIManager::MIN_DRAG_DISTANCE_SQR = 16;

namespace {

constexpr std::size_t MAXIMUM_BUTTON_CHANGES = 8;
constexpr int LEFT_BUTTON = 0;

int toPixel(int position, float scale) {
    const double pixel = static_cast<double>(static_cast<float>(position) * scale);
    if (pixel >= static_cast<double>(std::numeric_limits<int>::max()))
        return std::numeric_limits<int>::max();
    if (pixel <= static_cast<double>(std::numeric_limits<int>::min()))
        return std::numeric_limits<int>::min();
    return pixel == pixel ? static_cast<int>(pixel) : 0;
}

/// From the second position to the first.
math::Vector2 difference(const CursorPosition &a, const CursorPosition &b) {
    return math::Vector2(static_cast<float>(a.x) - static_cast<float>(b.x),
                         static_cast<float>(a.y) - static_cast<float>(b.y));
}

} // namespace

/// What one run of updateEvents() works on.
struct UIManager::InputPass {
    Pointer pointer;
    bool pressed = false;  ///< the left button went down
    bool released = false; ///< or up
    Component *target = nullptr;
};

void UIManager::setMousePos(const CursorPosition &position) {
    const core::Lock lock(mLock);
    mPointer.cursor = {toPixel(position.x, mScale.x), toPixel(position.y, mScale.y)};
    const math::Vector3 eye = mCamera->getPosition();
    if (mCamera->getProjection()[11] == 0) { // orthographic
        mPointer.ray.origin =
            math::Vector3(static_cast<float>(mPointer.cursor.x), static_cast<float>(mPointer.cursor.y), eye.z);
        mPointer.ray.direction = math::Vector4(math::Vector3::AXIS_Z, 0);
        return;
    }
    math::Vector3 seen;
    const math::Vector3 pixel(static_cast<float>(position.x), static_cast<float>(position.y), 0);
    mCamera->unproject(pixel, seen, mScreenPixelWidth, mScreenPixelHeight);
    mPointer.ray.origin = eye;
    mPointer.ray.direction = math::Vector4(seen - eye, 0);
    mPointer.ray.direction.normalize();
}

CursorPosition UIManager::getMousePos() const {
    return takePointer().cursor;
}

UIManager::Pointer UIManager::takePointer() const {
    const core::Lock lock(mLock);
    return mPointer;
}

void UIManager::setMouseButton(input::Mouse::MouseButton button, input::Mouse::ButtonState state) {
    const core::Lock lock(mLock);
    if (mEnabled && mButtonQueue.size() < MAXIMUM_BUTTON_CHANGES)
        mButtonQueue.emplace_back(button, state);
}

void UIManager::textInput(const char *text) {
    const core::Lock lock(mLock);
    if (text && mFocus)
        mTextBuffer += text;
}

bool UIManager::getTextInputBounds(math::Vector2 &minimum, math::Vector2 &maximum) const {
    Component *focus = mFocus;
    UIEventHandler *taker = focus;
    while (taker && !taker->acceptsEvent(UIEvent::ET_TEXT_EVENT))
        taker = taker->nextHandler();
    if (!taker || mScale.x == 0 || mScale.y == 0)
        return false;
    if (focus->instanceOf(components::TextField::TYPE)) {
        static_cast<components::TextField *>(focus)->getCaretBounds(minimum, maximum);
    } else {
        minimum = focus->getMinBound();
        maximum = focus->getMaxBound();
    }
    minimum = minimum / mScale;
    maximum = maximum / mScale;
    return true;
}

void UIManager::setMinDragDistance(float distance) {
    MIN_DRAG_DISTANCE = distance;
    MIN_DRAG_DISTANCE_SQR = distance * distance;
}

Component *UIManager::hitTest(const Ray &ray, math::Vector3 &point) const {
    for (auto it = mWidgets.rbegin(); it != mWidgets.rend(); ++it) {
        if (Component *hit = (*it)->hitTest(ray, point))
            return hit;
    }
    return nullptr;
}

Component *UIManager::handleEvent(UIEventHandler *handler, const UIEvent &event) {
    for (UIEventHandler *link = handler; link; link = link->nextHandler())
        keepForPass(link);
    UIEventHandler *result = handler ? handler->handleEvent(event) : nullptr;
    mEventObserver.triggerCallbacks(handler, event, result);
    if (!result || !result->instanceOf(Component::TYPE))
        return nullptr;
    keepForPass(result);
    return static_cast<Component *>(result);
}

void UIManager::updateEvents() {
    const Activity activity(*this);
    mStageCallbacks.triggerCallbacks(STAGE_EVENTS);
    processQueue();

    InputPass pass;
    if (!takeInput(pass))
        return;
    const int wheel = mWheel;
    const int wheelDelta = static_cast<int>(static_cast<unsigned int>(wheel) - static_cast<unsigned int>(mLastWheel));
    mLastWheel = wheel;

    math::Vector3 point;
    pass.target = hitTest(pass.pointer.ray, point);
    keepForPass(pass.target);
    if (pass.pressed)
        press(pass);
    else if (pass.released)
        release(pass);
    if (pass.pointer.cursor != mLastCursor)
        move(pass);
    if (wheelDelta != 0 && pass.target)
        handleEvent(pass.target, WheelEvent(pass.pointer.ray, pass.pointer.cursor, wheelDelta));
}

/// Takes one button change and the pointer, and hands out the text; false when input is disabled.
bool UIManager::takeInput(InputPass &pass) {
    const core::Lock lock(mLock);
    if (!mButtonQueue.empty()) {
        const ButtonChange change = mButtonQueue.front();
        mButtonQueue.pop_front();
        const bool isLeft = change.first == input::Mouse::LEFT;
        pass.pressed = isLeft && change.second == input::Mouse::PRESS;
        pass.released = isLeft && change.second == input::Mouse::RELEASE;
    }
    pass.pointer = mPointer;
    dispatchPendingText();
    return mEnabled;
}

void UIManager::dispatchPendingText() {
    Component *focus = mFocus;
    if (!focus || mTextBuffer.empty())
        return;
    std::string text;
    text.swap(mTextBuffer); // the handler may add more, for the next time
    handleEvent(focus, TextEvent(text.c_str()));
}

void UIManager::press(InputPass &pass) {
    const MouseEvent event(pass.pointer.ray, pass.pointer.cursor, MouseEvent::MOUSE_PRESS, LEFT_BUTTON, 1);
    pass.target = handleEvent(pass.target, event);
    mPressPosition = pass.pointer.cursor;
    mPressed = pass.target;
    if (pass.target && pass.target->getTabStop() >= 0)
        setFocus(pass.target);
}

void UIManager::release(InputPass &pass) {
    const Pointer &pointer = pass.pointer;
    if (Component *pressed = mPressed) {
        const detail::ForgetScope released(mPressed);
        const MouseEvent event(pointer.ray, pointer.cursor, MouseEvent::MOUSE_RELEASE, LEFT_BUTTON, 1);
        pass.target = handleEvent(pressed, event);
        if (mPressed == pressed) { // else it was removed by its own handler
            // A press that became a scroll does not click what lies under it.
            const bool scrolled = mDragging && mScrolledDuringDrag && mDragging != pressed;
            math::Vector3 point;
            if (!scrolled && pressed->hitTest(pointer.ray, point))
                handleEvent(pressed, ClickEvent(pointer.ray, pointer.cursor, mPressPosition));
        }
    }
    if (Component *dragging = mDragging) {
        const detail::ForgetScope ended(mDragging);
        const DragEvent event(pointer.ray, pointer.cursor, DragEvent::DRAG_END, math::Vector2::ZERO);
        pass.target = handleEvent(dragging, event);
    }
}

void UIManager::move(InputPass &pass) {
    const CursorPosition from = mLastCursor;
    mLastCursor = pass.pointer.cursor; // ahead of the handlers: one that runs another pass does not move twice
    if (mDragging)
        drag(pass, from);
    else if (mPressed)
        beginDrag(pass);
    else
        hover(pass);
}

void UIManager::hover(InputPass &pass) {
    const Pointer &pointer = pass.pointer;
    // The move goes first, and whoever takes it is the one that is entered.
    pass.target = handleEvent(pass.target, HoverEvent(pointer.ray, pointer.cursor, HoverEvent::HOVER_MOVE));
    if (pass.target == mHovered)
        return;
    const detail::ForgetScope forgotten(mHovered); // of use only when a listener fails
    if (Component *left = mHovered) {
        handleEvent(left, HoverEvent(pointer.ray, pointer.cursor, HoverEvent::HOVER_LEAVE));
        left->disableState(Component::STATE_HOVER); // a filter may have kept the event from it
        if (mHovered && mHovered != left)
            return; // a handler has run another pass, which entered something
    }
    if (pass.target)
        handleEvent(pass.target, HoverEvent(pointer.ray, pointer.cursor, HoverEvent::HOVER_ENTER));
    mHovered = pass.target;
}

void UIManager::beginDrag(const InputPass &pass) {
    const Pointer &pointer = pass.pointer;
    if (difference(mPressPosition, pointer.cursor).lengthSquared() <= MIN_DRAG_DISTANCE_SQR)
        return;
    const DragEvent event(pointer.ray, pointer.cursor, DragEvent::DRAG_BEGIN, math::Vector2::ZERO);
    mDragging = handleEvent(mPressed, event);
    mDragJustStarted = mDragging != nullptr;
    if (mDragging && mDragging->isContainer()) {
        mDragScrollOffset = static_cast<Container *>(mDragging)->getScrollOffset();
        mScrolledDuringDrag = false;
    }
}

void UIManager::drag(const InputPass &pass, const CursorPosition &from) {
    const Pointer &pointer = pass.pointer;
    Component *dragging = mDragging;
    // The first move has the whole way from the press.
    const math::Vector2 delta = difference(mDragJustStarted ? mPressPosition : from, pointer.cursor);
    mDragJustStarted = false;
    handleEvent(dragging, DragEvent(pointer.ray, pointer.cursor, DragEvent::DRAG_MOVE, delta));
    if (mDragging == dragging && dragging->isContainer() &&
        static_cast<Container *>(dragging)->getScrollOffset() != mDragScrollOffset)
        mScrolledDuringDrag = true;
    math::Vector3 point;
    if (mHovered && !mHovered->hitTest(pointer.ray, point))
        leaveHovered(pointer);
}

void UIManager::leaveHovered(const Pointer &pointer) {
    Component *hovered = mHovered;
    if (!hovered)
        return;
    const detail::ForgetScope left(mHovered);
    handleEvent(hovered, HoverEvent(pointer.ray, pointer.cursor, HoverEvent::HOVER_LEAVE));
    hovered->disableState(Component::STATE_HOVER); // as in hover()
}

void UIManager::cancelMouseAction() {
    leaveHovered(takePointer());
}

void UIManager::_keyboardCallback(input::Keyboard::KeyboardCallBackInfo &info) {
    const Activity activity(*this);
    if (!mEnabled)
        return;
    const KeyEvent event(info.key, info.pressed);
    if (Component *focus = mFocus) {
        handleEvent(focus, event);
        if (info.key == input::Keyboard::K_TAB && info.pressed) {
            const input::InputSystem *input = input::InputSystem::getSingletonPtr();
            nextTabStop(input && input->isShiftPressed() ? BACKWARD : FORWARD);
        }
    } else if (!mWidgets.empty()) {
        handleEvent(mWidgets.back().get(), event);
    }
}

} // namespace nurel::ui
