#include "nui/ui/Component.h"

#include "TestComponents.h"
#include "support/EngineFixture.h"

#include "nengine/scene/meshes/BorderedRectangleMesh.h"
#include "nengine/scene/properties/AlphaProperty.h"
#include "nengine/scene/properties/MaterialProperty.h"
#include "nengine/scene/properties/TextureProperty.h"
#include "nengine/texture/Texture.h"
#include "nengine/texture/TexturePool.h"
#include "nui/ui/AnimationContext.h"
#include "nui/ui/UIManager.h"

#include <cstdint>
#include <utility>
#include <vector>

namespace test {

namespace {

using nurel::scene::Property;
using nurel::scene::meshes::BorderedRectangleMesh;
using nurel::scene::properties::MaterialProperty;

class ComponentMesh : public EngineFixture {
protected:
    void SetUp() override {
        EngineFixture::SetUp();
        leaf = new Leaf("leaf");
    }

    void TearDown() override {
        leaf = nullptr;
        EngineFixture::TearDown();
    }

    static MaterialProperty &materialOf(Component &component) {
        return static_cast<MaterialProperty &>(*component.getMesh()->getPropertySet()[Property::MATERIAL]);
    }

    core::SmartPtr<Leaf> leaf;
};

} // namespace

TEST_F(ComponentMesh, IsMadeOnFirstUse) {
    EXPECT_FALSE(leaf->hasMesh());
    nurel::scene::Mesh *mesh = leaf->getMesh();
    ASSERT_NE(mesh, nullptr);
    EXPECT_TRUE(leaf->hasMesh());
    EXPECT_EQ(leaf->getMesh(), mesh);
    EXPECT_STREQ(mesh->getName(), "mMesh");
    ASSERT_TRUE(mesh->instanceOf(BorderedRectangleMesh::TYPE));
    const auto &rectangle = static_cast<BorderedRectangleMesh &>(*mesh);
    EXPECT_EQ(rectangle.getSize(), Vector2(0, 0));
    EXPECT_EQ(rectangle.getBorder(), Vector4(0, 0, 0, 0));
    EXPECT_NE(mesh->getPropertySet()[Property::ALPHA], nullptr);
    EXPECT_NE(mesh->getPropertySet()[Property::MATERIAL], nullptr);
    EXPECT_EQ(mesh->getPropertySet()[Property::TEXTURE], nullptr);
    EXPECT_EQ(mesh->getRefCount(), 1U);
}

TEST_F(ComponentMesh, HasAColor) {
    EXPECT_EQ(leaf->getMeshColor(), Vector3(1, 1, 1));
    materialOf(*leaf).setAlpha(0.5f);
    leaf->setMeshColor(Vector3(0.25f, 0.5f, 0.75f));
    EXPECT_EQ(leaf->getMeshColor(), Vector3(0.25f, 0.5f, 0.75f));
    EXPECT_EQ(materialOf(*leaf).getAlpha(), 0.5f);
}

TEST_F(ComponentMesh, TakesProperties) {
    auto *material = new MaterialProperty("mine");
    leaf->setMeshProperty(material);
    EXPECT_EQ(&materialOf(*leaf), material);
    leaf->setMeshProperty(nullptr);
    EXPECT_EQ(&materialOf(*leaf), material);
}

TEST_F(ComponentMesh, HasTexturesByStage) {
    auto &pool = nurel::texture::TexturePool::getSingleton();
    const std::vector<std::uint8_t> pixels(4 * 4 * 4, 255);
    pool.add("white", 4, 4, pixels.data());
    EXPECT_EQ(leaf->getMeshTexture(0), nullptr);
    leaf->setMeshTexture("white", 0);
    EXPECT_EQ(leaf->getMeshTexture(0), pool["white"]);
    ASSERT_NE(leaf->getMeshTexture(0), nullptr);
    leaf->setMeshTexture(pool["white"], 1);
    EXPECT_EQ(leaf->getMeshTexture(1), pool["white"]);
    leaf->setMeshTexture(static_cast<nurel::texture::Texture *>(nullptr), 0);
    EXPECT_EQ(leaf->getMeshTexture(0), nullptr);
    leaf->setMeshTexture(pool["white"], 1000);
    EXPECT_EQ(leaf->getMeshTexture(1000), nullptr);
}

namespace {

/// Counts how often the properties are spread.
class CountingMesh : public BorderedRectangleMesh {
public:
    CountingMesh() : BorderedRectangleMesh("mMesh", Vector2(0, 0), Vector4(0, 0, 0, 0), nullptr, nullptr) {}
    void updateProperties() override {
        ++updates;
        BorderedRectangleMesh::updateProperties();
    }
    int updates = 0;
};

class WithCountingMesh : public Leaf {
public:
    using Leaf::Leaf;
    nurel::scene::Mesh *createMesh() override { return new CountingMesh; }
    int takeUpdates() { return std::exchange(static_cast<CountingMesh &>(*getMesh()).updates, 0); }
};

} // namespace

TEST_F(ComponentMesh, SpreadsItsPropertiesOnlyWhenAStageIsFilledOrEmptied) {
    auto &pool = nurel::texture::TexturePool::getSingleton();
    const std::vector<std::uint8_t> pixels(4 * 4 * 4, 255);
    pool.add("white", 4, 4, pixels.data());
    pool.add("other", 4, 4, pixels.data());
    const core::SmartPtr<WithCountingMesh> counting(new WithCountingMesh("counting"));
    EXPECT_EQ(counting->getMeshTexture(0), nullptr); // makes the property
    counting->takeUpdates();
    counting->setMeshTexture(static_cast<nurel::texture::Texture *>(nullptr), 0);
    EXPECT_EQ(counting->takeUpdates(), 0);
    counting->setMeshTexture("white", 0);
    EXPECT_EQ(counting->takeUpdates(), 1);
    counting->setMeshTexture("other", 0);
    EXPECT_EQ(counting->getMeshTexture(0), pool["other"]);
    EXPECT_EQ(counting->takeUpdates(), 0);
    counting->setMeshTexture(static_cast<nurel::texture::Texture *>(nullptr), 0);
    EXPECT_EQ(counting->takeUpdates(), 1);
}

TEST_F(ComponentMesh, AnUnknownTextureNameEmptiesTheStage) {
    const std::vector<std::uint8_t> pixels(4 * 4 * 4, 255);
    nurel::texture::TexturePool::getSingleton().add("white", 4, 4, pixels.data());
    leaf->setMeshTexture("white", 0);
    ASSERT_NE(leaf->getMeshTexture(0), nullptr);
    leaf->setMeshTexture("unknown", 0);
    EXPECT_EQ(leaf->getMeshTexture(0), nullptr);
    EXPECT_EQ(log().takeOne(logging::Level::WARN), "Cannot find image unknown");
}

TEST_F(ComponentMesh, OpacityIsTheMaterialsAlpha) {
    leaf->setOpacity(0.5f, false);
    EXPECT_EQ(leaf->getOpacity(), 0.5f);
    EXPECT_EQ(materialOf(*leaf).getAlpha(), 0.5f);
}

namespace {

class CountingOpacity : public Leaf {
public:
    using Leaf::Leaf;
    void applyOpacity(float value, bool recursive) override {
        ++applied;
        Leaf::applyOpacity(value, recursive);
    }
    int applied = 0;
};

} // namespace

TEST_F(ComponentMesh, SettingTheOpacityInForceOnlyMendsTheMaterial) {
    CountingOpacity counting("counting");
    counting.setOpacity(1, false);
    EXPECT_FALSE(counting.hasMesh());
    counting.setOpacity(0.5f, false);
    EXPECT_EQ(counting.applied, 1);
    materialOf(counting).setAlpha(0.25f);
    counting.setOpacity(0.5f, false);
    EXPECT_EQ(counting.applied, 1);
    EXPECT_EQ(materialOf(counting).getAlpha(), 0.5f);
}

TEST_F(ComponentMesh, OpacityIsRecordedWhileAnAnimationIsOpen) {
    leaf->setOpacity(0.5f, false);
    AnimationContext *open = UIManager::getSingleton().beginAnimation();
    leaf->setOpacity(0.5f, false);
    EXPECT_TRUE(open->getAnimations().empty());
    materialOf(*leaf).setAlpha(1);
    leaf->setOpacity(0.5f, false);
    EXPECT_EQ(materialOf(*leaf).getAlpha(), 0.5f);
    leaf->setOpacity(0, true);
    EXPECT_EQ(open->getAnimations().size(), 1U);
    EXPECT_EQ(leaf->getOpacity(), 0.5f);
    UIManager::getSingleton().cancelAnimation();
}

TEST_F(ComponentMesh, ARecursiveOpacityMultipliesAndLeavesTheChildrensOwn) {
    const core::SmartPtr<Box> outer(new Box("outer"));
    const core::SmartPtr<Box> inner(new Box("inner"));
    outer->addChild(inner.get());
    inner->addChild(leaf.get());
    inner->setOpacity(0.5f, false);
    leaf->setOpacity(0.25f, false);
    outer->setOpacity(0.5f, false);
    EXPECT_EQ(materialOf(*inner).getAlpha(), 0.5f);
    outer->setOpacity(0.75f, true);
    EXPECT_EQ(materialOf(*inner).getAlpha(), 0.375f);
    EXPECT_EQ(materialOf(*leaf).getAlpha(), 0.09375f);
    EXPECT_EQ(inner->getOpacity(), 0.5f);
    EXPECT_EQ(leaf->getOpacity(), 0.25f);
}

} // namespace test
