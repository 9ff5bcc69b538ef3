#pragma once

#include <cstdint>
#include <memory>
#include <vector>

namespace nurel::renderer {
class Backend;
}

namespace viewer {

struct Options;

/// Where the viewer draws: a window, or a picture in memory.
class Host {
public:
    virtual ~Host() = default;

    virtual std::shared_ptr<nurel::renderer::Backend> getBackend() = 0;

    /// The size of what is drawn to, in pixels.
    virtual unsigned int getWidth() const = 0;
    virtual unsigned int getHeight() const = 0;
    virtual void resize(unsigned int width, unsigned int height) = 0;

    virtual bool isWindow() const = 0;

    /// Takes what the window's user did and hands it to the toolkit. False when the window was closed.
    virtual bool pollInput() { return true; }

    /// Makes ready for a frame: the surface is current, and shows the background.
    virtual void beginDrawing() = 0;

    /// Puts what was drawn on the display.
    virtual void present() {}

    /// The drawn picture: rows from the top, four bytes a pixel.
    virtual std::vector<std::uint8_t> readPixels() = 0;

    /// A window when the options and the display allow one, else a picture in memory. Raises a `core::Exception` with
    /// one sentence when there is neither.
    static std::unique_ptr<Host> create(const Options &options);
};

} // namespace viewer
