#pragma once

#include "nengine/renderer/DrawList.h"
#include "nengine/renderer/FrameStatistics.h"
#include "nengine/scene/DrawContext.h"

#include <vector>

namespace nurel::geometry {
class MeshGeometry;
}

namespace nurel::scene {
class Mesh;
}

namespace nurel::renderer {

/// Turns the visible meshes of one view into a draw list, and keeps the list from frame to frame: what is the same
/// stays, meshes of which only vertices changed are mended in place, and from the first other change on the list is put
/// together anew. Nothing is allocated while nothing changes.
class DrawListBuilder {
public:
    DrawListBuilder();
    ~DrawListBuilder();
    DrawListBuilder(const DrawListBuilder &) = delete;
    DrawListBuilder &operator=(const DrawListBuilder &) = delete;

    /// Brings the list up to date. The meshes are in the order of drawing.
    void update(const std::vector<scene::Mesh *> &meshes, const math::Matrix4 &viewProjection, unsigned int width,
                unsigned int height, texture::Atlas *atlas, FrameStatistics &statistics);

    /// Valid until the next `update`.
    const DrawList &getList() const { return mList; }
    std::uint32_t getTextureSwitches() const { return mTextureSwitches; }

    /// Builds the list of these meshes from nothing and says whether the kept one is the same.
    bool verify(const std::vector<scene::Mesh *> &meshes) const;

private:
    struct State;
    struct Entry;
    struct Change;

    bool updateContext(const math::Matrix4 &viewProjection, unsigned int width, unsigned int height,
                       texture::Atlas *atlas);
    bool isUnchanged(std::size_t index, const scene::Mesh &mesh) const;
    bool updateEntry(std::size_t index, scene::Mesh &mesh, const geometry::MeshGeometry &geometry, const State &state,
                     Change &change);
    void cut(std::size_t count);
    void append(scene::Mesh &mesh, const geometry::MeshGeometry &geometry, const State &state);
    void appendCommand(const State &state, TextureId texture, std::size_t indexCount, bool isFlat);
    void finish(const Change &change, FrameStatistics &statistics);
    static State getState(const scene::Mesh &mesh);

    scene::DrawContext mContext;
    std::vector<Entry> mEntries; ///< one for each visible mesh, in the order of the list
    std::vector<DrawVertex> mVertices;
    std::vector<std::uint32_t> mIndices;
    std::vector<DrawCommand> mCommands;
    DrawList mList;
    std::uint32_t mTextureSwitches = 0;
    std::uint64_t mLookChanges = 0; ///< the count at the last update
    bool mViewChanged = true;
};

} // namespace nurel::renderer
