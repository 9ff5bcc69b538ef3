#include "nengine/geometry/LocalGeometry.h"

#include "nengine/geometry/detail/MeshGeometry.h"

#include <gtest/gtest.h>

namespace nurel {
namespace {

using geometry::LocalGeometry;
using geometry::MeshGeometry;

core::SmartPtr<texture::RenderData> makePage(renderer::TextureId id) {
    return new texture::RenderData(nullptr, id, 16, 16);
}

TEST(LocalGeometry, GoesOnWithTheRunOfTheSamePage) {
    const auto page = makePage(1);
    const auto other = makePage(2);
    LocalGeometry local;
    local.beginRun(page.get());
    local.addQuad(0, 0, 1, 1, 0, 0, 1, 1);
    local.beginRun(page.get());
    local.addQuad(1, 0, 2, 1, 0, 0, 1, 1);
    local.beginRun(other.get());
    local.addQuad(2, 0, 3, 1, 0, 0, 1, 1);
    local.beginRun(other.get(), true);
    local.addQuad(3, 0, 4, 1, 0, 0, 1, 1);
    ASSERT_EQ(local.runs.size(), 3u);
    EXPECT_EQ(local.runs[0].vertexCount, 8u);
    EXPECT_EQ(local.runs[1].vertexCount, 4u);
    EXPECT_TRUE(local.runs[2].ownColors);
    local.clear();
    EXPECT_TRUE(local.vertices.empty() && local.indices.empty() && local.runs.empty());
}

TEST(LocalGeometry, TrianglesCountFromTheirRun) {
    LocalGeometry local;
    local.beginRun(nullptr);
    EXPECT_EQ(local.addVertex(0, 0, 0, 0), 0u);
    EXPECT_EQ(local.addVertex(1, 0, 0, 0), 1u);
    EXPECT_EQ(local.addVertex(0, 1, 0, 0), 2u);
    local.addTriangle(0, 1, 2);
    EXPECT_EQ(local.runs[0].indexCount, 3u);
    const auto page = makePage(1);
    local.beginRun(page.get());
    EXPECT_EQ(local.addVertex(0, 0, 0, 0), 0u);
}

TEST(MeshGeometry, HoldsItsPages) {
    const auto first = makePage(1);
    const auto second = makePage(2);
    LocalGeometry local;
    local.beginRun(first.get());
    local.addQuad(0, 0, 1, 1, 0, 0, 1, 1);
    local.beginRun(second.get());
    local.addQuad(0, 0, 1, 1, 0, 0, 1, 1);
    {
        MeshGeometry geometry;
        geometry.setLocal(local, nullptr);
        EXPECT_EQ(first->getRefCount(), 2u);
        EXPECT_EQ(second->getRefCount(), 2u);
        ASSERT_EQ(geometry.getRuns().size(), 2u);
        LocalGeometry single;
        single.beginRun(first.get());
        single.addQuad(0, 0, 1, 1, 0, 0, 1, 1);
        geometry.setLocal(single, nullptr);
        EXPECT_EQ(second->getRefCount(), 1u);
        EXPECT_EQ(geometry.getVertexCount(), 4u);
        geometry.setLocal(LocalGeometry(), nullptr);
        EXPECT_TRUE(geometry.isEmpty());
        EXPECT_EQ(first->getRefCount(), 1u);
    }
    EXPECT_EQ(first->getRefCount(), 1u);
}

TEST(MeshGeometry, BoundIsTheRectangleAroundAllVertices) {
    LocalGeometry local;
    local.beginRun(nullptr);
    local.addQuad(-3, 2, 5, 9, 0, 0, 0, 0);
    local.addQuad(0, -4, 1, 1, 0, 0, 0, 0);
    MeshGeometry geometry;
    geometry.setLocal(local, nullptr);
    math::Vector2 minimum, maximum;
    geometry.getBound(minimum, maximum);
    EXPECT_EQ(minimum, math::Vector2(-3, -4));
    EXPECT_EQ(maximum, math::Vector2(5, 9));
}

TEST(MeshGeometry, RevisionsFollowVerticesAndLayout) {
    LocalGeometry local;
    local.beginRun(nullptr);
    local.addQuad(0, 0, 1, 1, 0, 0, 0, 0);
    MeshGeometry geometry;
    EXPECT_EQ(geometry.getRevision(), 0u);
    geometry.setLocal(local, nullptr);
    const std::uint64_t layout = geometry.getLayoutRevision();
    geometry.setWorld(math::Matrix4::IDENTITY, {{1, 1, 1, 1}, false});
    const std::uint64_t revision = geometry.getRevision();
    geometry.setWorld(math::Matrix4::IDENTITY, {{1, 0, 0, 1}, false});
    EXPECT_NE(geometry.getRevision(), revision);
    EXPECT_EQ(geometry.getLayoutRevision(), layout);
}

} // namespace
} // namespace nurel
