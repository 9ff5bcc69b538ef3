#include "nengine/geometry/detail/MeshGeometry.h"

#include "nengine/geometry/detail/Revision.h"
#include "nengine/texture/Atlas.h"

#include <algorithm>
#include <cmath>

namespace nurel::geometry {

namespace {

/// Four channels, red first, each 0 to 255.
struct Channels {
    std::uint32_t value[4];
};

/// Written so that a value which is no number becomes 0.
float cutToUnit(float value) {
    return value > 0.0f ? std::min(value, 1.0f) : 0.0f;
}

/// Of a value from 0 to 1.
std::uint32_t toByte(float value) {
    return static_cast<std::uint32_t>(std::lround(value * 255.0f));
}

/// Premultiplied. What is not blended is opaque.
Channels getBaseColor(const MeshGeometry::Look &look, bool ownColors) {
    const float alpha = look.blending ? cutToUnit(look.color.w) : 1.0f;
    if (ownColors)
        return {{toByte(alpha), toByte(alpha), toByte(alpha), toByte(alpha)}};
    return {{toByte(cutToUnit(look.color.x) * alpha), toByte(cutToUnit(look.color.y) * alpha),
             toByte(cutToUnit(look.color.z) * alpha), toByte(alpha)}};
}

std::uint32_t pack(const Channels &channels) {
    return channels.value[0] | channels.value[1] << 8 | channels.value[2] << 16 | channels.value[3] << 24;
}

std::uint32_t multiply(const Channels &base, std::uint32_t rgba) {
    Channels product{};
    for (unsigned int i = 0; i < 4; ++i)
        product.value[i] = (base.value[i] * (rgba >> (8 * i) & 255u) + 127u) / 255u;
    return pack(product);
}

template <class T>
void resize(std::unique_ptr<T[]> &array, std::size_t oldCount, std::size_t newCount) {
    if (oldCount != newCount)
        array = newCount ? std::make_unique_for_overwrite<T[]>(newCount) : nullptr;
}

} // namespace

MeshGeometry::MeshGeometry() = default;
MeshGeometry::~MeshGeometry() = default;

void MeshGeometry::setCounts(std::size_t vertices, std::size_t indices, std::size_t runs) {
    resize(mLocal, mVertexCount, vertices);
    resize(mWorld, mVertexCount, vertices);
    resize(mIndices, mIndexCount, indices);
    mVertexCount = static_cast<std::uint32_t>(vertices);
    mIndexCount = static_cast<std::uint32_t>(indices);
    if (runs != mRunCount) {
        mMoreRuns = runs > 1 ? std::make_unique<Run[]>(runs) : nullptr;
        mRunCount = static_cast<std::uint32_t>(runs);
        mFirstRun = Run();
    }
    mLayoutRevision = nextRevision();
}

void MeshGeometry::setLocal(const LocalGeometry &local, const texture::Atlas *atlas) {
    setCounts(local.vertices.size(), local.indices.size(), local.runs.size());
    std::copy(local.vertices.begin(), local.vertices.end(), mLocal.get());
    std::copy(local.indices.begin(), local.indices.end(), mIndices.get());
    mFlat = false;
    Run *run = getWritableRuns();
    LocalGeometry::Vertex *vertex = mLocal.get();
    for (const LocalGeometry::Run &source : local.runs) {
        run->page = source.page;
        run->vertexCount = source.vertexCount;
        run->indexCount = source.indexCount;
        run->ownColors = source.ownColors;
        run->isFlat = !source.page && std::all_of(vertex, vertex + source.vertexCount, [](const auto &corner) {
            return corner.rgba == LocalGeometry::WHITE;
        });
        if (!source.page) {
            mFlat = true;
            run->page = atlas ? atlas->getWhite().page : nullptr;
            for (std::uint32_t i = 0; i < source.vertexCount; ++i) {
                vertex[i].u = atlas ? atlas->getWhite().u0 : 0.0f;
                vertex[i].v = atlas ? atlas->getWhite().v0 : 0.0f;
            }
        }
        vertex += source.vertexCount;
        ++run;
    }
}

void MeshGeometry::setLocal(const MeshGeometry &source) {
    setCounts(source.mVertexCount, source.mIndexCount, source.mRunCount);
    std::copy_n(source.mLocal.get(), mVertexCount, mLocal.get());
    std::copy_n(source.mIndices.get(), mIndexCount, mIndices.get());
    std::copy_n(source.getRuns().data(), mRunCount, getWritableRuns());
    mFlat = source.mFlat;
}

void MeshGeometry::setWorld(const math::Matrix4 &world, const Look &look) {
    std::uint32_t first = 0;
    for (const Run &run : getRuns()) {
        const Channels base = getBaseColor(look, run.ownColors);
        const std::uint32_t baseColor = pack(base);
        for (std::uint32_t i = first; i < first + run.vertexCount; ++i) {
            const LocalGeometry::Vertex &from = mLocal[i];
            mWorld[i] = {from.x * world[0] + from.y * world[4] + world[12],
                         from.x * world[1] + from.y * world[5] + world[13],
                         from.x * world[2] + from.y * world[6] + world[14],
                         from.u,
                         from.v,
                         from.rgba == LocalGeometry::WHITE ? baseColor : multiply(base, from.rgba)};
        }
        first += run.vertexCount;
    }
    mRevision = nextRevision();
}

void MeshGeometry::getBound(math::Vector2 &minimum, math::Vector2 &maximum) const {
    minimum = maximum = mVertexCount ? math::Vector2(mLocal[0].x, mLocal[0].y) : math::Vector2::ZERO;
    for (std::uint32_t i = 1; i < mVertexCount; ++i) {
        minimum.x = std::min(minimum.x, mLocal[i].x);
        minimum.y = std::min(minimum.y, mLocal[i].y);
        maximum.x = std::max(maximum.x, mLocal[i].x);
        maximum.y = std::max(maximum.y, mLocal[i].y);
    }
}

bool MeshGeometry::isWhiteFrom(const texture::Atlas *atlas) const {
    if (!mFlat)
        return true;
    const texture::RenderData *white = atlas ? atlas->getWhite().page : nullptr;
    return std::ranges::any_of(getRuns(), [white](const Run &run) { return run.page.get() == white; });
}

} // namespace nurel::geometry
