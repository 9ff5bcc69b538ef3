#include "nengine/geometry/LocalGeometry.h"

#include <cassert>

namespace nurel::geometry {

void LocalGeometry::clear() {
    vertices.clear();
    indices.clear();
    runs.clear();
}

void LocalGeometry::beginRun(texture::RenderData *page, bool ownColors) {
    if (runs.empty() || runs.back().page != page || runs.back().ownColors != ownColors)
        runs.push_back({page, 0, 0, ownColors});
}

void LocalGeometry::addQuad(float x0, float y0, float x1, float y1, float u0, float v0, float u1, float v1,
                            std::uint32_t rgba) {
    assert(indices.empty() && "quads have no index list");
    addVertex(x0, y0, u0, v0, rgba);
    addVertex(x1, y0, u1, v0, rgba);
    addVertex(x1, y1, u1, v1, rgba);
    addVertex(x0, y1, u0, v1, rgba);
}

std::uint32_t LocalGeometry::addVertex(float x, float y, float u, float v, std::uint32_t rgba) {
    assert(!runs.empty() && "a vertex belongs to a run");
    vertices.push_back({x, y, u, v, rgba});
    return runs.back().vertexCount++;
}

void LocalGeometry::addTriangle(std::uint32_t a, std::uint32_t b, std::uint32_t c) {
    assert(!runs.empty() && a < runs.back().vertexCount && b < runs.back().vertexCount && c < runs.back().vertexCount);
    indices.insert(indices.end(), {a, b, c});
    runs.back().indexCount += 3;
}

} // namespace nurel::geometry
