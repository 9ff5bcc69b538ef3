#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <vector>

/// What stands for an existing engine in this example: it fills triangles in memory, with the processor alone, and
/// knows nothing of the toolkit.
namespace engine3d {

/// Red, green, blue, alpha, premultiplied.
using Color = std::array<float, 4>;

/// One corner of a triangle in clip space, y upward, and what is interpolated between the corners.
struct Corner {
    float x, y, z, w;
    float u, v;
    Color color;
};

/// A place on a triangle, interpolated for one pixel.
struct Fragment {
    std::size_t pixel; ///< its number in the target's arrays
    float depth;       ///< 0 near to 1 far
    float u, v;
    Color color;
};

/// A picture with its depth and stencil values, rows from the top.
struct Target {
    unsigned int width = 0;
    unsigned int height = 0;
    std::vector<Color> color;
    std::vector<float> depth;
    std::vector<std::uint8_t> stencil;

    void resize(unsigned int newWidth, unsigned int newHeight);
    void clear(const Color &background);

    /// Four bytes a pixel, red first, opaque.
    std::vector<std::uint8_t> toBytes() const;
};

/// A corner after the division, in pixels.
struct ScreenCorner {
    float x, y, depth, inverseW;
};

/// The part of a triangle that lies before the eye: none to four corners. Returns their count.
std::size_t clipToEye(const Corner *triangle, Corner *clipped);

ScreenCorner project(const Corner &corner, const Target &target);

/// Calls `shade(const Fragment &)` for each pixel of the target whose centre lies in the triangle, which may have
/// either winding; two triangles that share an edge share no pixel.
template <class Shade>
void fillTriangle(const Target &target, const Corner &a, const Corner &b, const Corner &c, Shade &&shade) {
    const Corner corners[3] = {a, b, c};
    ScreenCorner at[3];
    std::transform(corners, corners + 3, at, [&target](const Corner &corner) { return project(corner, target); });
    const float area = (at[1].x - at[0].x) * (at[2].y - at[0].y) - (at[2].x - at[0].x) * (at[1].y - at[0].y);
    if (!(std::abs(area) > 0.0F))
        return;
    const float side = area > 0 ? 1.0F : -1.0F;
    const auto [left, right] = std::minmax({at[0].x, at[1].x, at[2].x});
    const auto [top, bottom] = std::minmax({at[0].y, at[1].y, at[2].y});
    const auto clampTo = [](float value, unsigned int limit) {
        return static_cast<unsigned int>(std::clamp(value, 0.0F, static_cast<float>(limit)));
    };
    for (unsigned int y = clampTo(top, target.height); y < clampTo(bottom + 1, target.height); ++y) {
        for (unsigned int x = clampTo(left, target.width); x < clampTo(right + 1, target.width); ++x) {
            float share[3];
            float sum = 0;
            bool inside = true;
            for (std::size_t i = 0; i < 3 && inside; ++i) {
                const ScreenCorner &from = at[(i + 1) % 3];
                const ScreenCorner &to = at[(i + 2) % 3];
                const float dx = side * (to.x - from.x);
                const float dy = side * (to.y - from.y);
                const float px = static_cast<float>(x) + 0.5F - from.x;
                const float py = static_cast<float>(y) + 0.5F - from.y;
                const float edge = dx * py - dy * px;
                inside =
                    edge > 0 || (edge == 0 && (dy < 0 || (dy == 0 && dx > 0))); // one of two neighbours has the edge
                share[i] = edge / std::abs(area);
                sum += share[i] * at[i].inverseW;
            }
            if (!inside)
                continue;
            Fragment fragment{std::size_t{y} * target.width + x, 0, 0, 0, {}};
            for (std::size_t i = 0; i < 3; ++i) {
                const float weight = share[i] * at[i].inverseW / sum;
                fragment.depth += share[i] * at[i].depth;
                fragment.u += weight * corners[i].u;
                fragment.v += weight * corners[i].v;
                for (std::size_t k = 0; k < 4; ++k)
                    fragment.color[k] += weight * corners[i].color[k];
            }
            shade(fragment);
        }
    }
}

/// A triangle of which some may lie behind the eye.
template <class Shade>
void drawTriangle(const Target &target, const Corner *triangle, Shade &&shade) {
    Corner clipped[4];
    const std::size_t count = clipToEye(triangle, clipped);
    for (std::size_t i = 2; i < count; ++i)
        fillTriangle(target, clipped[0], clipped[i - 1], clipped[i], shade);
}

} // namespace engine3d
