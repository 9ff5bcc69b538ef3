#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace nurel::egl {

class Display;

/// A GL context with a frame buffer of its own, for drawing without a window: 8 bits each of red, green, blue, alpha
/// and stencil. Works without a display and, by a software driver, without a GPU. One at a time in a process; one
/// thread uses it.
class HeadlessContext {
public:
    enum class Api {
        ES_3, ///< OpenGL ES 3.0 or later
        GL_33 ///< OpenGL 3.3 core or later
    };

    /// Makes the context and makes it current. Tries EGL without any surface, then the graphics devices one by one,
    /// then the default display. Raises `core::IllegalStateException` with one sentence that says what is missing.
    HeadlessContext(unsigned int width, unsigned int height, Api api = Api::ES_3);
    ~HeadlessContext();
    HeadlessContext(const HeadlessContext &) = delete;
    HeadlessContext &operator=(const HeadlessContext &) = delete;

    /// Makes the context current again, with its frame buffer bound.
    void makeCurrent();

    /// Gives the frame buffer another size; its content is then undefined. 0 is legal. Raises
    /// `core::IllegalStateException` when the driver cannot make one so large.
    void resize(unsigned int width, unsigned int height);

    unsigned int getWidth() const { return mWidth; }
    unsigned int getHeight() const { return mHeight; }

    /// Waits for the drawing to end and reads it: RGBA8 rows from the top, without gaps.
    std::vector<std::uint8_t> readPixels();

    /// The driver and the version of GL, for messages.
    std::string getDescription() const;

private:
    std::unique_ptr<Display> mDisplay;
    std::uint32_t mFrameBuffer = 0;
    std::uint32_t mColor = 0;
    std::uint32_t mStencil = 0;
    unsigned int mWidth = 0;
    unsigned int mHeight = 0;
};

} // namespace nurel::egl
