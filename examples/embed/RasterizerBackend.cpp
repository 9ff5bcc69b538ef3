#include "RasterizerBackend.h"

#include <cstring>

using engine3d::Color;
using engine3d::Corner;
using engine3d::Fragment;
using nurel::renderer::Blend;
using nurel::renderer::DrawCommand;
using nurel::renderer::DrawList;
using nurel::renderer::DrawVertex;
using nurel::renderer::FrameTarget;
using nurel::renderer::PixelFormat;
using nurel::renderer::StencilFunction;
using nurel::renderer::StencilOperation;
using nurel::renderer::TextureId;

namespace {

/// Row vectors: the place times the matrix, whose rows lie one after the other.
Corner transform(const DrawVertex &vertex, const float *m) {
    const auto column = [&](std::size_t i) {
        return vertex.x * m[i] + vertex.y * m[4 + i] + vertex.z * m[8 + i] + m[12 + i];
    };
    Corner corner{column(0), column(1), column(2), column(3), vertex.u, vertex.v, {}};
    for (std::size_t i = 0; i < 4; ++i)
        corner.color[i] = static_cast<float>(vertex.rgba >> (8 * i) & 0xff) / 255;
    return corner;
}

bool passes(StencilFunction function, std::uint8_t reference, std::uint8_t value) {
    switch (function) {
    case StencilFunction::NEVER:
        return false;
    case StencilFunction::LESS:
        return reference < value;
    case StencilFunction::EQUAL:
        return reference == value;
    case StencilFunction::LESS_EQUAL:
        return reference <= value;
    case StencilFunction::GREATER:
        return reference > value;
    case StencilFunction::NOT_EQUAL:
        return reference != value;
    case StencilFunction::GREATER_EQUAL:
        return reference >= value;
    case StencilFunction::ALWAYS:
        break;
    }
    return true;
}

std::uint8_t apply(StencilOperation operation, std::uint8_t reference, std::uint8_t value) {
    switch (operation) {
    case StencilOperation::ZERO:
        return 0;
    case StencilOperation::REPLACE:
        return reference;
    case StencilOperation::INCREMENT:
        return value == 255 ? value : static_cast<std::uint8_t>(value + 1);
    case StencilOperation::KEEP:
        break;
    }
    return value;
}

} // namespace

Color RasterizerBackend::Texture::getTexel(float x, float y) const {
    const auto column = static_cast<std::size_t>(std::clamp(x, 0.0F, static_cast<float>(width - 1)));
    const auto row = static_cast<std::size_t>(std::clamp(y, 0.0F, static_cast<float>(height - 1)));
    const std::uint8_t *texel = &rgba[4 * (row * width + column)];
    Color color;
    std::transform(texel, texel + 4, color.begin(), [](std::uint8_t byte) { return static_cast<float>(byte) / 255; });
    return color;
}

Color RasterizerBackend::Texture::sample(float u, float v) const {
    const float x = u * static_cast<float>(width) - 0.5F;
    const float y = v * static_cast<float>(height) - 0.5F;
    const float left = std::floor(x);
    const float top = std::floor(y);
    Color color{};
    for (const float dy : {0.0F, 1.0F}) {
        for (const float dx : {0.0F, 1.0F}) {
            const float weight = (1 - std::abs(x - left - dx)) * (1 - std::abs(y - top - dy));
            const Color texel = getTexel(left + dx, top + dy);
            for (std::size_t i = 0; i < 4; ++i)
                color[i] += weight * texel[i];
        }
    }
    return color;
}

TextureId RasterizerBackend::createTexture(unsigned int width, unsigned int height, PixelFormat, const void *pixels) {
    Texture &texture = mTextures[++mLastId];
    texture = {width, height, std::vector<std::uint8_t>(std::size_t{4} * width * height)};
    if (pixels)
        updateTexture(mLastId, 0, 0, width, height, pixels);
    return mLastId;
}

void RasterizerBackend::updateTexture(TextureId id, unsigned int x, unsigned int y, unsigned int width,
                                      unsigned int height, const void *pixels) {
    Texture &texture = mTextures.at(id);
    const std::size_t rowBytes = std::size_t{4} * width;
    for (unsigned int row = 0; row < height; ++row) {
        std::memcpy(&texture.rgba[4 * (std::size_t{y + row} * texture.width + x)],
                    static_cast<const std::uint8_t *>(pixels) + row * rowBytes, rowBytes);
    }
}

void RasterizerBackend::destroyTexture(TextureId id) {
    mTextures.erase(id);
}

void RasterizerBackend::submit(const DrawList &list, const FrameTarget &target) {
    std::fill(mTarget.stencil.begin(), mTarget.stencil.end(), std::uint8_t{0});
    if (target.clearColor)
        mTarget.clear({target.clear[0], target.clear[1], target.clear[2], target.clear[3]});
    for (std::size_t i = 0; i < list.commandCount; ++i)
        draw(list, list.commands[i]);
}

void RasterizerBackend::draw(const DrawList &list, const DrawCommand &command) {
    const auto texture = mTextures.find(command.texture);
    const Texture *used = texture == mTextures.end() ? nullptr : &texture->second;
    for (std::uint32_t i = 0; i < command.indexCount; i += 3) {
        Corner triangle[3];
        for (std::uint32_t k = 0; k < 3; ++k)
            triangle[k] = transform(list.vertices[list.indices[command.firstIndex + i + k]], list.viewProjection);
        drawTriangle(mTarget, triangle, [&](const Fragment &fragment) { shade(command, used, fragment); });
    }
}

void RasterizerBackend::shade(const DrawCommand &command, const Texture *texture, const Fragment &fragment) {
    if (command.stencilTest) { // there is no depth test, so it never fails
        std::uint8_t &stencil = mTarget.stencil[fragment.pixel];
        const bool passed = passes(command.stencilFunction, command.stencilReference, stencil);
        stencil = apply(passed ? command.opPass : command.opFail, command.stencilReference, stencil);
        if (!passed)
            return;
    }
    Color source = fragment.color;
    if (texture) {
        const Color texel = texture->sample(fragment.u, fragment.v);
        std::transform(source.begin(), source.end(), texel.begin(), source.begin(), std::multiplies<>());
    }
    Color &pixel = mTarget.color[fragment.pixel];
    const float kept = command.blend == Blend::NONE ? 0.0F : 1 - source[3];
    for (std::size_t i = 0; i < 4; ++i) {
        if (command.colorMask & (i < 3 ? 1 : 2))
            pixel[i] = source[i] + kept * pixel[i];
    }
}
