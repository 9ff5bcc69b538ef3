#pragma once

namespace nurel::ui {

/// A cursor position in UI pixels: x to the right, y down, (0, 0) in the top left corner of the viewport.
struct CursorPosition {
    int x = 0;
    int y = 0;

    constexpr bool operator==(const CursorPosition &other) const = default;
};

} // namespace nurel::ui
