#pragma once

#include "nmain/math/Vector2.h"
#include "nui/ui/CursorPosition.h"
#include "nui/ui/Ray.h"

namespace nurel::ui {

/// What happened. Events are small values on the stack of the `UIManager`, lent to handlers for the length of a call: a
/// handler keeps none of them, nor the ray, cursor, delta or text that they refer to.
class UIEvent {
public:
    /// The bits of an event mask. 0x004 is not used.
    enum Type : unsigned int {
        ET_NONE_EVENT = 0,
        ET_FOCUS_EVENT = 0x001,
        ET_HOVER_EVENT = 0x002,
        ET_MOUSE_EVENT = 0x008,
        ET_WHEEL_EVENT = 0x010,
        ET_DRAG_EVENT = 0x020,
        ET_KEY_EVENT = 0x040,
        ET_CLICK_EVENT = 0x080,
        ET_TEXT_EVENT = 0x100
    };

    /// Bit of the event mask that is no event: a hit test may return the component. Without it the cursor goes through.
    static constexpr unsigned int EVENT_MASK_HITTABLE = 0x200;

    virtual ~UIEvent() = default;

    Type getType() const { return mType; }

    /// The enumerator's name, such as "ET_FOCUS_EVENT"; "unknown" for a value that is none.
    static const char *unparse(unsigned int type);

protected:
    explicit UIEvent(Type type) : mType(type) {}
    UIEvent(const UIEvent &) = default;
    UIEvent &operator=(const UIEvent &) = delete;

private:
    const Type mType;
};

/// An event of the cursor: where it is, and the ray through it.
class CursorEvent : public UIEvent {
public:
    const Ray &getRay() const { return mRay; }
    const CursorPosition &getCursor() const { return mCursor; }

protected:
    CursorEvent(Type type, const Ray &ray, const CursorPosition &cursor) : UIEvent(type), mRay(ray), mCursor(cursor) {}

private:
    const Ray &mRay;
    const CursorPosition &mCursor;
};

class FocusEvent : public UIEvent {
public:
    enum Action : int { FOCUS_GAINED = 0, FOCUS_LOST = 1 };

    explicit FocusEvent(int action) : UIEvent(ET_FOCUS_EVENT), mAction(action) {}

    int getAction() const { return mAction; }

private:
    const int mAction;
};

class HoverEvent : public CursorEvent {
public:
    enum Action : int { HOVER_ENTER = 0, HOVER_LEAVE = 1, HOVER_MOVE = 2 };

    HoverEvent(const Ray &ray, const CursorPosition &cursor, int action)
        : CursorEvent(ET_HOVER_EVENT, ray, cursor), mAction(action) {}

    int getAction() const { return mAction; }

private:
    const int mAction;
};

/// The left button went down or up.
class MouseEvent : public CursorEvent {
public:
    enum Action : int { MOUSE_RELEASE = 0, MOUSE_PRESS = 1 };

    MouseEvent(const Ray &ray, const CursorPosition &cursor, int action, int button, int count)
        : CursorEvent(ET_MOUSE_EVENT, ray, cursor), mAction(action), mButton(button), mCount(count) {}

    int getAction() const { return mAction; }

    /// Always 0, the left button.
    int getButton() const { return mButton; }

    /// 1 for real input; 0 for a release that the toolkit sends because something came between.
    int getCount() const { return mCount; }

private:
    const int mAction;
    const int mButton;
    const int mCount;
};

/// The button went down and up again over the same component.
class ClickEvent : public CursorEvent {
public:
    ClickEvent(const Ray &ray, const CursorPosition &cursor, const CursorPosition &pressPosition)
        : CursorEvent(ET_CLICK_EVENT, ray, cursor), mPressPosition(pressPosition) {}

    /// Where the button went down.
    const CursorPosition &getPressPosition() const { return mPressPosition; }

private:
    const CursorPosition mPressPosition;
};

class WheelEvent : public CursorEvent {
public:
    WheelEvent(const Ray &ray, const CursorPosition &cursor, int delta)
        : CursorEvent(ET_WHEEL_EVENT, ray, cursor), mDelta(delta) {}

    /// Wheel units since the last frame, signed.
    int getDelta() const { return mDelta; }

private:
    const int mDelta;
};

class DragEvent : public CursorEvent {
public:
    enum Action : int { DRAG_BEGIN = 0, DRAG_END = 1, DRAG_MOVE = 2, DRAG_CANCEL = 3 };

    DragEvent(const Ray &ray, const CursorPosition &cursor, int action, const math::Vector2 &delta)
        : CursorEvent(ET_DRAG_EVENT, ray, cursor), mAction(action), mDelta(delta) {}

    int getAction() const { return mAction; }

    /// For a move the old cursor position minus the new one, so that what scrolls by it follows the cursor; else zero.
    const math::Vector2 &getDelta() const { return mDelta; }

private:
    const int mAction;
    const math::Vector2 &mDelta;
};

class KeyEvent : public UIEvent {
public:
    KeyEvent(int key, bool pressed) : UIEvent(ET_KEY_EVENT), mKey(key), mPressed(pressed) {}

    /// The scan code, see `input::Keyboard`.
    int getKey() const { return mKey; }
    bool isPressed() const { return mPressed; }

private:
    const int mKey;
    const bool mPressed;
};

class TextEvent : public UIEvent {
public:
    explicit TextEvent(const char *text) : UIEvent(ET_TEXT_EVENT), mText(text) {}

    /// The text that was entered, UTF-8.
    const char *getText() const { return mText; }

private:
    const char *mText;
};

} // namespace nurel::ui
