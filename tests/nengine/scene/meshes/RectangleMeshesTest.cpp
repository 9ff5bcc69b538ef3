#include "nengine/scene/meshes/BorderedRectangleMesh.h"

#include "nengine/geometry/LocalGeometry.h"
#include "nengine/geometry/MeshDataAllocator.h"
#include "nengine/geometry/MeshDataCO.h"
#include "nengine/scene/PropertyCO.h"
#include "nengine/scene/properties/MaterialProperty.h"
#include "nengine/scene/properties/TextureProperty.h"
#include "nengine/support/Screen.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace nurel {
namespace {

using geometry::LocalGeometry;
using scene::meshes::BorderedRectangleMesh;
using scene::meshes::SizeableRectangleMesh;

/// Shows what a mesh builds.
class Bordered : public BorderedRectangleMesh {
public:
    using BorderedRectangleMesh::BorderedRectangleMesh;

    /// One line for each drawn part, from the top left: "-50,-30 -40,-20 px 0,0 10,10".
    std::string dump() {
        LocalGeometry out;
        if (!buildGeometry(out))
            return "nothing";
        const texture::Texture *const texture = getTexture();
        const float width = texture ? static_cast<float>(texture->getWidth()) : 0;
        const float height = texture ? static_cast<float>(texture->getHeight()) : 0;
        std::string text;
        if (out.indices.empty()) {
            for (std::size_t i = 0; i < out.vertices.size(); i += 4)
                text += line(out.vertices[i], out.vertices[i + 2], width, height);
        }
        for (std::size_t i = 0; i < out.indices.size(); i += 6)
            text += line(out.vertices[out.indices[i]], out.vertices[out.indices[i + 2]], width, height);
        return text;
    }

private:
    static std::string line(const LocalGeometry::Vertex &first, const LocalGeometry::Vertex &last, float width,
                            float height) {
        char text[160];
        const auto clean = [](float value) { return static_cast<double>(std::round(value * 100) / 100 + 0.0f); };
        std::snprintf(text, sizeof text, "%g,%g %g,%g px %g,%g %g,%g\n", clean(first.x), clean(first.y), clean(last.x),
                      clean(last.y), clean(first.u * width), clean(first.v * height), clean(last.u * width),
                      clean(last.v * height));
        return text;
    }
};

class Rectangles : public testing::Test {
public:
    Rectangles() : texture(screen.makeTexture("skin", 64, 32)) {}

    core::SmartPtr<Bordered> make(const math::Vector2 &size, const math::Vector4 &border) {
        return new Bordered("mesh", size, border, texture.get());
    }

    test::Screen screen;
    core::SmartPtr<texture::Texture> texture;
};

TEST_F(Rectangles, WithoutATextureItIsFlatWhateverTheBorder) {
    const core::SmartPtr<Bordered> mesh(new Bordered("mesh", {20, 10}, {3, 3, 3, 3}));
    EXPECT_EQ(mesh->dump(), "-10,-5 10,5 px 0,0 0,0\n");
    mesh->setSize({2, 2});
    EXPECT_EQ(mesh->dump(), "-1,-1 1,1 px 0,0 0,0\n") << "smaller than the border";
}

TEST_F(Rectangles, WithoutABorderTheTextureIsStretched) {
    EXPECT_EQ(make({20, 10}, math::Vector4::ZERO)->dump(), "-10,-5 10,5 px 0,0 64,32\n");
}

TEST_F(Rectangles, NoSizeDrawsNothing) {
    EXPECT_EQ(make({0, 10}, math::Vector4::ZERO)->dump(), "nothing");
    EXPECT_EQ(make({10, -1}, {1, 1, 1, 1})->dump(), "nothing");
    EXPECT_EQ(make({10, std::nanf("")}, {1, 1, 1, 1})->dump(), "nothing");
    const core::SmartPtr<Bordered> flat(new Bordered("mesh", {0, 0}, math::Vector4::ZERO));
    EXPECT_EQ(flat->dump(), "nothing");
}

TEST_F(Rectangles, ABorderCutsItIntoNine) {
    // top 2, right 6, bottom 3, left 4
    EXPECT_EQ(make({100, 60}, {2, 6, 3, 4})->dump(), "-50,-30 -46,-28 px 0,0 4,2\n"
                                                     "-46,-30 44,-28 px 4,0 58,2\n"
                                                     "44,-30 50,-28 px 58,0 64,2\n"
                                                     "-50,-28 -46,27 px 0,2 4,29\n"
                                                     "-46,-28 44,27 px 4,2 58,29\n"
                                                     "44,-28 50,27 px 58,2 64,29\n"
                                                     "-50,27 -46,30 px 0,29 4,32\n"
                                                     "-46,27 44,30 px 4,29 58,32\n"
                                                     "44,27 50,30 px 58,29 64,32\n");
}

TEST_F(Rectangles, PartsWithoutAreaAreLeftOut) {
    EXPECT_EQ(make({100, 60}, {0, 0, 0, 4})->dump(), "-50,-30 -46,30 px 0,0 4,32\n"
                                                     "-46,-30 50,30 px 4,0 64,32\n");
    EXPECT_EQ(make({10, 60}, {0, 4, 0, 6})->dump(), "-5,-30 1,30 px 0,0 6,32\n"
                                                    "1,-30 5,30 px 60,0 64,32\n")
        << "the borders fill the width";
}

TEST_F(Rectangles, WithoutAFixBordersKeepTheirSizeAndOverlap) {
    EXPECT_EQ(make({8, 60}, {0, 5, 0, 6})->dump(), "-4,-30 2,30 px 0,0 6,32\n"
                                                   "-1,-30 4,30 px 59,0 64,32\n");
    EXPECT_EQ(make({4, 60}, {0, 5, 0, 6})->dump(), "-2,-30 4,30 px 0,0 6,32\n"
                                                   "-3,-30 2,30 px 59,0 64,32\n");
}

TEST_F(Rectangles, FixZeroDropsTheBorderOfTheAxis) {
    const core::SmartPtr<Bordered> mesh = make({8, 60}, {2, 5, 3, 6});
    EXPECT_EQ(mesh->getBorderFixMode(), BorderedRectangleMesh::BORDER_FIX_NONE);
    mesh->setBorderFixMode(BorderedRectangleMesh::BORDER_FIX_ZERO);
    EXPECT_EQ(mesh->dump(), "-4,-30 4,-28 px 0,0 64,2\n"
                            "-4,-28 4,27 px 0,2 64,29\n"
                            "-4,27 4,30 px 0,29 64,32\n");
    mesh->setSize({11, 60});
    EXPECT_EQ(mesh->dump().substr(0, 31), "-5.5,-30 0.5,-28 px 0,0 6,2\n0.5") << "it fits";
}

TEST_F(Rectangles, FixFitReducesBothBordersByOneFactor) {
    const core::SmartPtr<Bordered> mesh = make({8, 60}, {0, 4, 0, 12});
    mesh->setBorderFixMode(BorderedRectangleMesh::BORDER_FIX_FIT);
    EXPECT_EQ(mesh->dump(), "-4,-30 2,30 px 0,0 12,32\n"
                            "2,-30 4,30 px 60,0 64,32\n");
}

TEST_F(Rectangles, ABorderLargerThanTheSkinStaysInsideIt) {
    EXPECT_EQ(make({200, 10}, {0, 64, 0, 64})->dump(), "-100,-5 -36,5 px 0,0 32,32\n"
                                                       "-36,-5 36,5 px 32,0 32,32\n"
                                                       "36,-5 100,5 px 32,0 64,32\n");
}

TEST_F(Rectangles, NegativeBordersCountAsZero) {
    const core::SmartPtr<Bordered> mesh = make({10, 10}, {-1, -2, -3, -4});
    EXPECT_EQ(mesh->getBorder(), math::Vector4::ZERO);
}

TEST_F(Rectangles, SkinsShareTheTextureRowByRow) {
    const core::SmartPtr<Bordered> mesh = make({10, 10}, math::Vector4::ZERO);
    mesh->setSkinCount(4, 2);
    EXPECT_EQ(mesh->getSkinSizePixels(), math::Vector2(16, 16));
    EXPECT_EQ(mesh->dump(), "-5,-5 5,5 px 0,0 16,16\n");
    mesh->setCurrentSkin(3);
    EXPECT_EQ(mesh->dump(), "-5,-5 5,5 px 48,0 64,16\n");
    mesh->setCurrentSkin(5);
    EXPECT_EQ(mesh->dump(), "-5,-5 5,5 px 16,16 32,32\n");
}

TEST_F(Rectangles, ASkinOutOfRangeShowsTheNearest) {
    const core::SmartPtr<Bordered> mesh = make({10, 10}, math::Vector4::ZERO);
    mesh->setSkinCount(4, 2);
    mesh->setCurrentSkin(-3);
    EXPECT_EQ(mesh->getCurrentSkin(), -3);
    EXPECT_EQ(mesh->dump(), "-5,-5 5,5 px 0,0 16,16\n");
    mesh->setCurrentSkin(99);
    EXPECT_EQ(mesh->dump(), "-5,-5 5,5 px 48,16 64,32\n");
}

TEST_F(Rectangles, OffsetSizeAndSpacingPlaceTheSkins) {
    const core::SmartPtr<Bordered> mesh = make({10, 10}, math::Vector4::ZERO);
    mesh->setSkinCount(3, 1);
    mesh->setSkinSpacing(2);
    EXPECT_EQ(mesh->getSkinSizePixels(), math::Vector2(20, 32)) << "(64 - 2 gaps of 2) / 3";
    mesh->setCurrentSkin(1);
    EXPECT_EQ(mesh->dump(), "-5,-5 5,5 px 22,0 42,32\n");
    mesh->setSkinOffset({3, 1});
    mesh->setSkinSize({10, 20});
    EXPECT_EQ(mesh->getSkinSizePixels(), math::Vector2(10, 20));
    EXPECT_EQ(mesh->dump(), "-5,-5 5,5 px 15,1 25,21\n");
    mesh->setSkinSize({-1, -1});
    EXPECT_EQ(mesh->getSkinSizePixels(), math::Vector2(19, 31)) << "what the offset leaves";
    mesh->setSkinSpacing(-5);
    EXPECT_EQ(mesh->getSkinSpacing(), 0);
    mesh->setSkinCount(0, 0);
    EXPECT_EQ(mesh->getSkinCountU(), 1u);
    EXPECT_EQ(mesh->getSkinCountV(), 1u);
}

TEST_F(Rectangles, SkinsBeyondTheTextureAreCutAtItsEdge) {
    const core::SmartPtr<Bordered> mesh = make({10, 10}, math::Vector4::ZERO);
    mesh->setSkinOffset({60, 0});
    mesh->setSkinSize({10, 10});
    EXPECT_EQ(mesh->dump(), "-5,-5 5,5 px 60,0 64,10\n");
    mesh->setSkinSpacing(1000);
    mesh->setSkinCount(2, 1);
    mesh->setSkinSize({-1, -1});
    EXPECT_EQ(mesh->getSkinSizePixels().x, 0) << "the gaps leave nothing";
}

TEST_F(Rectangles, SkinSizeIsZeroWithoutATextureAndBeforeItsSizeIsKnown) {
    const core::SmartPtr<Bordered> flat(new Bordered("mesh", {10, 10}, math::Vector4::ZERO));
    EXPECT_EQ(flat->getSkinSizePixels(), math::Vector2::ZERO);
    const core::SmartPtr<texture::Texture> pending(new texture::Texture("pending"));
    const core::SmartPtr<Bordered> waiting(new Bordered("mesh", {10, 10}, {1, 1, 1, 1}, pending.get()));
    EXPECT_EQ(waiting->getSkinSizePixels(), math::Vector2::ZERO);
    EXPECT_EQ(waiting->dump(), "nothing") << "its picture is still being loaded";
    EXPECT_EQ(make({1, 1}, math::Vector4::ZERO)->getSkinSizePixels(), math::Vector2(64, 32));
}

TEST_F(Rectangles, EverySetterMarksChangesOnly) {
    const core::SmartPtr<Bordered> mesh = make({10, 10}, {1, 1, 1, 1});
    const auto changes = [&mesh](auto &&change) {
        mesh->setChanged(false);
        change();
        return mesh->isChanged();
    };
    for (const bool first : {true, false}) {
        EXPECT_EQ(changes([&] { mesh->setSize({20, 10}); }), first);
        EXPECT_EQ(changes([&] { mesh->setBorder({2, 1, 1, 1}); }), first);
        EXPECT_EQ(changes([&] { mesh->setSkinCount(2, 2); }), first);
        EXPECT_EQ(changes([&] { mesh->setCurrentSkin(1); }), first);
        EXPECT_EQ(changes([&] { mesh->setSkinOffset({1, 1}); }), first);
        EXPECT_EQ(changes([&] { mesh->setSkinSize({8, 8}); }), first);
        EXPECT_EQ(changes([&] { mesh->setSkinSpacing(1); }), first);
        EXPECT_EQ(changes([&] { mesh->setBorderFixMode(BorderedRectangleMesh::BORDER_FIX_FIT); }), first);
    }
    EXPECT_EQ(mesh->getSize(), math::Vector2(20, 10));
    EXPECT_EQ(mesh->getSkinOffset(), math::Vector2(1, 1));
    EXPECT_EQ(mesh->getSkinSize(), math::Vector2(8, 8));
}

TEST_F(Rectangles, ACloneLooksTheSame) {
    const core::SmartPtr<BorderedRectangleMesh> mesh(
        new BorderedRectangleMesh("mesh", {50, 40}, {2, 3, 4, 5}, texture.get()));
    mesh->setSkinCount(2, 1);
    mesh->setCurrentSkin(1);
    mesh->setSkinSpacing(4);
    mesh->setBorderFixMode(BorderedRectangleMesh::BORDER_FIX_FIT);
    const core::SmartPtr<BorderedRectangleMesh> copy(static_cast<BorderedRectangleMesh *>(mesh->core::Object::clone()));
    EXPECT_STREQ(copy->getName(), "mesh");
    EXPECT_EQ(copy->getSize(), mesh->getSize());
    EXPECT_EQ(copy->getBorder(), mesh->getBorder());
    EXPECT_EQ(copy->getSkinSizePixels(), mesh->getSkinSizePixels());
    EXPECT_EQ(copy->getCurrentSkin(), 1);
    EXPECT_EQ(copy->getBorderFixMode(), BorderedRectangleMesh::BORDER_FIX_FIT);
    EXPECT_EQ(copy->getTexture(), texture.get());
    copy->setCurrentSkin(0);
    EXPECT_EQ(mesh->getCurrentSkin(), 1);
}

TEST_F(Rectangles, ACloneWithAllPropertiesIsColouredByItself) {
    const core::SmartPtr<BorderedRectangleMesh> mesh(
        new BorderedRectangleMesh("mesh", {50, 40}, math::Vector4::ZERO, texture.get()));
    mesh->setProperty(new scene::properties::MaterialProperty());
    core::CloningOptions options;
    options.put(scene::Property::TYPE, new scene::PropertyCO(0xffff));
    options.put(geometry::MeshData::TYPE, new geometry::MeshDataCO(0, true));
    const core::SmartPtr<BorderedRectangleMesh> copy(static_cast<BorderedRectangleMesh *>(mesh->clone(options)));
    EXPECT_NE(copy->getPropertySet()[1], mesh->getPropertySet()[1]);
    EXPECT_NE(copy->getPropertySet()[5], mesh->getPropertySet()[5]);
    static_cast<scene::properties::TextureProperty *>(copy->getPropertySet()[5])->getStage(0).setTexture(nullptr);
    EXPECT_EQ(mesh->getTexture(), texture.get());
}

TEST(SizeableRectangleMesh, ShowsItsWholeTexture) {
    test::Screen screen;
    const core::SmartPtr<texture::Texture> texture = screen.makeTexture("t", 16, 16);
    auto *box = screen.addBox(100, 100, 20, 10);
    auto *property = new scene::properties::TextureProperty();
    property->getStage(0).setTexture(texture.get());
    box->setProperty(property);
    screen.draw();
    ASSERT_EQ(screen.getCommands().size(), 1u);
    EXPECT_EQ(screen.getCommands()[0].texture, texture->getRenderData()->id);
    const auto vertices = screen.backend.getVertices(screen.getCommands()[0]);
    EXPECT_EQ(vertices[0].u, 0);
    EXPECT_EQ(vertices[2].u, 1);
    EXPECT_EQ(vertices[2].v, 1);
}

TEST(SizeableRectangleMesh, ACloneHasItsSize) {
    const core::SmartPtr<SizeableRectangleMesh> mesh(new SizeableRectangleMesh("mesh", {3, 4}));
    const core::SmartPtr<SizeableRectangleMesh> copy(static_cast<SizeableRectangleMesh *>(mesh->core::Object::clone()));
    EXPECT_EQ(copy->getSize(), math::Vector2(3, 4));
}

TEST(TriangleMesh, IsCountedByItsAllocator) {
    const core::SmartPtr<geometry::MeshDataAllocator> allocator(new geometry::MeshDataAllocator());
    {
        const core::SmartPtr<SizeableRectangleMesh> mesh(new SizeableRectangleMesh("a", {1, 1}, allocator.get()));
        EXPECT_EQ(mesh->getAllocator(), allocator.get());
        const core::SmartPtr<SizeableRectangleMesh> copy(
            static_cast<SizeableRectangleMesh *>(mesh->core::Object::clone()));
        EXPECT_EQ(copy->getAllocator(), allocator.get());
        EXPECT_EQ(allocator->getMeshCount(), 2u);
    }
    EXPECT_EQ(allocator->getMeshCount(), 0u);
    EXPECT_EQ(allocator->getTotalMeshCount(), 2u);
    EXPECT_EQ(allocator->getRefCount(), 1u);
}

} // namespace
} // namespace nurel
