#pragma once

#include "ninput/input/Keyboard.h"

namespace nurel::input {

/// The input devices of the program. A singleton that may be absent: a program without key input makes none, and those
/// who use it ask `isSingletonCreated` first. It is made and destroyed by the engine and belongs to the thread that
/// runs the toolkit.
class InputSystem {
public:
    /// Makes the singleton. Raises core::IllegalStateException when it is there already.
    static InputSystem &create();

    /// Ends the singleton; nothing happens when there is none.
    static void destroy();

    static bool isSingletonCreated() { return mSINGLETON != nullptr; }

    /// Raises core::IllegalStateException when there is none.
    static InputSystem &getSingleton();

    /// Null when there is none.
    static InputSystem *getSingletonPtr() { return mSINGLETON; }

    InputSystem(const InputSystem &) = delete;
    InputSystem &operator=(const InputSystem &) = delete;

    Keyboard &getKeyboard() { return mKeyboard; }

    /// Whether a shift key is held, as the program said last. Keys that go through the keyboard do not change it.
    bool isShiftPressed() const { return mShiftPressed; }
    void setShiftPressed(bool pressed) { mShiftPressed = pressed; }

private:
    InputSystem() = default;
    ~InputSystem() = default;

    static InputSystem *mSINGLETON;

    Keyboard mKeyboard;
    bool mShiftPressed = false;
};

} // namespace nurel::input
