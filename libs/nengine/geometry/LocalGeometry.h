#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace nurel::texture {
class RenderData;
}

namespace nurel::geometry {

/// What a mesh draws, in its own space: filled by `scene::Mesh::buildGeometry`. The mesh keeps a compact copy, so that
/// one instance serves all meshes in turn and its arrays stop growing.
///
/// Runs are consecutive ranges of vertices, each with the texture page that its u and v refer to. A geometry holds
/// either quads only (nothing in `indices`: every four vertices are one) or an index list for all of it.
class LocalGeometry {
public:
    struct Vertex {
        float x, y;
        float u, v;         ///< ignored in a flat run
        std::uint32_t rgba; ///< premultiplied multiplier of the mesh's material colour, red in the low byte
    };

    struct Run {
        texture::RenderData *page = nullptr; ///< null: flat, drawn from the white texel
        std::uint32_t vertexCount = 0;
        std::uint32_t indexCount = 0; ///< 0 when all of the geometry is quads
        bool ownColors = false;       ///< colours of the page stay (colour glyphs): of the material only alpha counts
    };

    /// The vertex colour that leaves the material's colour as it is.
    static constexpr std::uint32_t WHITE = 0xffffffffu;

    std::vector<Vertex> vertices;
    std::vector<std::uint32_t> indices; ///< triangles; each counts from the first vertex of its run
    std::vector<Run> runs;

    /// Empties it and keeps the memory.
    void clear();

    /// What is added from here on belongs to this page. The page is not counted here; the mesh counts it. Going on with
    /// the page of the last run goes on with that run. With `ownColors` the material's colour is not multiplied into
    /// it, only its alpha.
    void beginRun(texture::RenderData *page, bool ownColors = false);

    /// Adds a quad to the last run; corners (x0, y0) and (x1, y1) are opposite ones. Only for geometries without
    /// indices.
    void addQuad(float x0, float y0, float x1, float y1, float u0, float v0, float u1, float v1,
                 std::uint32_t rgba = WHITE);

    /// Adds one vertex to the last run and returns its index in that run.
    std::uint32_t addVertex(float x, float y, float u, float v, std::uint32_t rgba = WHITE);

    /// Adds a triangle of the last run's vertices.
    void addTriangle(std::uint32_t a, std::uint32_t b, std::uint32_t c);
};

} // namespace nurel::geometry
