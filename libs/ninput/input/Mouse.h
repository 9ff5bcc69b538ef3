#pragma once

namespace nurel::input {

/// The words for the buttons of a pointing device.
struct Mouse {
    enum MouseButton { LEFT = 0, RIGHT = 1, MIDDLE = 2 };
    enum ButtonState { RELEASE = 0, PRESS = 1 };
};

} // namespace nurel::input
