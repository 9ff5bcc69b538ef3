#include "Canvas.h"

#include <algorithm>
#include <iterator>

namespace test {

namespace {

std::uint32_t pack(Color color) {
    return color[0] | std::uint32_t{color[1]} << 8 | std::uint32_t{color[2]} << 16 | std::uint32_t{color[3]} << 24;
}

std::uint64_t lastRevision = 0;

} // namespace

Canvas::Canvas(unsigned int width, unsigned int height)
    : mWidth(static_cast<float>(width)), mHeight(static_cast<float>(height)) {}

void Canvas::beginCommand(std::uint32_t indexCount) {
    state.firstIndex = static_cast<std::uint32_t>(indices.size());
    state.indexCount = indexCount;
    commands.push_back(state);
}

void Canvas::addTriangle(Point a, Point b, Point c, Color color) {
    beginCommand(3);
    for (const Point point : {a, b, c}) {
        indices.push_back(static_cast<std::uint32_t>(vertices.size()));
        vertices.push_back({point.x, point.y, 0, 0.5f, 0.5f, pack(color)});
    }
}

void Canvas::addQuad(const std::array<Point, 4> &corners, Color color, float uv) {
    beginCommand(6);
    const auto first = static_cast<std::uint32_t>(vertices.size());
    for (const std::uint32_t index : {0u, 1u, 2u, 0u, 2u, 3u})
        indices.push_back(first + index);
    const std::array<Point, 4> coordinates = {{{0, 0}, {uv, 0}, {uv, uv}, {0, uv}}};
    for (std::size_t i = 0; i < 4; ++i)
        vertices.push_back({corners[i].x, corners[i].y, 0, coordinates[i].x, coordinates[i].y, pack(color)});
}

void Canvas::addRectangle(float x, float y, float width, float height, Color color, float uv) {
    addQuad({{{x, y}, {x + width, y}, {x + width, y + height}, {x, y + height}}}, color, uv);
}

void Canvas::clear() {
    vertices.clear();
    indices.clear();
    commands.clear();
}

nurel::renderer::DrawList Canvas::getList() {
    nurel::renderer::DrawList list;
    list.vertices = vertices.data();
    list.vertexCount = vertices.size();
    list.indices = indices.data();
    list.indexCount = indices.size();
    list.commands = commands.data();
    list.commandCount = commands.size();
    const float matrix[16] = {2 / mWidth, 0, 0, 0, 0, -2 / mHeight, 0, 0, 0, 0, 1, 0, -1, 1, 0, 1};
    std::copy(std::begin(matrix), std::end(matrix), list.viewProjection);
    list.revision = ++lastRevision;
    return list;
}

} // namespace test
