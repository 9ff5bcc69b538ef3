#pragma once

#include <cstdint>

namespace nurel::renderer {

/// Where a draw list goes. The stencil buffer is always cleared to 0 before the list is drawn.
struct FrameTarget {
    std::uint32_t frameBuffer = 0; ///< 0: the screen; else the number that the `FrameBuffer`'s maker gave it
    unsigned int width = 0;        ///< pixels; 0 is legal (a minimised window) and then nothing is drawn
    unsigned int height = 0;
    bool clearColor = false;                   ///< false: what is there stays, and the list is drawn over it
    float clear[4] = {0.0f, 0.0f, 0.0f, 0.0f}; ///< red, green, blue, alpha, premultiplied
};

} // namespace nurel::renderer
