#include "foundation/core/Exception.h"
#include "nengine/scene/properties/AlphaProperty.h"
#include "nengine/scene/properties/DepthProperty.h"
#include "nengine/scene/properties/MaterialProperty.h"
#include "nengine/scene/properties/StencilProperty.h"
#include "nengine/scene/properties/TextureProperty.h"
#include "nengine/texture/Texture.h"

#include <gtest/gtest.h>

#include <functional>

namespace nurel {
namespace {

using namespace scene::properties;
using scene::Property;

/// Whether a change gives the property another revision.
bool touches(Property &property, const std::function<void()> &change) {
    const std::uint64_t before = property.getRevision();
    change();
    return property.getRevision() != before;
}

TEST(Property, ANewOneAndACloneAreNoDefaults) {
    const core::SmartPtr<MaterialProperty> material(new MaterialProperty("m"));
    EXPECT_FALSE(material->isDefault());
    const core::SmartPtr<Property> copy(
        static_cast<Property *>(Property::getDefault(Property::MATERIAL)->core::Object::clone()));
    EXPECT_FALSE(copy->isDefault());
    EXPECT_TRUE(Property::getDefault(Property::MATERIAL)->isDefault());
}

TEST(Property, RevisionsAreNotSharedByTwoProperties) {
    const core::SmartPtr<AlphaProperty> a(new AlphaProperty());
    const core::SmartPtr<AlphaProperty> b(new AlphaProperty());
    EXPECT_NE(a->getRevision(), b->getRevision());
}

TEST(Property, AnIndexOutOfRangeIsRefused) {
    class Far : public Property {
    public:
        Far() : Property(8, "far") {}
    };
    try {
        const Far far;
        FAIL() << "no exception";
    } catch (const core::IllegalArgumentException &exception) {
        EXPECT_STREQ(exception.what(), "Property index 8 is out of range");
    }
}

TEST(AlphaProperty, BlendsWhenToldAndNotifiesOfChangesOnly) {
    const core::SmartPtr<AlphaProperty> alpha(new AlphaProperty("name"));
    EXPECT_STREQ(alpha->getName(), "name");
    EXPECT_EQ(alpha->getIndex(), 0u);
    EXPECT_FALSE(alpha->isBlending());
    EXPECT_TRUE(touches(*alpha, [&] { alpha->setBlending(true); }));
    EXPECT_FALSE(touches(*alpha, [&] { alpha->setBlending(true); }));
    const core::SmartPtr<AlphaProperty> copy(static_cast<AlphaProperty *>(alpha->core::Object::clone()));
    EXPECT_TRUE(copy->isBlending());
    EXPECT_STREQ(copy->getName(), "name");
}

TEST(MaterialProperty, StartsWhiteAndOpaqueAndWritesEverything) {
    const core::SmartPtr<MaterialProperty> material(new MaterialProperty());
    EXPECT_EQ(material->getIndex(), 1u);
    EXPECT_EQ(material->getColor(), math::Vector4(1, 1, 1, 1));
    EXPECT_EQ(material->getSecondColor(), math::Vector3::WHITE);
    EXPECT_EQ(material->getFlags(), 3u);
}

TEST(MaterialProperty, AColourOfThreeKeepsTheAlpha) {
    const core::SmartPtr<MaterialProperty> material(new MaterialProperty());
    material->setAlpha(0.25f);
    material->setColor(math::Vector3(0.5f, 0, 1));
    EXPECT_EQ(material->getColor(), math::Vector4(0.5f, 0, 1, 0.25f));
    EXPECT_EQ(material->getAlpha(), 0.25f);
}

TEST(MaterialProperty, EverySetterNotifiesOfChangesOnly) {
    const core::SmartPtr<MaterialProperty> material(new MaterialProperty());
    EXPECT_TRUE(touches(*material, [&] { material->setColor(math::Vector4(1, 0, 0, 1)); }));
    EXPECT_FALSE(touches(*material, [&] { material->setColor(math::Vector3(1, 0, 0)); }));
    EXPECT_TRUE(touches(*material, [&] { material->setAlpha(0); }));
    EXPECT_FALSE(touches(*material, [&] { material->setAlpha(0); }));
    EXPECT_TRUE(touches(*material, [&] { material->setSecondColor({0.8f, 0, 0}); }));
    EXPECT_FALSE(touches(*material, [&] { material->setSecondColor({0.8f, 0, 0}); }));
    EXPECT_TRUE(touches(*material, [&] { material->setFlags(0); }));
    EXPECT_FALSE(touches(*material, [&] { material->setFlags(0); }));
    const core::SmartPtr<MaterialProperty> copy(static_cast<MaterialProperty *>(material->core::Object::clone()));
    EXPECT_EQ(copy->getColor(), material->getColor());
    EXPECT_EQ(copy->getSecondColor(), material->getSecondColor());
    EXPECT_EQ(copy->getFlags(), 0u);
}

TEST(TextureProperty, HasOneStageAndMakesMoreOnDemand) {
    const core::SmartPtr<TextureProperty> property(new TextureProperty());
    EXPECT_EQ(property->getIndex(), 5u);
    EXPECT_EQ(property->getStageCount(), 1u);
    EXPECT_EQ(property->getTexture(0), nullptr);
    EXPECT_EQ(property->getTexture(5), nullptr);
    const core::SmartPtr<texture::Texture> texture(new texture::Texture("t"));
    property->getStage(2).setTexture(texture.get());
    EXPECT_EQ(property->getStageCount(), 3u);
    EXPECT_EQ(property->getTexture(2), texture.get());
    property->getStage(1000).setTexture(texture.get());
    EXPECT_EQ(property->getStageCount(), TextureProperty::MAX_STAGES);
    const core::SmartPtr<TextureProperty> copy(static_cast<TextureProperty *>(property->core::Object::clone()));
    EXPECT_EQ(copy->getTexture(2), texture.get());
    property->getStage(2).setTexture(nullptr);
    EXPECT_EQ(property->getTexture(2), nullptr);
    EXPECT_EQ(copy->getTexture(2), texture.get());
}

TEST(DepthProperty, KeepsItsTwoFlags) {
    const core::SmartPtr<DepthProperty> depth(new DepthProperty("", true, false));
    EXPECT_EQ(depth->getIndex(), 3u);
    EXPECT_TRUE(depth->isTesting());
    EXPECT_FALSE(depth->isWriting());
    EXPECT_TRUE(touches(*depth, [&] { depth->setWriting(true); }));
    EXPECT_FALSE(touches(*depth, [&] { depth->setTesting(true); }));
    EXPECT_TRUE(touches(*depth, [&] { depth->setTesting(false); }));
    const core::SmartPtr<DepthProperty> copy(static_cast<DepthProperty *>(depth->core::Object::clone()));
    EXPECT_FALSE(copy->isTesting());
    EXPECT_TRUE(copy->isWriting());
}

TEST(StencilProperty, StartsOffAndKeepsEverything) {
    const core::SmartPtr<StencilProperty> stencil(new StencilProperty());
    EXPECT_EQ(stencil->getIndex(), 6u);
    EXPECT_FALSE(stencil->isEnabled());
    EXPECT_EQ(stencil->getComparison(), 7u);
    EXPECT_EQ(stencil->getReference(), 0u);
    EXPECT_EQ(stencil->getFailOperation(), 0u);
    EXPECT_EQ(stencil->getDepthFailOperation(), 0u);
    EXPECT_EQ(stencil->getPassOperation(), 0u);
}

TEST(StencilProperty, EverySetterNotifiesOfChangesOnly) {
    const core::SmartPtr<StencilProperty> stencil(new StencilProperty());
    EXPECT_TRUE(touches(*stencil, [&] { stencil->setEnabled(true); }));
    EXPECT_FALSE(touches(*stencil, [&] { stencil->setEnabled(true); }));
    EXPECT_TRUE(touches(*stencil, [&] { stencil->setComparison(3); }));
    EXPECT_FALSE(touches(*stencil, [&] { stencil->setComparison(3); }));
    EXPECT_TRUE(touches(*stencil, [&] { stencil->setReference(4); }));
    EXPECT_FALSE(touches(*stencil, [&] { stencil->setReference(4); }));
    EXPECT_TRUE(touches(*stencil, [&] { stencil->setOperations(1, 2, 3); }));
    EXPECT_FALSE(touches(*stencil, [&] { stencil->setOperations(1, 2, 3); }));
    const core::SmartPtr<StencilProperty> copy(static_cast<StencilProperty *>(stencil->core::Object::clone()));
    EXPECT_TRUE(copy->isEnabled());
    EXPECT_EQ(copy->getComparison(), 3u);
    EXPECT_EQ(copy->getReference(), 4u);
    EXPECT_EQ(copy->getFailOperation(), 1u);
    EXPECT_EQ(copy->getDepthFailOperation(), 2u);
    EXPECT_EQ(copy->getPassOperation(), 3u);
}

TEST(StencilProperty, NumbersOutOfRangeDoNoHarm) {
    const core::SmartPtr<StencilProperty> stencil(new StencilProperty());
    stencil->setComparison(8);
    EXPECT_EQ(stencil->getComparison(), 7u);
    stencil->setReference(1000);
    EXPECT_EQ(stencil->getReference(), 255u);
    stencil->setOperations(1, 99, 2);
    EXPECT_EQ(stencil->getFailOperation(), 1u);
    EXPECT_EQ(stencil->getDepthFailOperation(), 0u);
    EXPECT_EQ(stencil->getPassOperation(), 2u);
}

} // namespace
} // namespace nurel
