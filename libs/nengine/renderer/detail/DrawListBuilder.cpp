#include "nengine/renderer/detail/DrawListBuilder.h"

#include "nengine/geometry/detail/MeshGeometry.h"
#include "nengine/geometry/detail/Revision.h"
#include "nengine/scene/Mesh.h"
#include "nengine/scene/properties/AlphaProperty.h"
#include "nengine/scene/properties/MaterialProperty.h"
#include "nengine/scene/properties/StencilProperty.h"

#include <algorithm>
#include <cstring>

namespace nurel::renderer {

using scene::Property;

/// What of a command comes from the properties of a mesh: neighbours with the same state may share one.
struct DrawListBuilder::State {
    Blend blend = Blend::NONE;
    bool stencilTest = false;
    StencilFunction function = StencilFunction::ALWAYS;
    std::uint8_t reference = 0;
    StencilOperation fail = StencilOperation::KEEP;
    StencilOperation depthFail = StencilOperation::KEEP;
    StencilOperation pass = StencilOperation::KEEP;
    std::uint8_t colorMask = 3;

    bool operator==(const State &) const = default;
};

/// The place of one mesh in the list, and what it was written from.
struct DrawListBuilder::Entry {
    scene::Mesh *mesh;
    std::uint64_t revision;
    std::uint64_t layoutRevision;
    State state;
    std::uint32_t stamp;
    std::uint32_t firstVertex;
    std::uint32_t firstIndex;
};

/// What one update did to the list.
struct DrawListBuilder::Change {
    bool rebuilt = false;
    std::size_t meshesPatched = 0;
    std::size_t verticesWritten = 0;
    std::size_t firstVertex = ~std::size_t{0}; ///< of the patched ones
    std::size_t endVertex = 0;
};

DrawListBuilder::DrawListBuilder() = default;
DrawListBuilder::~DrawListBuilder() = default;

DrawListBuilder::State DrawListBuilder::getState(const scene::Mesh &mesh) {
    const scene::PropertySet &set = mesh.getPropertySet();
    const auto &alpha = static_cast<const scene::properties::AlphaProperty &>(*set.getEffective(Property::ALPHA));
    const auto &material =
        static_cast<const scene::properties::MaterialProperty &>(*set.getEffective(Property::MATERIAL));
    const auto &stencil = static_cast<const scene::properties::StencilProperty &>(*set.getEffective(Property::STENCIL));
    State state;
    state.blend = alpha.isBlending() ? Blend::PREMULTIPLIED : Blend::NONE;
    state.colorMask = static_cast<std::uint8_t>(material.getFlags() & 3u);
    if (stencil.isEnabled()) {
        state.stencilTest = true;
        state.function = static_cast<StencilFunction>(stencil.getComparison());
        state.reference = static_cast<std::uint8_t>(stencil.getReference());
        state.fail = static_cast<StencilOperation>(stencil.getFailOperation());
        state.depthFail = static_cast<StencilOperation>(stencil.getDepthFailOperation());
        state.pass = static_cast<StencilOperation>(stencil.getPassOperation());
    }
    return state;
}

void DrawListBuilder::update(const std::vector<scene::Mesh *> &meshes, const math::Matrix4 &viewProjection,
                             unsigned int width, unsigned int height, texture::Atlas *atlas,
                             FrameStatistics &statistics) {
    const bool contextChanged = updateContext(viewProjection, width, height, atlas);
    const std::uint64_t lookChanges = geometry::getLookChangeCount();
    const bool looksChanged = contextChanged || lookChanges != mLookChanges;
    mLookChanges = lookChanges;

    Change change;
    for (std::size_t i = 0; i < meshes.size(); ++i) {
        scene::Mesh &mesh = *meshes[i];
        if (!looksChanged && isUnchanged(i, mesh))
            continue;
        const geometry::MeshGeometry &geometry = mesh.prepareGeometry(mContext, statistics);
        const State state = getState(mesh);
        if (!updateEntry(i, mesh, geometry, state, change)) {
            cut(i);
            append(mesh, geometry, state);
            change.rebuilt = true;
            change.verticesWritten += geometry.getVertexCount();
        }
    }
    if (meshes.size() < mEntries.size()) {
        cut(meshes.size());
        change.rebuilt = true;
    }
    finish(change, statistics);
}

/// Whether the mesh was written to the list at this place and, as far as it knows itself, looks the same.
bool DrawListBuilder::isUnchanged(std::size_t index, const scene::Mesh &mesh) const {
    return index < mEntries.size() && mEntries[index].mesh == &mesh && mesh.isUntouched() &&
           mEntries[index].stamp == mesh.getDrawStamp();
}

bool DrawListBuilder::updateContext(const math::Matrix4 &viewProjection, unsigned int width, unsigned int height,
                                    texture::Atlas *atlas) {
    mViewChanged = mContext.revision == 0 || !(mContext.viewProjection == viewProjection);
    if (!mViewChanged && mContext.width == width && mContext.height == height && mContext.atlas == atlas)
        return false;
    mContext = {viewProjection, width, height, atlas, static_cast<std::uint32_t>(geometry::nextRevision())};
    return true;
}

/// Keeps the mesh's part of the list, with other vertices if that is all that changed. False: it has to be written
/// anew.
bool DrawListBuilder::updateEntry(std::size_t index, scene::Mesh &mesh, const geometry::MeshGeometry &geometry,
                                  const State &state, Change &change) {
    if (index >= mEntries.size())
        return false;
    Entry &entry = mEntries[index];
    if (entry.mesh != &mesh || entry.layoutRevision != geometry.getLayoutRevision() || entry.state != state)
        return false;
    if (entry.revision == geometry.getRevision())
        return true;
    entry.revision = geometry.getRevision();
    entry.stamp = mesh.getDrawStamp();
    const auto vertices = geometry.getVertices();
    std::copy(vertices.begin(), vertices.end(), mVertices.begin() + entry.firstVertex);
    ++change.meshesPatched;
    change.verticesWritten += vertices.size();
    change.firstVertex = std::min<std::size_t>(change.firstVertex, entry.firstVertex);
    change.endVertex = std::max(change.endVertex, entry.firstVertex + vertices.size());
    return true;
}

/// Shortens the list to its first meshes.
void DrawListBuilder::cut(std::size_t count) {
    if (count >= mEntries.size())
        return;
    const std::uint32_t firstIndex = mEntries[count].firstIndex;
    mVertices.resize(mEntries[count].firstVertex);
    mIndices.resize(firstIndex);
    mEntries.erase(mEntries.begin() + static_cast<std::ptrdiff_t>(count), mEntries.end());
    while (!mCommands.empty() && mCommands.back().firstIndex >= firstIndex)
        mCommands.pop_back();
    if (!mCommands.empty())
        mCommands.back().indexCount = firstIndex - mCommands.back().firstIndex;
}

void DrawListBuilder::append(scene::Mesh &mesh, const geometry::MeshGeometry &geometry, const State &state) {
    std::size_t base = mVertices.size();
    mEntries.push_back({&mesh, geometry.getRevision(), geometry.getLayoutRevision(), state, mesh.getDrawStamp(),
                        static_cast<std::uint32_t>(base), static_cast<std::uint32_t>(mIndices.size())});
    const auto vertices = geometry.getVertices();
    mVertices.insert(mVertices.end(), vertices.begin(), vertices.end());

    const auto indices = geometry.getIndices();
    auto index = indices.begin();
    for (const geometry::MeshGeometry::Run &run : geometry.getRuns()) {
        const std::size_t firstIndex = mIndices.size();
        if (indices.empty()) {
            for (std::uint32_t i = 0; i + 3 < run.vertexCount; i += 4) {
                const auto corner = static_cast<std::uint32_t>(base + i);
                mIndices.insert(mIndices.end(), {corner, corner + 1, corner + 2, corner, corner + 2, corner + 3});
            }
        } else {
            for (std::uint32_t i = 0; i < run.indexCount; ++i)
                mIndices.push_back(static_cast<std::uint32_t>(base + *index++));
        }
        appendCommand(state, run.page ? run.page->id : NO_TEXTURE, mIndices.size() - firstIndex, run.isFlat);
        base += run.vertexCount;
    }
}

/// Draws the last indices of the list: with the last command if that one is of the same kind.
void DrawListBuilder::appendCommand(const State &state, TextureId texture, std::size_t indexCount, bool isFlat) {
    if (indexCount == 0)
        return;
    DrawCommand command;
    command.firstIndex = static_cast<std::uint32_t>(mIndices.size() - indexCount);
    command.indexCount = static_cast<std::uint32_t>(indexCount);
    command.texture = texture;
    command.blend = state.blend;
    command.stencilTest = state.stencilTest;
    command.stencilFunction = state.function;
    command.stencilReference = state.reference;
    command.opFail = state.fail;
    command.opDepthFail = state.depthFail;
    command.opPass = state.pass;
    command.colorMask = state.colorMask;
    // What is flat and not blended is opaque: it goes on with a command that blends, such as that of a text, and looks
    // the same.
    if (isFlat && !mCommands.empty() && mCommands.back().blend == Blend::PREMULTIPLIED)
        command.blend = Blend::PREMULTIPLIED;
    if (!mCommands.empty() && mCommands.back().hasSameState(command)) {
        mCommands.back().indexCount += command.indexCount;
        return;
    }
    command.blend = state.blend;
    mCommands.push_back(command);
}

void DrawListBuilder::finish(const Change &change, FrameStatistics &statistics) {
    const bool first = mList.revision == 0;
    statistics.verticesWritten += change.verticesWritten;
    statistics.meshesPatched += change.meshesPatched;
    if (!first && !change.rebuilt && change.meshesPatched == 0 && !mViewChanged)
        return;
    const std::uint64_t before = mList.revision;
    mList.vertices = mVertices.data();
    mList.vertexCount = mVertices.size();
    mList.indices = mIndices.data();
    mList.indexCount = mIndices.size();
    mList.commands = mCommands.data();
    mList.commandCount = mCommands.size();
    std::memcpy(mList.viewProjection, mContext.viewProjection.data(), sizeof mList.viewProjection);
    mList.revision = geometry::nextRevision();
    if (first || change.rebuilt) {
        mList.basedOn = 0;
        mList.changedFirst = mList.changedCount = 0;
        mTextureSwitches = 0;
        for (std::size_t i = 1; i < mCommands.size(); ++i)
            mTextureSwitches += mCommands[i].texture != mCommands[i - 1].texture;
        ++statistics.listsRebuilt;
    } else {
        mList.basedOn = before;
        mList.changedFirst = change.meshesPatched ? change.firstVertex : 0;
        mList.changedCount = change.meshesPatched ? change.endVertex - change.firstVertex : 0;
    }
}

bool DrawListBuilder::verify(const std::vector<scene::Mesh *> &meshes) const {
    DrawListBuilder fresh;
    for (scene::Mesh *const mesh : meshes) {
        geometry::MeshGeometry geometry;
        mesh->rebuildGeometry(mContext, geometry);
        fresh.append(*mesh, geometry, getState(*mesh));
    }
    return std::ranges::equal(mVertices, fresh.mVertices) && mIndices == fresh.mIndices && mCommands == fresh.mCommands;
}

} // namespace nurel::renderer
