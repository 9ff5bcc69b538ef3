#pragma once

#include <functional>
#include <memory>
#include <vector>

namespace nurel::input {

/// Hands key presses from the program to whoever listens. It belongs to the thread that runs the toolkit: a program
/// whose keys arrive elsewhere carries them over to that thread before it calls `inject`.
class Keyboard {
public:
    /// Scan codes of a PC keyboard, set 1; a key that sends a prefix has 0x80 added to its code. They name places on
    /// the board and not letters: K_Q is the key right of Tab, whatever is printed on it.
    enum Key {
        K_ESCAPE = 0x01,
        K_1 = 0x02,
        K_2 = 0x03,
        K_3 = 0x04,
        K_4 = 0x05,
        K_5 = 0x06,
        K_6 = 0x07,
        K_7 = 0x08,
        K_8 = 0x09,
        K_9 = 0x0A,
        K_0 = 0x0B,
        K_MINUS = 0x0C,
        K_EQUALS = 0x0D,
        K_BACKSPACE = 0x0E,
        K_TAB = 0x0F,
        K_Q = 0x10,
        K_W = 0x11,
        K_E = 0x12,
        K_R = 0x13,
        K_T = 0x14,
        K_Y = 0x15,
        K_U = 0x16,
        K_I = 0x17,
        K_O = 0x18,
        K_P = 0x19,
        K_LEFT_BRACKET = 0x1A,
        K_RIGHT_BRACKET = 0x1B,
        K_RETURN = 0x1C,
        K_LEFT_CONTROL = 0x1D,
        K_A = 0x1E,
        K_S = 0x1F,
        K_D = 0x20,
        K_F = 0x21,
        K_G = 0x22,
        K_H = 0x23,
        K_J = 0x24,
        K_K = 0x25,
        K_L = 0x26,
        K_SEMICOLON = 0x27,
        K_APOSTROPHE = 0x28,
        K_GRAVE = 0x29,
        K_LEFT_SHIFT = 0x2A,
        K_BACKSLASH = 0x2B,
        K_Z = 0x2C,
        K_X = 0x2D,
        K_C = 0x2E,
        K_V = 0x2F,
        K_B = 0x30,
        K_N = 0x31,
        K_M = 0x32,
        K_COMMA = 0x33,
        K_PERIOD = 0x34,
        K_SLASH = 0x35,
        K_RIGHT_SHIFT = 0x36,
        K_KEYPAD_MULTIPLY = 0x37,
        K_LEFT_ALT = 0x38,
        K_SPACE = 0x39,
        K_CAPS_LOCK = 0x3A,
        K_F1 = 0x3B,
        K_F2 = 0x3C,
        K_F3 = 0x3D,
        K_F4 = 0x3E,
        K_F5 = 0x3F,
        K_F6 = 0x40,
        K_F7 = 0x41,
        K_F8 = 0x42,
        K_F9 = 0x43,
        K_F10 = 0x44,
        K_NUM_LOCK = 0x45,
        K_SCROLL_LOCK = 0x46,
        K_KEYPAD_7 = 0x47,
        K_KEYPAD_8 = 0x48,
        K_KEYPAD_9 = 0x49,
        K_KEYPAD_SUBTRACT = 0x4A,
        K_KEYPAD_4 = 0x4B,
        K_KEYPAD_5 = 0x4C,
        K_KEYPAD_6 = 0x4D,
        K_KEYPAD_ADD = 0x4E,
        K_KEYPAD_1 = 0x4F,
        K_KEYPAD_2 = 0x50,
        K_KEYPAD_3 = 0x51,
        K_KEYPAD_0 = 0x52,
        K_KEYPAD_DECIMAL = 0x53,
        K_NON_US_BACKSLASH = 0x56,
        K_F11 = 0x57,
        K_F12 = 0x58,
        K_F13 = 0x64,
        K_F14 = 0x65,
        K_F15 = 0x66,
        K_KEYPAD_ENTER = 0x9C,
        K_RIGHT_CONTROL = 0x9D,
        K_KEYPAD_DIVIDE = 0xB5,
        K_PRINT_SCREEN = 0xB7,
        K_RIGHT_ALT = 0xB8,
        K_PAUSE = 0xC5,
        K_HOME = 0xC7,
        K_UP = 0xC8,
        K_PAGE_UP = 0xC9,
        K_LEFT = 0xCB,
        K_RIGHT = 0xCD,
        K_END = 0xCF,
        K_DOWN = 0xD0,
        K_PAGE_DOWN = 0xD1,
        K_INSERT = 0xD2,
        K_DELETE = 0xD3,
        K_LEFT_META = 0xDB,
        K_RIGHT_META = 0xDC,
        K_MENU = 0xDD
    };

    /// What a subscriber receives.
    struct KeyboardCallBackInfo {
        int key;      ///< a Key, or whatever code the program injected
        bool pressed; ///< true when the key goes down or repeats, false when it comes up
    };
    using Callback = std::function<void(KeyboardCallBackInfo &)>;

    Keyboard();
    ~Keyboard();
    Keyboard(const Keyboard &) = delete;
    Keyboard &operator=(const Keyboard &) = delete;

    /// Adds a subscriber behind the others and returns its id, which is never 0. An empty function is not added and
    /// gives 0. One that is added during `inject` hears the next key first.
    unsigned subscribe(Callback callback);

    /// Ends a subscription; false when the id is unknown. A subscriber may end itself or others while it is called: one
    /// that has been ended is not called any more, not even for the key that is being handed out.
    bool unsubscribe(unsigned id);

    /// Hands a key to the subscribers in the order of subscription, each with a copy of its own. May be called again by
    /// a subscriber. What a subscriber throws passes through, and those behind it are not called. The keyboard must not
    /// be destroyed meanwhile.
    void inject(int key, bool pressed);

private:
    struct Subscription;
    class Pass;

    void removeEnded();

    std::vector<std::unique_ptr<Subscription>> mSubscriptions;
    unsigned mLastId;
    unsigned mPasses; // calls of inject that are running
    bool mEnded;      // a subscription ended while one was
};

} // namespace nurel::input
