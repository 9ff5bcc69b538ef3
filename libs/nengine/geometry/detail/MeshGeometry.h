#pragma once

#include "foundation/core/SmartPtr.h"
#include "nengine/geometry/LocalGeometry.h"
#include "nengine/renderer/DrawList.h"
#include "nengine/texture/RenderData.h"
#include "nmain/math/Matrix4.h"
#include "nmain/math/Vector4.h"

#include <memory>
#include <span>

namespace nurel::texture {
class Atlas;
}

namespace nurel::geometry {

/// What one mesh keeps of what it draws: its geometry in its own space, the same as vertices in the world, and the
/// revisions of everything that these were made from. Arrays have exactly the size that is needed.
class MeshGeometry {
public:
    /// As in `LocalGeometry`, but the page is counted, and flat runs have got the page of the white texel.
    struct Run {
        core::SmartPtr<texture::RenderData> page;
        std::uint32_t vertexCount = 0;
        std::uint32_t indexCount = 0;
        bool ownColors = false;
        bool isFlat = false; ///< nothing but the material's colour
    };

    /// What the world vertices take from the mesh besides its geometry.
    struct Look {
        math::Vector4 color; ///< not premultiplied
        bool blending = false;
    };

    MeshGeometry();
    ~MeshGeometry();
    MeshGeometry(const MeshGeometry &) = delete;
    MeshGeometry &operator=(const MeshGeometry &) = delete;

    /// Copies the geometry. Flat runs are drawn from the atlas's white texel, or without a texture where there is no
    /// atlas.
    void setLocal(const LocalGeometry &local, const texture::Atlas *atlas);

    /// Takes over the geometry, but not the vertices in the world.
    void setLocal(const MeshGeometry &source);

    /// Computes the vertices in the world.
    void setWorld(const math::Matrix4 &world, const Look &look);

    /// The rectangle around the geometry in the mesh's own space; zero when it is empty.
    void getBound(math::Vector2 &minimum, math::Vector2 &maximum) const;

    bool isEmpty() const { return mVertexCount == 0; }
    std::span<const renderer::DrawVertex> getVertices() const { return {mWorld.get(), mVertexCount}; }
    std::uint32_t getVertexCount() const { return mVertexCount; }

    /// Empty: all of it is quads.
    std::span<const std::uint32_t> getIndices() const { return {mIndices.get(), mIndexCount}; }
    std::span<const Run> getRuns() const { return {mMoreRuns ? mMoreRuns.get() : &mFirstRun, mRunCount}; }

    /// Changes whenever the vertices do.
    std::uint64_t getRevision() const { return mRevision; }

    /// Changes whenever runs, indices or counts may have changed.
    std::uint64_t getLayoutRevision() const { return mLayoutRevision; }

    // What the mesh notes about its sources; 0: not made from anything yet.

    std::uint64_t materialRevision = 0;
    std::uint64_t textureRevision = 0;
    std::uint32_t contextRevision = 0;
    bool blending = false;

    /// Whether a flat run was given this atlas's white texel.
    bool isWhiteFrom(const texture::Atlas *atlas) const;

private:
    void setCounts(std::size_t vertices, std::size_t indices, std::size_t runs);
    Run *getWritableRuns() { return mMoreRuns ? mMoreRuns.get() : &mFirstRun; }

    std::unique_ptr<LocalGeometry::Vertex[]> mLocal;
    std::unique_ptr<renderer::DrawVertex[]> mWorld;
    std::unique_ptr<std::uint32_t[]> mIndices;
    std::unique_ptr<Run[]> mMoreRuns; ///< null: at most one
    Run mFirstRun;
    std::uint64_t mRevision = 0;
    std::uint64_t mLayoutRevision = 0;
    std::uint32_t mVertexCount = 0;
    std::uint32_t mIndexCount = 0;
    std::uint32_t mRunCount = 0;
    bool mFlat = false; ///< some run is flat
};

} // namespace nurel::geometry
