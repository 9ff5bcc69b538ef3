#pragma once

#include <cstddef>
#include <cstdint>

namespace nurel::renderer {

/// Name of a texture, given out by `Backend::createTexture`.
using TextureId = std::uint32_t;

/// No texture: what is drawn with it takes its vertex colours alone, as if the texture were white.
constexpr TextureId NO_TEXTURE = 0;

/// One corner of a triangle, in world space.
struct DrawVertex {
    float x, y, z;
    float u, v;         ///< 0 to 1 over the whole texture, v downward from its first row of pixels
    std::uint32_t rgba; ///< premultiplied by its alpha; red in the low byte, alpha in the high one

    bool operator==(const DrawVertex &) const = default;
};

/// How a command's colours meet those that are already there.
enum class Blend : std::uint8_t {
    NONE = 0,         ///< replaces them
    PREMULTIPLIED = 1 ///< source + destination * (1 - source alpha)
};

/// When a stencil test passes: `reference` against the value in the stencil buffer.
enum class StencilFunction : std::uint8_t {
    NEVER = 0,
    LESS = 1,
    EQUAL = 2,
    LESS_EQUAL = 3, ///< reference <= buffer
    GREATER = 4,
    NOT_EQUAL = 5,
    GREATER_EQUAL = 6,
    ALWAYS = 7
};

/// What happens to the value in the stencil buffer.
enum class StencilOperation : std::uint8_t {
    KEEP = 0,
    ZERO = 1,
    REPLACE = 2,  ///< by the reference
    INCREMENT = 3 ///< and stay at the largest value
};

/// A range of indices that is drawn in one state. Commands are drawn in their order, without a depth test.
struct DrawCommand {
    std::uint32_t firstIndex = 0;
    std::uint32_t indexCount = 0; ///< a multiple of three: triangles, in either winding
    TextureId texture = NO_TEXTURE;
    Blend blend = Blend::NONE;
    bool stencilTest = false; ///< false: neither test nor write of the stencil buffer
    StencilFunction stencilFunction = StencilFunction::ALWAYS;
    std::uint8_t stencilReference = 0;
    StencilOperation opFail = StencilOperation::KEEP;
    StencilOperation opDepthFail = StencilOperation::KEEP;
    StencilOperation opPass = StencilOperation::KEEP;
    std::uint8_t colorMask = 3; ///< bit 0 writes red, green and blue, bit 1 alpha; 0 marks the stencil buffer only

    bool operator==(const DrawCommand &) const = default;

    /// Whether all is equal but the range of indices.
    bool hasSameState(const DrawCommand &other) const {
        DrawCommand same = other;
        same.firstIndex = firstIndex;
        same.indexCount = indexCount;
        return same == *this;
    }
};

/// Everything that one submission draws: plain data, nothing in it points into the scene.
///
/// The arrays belong to whoever submits. They hold still during `Backend::submit` and may move or change after it, so a
/// backend copies (to its buffers) what it needs later. A backend that keeps the last submission's buffers can save the
/// copy: see `revision` and `basedOn`.
struct DrawList {
    const DrawVertex *vertices = nullptr;
    std::size_t vertexCount = 0;
    const std::uint32_t *indices = nullptr;
    std::size_t indexCount = 0;
    const DrawCommand *commands = nullptr;
    std::size_t commandCount = 0;

    /// World to clip space for row vectors, clip = (x, y, z, 1) * M, stored row by row. Clip space has y upward.
    float viewProjection[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};

    /// Two lists with the same number have the same content, matrix included. Never 0 and never used again by another
    /// list of this process.
    std::uint64_t revision = 0;

    /// When not 0: this list differs from the list that had this revision only in its matrix and in the vertices
    /// [changedFirst, changedFirst + changedCount). A backend that still holds that one uploads no more than these.
    std::uint64_t basedOn = 0;
    std::size_t changedFirst = 0;
    std::size_t changedCount = 0;
};

} // namespace nurel::renderer
