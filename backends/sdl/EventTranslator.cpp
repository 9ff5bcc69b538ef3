#include "backends/sdl/detail/EventTranslator.h"

#include "ninput/input/InputSystem.h"

#include <SDL.h>

#include <array>
#include <cmath>
#include <utility>

namespace nurel::sdl {

using input::Keyboard;
using input::Mouse;

namespace {

struct KeyRow {
    SDL_Scancode from;
    Keyboard::Key to;
};

constexpr KeyRow KEYS[] = {
    {SDL_SCANCODE_ESCAPE, Keyboard::K_ESCAPE},
    {SDL_SCANCODE_1, Keyboard::K_1},
    {SDL_SCANCODE_2, Keyboard::K_2},
    {SDL_SCANCODE_3, Keyboard::K_3},
    {SDL_SCANCODE_4, Keyboard::K_4},
    {SDL_SCANCODE_5, Keyboard::K_5},
    {SDL_SCANCODE_6, Keyboard::K_6},
    {SDL_SCANCODE_7, Keyboard::K_7},
    {SDL_SCANCODE_8, Keyboard::K_8},
    {SDL_SCANCODE_9, Keyboard::K_9},
    {SDL_SCANCODE_0, Keyboard::K_0},
    {SDL_SCANCODE_MINUS, Keyboard::K_MINUS},
    {SDL_SCANCODE_EQUALS, Keyboard::K_EQUALS},
    {SDL_SCANCODE_BACKSPACE, Keyboard::K_BACKSPACE},
    {SDL_SCANCODE_TAB, Keyboard::K_TAB},
    {SDL_SCANCODE_Q, Keyboard::K_Q},
    {SDL_SCANCODE_W, Keyboard::K_W},
    {SDL_SCANCODE_E, Keyboard::K_E},
    {SDL_SCANCODE_R, Keyboard::K_R},
    {SDL_SCANCODE_T, Keyboard::K_T},
    {SDL_SCANCODE_Y, Keyboard::K_Y},
    {SDL_SCANCODE_U, Keyboard::K_U},
    {SDL_SCANCODE_I, Keyboard::K_I},
    {SDL_SCANCODE_O, Keyboard::K_O},
    {SDL_SCANCODE_P, Keyboard::K_P},
    {SDL_SCANCODE_LEFTBRACKET, Keyboard::K_LEFT_BRACKET},
    {SDL_SCANCODE_RIGHTBRACKET, Keyboard::K_RIGHT_BRACKET},
    {SDL_SCANCODE_RETURN, Keyboard::K_RETURN},
    {SDL_SCANCODE_LCTRL, Keyboard::K_LEFT_CONTROL},
    {SDL_SCANCODE_A, Keyboard::K_A},
    {SDL_SCANCODE_S, Keyboard::K_S},
    {SDL_SCANCODE_D, Keyboard::K_D},
    {SDL_SCANCODE_F, Keyboard::K_F},
    {SDL_SCANCODE_G, Keyboard::K_G},
    {SDL_SCANCODE_H, Keyboard::K_H},
    {SDL_SCANCODE_J, Keyboard::K_J},
    {SDL_SCANCODE_K, Keyboard::K_K},
    {SDL_SCANCODE_L, Keyboard::K_L},
    {SDL_SCANCODE_SEMICOLON, Keyboard::K_SEMICOLON},
    {SDL_SCANCODE_APOSTROPHE, Keyboard::K_APOSTROPHE},
    {SDL_SCANCODE_GRAVE, Keyboard::K_GRAVE},
    {SDL_SCANCODE_LSHIFT, Keyboard::K_LEFT_SHIFT},
    {SDL_SCANCODE_BACKSLASH, Keyboard::K_BACKSLASH},
    {SDL_SCANCODE_NONUSHASH, Keyboard::K_BACKSLASH}, // one place on the board with two codes
    {SDL_SCANCODE_Z, Keyboard::K_Z},
    {SDL_SCANCODE_X, Keyboard::K_X},
    {SDL_SCANCODE_C, Keyboard::K_C},
    {SDL_SCANCODE_V, Keyboard::K_V},
    {SDL_SCANCODE_B, Keyboard::K_B},
    {SDL_SCANCODE_N, Keyboard::K_N},
    {SDL_SCANCODE_M, Keyboard::K_M},
    {SDL_SCANCODE_COMMA, Keyboard::K_COMMA},
    {SDL_SCANCODE_PERIOD, Keyboard::K_PERIOD},
    {SDL_SCANCODE_SLASH, Keyboard::K_SLASH},
    {SDL_SCANCODE_RSHIFT, Keyboard::K_RIGHT_SHIFT},
    {SDL_SCANCODE_KP_MULTIPLY, Keyboard::K_KEYPAD_MULTIPLY},
    {SDL_SCANCODE_LALT, Keyboard::K_LEFT_ALT},
    {SDL_SCANCODE_SPACE, Keyboard::K_SPACE},
    {SDL_SCANCODE_CAPSLOCK, Keyboard::K_CAPS_LOCK},
    {SDL_SCANCODE_F1, Keyboard::K_F1},
    {SDL_SCANCODE_F2, Keyboard::K_F2},
    {SDL_SCANCODE_F3, Keyboard::K_F3},
    {SDL_SCANCODE_F4, Keyboard::K_F4},
    {SDL_SCANCODE_F5, Keyboard::K_F5},
    {SDL_SCANCODE_F6, Keyboard::K_F6},
    {SDL_SCANCODE_F7, Keyboard::K_F7},
    {SDL_SCANCODE_F8, Keyboard::K_F8},
    {SDL_SCANCODE_F9, Keyboard::K_F9},
    {SDL_SCANCODE_F10, Keyboard::K_F10},
    {SDL_SCANCODE_NUMLOCKCLEAR, Keyboard::K_NUM_LOCK},
    {SDL_SCANCODE_SCROLLLOCK, Keyboard::K_SCROLL_LOCK},
    {SDL_SCANCODE_KP_7, Keyboard::K_KEYPAD_7},
    {SDL_SCANCODE_KP_8, Keyboard::K_KEYPAD_8},
    {SDL_SCANCODE_KP_9, Keyboard::K_KEYPAD_9},
    {SDL_SCANCODE_KP_MINUS, Keyboard::K_KEYPAD_SUBTRACT},
    {SDL_SCANCODE_KP_4, Keyboard::K_KEYPAD_4},
    {SDL_SCANCODE_KP_5, Keyboard::K_KEYPAD_5},
    {SDL_SCANCODE_KP_6, Keyboard::K_KEYPAD_6},
    {SDL_SCANCODE_KP_PLUS, Keyboard::K_KEYPAD_ADD},
    {SDL_SCANCODE_KP_1, Keyboard::K_KEYPAD_1},
    {SDL_SCANCODE_KP_2, Keyboard::K_KEYPAD_2},
    {SDL_SCANCODE_KP_3, Keyboard::K_KEYPAD_3},
    {SDL_SCANCODE_KP_0, Keyboard::K_KEYPAD_0},
    {SDL_SCANCODE_KP_PERIOD, Keyboard::K_KEYPAD_DECIMAL},
    {SDL_SCANCODE_NONUSBACKSLASH, Keyboard::K_NON_US_BACKSLASH},
    {SDL_SCANCODE_F11, Keyboard::K_F11},
    {SDL_SCANCODE_F12, Keyboard::K_F12},
    {SDL_SCANCODE_F13, Keyboard::K_F13},
    {SDL_SCANCODE_F14, Keyboard::K_F14},
    {SDL_SCANCODE_F15, Keyboard::K_F15},
    {SDL_SCANCODE_KP_ENTER, Keyboard::K_KEYPAD_ENTER},
    {SDL_SCANCODE_RCTRL, Keyboard::K_RIGHT_CONTROL},
    {SDL_SCANCODE_KP_DIVIDE, Keyboard::K_KEYPAD_DIVIDE},
    {SDL_SCANCODE_PRINTSCREEN, Keyboard::K_PRINT_SCREEN},
    {SDL_SCANCODE_RALT, Keyboard::K_RIGHT_ALT},
    {SDL_SCANCODE_PAUSE, Keyboard::K_PAUSE},
    {SDL_SCANCODE_HOME, Keyboard::K_HOME},
    {SDL_SCANCODE_UP, Keyboard::K_UP},
    {SDL_SCANCODE_PAGEUP, Keyboard::K_PAGE_UP},
    {SDL_SCANCODE_LEFT, Keyboard::K_LEFT},
    {SDL_SCANCODE_RIGHT, Keyboard::K_RIGHT},
    {SDL_SCANCODE_END, Keyboard::K_END},
    {SDL_SCANCODE_DOWN, Keyboard::K_DOWN},
    {SDL_SCANCODE_PAGEDOWN, Keyboard::K_PAGE_DOWN},
    {SDL_SCANCODE_INSERT, Keyboard::K_INSERT},
    {SDL_SCANCODE_DELETE, Keyboard::K_DELETE},
    {SDL_SCANCODE_LGUI, Keyboard::K_LEFT_META},
    {SDL_SCANCODE_RGUI, Keyboard::K_RIGHT_META},
    {SDL_SCANCODE_APPLICATION, Keyboard::K_MENU},
};

constexpr std::array<std::uint8_t, SDL_NUM_SCANCODES> makeKeyTable() {
    std::array<std::uint8_t, SDL_NUM_SCANCODES> table{};
    for (const KeyRow &row : KEYS)
        table[static_cast<std::size_t>(row.from)] = static_cast<std::uint8_t>(row.to);
    return table;
}

constexpr std::array<std::uint8_t, SDL_NUM_SCANCODES> KEY_TABLE = makeKeyTable();

} // namespace

int getKey(int sdlScanCode) {
    return sdlScanCode >= 0 && sdlScanCode < SDL_NUM_SCANCODES ? KEY_TABLE[static_cast<std::size_t>(sdlScanCode)] : 0;
}

void EventTranslator::setScale(float x, float y) {
    mScaleX = x;
    mScaleY = y;
}

void EventTranslator::setSize(unsigned int width, unsigned int height) {
    if (width == mWidth && height == mHeight)
        return;
    mWidth = width;
    mHeight = height;
    if (mCallbacks.resized)
        mCallbacks.resized(width, height);
}

void EventTranslator::requestClose() {
    if (std::exchange(mCloseRequested, true))
        return; // closing a program's only window asks twice
    if (mCallbacks.closeRequested)
        mCallbacks.closeRequested();
}

void EventTranslator::moveCursor(int x, int y) const {
    if (mCallbacks.cursorMoved)
        mCallbacks.cursorMoved(static_cast<float>(x) * mScaleX, static_cast<float>(y) * mScaleY);
}

void EventTranslator::translateButton(int sdlButton, bool pressed) {
    const Mouse::ButtonState state = pressed ? Mouse::PRESS : Mouse::RELEASE;
    if (!mCallbacks.buttonChanged)
        return;
    if (sdlButton == SDL_BUTTON_LEFT)
        mCallbacks.buttonChanged(Mouse::LEFT, state);
    else if (sdlButton == SDL_BUTTON_RIGHT)
        mCallbacks.buttonChanged(Mouse::RIGHT, state);
    else if (sdlButton == SDL_BUTTON_MIDDLE)
        mCallbacks.buttonChanged(Mouse::MIDDLE, state);
}

void EventTranslator::translateWheel(float amount) {
    mWheelRest += amount;
    const float notches = std::trunc(mWheelRest);
    if (notches == 0)
        return;
    mWheelRest -= notches;
    mWheel += static_cast<int>(notches);
    if (mCallbacks.wheelMoved)
        mCallbacks.wheelMoved(mWheel);
}

void EventTranslator::translateKey(int sdlScanCode, bool pressed, bool shift) {
    input::InputSystem *system = input::InputSystem::getSingletonPtr();
    if (system)
        system->setShiftPressed(shift);
    const int key = getKey(sdlScanCode);
    if (key == 0)
        return;
    if (system)
        system->getKeyboard().inject(key, pressed);
    if (mCallbacks.keyChanged)
        mCallbacks.keyChanged(key, pressed);
}

void EventTranslator::translate(const SDL_Event &event) {
    switch (event.type) {
    case SDL_MOUSEMOTION:
        moveCursor(event.motion.x, event.motion.y);
        break;
    case SDL_MOUSEBUTTONDOWN:
    case SDL_MOUSEBUTTONUP:
        moveCursor(event.button.x, event.button.y); // a touch or a jump presses where no motion led
        translateButton(event.button.button, event.type == SDL_MOUSEBUTTONDOWN);
        break;
    case SDL_MOUSEWHEEL:
        translateWheel(event.wheel.direction == SDL_MOUSEWHEEL_FLIPPED ? -event.wheel.preciseY : event.wheel.preciseY);
        break;
    case SDL_KEYDOWN:
    case SDL_KEYUP:
        translateKey(event.key.keysym.scancode, event.type == SDL_KEYDOWN, (event.key.keysym.mod & KMOD_SHIFT) != 0);
        break;
    case SDL_TEXTINPUT:
        if (mCallbacks.textEntered)
            mCallbacks.textEntered(event.text.text);
        break;
    case SDL_TEXTEDITING:
        if (mCallbacks.textComposed)
            mCallbacks.textComposed(event.edit.text, event.edit.start, event.edit.length);
        break;
    case SDL_TEXTEDITING_EXT:
        if (mCallbacks.textComposed)
            mCallbacks.textComposed(event.editExt.text, event.editExt.start, event.editExt.length);
        break;
    case SDL_QUIT:
        requestClose();
        break;
    }
}

} // namespace nurel::sdl
