#include "Rasterizer.h"

namespace engine3d {

namespace {

/// Nothing nearer to the eye's plane is drawn.
constexpr float NEAREST = 1e-4F;

float mix(float from, float to, float share) {
    return from + share * (to - from);
}

Corner mix(const Corner &from, const Corner &to, float share) {
    Corner corner{mix(from.x, to.x, share),
                  mix(from.y, to.y, share),
                  mix(from.z, to.z, share),
                  mix(from.w, to.w, share),
                  mix(from.u, to.u, share),
                  mix(from.v, to.v, share),
                  {}};
    for (std::size_t i = 0; i < corner.color.size(); ++i)
        corner.color[i] = mix(from.color[i], to.color[i], share);
    return corner;
}

} // namespace

void Target::resize(unsigned int newWidth, unsigned int newHeight) {
    width = newWidth;
    height = newHeight;
    color.resize(std::size_t{width} * height);
    depth.resize(color.size());
    stencil.resize(color.size());
}

void Target::clear(const Color &background) {
    std::fill(color.begin(), color.end(), background);
    std::fill(depth.begin(), depth.end(), 1.0F);
}

std::vector<std::uint8_t> Target::toBytes() const {
    std::vector<std::uint8_t> bytes;
    bytes.reserve(color.size() * 4);
    for (const Color &pixel : color) {
        for (std::size_t i = 0; i < 3; ++i)
            bytes.push_back(static_cast<std::uint8_t>(std::lround(std::clamp(pixel[i], 0.0F, 1.0F) * 255)));
        bytes.push_back(255);
    }
    return bytes;
}

std::size_t clipToEye(const Corner *triangle, Corner *clipped) {
    std::size_t count = 0;
    for (std::size_t i = 0; i < 3; ++i) {
        const Corner &corner = triangle[i];
        const Corner &next = triangle[(i + 1) % 3];
        if (corner.w >= NEAREST)
            clipped[count++] = corner;
        if ((corner.w >= NEAREST) != (next.w >= NEAREST))
            clipped[count++] = mix(corner, next, (NEAREST - corner.w) / (next.w - corner.w));
    }
    return count;
}

ScreenCorner project(const Corner &corner, const Target &target) {
    const float inverseW = 1 / corner.w;
    return {(corner.x * inverseW + 1) / 2 * static_cast<float>(target.width),
            (1 - corner.y * inverseW) / 2 * static_cast<float>(target.height), (corner.z * inverseW + 1) / 2, inverseW};
}

} // namespace engine3d
