#pragma once

namespace nurel::renderer {

/// The screen as it is now, in pixels.
struct ScreenSettings {
    unsigned int width = 0;
    unsigned int height = 0;
};

} // namespace nurel::renderer
