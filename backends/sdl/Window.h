#pragma once

#include "ninput/input/Mouse.h"

#include <functional>
#include <memory>
#include <string>

namespace nurel::sdl {

/// What a `Window` tells its program, each by a function that may be missing. All are called inside
/// `Window::pollEvents`. Positions and sizes are pixels of the drawing surface, whatever the display's scale.
struct WindowCallbacks {
    std::function<void(float x, float y)> cursorMoved;
    std::function<void(input::Mouse::MouseButton, input::Mouse::ButtonState)> buttonChanged;

    /// The wheel as a counter from the window's beginning, one unit a notch, growing away from the user.
    std::function<void(int counter)> wheelMoved;

    /// A key as an `input::Keyboard::Key`, after the keyboard of the input system, if there is one, was told. Repeats
    /// come as further presses.
    std::function<void(int key, bool pressed)> keyChanged;

    /// UTF-8 that the user has entered, by key or by input method.
    std::function<void(const char *text)> textEntered;

    /// What the user composes by an input method, with the selected part in characters; empty when it is over. Not told
    /// while the input method shows it itself, see `WindowConfig::showsComposition`.
    std::function<void(const char *text, int start, int length)> textComposed;

    std::function<void(unsigned int width, unsigned int height)> resized;
    std::function<void()> closeRequested;
};

struct WindowConfig {
    std::string title;
    unsigned int width = 1280; ///< in units of the display, which are pixels unless it is scaled
    unsigned int height = 720;
    bool resizable = true;
    bool verticalSync = true;

    /// Whether input methods show what is being composed, beside the text input rectangle. Otherwise the program does,
    /// by `textComposed`. It holds for all of the process.
    bool showsComposition = true;
};

/// A window with a GL context that is current: OpenGL 3.3 core where there is one, else OpenGL ES 3.0. One at a time;
/// the thread that made it uses it, and it must be the program's first thread where the system wants that.
class Window {
public:
    /// Raises `core::IllegalStateException` "Cannot open a window: <reason>" when there is no display, or none that
    /// shows anything, or no GL.
    explicit Window(const WindowConfig &config);
    ~Window();
    Window(const Window &) = delete;
    Window &operator=(const Window &) = delete;

    void setCallbacks(WindowCallbacks callbacks);

    /// Hands out what has happened since the last call, and keeps the input system's shift state. Returns false once
    /// the user has asked to close the window.
    bool pollEvents();

    /// Shows what was drawn. With vertical synchronisation it waits for the display.
    void present();

    void makeCurrent();

    /// Pixels of the drawing surface.
    unsigned int getWidth() const;
    unsigned int getHeight() const;

    /// Asks for another size, in pixels; the answer is `resized`.
    void resize(unsigned int width, unsigned int height);

    void setTitle(const char *title);

    /// Whether presenting waits for the display, which not every driver grants.
    bool isVerticalSync() const;

    // Text input is on at first.

    /// Switches text input and input methods on or off: off while nothing on the screen takes text.
    void setTextInput(bool on);

    /// Where text is being entered, in pixels, so that an input method can stand beside it.
    void setTextInputRectangle(int x, int y, int width, int height);

    std::string getClipboard() const;
    void setClipboard(const char *text);

private:
    struct State;
    std::unique_ptr<State> mState;
};

} // namespace nurel::sdl
