#pragma once

#include "nengine/renderer/Backend.h"

#include <array>
#include <cstdint>
#include <vector>

namespace test {

/// A premultiplied color: red, green, blue, alpha.
using Color = std::array<std::uint8_t, 4>;

struct Point {
    float x, y;
};

/// Makes draw lists in pixels of the target: x to the right, y down from the top left.
class Canvas {
public:
    Canvas(unsigned int width, unsigned int height);

    /// The state of what is added from here on. Its indices are set by what is added.
    nurel::renderer::DrawCommand state;

    void addTriangle(Point a, Point b, Point c, Color color);

    /// Corners in order around it; u and v 0 to 1 from the first to the third.
    void addQuad(const std::array<Point, 4> &corners, Color color, float uv = 1);
    void addRectangle(float x, float y, float width, float height, Color color, float uv = 1);

    void clear();

    /// A list of all that was added, with a revision of its own. Valid until something is added.
    nurel::renderer::DrawList getList();

    std::vector<nurel::renderer::DrawVertex> vertices;
    std::vector<std::uint32_t> indices;
    std::vector<nurel::renderer::DrawCommand> commands;

private:
    void beginCommand(std::uint32_t indexCount);

    const float mWidth;
    const float mHeight;
};

} // namespace test
