#include "nengine/font/TestFonts.h"
#include "nengine/font/detail/GlyphCache.h"
#include "nengine/scene/meshes/TextMesh.h"
#include "nengine/scene/properties/MaterialProperty.h"

#include <algorithm>
#include <cmath>

namespace nurel {
namespace {

using math::Vector2;
using math::Vector3;
using renderer::DrawVertex;
using scene::meshes::TextMesh;
using scene::properties::MaterialProperty;

/// A quad as it stands on the screen, in pixels, and in its texture, in texels.
struct Quad {
    float left, top, right, bottom;
    float u0, v0, u1, v1;
};

class TextMeshDrawing : public test::TextTest {
protected:
    TextMesh *add(const char *text, float x, float y) {
        auto *mesh = new TextMesh("text", manager->getDefaultFont());
        mesh->setText(text);
        mesh->setTranslation({x, y, 0});
        screen.root->appendChild(mesh);
        return mesh;
    }

    std::vector<Quad> getQuads() const {
        std::vector<Quad> quads;
        const auto &vertices = screen.getVertices();
        const float page = static_cast<float>(screen.atlas->getPageSize());
        for (std::size_t i = 0; i + 3 < vertices.size(); i += 4) {
            Quad quad{1e9f, 1e9f, -1e9f, -1e9f, 1e9f, 1e9f, -1e9f, -1e9f};
            for (std::size_t j = i; j < i + 4; ++j) {
                float x = 0;
                float y = 0;
                screen.backend.getScreenPosition(vertices[j], x, y);
                quad.left = std::min(quad.left, x);
                quad.right = std::max(quad.right, x);
                quad.top = std::min(quad.top, y);
                quad.bottom = std::max(quad.bottom, y);
                quad.u0 = std::min(quad.u0, vertices[j].u * page);
                quad.u1 = std::max(quad.u1, vertices[j].u * page);
                quad.v0 = std::min(quad.v0, vertices[j].v * page);
                quad.v1 = std::max(quad.v1, vertices[j].v * page);
            }
            quads.push_back(quad);
        }
        return quads;
    }

    static void expectWhole(float value) { EXPECT_NEAR(value, std::round(value), 2e-3f); }

    /// That each glyph pixel is one of the screen.
    static void expectOnPixels(const std::vector<Quad> &quads) {
        for (const Quad &quad : quads) {
            expectWhole(quad.left);
            expectWhole(quad.top);
            expectWhole(quad.u0);
            expectWhole(quad.v0);
            EXPECT_NEAR(quad.right - quad.left, quad.u1 - quad.u0, 4e-3f);
            EXPECT_NEAR(quad.bottom - quad.top, quad.v1 - quad.v0, 4e-3f);
        }
    }

    /// A frame in which nothing was done to the scene.
    void pass() {
        manager->pump();
        screen.draw();
    }

    std::uint64_t getRasterized() const { return getShaping().rasterizedGlyphs; }
};

TEST_F(TextMeshDrawing, DrawsAQuadForEachGlyphThatShowsSomething) {
    add("a b\nc\x01\t", 100, 100);
    screen.draw();
    EXPECT_EQ(getQuads().size(), 3u);
    EXPECT_EQ(screen.getCommands().size(), 1u);
}

TEST_F(TextMeshDrawing, GlyphPixelsAreScreenPixelsWhereverAnUprightTextStands) {
    for (const float scale : {0.5f, 0.77f, 1.0f, 1.31f, 2.0f, 3.7f}) {
        for (const float offset : {0.0f, 0.25f, 0.37f, 0.5f, 0.99f}) {
            TextMesh *mesh = add("Crisp & clear,\nÄpfel", 200 + offset, 150 + offset * 3);
            mesh->setScale(scale);
            screen.draw();
            const auto quads = getQuads();
            ASSERT_EQ(quads.size(), 17u);
            expectOnPixels(quads);
            screen.root->removeChild(mesh);
        }
    }
}

TEST_F(TextMeshDrawing, GlyphPixelsAreScreenPixelsUnderAScaledParent) {
    TextMesh *mesh = add("Crisp", 10, 20);
    screen.root->setScale(Vector3(1.5f, 1.5f, 1));
    screen.draw();
    expectOnPixels(getQuads());
    const auto expected = mesh->getExtents().x * 1.5f;
    const auto quads = getQuads();
    EXPECT_NEAR(quads.back().right - quads.front().left, expected, 5.0f);
}

TEST_F(TextMeshDrawing, GlyphsStandWithinHalfAPixelOfTheirPlace) {
    TextMesh *mesh = add("llllllllllllllllllll", 200.3f, 100.2f);
    screen.draw();
    const auto quads = getQuads();
    ASSERT_EQ(quads.size(), 20u);
    for (unsigned int i = 0; i < 20; ++i) {
        const float cell = 200.3f + mesh->getCharacterPosition(i).x;
        const float shift = quads[i].left - cell;
        EXPECT_GT(shift, -1.0f);
        EXPECT_LT(shift, 2.0f);
    }
}

TEST_F(TextMeshDrawing, LettersOnOneBaseLineEndOnOneRowOfPixels) {
    add("nnnn mmm iii hhh", 123.4f, 77.7f);
    screen.draw();
    const auto quads = getQuads();
    for (const Quad &quad : quads)
        EXPECT_NEAR(quad.bottom, quads.front().bottom, 2e-3f);
}

TEST_F(TextMeshDrawing, TakesTheMaterialsColour) {
    TextMesh *mesh = add("n", 100, 100);
    static_cast<MaterialProperty *>(mesh->getPropertySet()[1])->setColor(math::Vector4(1, 0, 0, 0.5f));
    screen.draw();
    ASSERT_EQ(screen.getVertices().size(), 4u);
    EXPECT_EQ(screen.getVertices()[0].rgba, 0x80000080u) << "premultiplied";
    EXPECT_EQ(screen.getCommands()[0].blend, renderer::Blend::PREMULTIPLIED);
}

TEST_F(TextMeshDrawing, BoxesAndTextShareATexture) {
    screen.addBox(50, 50, 20, 20);
    add("n", 100, 100);
    screen.addBox(80, 50, 20, 20);
    screen.draw();
    for (const auto &command : screen.getCommands())
        EXPECT_EQ(command.texture, screen.getCommands()[0].texture);
}

TEST_F(TextMeshDrawing, AMoveByWholePixelsRasterisesNothing) {
    TextMesh *mesh = add("Moved about", 100.25f, 100.5f);
    screen.draw();
    const auto before = getRasterized();
    for (int i = 1; i < 5; ++i) {
        mesh->setTranslation({100.25f + static_cast<float>(i), 100.5f + static_cast<float>(i), 0});
        screen.draw();
        expectOnPixels(getQuads());
    }
    EXPECT_EQ(getRasterized(), before);
}

TEST_F(TextMeshDrawing, WhileItMovesItIsNotBuiltAndStandsOnPixelsWhenItHasSettled) {
    TextMesh *mesh = add("Moved along", 100, 100);
    pass();
    const auto built = [this] { return screen.getStatistics().meshesBuilt; };
    float x = 100;
    const auto step = [&] {
        x += 10.3f;
        mesh->setTranslation({x, 100.4f, 0});
        pass();
    };
    step();
    const auto first = built();
    EXPECT_EQ(first, 2u);
    expectOnPixels(getQuads());
    const float offset = getQuads()[0].left - x;
    for (int i = 0; i < 12; ++i) {
        step();
        EXPECT_NEAR(getQuads()[0].left - x, offset, 2e-3f) << i;
    }
    EXPECT_EQ(built(), first);
    pass();
    EXPECT_EQ(built(), first);
    pass();
    EXPECT_EQ(built(), first + 1);
    expectOnPixels(getQuads());
    pass();
    pass();
    EXPECT_EQ(built(), first + 1);
}

TEST_F(TextMeshDrawing, ASingleStepIsPlacedAtOnceAndOnce) {
    TextMesh *mesh = add("Moved", 100, 100);
    pass();
    for (const float place : {0.3f, 0.6f}) {
        const auto before = screen.getStatistics().meshesBuilt;
        mesh->setTranslation({100 + place, 100 - place, 0});
        pass();
        EXPECT_EQ(screen.getStatistics().meshesBuilt, before + 1);
        expectOnPixels(getQuads());
        for (int i = 0; i < 4; ++i)
            pass();
        EXPECT_EQ(screen.getStatistics().meshesBuilt, before + 1);
    }
}

TEST_F(TextMeshDrawing, AnIdleFrameSubmitsTheSameList) {
    add("Idle", 100, 100);
    pass();
    pass();
    const auto again = screen.getStatistics().listsSubmittedAgain;
    pass();
    EXPECT_EQ(screen.getStatistics().listsSubmittedAgain, again + 1);
}

TEST_F(TextMeshDrawing, ATextWithoutAFontLeavesTheFrameIdle) {
    TextMesh *mesh = add("Idle", 100, 100);
    mesh->setFont(nullptr);
    pass();
    pass();
    EXPECT_FALSE(mesh->isChanged());
    screen.root->update(0, true);
    EXPECT_FALSE(mesh->isChanged());
    EXPECT_TRUE(screen.getVertices().empty());
}

TEST_F(TextMeshDrawing, WhileTheScaleChangesNearGlyphsServeAndExactOnesComeWhenItHasSettled) {
    TextMesh *mesh = add("Growing", 300, 200);
    pass();
    const auto first = getRasterized();
    float scale = 1;
    for (int i = 0; i < 10; ++i) {
        scale += 0.03f;
        mesh->Frame::setScale({scale, scale, 1});
        pass();
        EXPECT_EQ(getRasterized(), first);
    }
    const auto stretched = getQuads();
    EXPECT_GT(stretched[0].bottom - stretched[0].top, 1.2f * (stretched[0].v1 - stretched[0].v0));
    pass();
    EXPECT_EQ(getRasterized(), first);
    pass();
    EXPECT_GT(getRasterized(), first);
    expectOnPixels(getQuads());
    const auto settled = getRasterized();
    pass();
    pass();
    EXPECT_EQ(getRasterized(), settled);
}

TEST_F(TextMeshDrawing, WhereNothingIsNearGlyphsAreRasterisedAtOnce) {
    TextMesh *mesh = add("Jump", 300, 200);
    mesh->Frame::setScale({0.1f, 0.1f, 1});
    pass();
    const auto first = getRasterized();
    mesh->Frame::setScale({2, 2, 1});
    pass();
    EXPECT_GT(getRasterized(), first);
    expectOnPixels(getQuads());
}

TEST_F(TextMeshDrawing, AScaleOfTheTextItselfIsExactAtOnce) {
    TextMesh *mesh = add("Size", 300, 200);
    pass();
    mesh->setScale(1.2f);
    pass();
    expectOnPixels(getQuads());
}

TEST_F(TextMeshDrawing, TurnedTextIsDrawnAtItsSizeWithoutSnapping) {
    TextMesh *mesh = add("Turned", 300, 200);
    mesh->setRotation(math::Matrix3(0.5f, Vector3::AXIS_Z));
    pass();
    const auto &vertices = screen.getVertices();
    ASSERT_EQ(vertices.size(), 24u);
    const float page = static_cast<float>(screen.atlas->getPageSize());
    for (std::size_t i = 0; i < vertices.size(); i += 4) {
        const float side = std::hypot(vertices[i + 1].x - vertices[i].x, vertices[i + 1].y - vertices[i].y);
        EXPECT_NEAR(side, (vertices[i + 1].u - vertices[i].u) * page, 0.02f * side);
    }
}

TEST_F(TextMeshDrawing, RebuildingFontsRasterisesForTheSizeAtHandAtOnce) {
    TextMesh *mesh = add("Rebuilt", 300, 200);
    pass();
    const auto first = getRasterized();
    mesh->Frame::setScale({1.2f, 1.2f, 1});
    manager->setRebuildFonts(true);
    pass();
    EXPECT_GT(getRasterized(), first);
    expectOnPixels(getQuads());

    const auto second = getRasterized();
    manager->setRebuildFonts(true);
    pass();
    EXPECT_EQ(getRasterized(), second + 7) << "the same size, but anew";
}

TEST_F(TextMeshDrawing, AFontAddedLaterIsDrawnInTheNextFrame) {
    useDefault(test::MONO_FILE);
    add("𐌀", 300, 200);
    pass();
    const auto before = getQuads();
    ASSERT_EQ(before.size(), 1u) << "the box for what is missing";
    manager->add("Sans", test::SANS_FILE);
    pass();
    ASSERT_EQ(getQuads().size(), 1u);
    EXPECT_NE(getQuads()[0].u0, before[0].u0);
    expectOnPixels(getQuads());
}

TEST_F(TextMeshDrawing, AHugeTextIsDrawnFromSmallerGlyphs) {
    TextMesh *mesh = add("M", 300, 200);
    mesh->setScale(200);
    pass();
    const auto quads = getQuads();
    ASSERT_EQ(quads.size(), 1u);
    EXPECT_GT(quads[0].bottom - quads[0].top, 2000.0f);
    EXPECT_LT(quads[0].v1 - quads[0].v0, 1000.0f);
}

TEST_F(TextMeshDrawing, ATextOfNoSizeDrawsNothing) {
    TextMesh *mesh = add("M", 300, 200);
    mesh->setScale(0);
    pass();
    EXPECT_TRUE(screen.getVertices().empty());
    mesh->setScale(1);
    mesh->Frame::setScale({0, 0, 0});
    pass();
    EXPECT_TRUE(screen.getVertices().empty());
}

TEST_F(TextMeshDrawing, AMeshMayOutliveTheManager) {
    TextMesh *mesh = add("Left over", 300, 200);
    pass();
    manager.reset();
    screen.draw();
    mesh->setText("Nothing more");
    screen.draw();
    EXPECT_TRUE(screen.getVertices().empty());
}

TEST_F(TextMeshDrawing, ACloneDrawsTheSame) {
    TextMesh *mesh = add("Cloned", 300, 200);
    pass();
    const auto before = getQuads();
    const core::SmartPtr<TextMesh> copy(static_cast<TextMesh *>(mesh->clone()));
    screen.root->appendChild(copy.get());
    screen.root->removeChild(mesh);
    pass();
    const auto after = getQuads();
    ASSERT_EQ(after.size(), before.size());
    for (std::size_t i = 0; i < after.size(); ++i) {
        EXPECT_NEAR(after[i].left, before[i].left, 1e-3f);
        EXPECT_EQ(after[i].u0, before[i].u0);
    }
}

TEST_F(TextMeshDrawing, DestroyedTextsGiveTheirRoomBack) {
    for (unsigned int i = 0; i < 300; ++i) {
        TextMesh *mesh = add("MW@Q", 300, 200);
        mesh->setScale(8 + static_cast<float>(i) / 16);
        pass();
        screen.root->removeChild(mesh);
    }
    EXPECT_LE(getSystem().getGlyphs()->getTexels(), font::detail::GlyphCache::LIMIT);
    EXPECT_LE(screen.atlas->getPageCount(), 6u);
}

} // namespace
} // namespace nurel
