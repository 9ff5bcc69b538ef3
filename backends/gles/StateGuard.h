#pragma once

#include <array>
#include <cstdint>

namespace nurel::gles {

/// Remembers, while it lives, the GL state that a `GlesBackend` changes and sets it back at its end: for programs that
/// draw with GL themselves. One guard around `Engine::renderFrame` is enough. The context is current throughout. It
/// asks GL for some thirty values, which costs time with some drivers; a program that sets all of its state every frame
/// needs none.
class StateGuard {
public:
    StateGuard();
    ~StateGuard();
    StateGuard(const StateGuard &) = delete;
    StateGuard &operator=(const StateGuard &) = delete;

private:
    struct StencilFace {
        std::int32_t function, reference, valueMask, writeMask, fail, depthFail, pass;
    };

    std::int32_t mDrawFrameBuffer, mReadFrameBuffer, mProgram, mVertexArray, mArrayBuffer, mUnpackBuffer, mPackBuffer;
    std::int32_t mActiveTexture, mTexture, mSampler;
    std::array<std::int32_t, 4> mUnpack; ///< alignment, row length, skipped rows, skipped pixels
    std::array<std::int32_t, 4> mPack;
    std::array<std::int32_t, 4> mViewport;
    std::array<std::int32_t, 6> mBlend; ///< source, destination: colour, alpha; equations: colour, alpha
    std::array<StencilFace, 2> mStencil;
    std::array<float, 4> mClearColor;
    std::int32_t mClearStencil;
    std::array<unsigned char, 4> mColorMask;
    std::array<bool, 5> mEnabled;
};

} // namespace nurel::gles
