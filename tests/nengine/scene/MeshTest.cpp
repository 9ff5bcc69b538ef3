#include "nengine/scene/Mesh.h"

#include "nengine/geometry/LocalGeometry.h"
#include "nengine/geometry/MeshData.h"
#include "nengine/geometry/MeshDataCO.h"
#include "nengine/geometry/detail/MeshGeometry.h"
#include "nengine/scene/DrawContext.h"
#include "nengine/scene/properties/AlphaProperty.h"
#include "nengine/scene/properties/MaterialProperty.h"
#include "nengine/scene/properties/TextureProperty.h"
#include "nengine/support/Screen.h"

#include <gtest/gtest.h>

namespace nurel {
namespace {

using geometry::LocalGeometry;
using scene::Mesh;
using scene::properties::AlphaProperty;
using scene::properties::MaterialProperty;
using scene::properties::TextureProperty;

/// One flat quad of a size and vertex colour, and counts.
class Quad : public Mesh {
public:
    using Mesh::Mesh;

    core::Object *clone(core::CloningOptions &options) const override {
        auto *copy = new Quad(getName());
        _clone(copy, options);
        return copy;
    }

    int builds = 0;
    int views = 0;
    int bounds = 0;
    float size = 2;
    std::uint32_t color = LocalGeometry::WHITE;
    texture::RenderData *page = nullptr;
    bool ownColors = false;

    void updateBoundUpward() override {
        ++bounds;
        Mesh::updateBoundUpward();
    }

protected:
    bool buildGeometry(LocalGeometry &out) override {
        ++builds;
        if (size <= 0)
            return false;
        out.beginRun(page, ownColors);
        out.addQuad(0, 0, size, size, 0, 0, 1, 1, color);
        return true;
    }
    void viewChanged(const scene::DrawContext &) override { ++views; }
};

class MeshPreparation : public testing::Test {
public:
    MeshPreparation() : mesh(new Quad("quad")) {
        context.width = 100;
        context.height = 100;
        context.revision = 1;
    }

    const geometry::MeshGeometry *prepare() {
        mesh->update(0, true);
        statistics = {};
        const geometry::MeshGeometry &geometry = mesh->prepareGeometry(context, statistics);
        return geometry.isEmpty() ? nullptr : &geometry;
    }

    std::uint32_t colorOf() { return prepare()->getVertices()[0].rgba; }

    core::SmartPtr<Quad> mesh;
    scene::DrawContext context;
    renderer::FrameStatistics statistics;
};

TEST_F(MeshPreparation, BuildsOnceAndKeepsWhatIsDrawn) {
    const geometry::MeshGeometry *geometry = prepare();
    ASSERT_NE(geometry, nullptr);
    EXPECT_EQ(geometry->getVertexCount(), 4u);
    EXPECT_EQ(statistics.verticesRebuilt, 4u);
    EXPECT_EQ(statistics.meshesBuilt, 1u);
    const std::uint64_t revision = geometry->getRevision();
    EXPECT_EQ(prepare(), geometry);
    EXPECT_EQ(geometry->getRevision(), revision);
    EXPECT_EQ(statistics.verticesRebuilt, 0u);
    EXPECT_EQ(mesh->builds, 1);
    EXPECT_EQ(mesh->views, 1);
}

TEST_F(MeshPreparation, AMoveTransformsAgainWithoutBuilding) {
    const geometry::MeshGeometry *geometry = prepare();
    const std::uint64_t layout = geometry->getLayoutRevision();
    mesh->setTranslation({10, 20, 30});
    ASSERT_EQ(prepare(), geometry);
    EXPECT_EQ(mesh->builds, 1);
    EXPECT_EQ(mesh->views, 2);
    EXPECT_EQ(statistics.verticesRebuilt, 4u);
    EXPECT_EQ(statistics.meshesBuilt, 0u);
    EXPECT_EQ(geometry->getLayoutRevision(), layout);
    EXPECT_EQ(geometry->getVertices()[2].x, 12);
    EXPECT_EQ(geometry->getVertices()[2].y, 22);
    EXPECT_EQ(geometry->getVertices()[2].z, 30);
}

TEST_F(MeshPreparation, SetChangedBuildsAgain) {
    const geometry::MeshGeometry *geometry = prepare();
    mesh->size = 5;
    EXPECT_EQ(prepare()->getVertices()[2].x, 2) << "nobody said so";
    mesh->setChanged(true);
    EXPECT_TRUE(mesh->isChanged());
    EXPECT_EQ(prepare()->getVertices()[2].x, 5);
    EXPECT_FALSE(mesh->isChanged());
    EXPECT_EQ(geometry->getVertexCount(), 4u);
}

TEST_F(MeshPreparation, NothingToDrawIsAskedOnce) {
    mesh->size = 0;
    EXPECT_EQ(prepare(), nullptr);
    EXPECT_EQ(prepare(), nullptr);
    EXPECT_EQ(mesh->builds, 1);
    mesh->size = 1;
    mesh->setChanged(true);
    EXPECT_NE(prepare(), nullptr);
    mesh->size = 0;
    mesh->setChanged(true);
    EXPECT_EQ(prepare(), nullptr);
}

TEST_F(MeshPreparation, AnotherViewIsNoticed) {
    prepare();
    context.revision = 2;
    prepare();
    EXPECT_EQ(mesh->views, 2);
    EXPECT_EQ(statistics.verticesRebuilt, 0u);
}

TEST_F(MeshPreparation, TheColourIsTheProductOfMaterialSecondColourAndVertex) {
    EXPECT_EQ(colorOf(), 0xffffffffu);
    auto *material = new MaterialProperty();
    mesh->setProperty(material);
    material->setColor(math::Vector4(1, 0.5f, 0, 1));
    EXPECT_EQ(colorOf(), 0xff0080ffu);
    material->setSecondColor({0.8f, 1, 1});
    EXPECT_EQ(colorOf(), 0xff0080ccu);
    mesh->color = 0xff00ff80u;
    mesh->setChanged(true);
    EXPECT_EQ(colorOf(), 0xff008066u);
    EXPECT_EQ(mesh->builds, 2) << "colours alone build nothing";
}

TEST_F(MeshPreparation, AlphaCountsWithBlendingOnlyAndIsMultipliedIn) {
    auto *material = new MaterialProperty();
    mesh->setProperty(material);
    material->setColor(math::Vector4(1, 0.5f, 0, 0.5f));
    EXPECT_EQ(colorOf(), 0xff0080ffu) << "opaque";
    auto *alpha = new AlphaProperty();
    mesh->setProperty(alpha);
    alpha->setBlending(true);
    EXPECT_EQ(colorOf(), 0x80004080u);
    alpha->setBlending(false);
    EXPECT_EQ(colorOf(), 0xff0080ffu);
}

TEST_F(MeshPreparation, ColoursOutOfRangeAreCut) {
    auto *material = new MaterialProperty();
    mesh->setProperty(material);
    material->setColor(math::Vector4(9, -1, std::numeric_limits<float>::quiet_NaN(), 1));
    EXPECT_EQ(colorOf(), 0xff0000ffu);
}

TEST_F(MeshPreparation, ARunWithItsOwnColoursTakesTheAlphaAlone) {
    mesh->ownColors = true;
    auto *material = new MaterialProperty();
    mesh->setProperty(material);
    material->setColor(math::Vector4(1, 0, 0, 0.5f));
    EXPECT_EQ(colorOf(), 0xffffffffu);
    auto *alpha = new AlphaProperty();
    alpha->setBlending(true);
    mesh->setProperty(alpha);
    EXPECT_EQ(colorOf(), 0x80808080u);
}

TEST_F(MeshPreparation, AnotherMaterialObjectIsNoticed) {
    prepare();
    auto *material = new MaterialProperty();
    material->setColor(math::Vector3(0, 0, 1));
    mesh->setProperty(material);
    EXPECT_EQ(colorOf(), 0xffff0000u);
    mesh->removeProperty(scene::Property::MATERIAL);
    EXPECT_EQ(colorOf(), 0xffffffffu);
}

TEST_F(MeshPreparation, ComputeBoundBuildsAndTellsTheParents) {
    EXPECT_EQ(mesh->getMaxBound(), math::Vector2::ZERO);
    mesh->computeBound();
    EXPECT_EQ(mesh->getMinBound(), math::Vector2(0, 0));
    EXPECT_EQ(mesh->getMaxBound(), math::Vector2(2, 2));
    EXPECT_EQ(mesh->bounds, 1);
    mesh->computeBound();
    EXPECT_EQ(mesh->bounds, 1) << "it is current";
    EXPECT_NE(prepare(), nullptr);
    EXPECT_EQ(mesh->builds, 1);
}

TEST_F(MeshPreparation, ComputeBoundBetweenTwoFramesLeavesNothingOfTheOldInTheNext) {
    prepare();
    mesh->size = 5;
    mesh->setChanged(true);
    mesh->computeBound();
    EXPECT_FALSE(mesh->isUntouched());
    EXPECT_EQ(prepare()->getVertices()[2].x, 5);
    EXPECT_EQ(mesh->builds, 2);
}

TEST_F(MeshPreparation, ACloneTakesOverBuiltDataWhereTheOptionSaysSo) {
    prepare();
    core::CloningOptions all;
    all.put(geometry::MeshData::TYPE, new geometry::MeshDataCO(geometry::MeshData::AM_ALL, true));
    const core::SmartPtr<Quad> taken(static_cast<Quad *>(mesh->clone(all)));
    EXPECT_FALSE(taken->isChanged());
    EXPECT_EQ(taken->getMaxBound(), math::Vector2(2, 2));
    ASSERT_FALSE(taken->prepareGeometry(context, statistics).isEmpty());
    EXPECT_EQ(taken->prepareGeometry(context, statistics).getVertices()[2].x, 2);
    EXPECT_EQ(taken->builds, 0);

    core::CloningOptions none;
    none.put(geometry::MeshData::TYPE, new geometry::MeshDataCO(0, true));
    const core::SmartPtr<Quad> fresh(static_cast<Quad *>(mesh->clone(none)));
    EXPECT_TRUE(fresh->isChanged());
    const core::SmartPtr<Quad> plain(static_cast<Quad *>(mesh->core::Object::clone()));
    EXPECT_TRUE(plain->isChanged());
}

TEST(Mesh, RebuildsWhenItsTextureIsLoadedOrBecomesAnother) {
    test::Screen screen;
    const core::SmartPtr<Quad> mesh(new Quad());
    auto *property = new TextureProperty();
    mesh->setProperty(property);
    const core::SmartPtr<texture::Texture> first(new texture::Texture("first"));
    property->getStage(0).setTexture(first.get());
    scene::DrawContext context;
    renderer::FrameStatistics statistics;
    EXPECT_EQ(mesh->getTexture(), first.get());
    mesh->prepareGeometry(context, statistics);
    mesh->prepareGeometry(context, statistics);
    EXPECT_EQ(mesh->builds, 1);
    property->getStage(0).setTexture(screen.makeTexture("second", 8, 8).get());
    mesh->prepareGeometry(context, statistics);
    EXPECT_EQ(mesh->builds, 2);
    property->getStage(0).setTexture(nullptr);
    mesh->prepareGeometry(context, statistics);
    EXPECT_EQ(mesh->builds, 3);
}

TEST(Mesh, FlatRunsAreDrawnFromTheAtlasesWhiteTexel) {
    test::Screen screen;
    const core::SmartPtr<Quad> mesh(new Quad());
    scene::DrawContext context;
    context.atlas = screen.atlas.get();
    renderer::FrameStatistics statistics;
    const geometry::MeshGeometry *geometry = &mesh->prepareGeometry(context, statistics);
    ASSERT_EQ(geometry->getRuns().size(), 1u);
    EXPECT_EQ(geometry->getRuns()[0].page.get(), screen.atlas->getWhite().page);
    for (const renderer::DrawVertex &vertex : geometry->getVertices()) {
        EXPECT_EQ(vertex.u, screen.atlas->getWhite().u0);
        EXPECT_EQ(vertex.v, screen.atlas->getWhite().v0);
    }
    context.atlas = nullptr;
    context.revision = 7;
    geometry = &mesh->prepareGeometry(context, statistics);
    EXPECT_FALSE(geometry->getRuns()[0].page);
    EXPECT_EQ(mesh->builds, 2);
}

TEST(DrawContext, TellsPixelsPerUnit) {
    scene::DrawContext context;
    const core::SmartPtr<scene::Camera> camera(new scene::Camera());
    test::setUpScreenCamera(*camera, 800, 600);
    context.viewProjection = camera->getViewProjection();
    context.width = 800;
    context.height = 600;
    math::Matrix4 world;
    world.setTranslation({100, 100, 0});
    EXPECT_NEAR(context.getPixelsPerUnit(world).x, 1, 1e-4f);
    EXPECT_NEAR(context.getPixelsPerUnit(world).y, 1, 1e-4f);
    world.setTranslation({100, 100, 1000});
    EXPECT_NEAR(context.getPixelsPerUnit(world).x, 0.5f, 1e-4f);
    world = math::Matrix4({3, 2, 1}, math::Matrix3(1.0f, math::Vector3::AXIS_Z), {50, 50, 0});
    EXPECT_NEAR(context.getPixelsPerUnit(world).x, 3, 1e-3f);
    EXPECT_NEAR(context.getPixelsPerUnit(world).y, 2, 1e-3f);
    context.width = 1600;
    context.height = 1200;
    EXPECT_NEAR(context.getPixelsPerUnit(world).x, 6, 1e-3f) << "two screen pixels a unit";
    world.setTranslation({0, 0, -5000});
    EXPECT_EQ(context.getPixelsPerUnit(world), math::Vector2::ONE) << "behind the camera";
    context.width = 0;
    world = math::Matrix4::IDENTITY;
    EXPECT_EQ(context.getPixelsPerUnit(world), math::Vector2::ONE);
}

} // namespace
} // namespace nurel
