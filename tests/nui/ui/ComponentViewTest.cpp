#include "nui/ui/ComponentView.h"

#include "TestComponents.h"
#include "support/EngineFixture.h"

#include "nengine/scene/Camera.h"
#include "nengine/scene/Culler.h"
#include "nengine/scene/VisibilitySet.h"
#include "nengine/scene/meshes/SizeableRectangleMesh.h"
#include "nengine/scene/properties/DepthProperty.h"
#include "nengine/scene/properties/MaterialProperty.h"
#include "nui/ui/skins/DefaultSkin.h"

#include <string>

namespace test {

namespace {

using nurel::scene::Node;

std::string childrenOf(const Node &node) {
    std::string names;
    for (const auto &child : node.getChildren())
        names += std::string(child->getName()) + " ";
    return names;
}

class ComponentViewTest : public EngineFixture {
protected:
    void SetUp() override {
        EngineFixture::SetUp();
        box = new Box("box");
        view = new ComponentView("view", box.get(), &skin());
        box->setView(view.get());
    }

    void TearDown() override {
        view = nullptr;
        box = nullptr;
        EngineFixture::TearDown();
    }

    /// A child with a view that has its name.
    core::SmartPtr<Leaf> addChild(const char *name, int zIndex) {
        core::SmartPtr<Leaf> leaf(new Leaf(name));
        leaf->setZIndex(zIndex);
        leaf->setView(new ComponentView(name, leaf.get(), &skin()));
        box->addChild(leaf.get());
        return leaf;
    }

    core::SmartPtr<Box> box;
    core::SmartPtr<ComponentView> view;
};

/// Notes what reaches it.
class NotingView : public ComponentView {
public:
    using ComponentView::ComponentView;
    using ComponentView::forceDirty;
    void childrenUpdated(bool changed) override { updates += changed ? "y" : "n"; }
    std::string updates;
};

} // namespace

TEST_F(ComponentViewTest, KnowsSkinAndComponentAndTestsDepthWithoutWritingIt) {
    EXPECT_STREQ(view->getName(), "view");
    EXPECT_EQ(view->getSkin(), &skin());
    EXPECT_EQ(view->getComponent(), box.get());
    const auto *depth =
        static_cast<nurel::scene::properties::DepthProperty *>(view->getPropertySet()[nurel::scene::Property::DEPTH]);
    ASSERT_NE(depth, nullptr);
    EXPECT_STREQ(depth->getName(), "");
    EXPECT_TRUE(depth->isTesting());
    EXPECT_FALSE(depth->isWriting());
}

TEST_F(ComponentViewTest, HoldsItsSkin) {
    core::SmartPtr<PlainSkin> plain(new PlainSkin);
    const core::SmartPtr<ComponentView> held(new ComponentView("held", box.get(), plain.get()));
    EXPECT_EQ(plain->getRefCount(), 2U);
}

TEST_F(ComponentViewTest, DrawsUnderlayContentAndOverlayInThisOrderWhateverCameFirst) {
    EXPECT_FALSE(view->hasContent());
    view->getOverlay();
    EXPECT_EQ(childrenOf(*view), "content overlay ");
    view->getUnderlay();
    EXPECT_EQ(childrenOf(*view), "underlay content overlay ");
    const core::SmartPtr<ComponentView> other(new ComponentView("other", nullptr, nullptr));
    other->getUnderlay();
    EXPECT_EQ(childrenOf(*other), "underlay content ");
    other->getOverlay();
    EXPECT_EQ(childrenOf(*other), "underlay content overlay ");
    EXPECT_EQ(other->getContent(), other->getContent());
    EXPECT_EQ(childrenOf(*other), "underlay content overlay ");
}

TEST_F(ComponentViewTest, PutsChildrensViewsInTheOrderOfTheirZIndexes) {
    const auto c = addChild("c", 3);
    const auto a = addChild("a", 1);
    const auto b = addChild("b", 1);
    EXPECT_EQ(childrenOf(*view->getContent()), "a b c ");
    view->insertView(a->getView()); // once more: behind its equal
    EXPECT_EQ(childrenOf(*view->getContent()), "b a c ");
    view->insertView(nullptr);
    view->removeView(b->getView());
    view->removeView(b->getView());
    view->removeView(nullptr);
    EXPECT_EQ(childrenOf(*view->getContent()), "a c ");
}

TEST_F(ComponentViewTest, AViewWhoseComponentHasNoParentFindsItsPlaceToo) {
    addChild("b", 2);
    Leaf loose("loose");
    loose.setZIndex(1);
    const core::SmartPtr<ComponentView> looseView(new ComponentView("loose", &loose, &skin()));
    view->insertView(looseView.get());
    EXPECT_EQ(childrenOf(*view->getContent()), "loose b ");
    const core::SmartPtr<ComponentView> nobodys(new ComponentView("nobodys", nullptr, nullptr));
    view->insertView(nobodys.get());
    EXPECT_EQ(childrenOf(*view->getContent()), "nobodys loose b ");
}

TEST_F(ComponentViewTest, AddsAndRemovesComponents) {
    Leaf leaf("leaf");
    view->componentRemoved(&leaf);
    view->componentAdded(&leaf);
    ASSERT_TRUE(leaf.hasView());
    EXPECT_EQ(leaf.getView()->getSkin(), &skin());
    EXPECT_EQ(leaf.getView()->getParent(), view->getContent());
    view->componentRemoved(&leaf);
    EXPECT_TRUE(leaf.hasView());
    EXPECT_EQ(leaf.getView()->getParent(), nullptr);
    view->componentAdded(nullptr);
    view->componentRemoved(nullptr);
}

TEST_F(ComponentViewTest, SortsStably) {
    const auto a = addChild("a", 1);
    const auto b = addChild("b", 2);
    const auto c = addChild("c", 2);
    a->setZIndex(2);
    c->setZIndex(0);
    view->applyZIndex();
    EXPECT_EQ(childrenOf(*view->getContent()), "c a b ");
    ComponentView bare("bare", nullptr, nullptr);
    bare.applyZIndex();
    EXPECT_FALSE(bare.hasContent());
}

TEST_F(ComponentViewTest, TakesTransformAndVisibilityFromTheComponent) {
    const auto child = addChild("child", 0);
    child->setPosition(Vector3(10, 20, 0));
    child->setDepth(5);
    child->setScale(Vector2(2, 3));
    child->setRotation(Matrix3(1, Vector3(0, 0, 1)));
    child->setSize(Vector2(20, 20));
    child->getView()->updateView(); // brings the position up to date first
    EXPECT_EQ(child->isDirty(Component::DIRTY_POSITION), 0U);
    EXPECT_EQ(child->getView()->getTranslation(), child->getParentRelativePosition());
    EXPECT_EQ(child->getView()->getScale(), Vector3(2, 3, 1));
    EXPECT_EQ(child->getView()->getRotation(), child->getRotation());
    EXPECT_FALSE(child->getView()->isHidden());
}

TEST_F(ComponentViewTest, AnInvisibleComponentHidesItsViewWhichIsPlacedAllTheSame) {
    const auto child = addChild("child", 0);
    child->setPosition(Vector3(10, 20, 0));
    child->setVisible(false);
    child->update();
    EXPECT_TRUE(child->getView()->isHidden());
    EXPECT_EQ(child->getView()->getTranslation(), child->getParentRelativePosition());
    child->setVisible(true);
    child->update();
    EXPECT_FALSE(child->getView()->isHidden());
    child->setParentVisible(false);
    child->getView()->updateView();
    EXPECT_TRUE(child->getView()->isHidden());
}

TEST_F(ComponentViewTest, ForceDirtyInvalidatesTheGeometry) {
    Leaf leaf("leaf");
    const core::SmartPtr<NotingView> noting(new NotingView("noting", &leaf, &skin()));
    leaf.clean();
    noting->forceDirty();
    EXPECT_EQ(leaf.dirty(), 0x11U);
    const core::SmartPtr<NotingView> nobodys(new NotingView("nobodys", nullptr, nullptr));
    nobodys->forceDirty();
}

TEST_F(ComponentViewTest, IsToldWhetherAnythingBelowChanged) {
    const core::SmartPtr<NotingView> noting(new NotingView("noting", nullptr, nullptr));
    noting->update(0, true);
    noting->update(0, true);
    noting->getContent()->setTranslation(Vector3(1, 0, 0));
    noting->update(0, true);
    ASSERT_EQ(noting->updates.size(), 3U);
    EXPECT_EQ(noting->updates.substr(1), "ny");
}

namespace {

/// Whether the culler meets the child's mesh when the child stands there.
class ComponentViewCulling : public ComponentViewTest {
protected:
    void SetUp() override {
        ComponentViewTest::SetUp();
        box->setSize(Vector2(100, 60));
        child = addChild("child", 0);
        child->setSize(Vector2(20, 10));
        child->getView()->appendChild(new nurel::scene::meshes::SizeableRectangleMesh("mesh", Vector2(20, 10)));
    }

    void TearDown() override {
        child = nullptr;
        camera = nullptr;
        ComponentViewTest::TearDown();
    }

    bool isDrawnAt(float x, float y) {
        child->setPosition(Vector3(x, y, 0));
        for (int i = 0; i < 3; ++i)
            box->update();
        view->update(0, true);
        nurel::scene::VisibilitySet set;
        const core::SmartPtr<nurel::scene::Culler> culler(new nurel::scene::Culler(&set));
        culler->cull(camera.get(), view.get());
        drawn = set.getCount();
        return drawn != 0;
    }

    /// From 1000 in front of the box' centre.
    void look() {
        EXPECT_TRUE(isDrawnAt(0, 0));
        camera = new nurel::scene::Camera("camera");
        nurel::math::Matrix4 projection;
        camera->setProjection(projection.perspective(90, 1, 1, 10000));
        camera->setTranslation(box->getParentRelativePosition() + Vector3(0, 0, -1000));
    }

    /// Turned by degrees around the y axis, at that x.
    bool isDrawnTurned(float degrees, float x = 0) {
        child->setRotation(Matrix3(degrees * 3.14159265f / 180, Vector3(0, 1, 0)));
        return isDrawnAt(x, 0);
    }

    core::SmartPtr<Leaf> child;
    core::SmartPtr<nurel::scene::Camera> camera; ///< none at first
    std::size_t drawn = 0;                       ///< how many meshes
};

} // namespace

TEST_F(ComponentViewCulling, WhatLiesWhollyOutsideItsParentIsNotDrawn) {
    box->setClipChildren(false);
    EXPECT_TRUE(isDrawnAt(0, 0));
    EXPECT_TRUE(isDrawnAt(59, 34));
    EXPECT_FALSE(isDrawnAt(60, 0));
    EXPECT_FALSE(isDrawnAt(-60, 0));
    EXPECT_FALSE(isDrawnAt(0, 35));
    EXPECT_TRUE(isDrawnAt(-59, -34));
    EXPECT_FALSE(isDrawnAt(0, -35));
}

TEST_F(ComponentViewCulling, TheBackOfAComponentIsNotDrawn) {
    EXPECT_TRUE(isDrawnTurned(180)); // nobody looks at it
    look();
    for (const float front : {0.0f, 89.0f, -89.0f, 271.0f})
        EXPECT_TRUE(isDrawnTurned(front)) << front;
    for (const float back : {91.0f, -91.0f, 180.0f, 269.0f})
        EXPECT_FALSE(isDrawnTurned(back)) << back;
    child->setRotation(Matrix3(2, Vector3(1, 0, 0)));
    EXPECT_FALSE(isDrawnAt(0, 0));
    child->setRotation(Matrix3(2, Vector3(0, 0, 1))); // on its head
    EXPECT_TRUE(isDrawnAt(0, 0));
    child->setRotation(Matrix3());
    child->setScale(Vector2(-1, 1));
    EXPECT_TRUE(isDrawnAt(0, 0));
}

TEST_F(ComponentViewCulling, WhetherTheBackIsSeenDependsOnThePlace) {
    look();
    // 50 to the right is seen under 2.86 degrees
    EXPECT_TRUE(isDrawnTurned(92, 50));
    EXPECT_FALSE(isDrawnTurned(93, 50));
    EXPECT_FALSE(isDrawnTurned(92, -50));
    EXPECT_FALSE(isDrawnTurned(88, -50));
    EXPECT_TRUE(isDrawnTurned(87, -50));
}

TEST_F(ComponentViewCulling, NothingInAComponentThatIsTurnedAwayIsDrawn) {
    look();
    box->setRotation(Matrix3(2, Vector3(0, 1, 0)));
    EXPECT_FALSE(isDrawnAt(0, 0));
    box->setRotation(Matrix3(1, Vector3(0, 1, 0)));
    EXPECT_TRUE(isDrawnAt(0, 0));
    EXPECT_FALSE(isDrawnTurned(60)); // on top of the parent's turn of 57 degrees
}

TEST_F(ComponentViewCulling, WhatIsTurnedBackInAComponentThatIsTurnedAwayIsDrawn) {
    look();
    box->setRotation(Matrix3(3.14159f, Vector3(0, 1, 0)));
    EXPECT_FALSE(isDrawnTurned(0));
    EXPECT_TRUE(isDrawnTurned(180)); // the other face of a card
    EXPECT_TRUE(isDrawnTurned(-120));
    EXPECT_FALSE(isDrawnTurned(60));
    // What comes behind it is seen as it was before
    const core::SmartPtr<Leaf> next = addChild("next", 1);
    next->setSize(Vector2(20, 10));
    next->getView()->appendChild(new nurel::scene::meshes::SizeableRectangleMesh("next", Vector2(20, 10)));
    EXPECT_FALSE(isDrawnTurned(0));
    EXPECT_TRUE(isDrawnTurned(180));
    EXPECT_EQ(drawn, 1U);
    box->setRotation(Matrix3());
    EXPECT_TRUE(isDrawnTurned(180));
    EXPECT_EQ(drawn, 1U);
    EXPECT_TRUE(isDrawnTurned(0));
    EXPECT_EQ(drawn, 2U);
}

TEST_F(ComponentViewCulling, AScaleAboveMayTurnTheFaceAway) {
    look();
    // A hundred times as narrow, a face that is turned by 80 degrees stands at 89.9
    box->setScale(Vector2(0.01f, 1));
    EXPECT_TRUE(isDrawnTurned(-80, 0));
    EXPECT_TRUE(isDrawnTurned(80, 0));
    camera->setTranslation(camera->getTranslation() + Vector3(-50, 0, 0));
    EXPECT_FALSE(isDrawnTurned(-80, 0));
    EXPECT_TRUE(isDrawnTurned(80, 0));
    box->setScale(Vector2(-0.01f, 1)); // mirrored
    EXPECT_TRUE(isDrawnTurned(-80, 0));
    EXPECT_FALSE(isDrawnTurned(80, 0));
}

TEST_F(ComponentViewCulling, WithoutPerspectiveThePlaceDoesNotCount) {
    look();
    camera->setProjection(nurel::math::Matrix4::IDENTITY);
    for (const float x : {-50.0f, 0.0f, 50.0f}) {
        EXPECT_TRUE(isDrawnTurned(89, x)) << x;
        EXPECT_TRUE(isDrawnTurned(-89, x)) << x;
        EXPECT_FALSE(isDrawnTurned(91, x)) << x;
        EXPECT_FALSE(isDrawnTurned(-91, x)) << x;
    }
    camera->setRotation(Matrix3(0.5f, Vector3(0, 1, 0))); // 28.6 degrees
    EXPECT_NE(isDrawnTurned(100), isDrawnTurned(-100));
    EXPECT_NE(isDrawnTurned(80), isDrawnTurned(-80));
}

TEST_F(ComponentViewCulling, TheNaturalSizesCountWhateverTheScales) {
    // One pixel off the borders: a size that the scale makes odd moves the child by half of one.
    child->setScale(Vector2(3, 3));
    EXPECT_TRUE(isDrawnAt(58, 33));
    EXPECT_FALSE(isDrawnAt(61, 0)); // though it reaches into its parent
    EXPECT_FALSE(isDrawnAt(0, 36));
    child->setScale(Vector2(0.25f, 0.25f));
    EXPECT_TRUE(isDrawnAt(58, 33)); // though nothing of it is inside
    child->setScale(Vector2(1, 1));
    box->setScale(Vector2(0.5f, 0.5f));
    EXPECT_TRUE(isDrawnAt(58, 33));
    EXPECT_FALSE(isDrawnAt(61, 0));
}

TEST_F(ComponentViewCulling, NothingBelowWhatLiesOutsideIsDrawn) {
    const core::SmartPtr<Box> middle(new Box("middle"));
    middle->setSize(Vector2(20, 10));
    middle->setView(new ComponentView("middle", middle.get(), &skin()));
    box->removeChild(child.get());
    middle->addChild(child.get()); // with its mesh
    middle->getView()->insertView(child->getView());
    box->addChild(middle.get());
    middle->setPosition(Vector3(0, 0, 0));
    EXPECT_TRUE(isDrawnAt(0, 0));
    middle->setPosition(Vector3(61, 0, 0));
    EXPECT_FALSE(isDrawnAt(0, 0));
    EXPECT_FALSE(isDrawnAt(-15, 0)); // inside its own parent, and over the outermost
    middle->setPosition(Vector3(59, 0, 0));
    EXPECT_TRUE(isDrawnAt(-15, 0));
}

TEST_F(ComponentViewTest, InsertingAViewBringsTheInheritedPropertiesUpToDate) {
    using nurel::scene::Property;
    const core::SmartPtr<nurel::scene::properties::MaterialProperty> material(
        new nurel::scene::properties::MaterialProperty("material"));
    const core::SmartPtr<Node> above(new Node("above"));
    above->appendChild(view.get());
    above->setProperty(material.get());
    ASSERT_NE(view->getPropertySet().getEffective(Property::MATERIAL), material.get()); // not before an update
    Leaf leaf("leaf");
    const core::SmartPtr<ComponentView> leafView(new ComponentView("leaf", &leaf, &skin()));
    view->insertView(leafView.get());
    EXPECT_EQ(view->getPropertySet().getEffective(Property::MATERIAL), material.get());
    EXPECT_EQ(leafView->getProperty(Property::MATERIAL), material.get());
}

} // namespace test
