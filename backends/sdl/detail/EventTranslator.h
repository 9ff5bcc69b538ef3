#pragma once

#include "backends/sdl/Window.h"

#include <utility>

union SDL_Event;

namespace nurel::sdl {

/// The set 1 scan code of an SDL scan code, as `input::Keyboard::Key` has it; 0 for keys that have none.
int getKey(int sdlScanCode);

/// Turns SDL's events into calls of the callbacks and of the input system. It knows no window, only its scale.
class EventTranslator {
public:
    void setCallbacks(WindowCallbacks callbacks) { mCallbacks = std::move(callbacks); }

    /// Pixels of the drawing surface for each unit of the display.
    void setScale(float x, float y);

    /// Mouse, keys, text and the wish to close. Other events are ignored.
    void translate(const SDL_Event &event);

    /// Tells of a new size in pixels, if it is new.
    void setSize(unsigned int width, unsigned int height);

    void requestClose();
    bool isCloseRequested() const { return mCloseRequested; }

private:
    void translateKey(int sdlScanCode, bool pressed, bool shift);
    void translateButton(int sdlButton, bool pressed);
    void translateWheel(float amount);
    void moveCursor(int x, int y) const;

    WindowCallbacks mCallbacks;
    float mScaleX = 1;
    float mScaleY = 1;
    float mWheelRest = 0; ///< of a wheel that turns by parts of a notch
    int mWheel = 0;
    unsigned int mWidth = 0;
    unsigned int mHeight = 0;
    bool mCloseRequested = false;
};

} // namespace nurel::sdl
