#pragma once

#include "nengine/renderer/Backend.h"

#include <array>
#include <cstddef>
#include <set>

namespace nurel::gles {

/// Draws by OpenGL ES 3.0 or OpenGL 3.3 core, or later ones: by what both have in common.
///
/// The context is the program's. It is current on the render thread whenever an operation is called, the constructor
/// and the destructor included. The screen, frame buffer 0, is the frame buffer that is bound for drawing when `submit`
/// is called, so a program with a frame buffer of its own binds that. It needs a stencil buffer of 8 bits if anything
/// is to be clipped. A texture id is the texture's name in GL.
///
/// What `submit` relies on: color and stencil writes go to the bound frame buffer, and multisampling, dithering,
/// polygon offset, primitive restart and the conversion to sRGB are as a new context has them. All else it sets itself
/// and leaves behind: program, vertex array, array buffer, the active texture unit and its texture and sampler,
/// viewport, blending, stencil, write masks and clear values; depth test, scissor test and face culling are off. The
/// texture operations leave behind the active unit, its 2D texture and the unpack state. A program that draws between
/// frames keeps its own state with a `StateGuard`.
class GlesBackend final : public renderer::Backend {
public:
    /// Raises `core::IllegalStateException` when the context is too old or its shader compiler refuses the shaders.
    GlesBackend();

    /// Takes down everything it made, textures included.
    ~GlesBackend() override;

    /// A texture that comes with pixels also gets smaller copies of itself, so that it may be drawn much smaller than
    /// it is; one that comes without (an atlas page) does not.
    renderer::TextureId createTexture(unsigned int width, unsigned int height, renderer::PixelFormat format,
                                      const void *pixels) override;
    void updateTexture(renderer::TextureId id, unsigned int x, unsigned int y, unsigned int width, unsigned int height,
                       const void *pixels) override;
    void destroyTexture(renderer::TextureId id) override;
    void setTextureRepeat(renderer::TextureId id, bool repeat) override;
    void submit(const renderer::DrawList &list, const renderer::FrameTarget &target) override;
    bool readPixels(unsigned int x, unsigned int y, unsigned int width, unsigned int height, void *rgba) override;
    unsigned int getMaximumTextureSize() override { return mMaximumTextureSize; }

    /// Bytes of vertices and indices sent since the start.
    std::size_t getUploadedBytes() const { return mUploadedBytes; }

private:
    /// The uploaded arrays of one list.
    struct Buffers {
        std::uint32_t vertexArray = 0;
        std::uint32_t vertices = 0;
        std::uint32_t indices = 0;
        std::uint64_t revision = 0; ///< of the list that they hold; 0: none
        std::uint64_t lastUse = 0;
    };

    void makeProgram();
    void makeBuffers(Buffers &buffers);
    void beginFrame(const renderer::DrawList &list, const renderer::FrameTarget &target);
    void upload(const renderer::DrawList &list);
    void draw(const renderer::DrawCommand &command, const renderer::DrawCommand *previous);

    std::array<Buffers, 4> mBuffers; ///< as many lists as are kept from frame to frame
    std::set<renderer::TextureId> mTextures;
    std::uint64_t mSubmits = 0;
    std::size_t mUploadedBytes = 0;
    std::uint32_t mProgram = 0;
    std::int32_t mMatrix = -1; ///< the shader's uniform
    std::uint32_t mWhite = 0;  ///< stands in for `NO_TEXTURE`
    unsigned int mMaximumTextureSize = 0;
    std::uint32_t mLastFrameBuffer = 0; ///< of the last submission, as in `FrameTarget`
    unsigned int mLastWidth = 0;
    unsigned int mLastHeight = 0;
};

} // namespace nurel::gles
