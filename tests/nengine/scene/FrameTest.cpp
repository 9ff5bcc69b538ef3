#include "nengine/scene/Frame.h"

#include "foundation/core/Exception.h"
#include "nengine/scene/Node.h"
#include "nengine/scene/PropertyCO.h"
#include "nengine/scene/properties/AlphaProperty.h"
#include "nengine/scene/properties/MaterialProperty.h"

#include <gtest/gtest.h>

#include <numbers>

namespace nurel {
namespace {

using scene::Frame;
using scene::Node;
using scene::Property;
using scene::properties::AlphaProperty;
using scene::properties::MaterialProperty;

constexpr float QUARTER_TURN = std::numbers::pi_v<float> / 2;

void expectNear(const math::Vector3 &actual, const math::Vector3 &expected) {
    EXPECT_NEAR(actual.x, expected.x, 1e-3f);
    EXPECT_NEAR(actual.y, expected.y, 1e-3f);
    EXPECT_NEAR(actual.z, expected.z, 1e-3f);
}

/// A frame whose place in the world does not come from its parent.
class Fixed : public Frame {
public:
    void customWorldTransform() override {
        ++calls;
        math::Matrix4 world;
        world.setTranslation({1, 2, 3});
        setWorldTransform(world);
    }
    int calls = 0;
};

TEST(Frame, StartsVisibleAtItsParentsPlace) {
    const core::SmartPtr<Frame> frame(new Frame("a"));
    EXPECT_STREQ(frame->getName(), "a");
    EXPECT_FALSE(frame->isHidden());
    EXPECT_EQ(frame->getParent(), nullptr);
    EXPECT_EQ(frame->getTranslation(), math::Vector3::ZERO);
    EXPECT_EQ(frame->getScale(), math::Vector3::ONE);
    EXPECT_EQ(frame->getRotation(), math::Matrix3::IDENTITY);
    EXPECT_EQ(frame->getWorldTransform(), math::Matrix4::IDENTITY);
}

TEST(Frame, ScalesThenRotatesThenTranslates) {
    const core::SmartPtr<Frame> frame(new Frame());
    frame->setTranslation({10, 20, 0});
    frame->setRotation(math::Matrix3(QUARTER_TURN, math::Vector3::AXIS_Z));
    frame->setScale(math::Vector2(2, 3), 1);
    frame->update(0, true);
    expectNear(frame->getWorldTransform() * math::Vector3(1, 0, 0), {10, 22, 0});
    expectNear(frame->getWorldTransform() * math::Vector3(0, 1, 0), {7, 20, 0});
}

TEST(Frame, WorldTransformIsThatOfTheLastUpdate) {
    const core::SmartPtr<Node> root(new Node("root"));
    auto *child = new Frame("child");
    root->appendChild(child);
    child->setTranslation({1, 0, 0});
    root->update(0, true);
    root->setTranslation({10, 0, 0});
    expectNear(child->getWorldTransform().getTranslation(), {1, 0, 0});
    root->update(0, true);
    expectNear(child->getWorldTransform().getTranslation(), {11, 0, 0});
}

TEST(Frame, InverseAndPositionAreCurrentBeforeTheUpdate) {
    const core::SmartPtr<Node> root(new Node("root"));
    auto *middle = new Node("middle");
    auto *child = new Frame("child");
    root->appendChild(middle);
    middle->appendChild(child);
    root->update(0, true);

    root->setTranslation({100, 0, 0});
    root->setScale(math::Vector3(2, 2, 1));
    child->setTranslation({5, 6, 0});
    expectNear(child->getPosition(), {110, 12, 0});
    expectNear(child->getWorldInverseTransform() * math::Vector3(110, 12, 0), {0, 0, 0});
    expectNear(child->getWorldInverseTransform() * math::Vector3(114, 12, 0), {2, 0, 0});

    root->update(0, true);
    expectNear(child->getPosition(), {110, 12, 0});
    expectNear(child->getWorldInverseTransform() * math::Vector3(110, 12, 0), {0, 0, 0});
}

TEST(Frame, InverseOfAFlatFrameIsTheIdentity) {
    const core::SmartPtr<Frame> frame(new Frame());
    frame->setScale(math::Vector3::ZERO);
    EXPECT_EQ(frame->getWorldInverseTransform(), math::Matrix4::IDENTITY);
}

TEST(Frame, AFrameThatWasNeverMovedFollowsItsParent) {
    const core::SmartPtr<Node> root(new Node("root"));
    auto *child = new Frame("child");
    root->appendChild(child);
    root->setTranslation({3, 4, 5});
    root->update(0, true);
    expectNear(child->getWorldTransform().getTranslation(), {3, 4, 5});
    expectNear(child->getPosition(), {3, 4, 5});
}

TEST(Frame, MovingAFrameKeepsItsOldWorldTransformUntilTheUpdate) {
    const core::SmartPtr<Node> root(new Node("root"));
    auto *child = new Frame("child");
    root->appendChild(child);
    root->setTranslation({3, 4, 5});
    root->update(0, true);
    child->setTranslation({1, 1, 1});
    expectNear(child->getWorldTransform().getTranslation(), {3, 4, 5});
}

TEST(Frame, UpdateTellsWhetherSomethingMoved) {
    const core::SmartPtr<Frame> frame(new Frame());
    EXPECT_TRUE(frame->updateInternal(0, false)) << "a new frame has to find its place";
    EXPECT_FALSE(frame->updateInternal(0, false));
    frame->setTranslation({1, 0, 0});
    EXPECT_TRUE(frame->updateInternal(0, false));
    frame->setTranslation({1, 0, 0});
    EXPECT_FALSE(frame->updateInternal(0, false)) << "the same translation again";
    EXPECT_TRUE(frame->updateInternal(0, true));
}

TEST(Frame, UpdateWithoutRecursionLeavesTheChildrenToTheNextOne) {
    const core::SmartPtr<Node> root(new Node("root"));
    auto *child = new Frame("child");
    root->appendChild(child);
    child->setTranslation({1, 0, 0});
    root->update(0, true);

    root->setTranslation({10, 0, 0});
    root->update(0, false);
    expectNear(root->getWorldTransform().getTranslation(), {10, 0, 0});
    expectNear(child->getWorldTransform().getTranslation(), {1, 0, 0});
    expectNear(child->getPosition(), {11, 0, 0});
    root->update(0, true);
    expectNear(child->getWorldTransform().getTranslation(), {11, 0, 0});
}

TEST(Frame, ACustomWorldTransformReplacesTheComputedOne) {
    const core::SmartPtr<Node> root(new Node("root"));
    auto *fixed = new Fixed();
    root->appendChild(fixed);
    root->setTranslation({100, 100, 100});
    root->update(0, true);
    expectNear(fixed->getWorldTransform().getTranslation(), {1, 2, 3});
    root->update(0, true);
    EXPECT_EQ(fixed->calls, 1) << "nothing moved";
}

TEST(Frame, RotationCarriesItsAnimatedFlag) {
    const core::SmartPtr<Frame> frame(new Frame());
    EXPECT_FALSE(frame->isAnimated());
    frame->setRotation(math::Matrix3(0.1f, math::Vector3::AXIS_Z), true);
    EXPECT_TRUE(frame->isAnimated());
    frame->setRotation(math::Matrix3(0.1f, math::Vector3::AXIS_Z), false);
    EXPECT_FALSE(frame->isAnimated());
}

TEST(Frame, PropertiesComeFromTheFrameThenItsParentsThenTheDefaults) {
    const core::SmartPtr<Node> root(new Node("root"));
    auto *middle = new Node("middle");
    auto *child = new Frame("child");
    root->appendChild(middle);
    middle->appendChild(child);

    Property *const standard = child->getProperty(Property::MATERIAL);
    ASSERT_NE(standard, nullptr);
    EXPECT_TRUE(standard->isDefault());

    auto *above = new MaterialProperty();
    root->setProperty(above);
    EXPECT_EQ(child->getProperty(Property::MATERIAL), above);
    auto *own = new MaterialProperty();
    child->setProperty(own);
    EXPECT_EQ(child->getProperty(Property::MATERIAL), own);
    EXPECT_EQ(middle->getProperty(Property::MATERIAL), above);
    child->removeProperty(Property::MATERIAL);
    EXPECT_EQ(child->getProperty(Property::MATERIAL), above);
}

TEST(Frame, EveryIndexInUseHasADefaultAndTheOthersHaveNone) {
    const core::SmartPtr<Frame> frame(new Frame());
    for (const unsigned int index : {0u, 1u, 3u, 5u, 6u}) {
        ASSERT_NE(frame->getProperty(index), nullptr) << index;
        EXPECT_EQ(frame->getProperty(index)->getIndex(), index);
        EXPECT_TRUE(frame->getProperty(index)->isDefault());
        EXPECT_EQ(frame->getProperty(index), frame->getProperty(index)) << "shared";
    }
    for (const unsigned int index : {2u, 4u, 7u, 8u, 0xffffu})
        EXPECT_EQ(frame->getProperty(index), nullptr) << index;
}

TEST(Frame, ThePropertySetShowsOwnPropertiesOnly) {
    const core::SmartPtr<Node> root(new Node("root"));
    auto *child = new Frame("child");
    root->appendChild(child);
    root->setProperty(new MaterialProperty());
    root->update(0, true);
    EXPECT_NE(root->getPropertySet()[Property::MATERIAL], nullptr);
    EXPECT_EQ(child->getPropertySet()[Property::MATERIAL], nullptr);
    EXPECT_EQ(child->getPropertySet()[99], nullptr);
    child->setProperty(new AlphaProperty());
    EXPECT_NE(child->getPropertySet()[Property::ALPHA], nullptr);
    EXPECT_EQ(child->getPropertySet()[Property::MATERIAL], nullptr);
}

TEST(Frame, SetPropertyReplacesByIndexAndIgnoresNull) {
    const core::SmartPtr<Frame> frame(new Frame());
    const core::SmartPtr<MaterialProperty> first(new MaterialProperty("first"));
    frame->setProperty(first.get());
    frame->setProperty(nullptr);
    EXPECT_EQ(first->getRefCount(), 2u);
    frame->setProperty(new MaterialProperty("second"));
    EXPECT_EQ(first->getRefCount(), 1u);
    EXPECT_STREQ(frame->getProperty(Property::MATERIAL)->getName(), "second");
}

TEST(Frame, APropertyOfAnotherClassIsRefused) {
    class Impostor : public Property {
    public:
        Impostor() : Property(MATERIAL, "impostor") {}
    };
    const core::SmartPtr<Frame> frame(new Frame());
    try {
        frame->setProperty(new Impostor());
        FAIL() << "no exception";
    } catch (const core::IllegalArgumentException &exception) {
        EXPECT_STREQ(exception.what(), "Property cannot be property 1");
    }
    EXPECT_TRUE(frame->getProperty(Property::MATERIAL)->isDefault());
}

TEST(Frame, WhatIsDrawnFollowsPropertiesAtTheUpdate) {
    const core::SmartPtr<Node> root(new Node("root"));
    auto *middle = new Node("middle");
    auto *child = new Frame("child");
    root->appendChild(middle);
    middle->appendChild(child);
    root->update(0, true);
    EXPECT_TRUE(child->getPropertySet().getEffective(Property::MATERIAL)->isDefault());

    auto *material = new MaterialProperty();
    root->setProperty(material);
    EXPECT_TRUE(child->getPropertySet().getEffective(Property::MATERIAL)->isDefault());
    root->update(0, true);
    EXPECT_EQ(child->getPropertySet().getEffective(Property::MATERIAL), material);

    // A frame with own properties inherits the others, and hears of their replacement.
    middle->setProperty(new AlphaProperty());
    auto *replacement = new MaterialProperty();
    root->setProperty(replacement);
    root->update(0, true);
    EXPECT_EQ(middle->getPropertySet().getEffective(Property::MATERIAL), replacement);
    EXPECT_EQ(child->getPropertySet().getEffective(Property::MATERIAL), replacement);
    EXPECT_EQ(child->getPropertySet().getEffective(Property::ALPHA), middle->getPropertySet()[Property::ALPHA]);

    root->removeProperty(Property::MATERIAL);
    root->update(0, true);
    EXPECT_TRUE(child->getPropertySet().getEffective(Property::MATERIAL)->isDefault());
}

TEST(Frame, UpdateWithoutRecursionLeavesPropertiesToTheNextOneToo) {
    const core::SmartPtr<Node> root(new Node("root"));
    auto *child = new Frame("child");
    root->appendChild(child);
    root->update(0, true);
    root->setProperty(new MaterialProperty());
    root->update(0, false);
    EXPECT_TRUE(child->getPropertySet().getEffective(Property::MATERIAL)->isDefault());
    root->update(0, true);
    EXPECT_FALSE(child->getPropertySet().getEffective(Property::MATERIAL)->isDefault());
}

TEST(Frame, PropertiesComeDownPastAFrameThatUpdatesOthersFirst) {
    class Busy : public Node {
    public:
        bool updateInternal(float time, bool parentChanged) override {
            other->updateInternal(time, false);
            return Node::updateInternal(time, parentChanged);
        }
        core::SmartPtr<Frame> other{new Frame("other")};
    };
    const core::SmartPtr<Node> root(new Node("root"));
    auto *busy = new Busy();
    auto *child = new Frame("child");
    root->appendChild(busy);
    busy->appendChild(child);
    root->update(0, true);
    root->setProperty(new MaterialProperty());
    root->update(0, true);
    EXPECT_FALSE(child->getPropertySet().getEffective(Property::MATERIAL)->isDefault());
}

TEST(Frame, UpdatePropertiesReachesUpThroughParentsThatWereNotUpdated) {
    const core::SmartPtr<Node> root(new Node("root"));
    auto *middle = new Node("middle");
    auto *child = new Frame("child");
    root->appendChild(middle);
    middle->appendChild(child);
    auto *material = new MaterialProperty();
    root->setProperty(material);
    child->updateProperties();
    EXPECT_EQ(child->getPropertySet().getEffective(Property::MATERIAL), material);
}

TEST(Frame, InheritedPropertiesStayWithTheParent) {
    const core::SmartPtr<Frame> child(new Frame("child"));
    const core::SmartPtr<Node> other(new Node("other"));
    {
        const core::SmartPtr<Node> root(new Node("root"));
        root->setProperty(new MaterialProperty());
        root->appendChild(child.get());
        root->update(0, true);
        EXPECT_FALSE(child->getPropertySet().getEffective(Property::MATERIAL)->isDefault());
    }
    EXPECT_EQ(child->getParent(), nullptr);
    other->appendChild(child.get());
    other->update(0, true);
    EXPECT_TRUE(child->getPropertySet().getEffective(Property::MATERIAL)->isDefault());
    EXPECT_FALSE(child->getPropertySet().hasOwn());
}

TEST(Frame, ACloneHasTheTransformAndSharesProperties) {
    const core::SmartPtr<Frame> source(new Frame("source"));
    source->setTranslation({1, 2, 3});
    source->setScale(math::Vector3(2, 2, 2));
    source->setHidden(true);
    source->setProperty(new MaterialProperty("m"));
    const core::SmartPtr<Frame> copy(static_cast<Frame *>(source->core::Object::clone()));
    EXPECT_STREQ(copy->getName(), "source");
    EXPECT_EQ(copy->getTranslation(), math::Vector3(1, 2, 3));
    EXPECT_EQ(copy->getScale(), math::Vector3(2, 2, 2));
    EXPECT_TRUE(copy->isHidden());
    EXPECT_EQ(copy->getParent(), nullptr);
    EXPECT_EQ(copy->getPropertySet()[Property::MATERIAL], source->getPropertySet()[Property::MATERIAL]);
}

TEST(Frame, ACloneCopiesThePropertiesThatTheOptionSelects) {
    const core::SmartPtr<Frame> source(new Frame("source"));
    source->setProperty(new MaterialProperty("m"));
    source->setProperty(new AlphaProperty("a"));
    core::CloningOptions options;
    options.put(Property::TYPE, new scene::PropertyCO(1u << Property::MATERIAL));
    const core::SmartPtr<Frame> copy(static_cast<Frame *>(source->clone(options)));
    EXPECT_NE(copy->getPropertySet()[Property::MATERIAL], source->getPropertySet()[Property::MATERIAL]);
    EXPECT_STREQ(copy->getPropertySet()[Property::MATERIAL]->getName(), "m");
    EXPECT_EQ(copy->getPropertySet()[Property::ALPHA], source->getPropertySet()[Property::ALPHA]);
}

TEST(Frame, ClonedFramesThatSharedAPropertyShareItsCopy) {
    const core::SmartPtr<Node> source(new Node("source"));
    const core::SmartPtr<MaterialProperty> shared(new MaterialProperty());
    source->appendChild(new Frame("a"));
    source->appendChild(new Frame("b"));
    source->getChild(0)->setProperty(shared.get());
    source->getChild(1)->setProperty(shared.get());
    core::CloningOptions options;
    options.put(Property::TYPE, new scene::PropertyCO(0xffff));
    const core::SmartPtr<Node> copy(static_cast<Node *>(source->clone(options)));
    EXPECT_NE(copy->getChild(0)->getPropertySet()[Property::MATERIAL], shared.get());
    EXPECT_EQ(copy->getChild(0)->getPropertySet()[Property::MATERIAL],
              copy->getChild(1)->getPropertySet()[Property::MATERIAL]);
}

} // namespace
} // namespace nurel
