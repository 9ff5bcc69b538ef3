#pragma once

namespace nurel::renderer {

/// What subscribers to resizes are told. Sizes in pixels; 0 for a minimised window.
struct ResizeEventData {
    /// The only kind: the screen has got another size.
    static constexpr int SCREEN = 0;

    int kind;
    unsigned int oldWidth;
    unsigned int oldHeight;
    unsigned int newWidth;
    unsigned int newHeight;
};

} // namespace nurel::renderer
