#pragma once

#include "nengine/renderer/DrawList.h"
#include "nengine/renderer/FrameTarget.h"

namespace nurel::renderer {

/// Layout of one pixel in memory.
enum class PixelFormat : std::uint8_t {
    RGBA8 ///< four bytes, red first, premultiplied by alpha; rows from the top, without gaps
};

/// What an engine gives the toolkit so that it can draw. All operations are called on the render thread, the one that
/// made the `Engine`. The object outlives the engine that was given it.
class Backend {
public:
    Backend();
    virtual ~Backend();
    Backend(const Backend &) = delete;
    Backend &operator=(const Backend &) = delete;

    /// A new texture, filtered linearly and clamped at its edges. `pixels` may be null: its content then is what
    /// `updateTexture` writes, and nothing else of it is sampled. Returns `NO_TEXTURE` when it cannot be made.
    virtual TextureId createTexture(unsigned int width, unsigned int height, PixelFormat format,
                                    const void *pixels) = 0;

    /// Replaces a rectangle of a texture. `pixels` are rows of `width`, without gaps.
    virtual void updateTexture(TextureId id, unsigned int x, unsigned int y, unsigned int width, unsigned int height,
                               const void *pixels) = 0;

    /// The id is not used again by the caller. `NO_TEXTURE` is ignored.
    virtual void destroyTexture(TextureId id) = 0;

    /// Draws one list. What the list points at is the caller's and is valid during the call only.
    virtual void submit(const DrawList &list, const FrameTarget &target) = 0;

    /// Optional: reads a rectangle of what was drawn last, as RGBA8 rows from the top; x and y from the top left.
    /// Returns false, with `rgba` untouched, where a backend cannot.
    virtual bool readPixels(unsigned int x, unsigned int y, unsigned int width, unsigned int height, void *rgba);

    /// Optional: whether the picture is repeated outside 0 to 1 instead of clamped. Never called for atlas pages.
    virtual void setTextureRepeat(TextureId id, bool repeat);

    /// The longest side that `createTexture` accepts. 2048 where a backend says nothing.
    virtual unsigned int getMaximumTextureSize();
};

} // namespace nurel::renderer
