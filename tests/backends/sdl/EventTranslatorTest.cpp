#include "backends/sdl/detail/EventTranslator.h"

#include "ninput/input/InputSystem.h"

#include <gtest/gtest.h>

#include <SDL.h>

#include <set>

using namespace nurel;
using input::Keyboard;
using input::Mouse;

namespace {

/// Writes down every call.
struct EventTranslatorTest : testing::Test {
    EventTranslatorTest() {
        sdl::WindowCallbacks callbacks;
        callbacks.cursorMoved = [this](float x, float y) { note("cursor " + show(x) + " " + show(y)); };
        callbacks.buttonChanged = [this](Mouse::MouseButton button, Mouse::ButtonState state) {
            note("button " + std::to_string(button) + " " + std::to_string(state));
        };
        callbacks.wheelMoved = [this](int counter) { note("wheel " + std::to_string(counter)); };
        callbacks.keyChanged = [this](int key, bool pressed) {
            note("key " + std::to_string(key) + (pressed ? " down" : " up"));
        };
        callbacks.textEntered = [this](const char *text) { note(std::string("text ") + text); };
        callbacks.textComposed = [this](const char *text, int start, int length) {
            note(std::string("composed ") + text + " " + std::to_string(start) + " " + std::to_string(length));
        };
        callbacks.resized = [this](unsigned int width, unsigned int height) {
            note("size " + std::to_string(width) + " " + std::to_string(height));
        };
        callbacks.closeRequested = [this] { note("close"); };
        translator.setCallbacks(std::move(callbacks));
    }

    static std::string show(float value) { return std::to_string(value).substr(0, 4); }
    void note(const std::string &line) { notes.push_back(line); }

    void sendKey(SDL_Scancode code, bool pressed, Uint16 modifiers = KMOD_NONE) {
        SDL_Event event{};
        event.type = pressed ? SDL_KEYDOWN : SDL_KEYUP;
        event.key.keysym.scancode = code;
        event.key.keysym.mod = modifiers;
        translator.translate(event);
    }

    void sendWheel(float amount, Uint32 direction = SDL_MOUSEWHEEL_NORMAL) {
        SDL_Event event{};
        event.type = SDL_MOUSEWHEEL;
        event.wheel.preciseY = amount;
        event.wheel.direction = direction;
        translator.translate(event);
    }

    std::vector<std::string> takeNotes() { return std::exchange(notes, {}); }

    using Notes = std::vector<std::string>;
    sdl::EventTranslator translator;
    Notes notes;
};

} // namespace

TEST_F(EventTranslatorTest, GivesTheCursorInPixels) {
    SDL_Event event{};
    event.type = SDL_MOUSEMOTION;
    event.motion.x = 10;
    event.motion.y = 21;
    translator.translate(event);
    translator.setScale(2, 1.5f);
    translator.translate(event);
    EXPECT_EQ(takeNotes(), (Notes{"cursor 10.0 21.0", "cursor 20.0 31.5"}));
}

TEST_F(EventTranslatorTest, PutsTheCursorWhereAButtonIsPressed) {
    SDL_Event event{};
    event.type = SDL_MOUSEBUTTONDOWN;
    event.button.x = 3;
    event.button.y = 4;
    for (const int button : {SDL_BUTTON_LEFT, SDL_BUTTON_RIGHT, SDL_BUTTON_MIDDLE, SDL_BUTTON_X1}) {
        event.button.button = static_cast<Uint8>(button);
        translator.translate(event);
    }
    event.type = SDL_MOUSEBUTTONUP;
    event.button.button = SDL_BUTTON_LEFT;
    translator.translate(event);
    EXPECT_EQ(takeNotes(),
              (Notes{"cursor 3.00 4.00", "button 0 1", "cursor 3.00 4.00", "button 1 1", "cursor 3.00 4.00",
                     "button 2 1", "cursor 3.00 4.00", "cursor 3.00 4.00", "button 0 0"}));
}

TEST_F(EventTranslatorTest, CountsTheWheelByNotches) {
    sendWheel(1);
    sendWheel(2);
    sendWheel(-1);
    EXPECT_EQ(takeNotes(), (Notes{"wheel 1", "wheel 3", "wheel 2"}));
    sendWheel(0.5f);
    EXPECT_TRUE(takeNotes().empty());
    sendWheel(0.5f);
    EXPECT_EQ(takeNotes(), Notes{"wheel 3"});
    sendWheel(1, SDL_MOUSEWHEEL_FLIPPED);
    EXPECT_EQ(takeNotes(), Notes{"wheel 2"});
}

TEST_F(EventTranslatorTest, GivesKeysAsScanCodes) {
    sendKey(SDL_SCANCODE_TAB, true);
    sendKey(SDL_SCANCODE_TAB, false);
    sendKey(SDL_SCANCODE_DELETE, true);
    sendKey(SDL_SCANCODE_F12, true);
    EXPECT_EQ(takeNotes(), (Notes{"key 15 down", "key 15 up", "key 211 down", "key 88 down"}));
    sendKey(SDL_SCANCODE_AUDIOPLAY, true);
    EXPECT_TRUE(takeNotes().empty());
}

TEST_F(EventTranslatorTest, TellsTheInputSystemFirst) {
    input::InputSystem &system = input::InputSystem::create();
    system.getKeyboard().subscribe([this, &system](Keyboard::KeyboardCallBackInfo &info) {
        note("keyboard " + std::to_string(info.key) + (info.pressed ? " down" : " up") +
             (system.isShiftPressed() ? " shift" : ""));
    });
    sendKey(SDL_SCANCODE_LSHIFT, true, KMOD_LSHIFT);
    sendKey(SDL_SCANCODE_TAB, true, KMOD_LSHIFT);
    sendKey(SDL_SCANCODE_LSHIFT, false);
    sendKey(SDL_SCANCODE_TAB, true, KMOD_CTRL);
    EXPECT_EQ(takeNotes(), (Notes{"keyboard 42 down shift", "key 42 down", "keyboard 15 down shift", "key 15 down",
                                  "keyboard 42 up", "key 42 up", "keyboard 15 down", "key 15 down"}));
    input::InputSystem::destroy();
    sendKey(SDL_SCANCODE_TAB, true);
    EXPECT_EQ(takeNotes(), Notes{"key 15 down"});
}

TEST_F(EventTranslatorTest, PassesTextOn) {
    SDL_Event event{};
    event.type = SDL_TEXTINPUT;
    SDL_strlcpy(event.text.text, "\xc3\xa4", sizeof event.text.text);
    translator.translate(event);
    event = {};
    event.type = SDL_TEXTEDITING;
    SDL_strlcpy(event.edit.text, "kana", sizeof event.edit.text);
    event.edit.start = 1;
    event.edit.length = 2;
    translator.translate(event);
    char text[] = "longer";
    event = {};
    event.type = SDL_TEXTEDITING_EXT;
    event.editExt.text = text;
    event.editExt.start = 3;
    translator.translate(event);
    EXPECT_EQ(takeNotes(), (Notes{"text \xc3\xa4", "composed kana 1 2", "composed longer 3 0"}));
}

TEST_F(EventTranslatorTest, TellsOfANewSizeOnce) {
    translator.setSize(100, 50);
    translator.setSize(100, 50);
    translator.setSize(100, 51);
    EXPECT_EQ(takeNotes(), (Notes{"size 100 50", "size 100 51"}));
}

TEST_F(EventTranslatorTest, AsksOnceToClose) {
    SDL_Event event{};
    event.type = SDL_QUIT;
    EXPECT_FALSE(translator.isCloseRequested());
    translator.requestClose();
    translator.translate(event);
    EXPECT_TRUE(translator.isCloseRequested());
    EXPECT_EQ(takeNotes(), Notes{"close"});
}

TEST_F(EventTranslatorTest, NeedsNoCallbacks) {
    translator.setCallbacks({});
    SDL_Event event{};
    for (const Uint32 type : {SDL_MOUSEMOTION, SDL_MOUSEBUTTONDOWN, SDL_MOUSEBUTTONUP, SDL_MOUSEWHEEL, SDL_KEYDOWN,
                              SDL_TEXTINPUT, SDL_TEXTEDITING, SDL_TEXTEDITING_EXT, SDL_QUIT, SDL_AUDIODEVICEADDED}) {
        event.type = type;
        translator.translate(event);
    }
    sendWheel(3);
    sendKey(SDL_SCANCODE_A, true);
    translator.setSize(1, 2);
    EXPECT_TRUE(translator.isCloseRequested());
}

TEST(GetKey, KnowsThePlacesOfTheBoard) {
    const struct {
        SDL_Scancode from;
        int to;
    } rows[] = {
        {SDL_SCANCODE_ESCAPE, 0x01},   {SDL_SCANCODE_BACKSPACE, 0x0e}, {SDL_SCANCODE_TAB, 0x0f},
        {SDL_SCANCODE_Q, 0x10},        {SDL_SCANCODE_RETURN, 0x1c},    {SDL_SCANCODE_A, 0x1e},
        {SDL_SCANCODE_Z, 0x2c},        {SDL_SCANCODE_SPACE, 0x39},     {SDL_SCANCODE_F1, 0x3b},
        {SDL_SCANCODE_KP_ENTER, 0x9c}, {SDL_SCANCODE_HOME, 0xc7},      {SDL_SCANCODE_UP, 0xc8},
        {SDL_SCANCODE_LEFT, 0xcb},     {SDL_SCANCODE_RIGHT, 0xcd},     {SDL_SCANCODE_END, 0xcf},
        {SDL_SCANCODE_DOWN, 0xd0},     {SDL_SCANCODE_DELETE, 0xd3},    {SDL_SCANCODE_1, 0x02},
        {SDL_SCANCODE_0, 0x0b},        {SDL_SCANCODE_RSHIFT, 0x36},
    };
    for (const auto &row : rows)
        EXPECT_EQ(sdl::getKey(row.from), row.to) << SDL_GetScancodeName(row.from);
}

TEST(GetKey, KnowsNoKeyTwiceButTheOneWithTwoCodes) {
    std::set<int> keys;
    for (int code = 0; code < SDL_NUM_SCANCODES; ++code) {
        const int key = sdl::getKey(code);
        if (key != 0 && code != SDL_SCANCODE_NONUSHASH) {
            EXPECT_TRUE(keys.insert(key).second) << key;
        }
    }
    EXPECT_EQ(keys.size(), 108u);
}

TEST(GetKey, KnowsNothingElse) {
    EXPECT_EQ(sdl::getKey(0), 0);
    EXPECT_EQ(sdl::getKey(-1), 0);
    EXPECT_EQ(sdl::getKey(SDL_NUM_SCANCODES), 0);
    EXPECT_EQ(sdl::getKey(SDL_SCANCODE_MUTE), 0);
}
